#include "platform/documents/rtf_reader.h"

#include <QStringDecoder>
#include <QTextBlockFormat>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>

#include <algorithm>
#include <array>
#include <climits>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace documents {

namespace {

// Bytes 0x80-0x9F of Windows code page 1252; the rest of its upper half is Latin-1.
constexpr char16_t kCp1252High[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

using CodePage = std::array<char16_t, 256>;

CodePage codePage1252() {
    CodePage page{};
    for (int b = 0; b < 256; ++b) page[b] = char16_t(b);
    for (int b = 0; b < 32; ++b) page[0x80 + b] = kCp1252High[b];
    return page;
}

// A single-byte code page by its Windows number; one Qt cannot decode reads as 1252.
CodePage codePageOf(int number) {
    CodePage page = codePage1252();
    if (number == 1252) return page;
    const QByteArray name = number == 10000 ? QByteArray("macintosh")
                            : (number >= 1250 && number <= 1258 ? "windows-" : "cp") + QByteArray::number(number);
    QStringDecoder decoder(name.constData());
    if (!decoder.isValid()) return page;
    for (int b = 0x80; b < 256; ++b) {
        const char byte = char(b);
        const QString one = decoder.decode(QByteArrayView(&byte, 1));
        decoder.resetState();
        if (one.size() == 1) page[b] = one[0].unicode();
    }
    return page;
}

struct CharProps {
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strike = false;
    int vertical = 0;  // -1 subscript, 1 superscript
    int halfPoints = 24;
    QString href;
    bool operator==(const CharProps&) const = default;
};

struct ParaProps {
    Qt::Alignment align = Qt::AlignLeft;
    int left = 0, right = 0, first = 0, before = 0, after = 0;  // twips
    std::array<int, 32> tabs{};                                  // tab stops, twips from the left margin
    int tabCount = 0;
    bool inTable = false;  // \intbl: the paragraph belongs to a table cell
    bool operator==(const ParaProps&) const = default;
};

// Widest table we build; further cells of a row run on in its last cell.
constexpr int kMaxColumns = 64;

enum class Dest { Text, FieldInstruction, Bookmark, Skip };

struct Group {
    CharProps chr;
    ParaProps para;
    Dest dest = Dest::Text;
    int uc = 1;  // bytes of fallback that follow each \uN
};

enum class Word {
    Skip, Star, FieldInstruction, BookmarkStart, FieldResult, Field,
    Par, Pard, Line, Tab, Cell, Row, InTable, RowDefaults, CellRight, Plain,
    Bold, Italic, Underline, UnderlineNone, Strike, FontSize, Super, Sub, NoSuperSub,
    AlignLeft, AlignCenter, AlignRight, AlignJustify, LeftIndent, RightIndent, FirstIndent, SpaceBefore,
    SpaceAfter, TabStop,
    Ansi, Mac, Pc, Pca, AnsiCodePage, Uc, U, Bin,
    Char,  // a named special character
};

struct WordInfo {
    Word word;
    char16_t ch = 0;
};

const std::unordered_map<std::string_view, WordInfo>& words() {
    static const std::unordered_map<std::string_view, WordInfo> table = [] {
        std::unordered_map<std::string_view, WordInfo> t;
        // Destinations whose text is not part of the document body.
        for (const char* w : {"fonttbl", "colortbl", "stylesheet", "info", "pict", "object", "header", "footer",
                              "headerl", "headerr", "headerf", "footerl", "footerr", "footerf", "footnote",
                              "annotation", "themedata", "colorschememapping", "latentstyles", "datastore",
                              "xmlnstbl", "listtable", "listoverridetable", "rsidtbl", "generator", "pgdsctbl",
                              "revtbl", "filetbl", "fontemb", "fonturl", "objdata", "nonshppict", "pn",
                              "bkmkend", "xe", "tc", "txe", "template", "userprops", "docvar",
                              "private", "shpinst", "mmathPr", "wgrffmtfilter", "pnseclvl", "atnid",
                              "atnauthor", "atrfstart", "atrfend", "comment", "author", "title", "subject",
                              "keywords", "doccomm", "operator", "company", "hlinkbase"})
            t[w] = {Word::Skip};
        const std::pair<const char*, Word> plain[] = {
            {"fldinst", Word::FieldInstruction}, {"bkmkstart", Word::BookmarkStart}, {"fldrslt", Word::FieldResult}, {"field", Word::Field},
            {"par", Word::Par}, {"page", Word::Par}, {"sect", Word::Par}, {"row", Word::Row}, {"nestrow", Word::Par},
            {"pard", Word::Pard}, {"line", Word::Line}, {"tab", Word::Tab}, {"cell", Word::Cell}, {"intbl", Word::InTable}, {"trowd", Word::RowDefaults},
            {"cellx", Word::CellRight},
            {"nestcell", Word::Tab}, {"plain", Word::Plain}, {"b", Word::Bold}, {"i", Word::Italic},
            {"ul", Word::Underline}, {"uld", Word::Underline}, {"uldb", Word::Underline},
            {"uldash", Word::Underline}, {"ulw", Word::Underline}, {"ulwave", Word::Underline},
            {"ulth", Word::Underline}, {"ulnone", Word::UnderlineNone}, {"strike", Word::Strike},
            {"fs", Word::FontSize}, {"super", Word::Super}, {"sub", Word::Sub}, {"nosupersub", Word::NoSuperSub},
            {"ql", Word::AlignLeft}, {"qc", Word::AlignCenter}, {"qr", Word::AlignRight},
            {"qj", Word::AlignJustify}, {"li", Word::LeftIndent}, {"ri", Word::RightIndent},
            {"fi", Word::FirstIndent}, {"sb", Word::SpaceBefore}, {"sa", Word::SpaceAfter}, {"tx", Word::TabStop},
            {"ansi", Word::Ansi}, {"mac", Word::Mac}, {"pc", Word::Pc}, {"pca", Word::Pca},
            {"ansicpg", Word::AnsiCodePage}, {"uc", Word::Uc}, {"u", Word::U}, {"bin", Word::Bin}};
        for (const auto& [w, word] : plain) t[w] = {word};
        const std::pair<const char*, char16_t> chars[] = {
            {"emdash", 0x2014}, {"endash", 0x2013}, {"bullet", 0x2022}, {"lquote", 0x2018},
            {"rquote", 0x2019}, {"ldblquote", 0x201C}, {"rdblquote", 0x201D}, {"emspace", 0x2003},
            {"enspace", 0x2002}, {"qmspace", 0x2005}, {"zwj", 0x200D}, {"zwnj", 0x200C},
            {"ltrmark", 0x200E}, {"rtlmark", 0x200F}};
        for (const auto& [w, ch] : chars) t[w] = {Word::Char, ch};
        return t;
    }();
    return table;
}

// "HYPERLINK \"file\"", "HYPERLINK \\l \"bookmark\"" or both ("file#bookmark") to the link target; anything else
// to "". Word writes the bookmark's switch before or after the file; other switches and their values drop.
QString hyperlinkTarget(const QString& instruction) {
    QString rest = instruction.trimmed();
    if (!rest.startsWith(QLatin1String("HYPERLINK"), Qt::CaseInsensitive)) return {};
    rest = rest.mid(9).trimmed();
    // Takes the next word, quoted or not, off the front of `rest`.
    const auto nextWord = [&rest] {
        QString word;
        if (rest.startsWith(QLatin1Char('"'))) {
            const qsizetype close = rest.indexOf(QLatin1Char('"'), 1);
            word = rest.mid(1, close < 0 ? -1 : close - 1);
            rest = close < 0 ? QString() : rest.mid(close + 1).trimmed();
        } else {
            const qsizetype blank = rest.indexOf(QLatin1Char(' '));
            word = blank < 0 ? rest : rest.left(blank);
            rest = blank < 0 ? QString() : rest.mid(blank).trimmed();
        }
        return word;
    };
    QString file, bookmark;
    while (!rest.isEmpty()) {
        if (rest.startsWith(QLatin1String("\\l"))) {
            rest = rest.mid(2).trimmed();
            bookmark = nextWord();
        } else if (rest.startsWith(QLatin1Char('\\'))) {
            // \o (tip) and \t (frame) carry a value; \m and \n stand alone
            const bool valued = rest.startsWith(QLatin1String("\\o")) || rest.startsWith(QLatin1String("\\t"));
            const qsizetype blank = rest.indexOf(QLatin1Char(' '));
            rest = blank < 0 ? QString() : rest.mid(blank).trimmed();
            if (valued) nextWord();
        } else if (file.isEmpty()) {
            file = nextWord();
        } else {
            nextWord();
        }
    }
    if (bookmark.isEmpty()) return file;
    return file + QLatin1Char('#') + bookmark;
}

class Reader {
public:
    Reader(const QByteArray& rtf, QTextDocument& document)
        : p_(rtf.constData()), end_(rtf.constData() + rtf.size()), cursor_(&document), page_(codePage1252()) {
        stack_.reserve(64);
        stack_.emplace_back();
        run_.reserve(4096);
    }

    void read() {
        // One edit block: the document reports its change once, at the end, not after every run.
        cursor_.beginEditBlock();
        while (p_ < end_) {
            const char c = *p_;
            if (c == '{') {
                ++p_;
                openGroup();
            } else if (c == '}') {
                ++p_;
                closeGroup();
            } else if (c == '\\') {
                ++p_;
                control();
            } else if (c == '\r' || c == '\n') {
                ++p_;
            } else {
                ++p_;
                star_ = false;
                if (skipCount_ > 0) {
                    --skipCount_;
                    continue;
                }
                putByte(static_cast<unsigned char>(c));
            }
        }
        flush();
        if (!pendingBlock_) cursor_.setBlockFormat(blockFormat(lastTextPara_));
        cursor_.endEditBlock();
    }

private:
    Group& top() { return stack_.back(); }
    bool skipping() const { return overflow_ > 0 || stack_.back().dest == Dest::Skip; }

    void openGroup() {
        skipCount_ = 0;
        star_ = false;
        if (overflow_ > 0 || int(stack_.size()) > kRtfMaxDepth) {
            ++overflow_;
            return;
        }
        stack_.push_back(stack_.back());
        dirty_ = true;
        paraDirty_ = true;
    }

    void closeGroup() {
        skipCount_ = 0;
        star_ = false;
        if (overflow_ > 0) {
            --overflow_;
            return;
        }
        if (stack_.size() > 1) stack_.pop_back();  // a stray '}' at the outer level is ignored
        dirty_ = true;
        paraDirty_ = true;
    }

    // After a backslash: a control word with its number, or a control symbol.
    void control() {
        if (p_ >= end_) return;
        const char c = *p_;
        if (isLetter(c)) {
            const char* start = p_;
            while (p_ < end_ && isLetter(*p_)) ++p_;
            const std::string_view name(start, std::size_t(p_ - start));
            bool hasNumber = false;
            long long number = 0;
            bool negative = false;
            if (p_ < end_ && *p_ == '-' && p_ + 1 < end_ && isDigit(p_[1])) {
                negative = true;
                ++p_;
            }
            while (p_ < end_ && isDigit(*p_)) {
                hasNumber = true;
                if (number < 100000000000LL) number = number * 10 + (*p_ - '0');
                ++p_;
            }
            if (p_ < end_ && *p_ == ' ') ++p_;
            if (negative) number = -number;
            number = std::clamp<long long>(number, INT_MIN, INT_MAX);
            word(name, hasNumber, int(number));
            return;
        }
        ++p_;
        if (c == '*') {
            star_ = true;
            return;
        }
        star_ = false;
        if (c == '\'') {
            int value = 0, digits = 0;
            while (digits < 2 && p_ < end_ && hexValue(*p_) >= 0) {
                value = value * 16 + hexValue(*p_);
                ++p_;
                ++digits;
            }
            if (skipCount_ > 0) {
                --skipCount_;
                return;
            }
            if (digits > 0) putByte(static_cast<unsigned char>(value));
            return;
        }
        if (skipCount_ > 0) {
            --skipCount_;
            return;
        }
        switch (c) {
        case '\\': case '{': case '}': put(QChar::fromLatin1(c)); break;
        case '~': put(QChar(0x00A0)); break;
        case '-': put(QChar(0x00AD)); break;
        case '_': put(QChar(0x2011)); break;
        case '\r': case '\n': paragraph(); break;
        case '\t': put(QChar(u'\t')); break;
        default: break;
        }
    }

    void word(std::string_view name, bool hasNumber, int number) {
        const bool starred = star_;
        star_ = false;
        const auto& table = words();
        const auto found = table.find(name);
        if (starred && (found == table.end() || (found->second.word != Word::FieldInstruction &&
                                                 found->second.word != Word::BookmarkStart))) {
            top().dest = Dest::Skip;  // an ignorable destination we do not read
            return;
        }
        if (found == table.end()) return;
        const WordInfo info = found->second;
        if (info.word == Word::Bin) {  // binary data: pass over its bytes whatever the group
            const long long n = std::max(0, number);
            p_ += std::min<long long>(n, end_ - p_);
            return;
        }
        if (skipCount_ > 0) {
            --skipCount_;
            return;
        }
        Group& g = top();
        const bool on = !hasNumber || number != 0;
        paraDirty_ = true;
        switch (info.word) {
        case Word::Skip: g.dest = Dest::Skip; break;
        case Word::Star: break;
        case Word::Field: fieldInstruction_.clear(); break;
        case Word::FieldInstruction:
            if (g.dest != Dest::Skip) g.dest = Dest::FieldInstruction;
            break;
        case Word::BookmarkStart:
            if (g.dest != Dest::Skip) {
                g.dest = Dest::Bookmark;
                bookmark_.clear();
            }
            break;
        case Word::FieldResult:
            if (g.dest != Dest::Skip) {
                g.dest = Dest::Text;
                g.chr.href = hyperlinkTarget(fieldInstruction_);
                dirty_ = true;
            }
            break;
        case Word::Par: paragraph(); break;
        case Word::Pard: g.para = ParaProps{}; break;
        case Word::Line: put(QChar::LineSeparator); break;
        case Word::Tab: put(QChar(u'\t')); break;
        case Word::Cell: endCell(); break;
        case Word::Row: endRow(); break;
        case Word::InTable: g.para.inTable = true; break;
        case Word::RowDefaults: cellRights_.clear(); break;
        case Word::CellRight:
            if (int(cellRights_.size()) < kMaxColumns) cellRights_.push_back(twips(number));
            break;
        case Word::Plain: {
            const QString href = g.chr.href;  // \plain resets formatting, not the link it stands in
            g.chr = CharProps{};
            g.chr.href = href;
            dirty_ = true;
            break;
        }
        case Word::Bold: g.chr.bold = on; dirty_ = true; break;
        case Word::Italic: g.chr.italic = on; dirty_ = true; break;
        case Word::Underline: g.chr.underline = on; dirty_ = true; break;
        case Word::UnderlineNone: g.chr.underline = false; dirty_ = true; break;
        case Word::Strike: g.chr.strike = on; dirty_ = true; break;
        case Word::FontSize:
            g.chr.halfPoints = hasNumber ? std::clamp(number, 2, 1000) : 24;
            dirty_ = true;
            break;
        case Word::Super: g.chr.vertical = 1; dirty_ = true; break;
        case Word::Sub: g.chr.vertical = -1; dirty_ = true; break;
        case Word::NoSuperSub: g.chr.vertical = 0; dirty_ = true; break;
        case Word::AlignLeft: g.para.align = Qt::AlignLeft; break;
        case Word::AlignCenter: g.para.align = Qt::AlignHCenter; break;
        case Word::AlignRight: g.para.align = Qt::AlignRight; break;
        case Word::AlignJustify: g.para.align = Qt::AlignJustify; break;
        case Word::LeftIndent: g.para.left = twips(number); break;
        case Word::RightIndent: g.para.right = twips(number); break;
        case Word::FirstIndent: g.para.first = twips(number); break;
        case Word::SpaceBefore: g.para.before = twips(number); break;
        case Word::SpaceAfter: g.para.after = twips(number); break;
        case Word::TabStop:
            if (g.para.tabCount < int(g.para.tabs.size())) g.para.tabs[g.para.tabCount++] = twips(number);
            break;
        case Word::Ansi: page_ = codePage1252(); break;
        case Word::Mac: page_ = codePageOf(10000); break;
        case Word::Pc: page_ = codePageOf(437); break;
        case Word::Pca: page_ = codePageOf(850); break;
        case Word::AnsiCodePage:
            if (hasNumber) page_ = codePageOf(number);
            break;
        case Word::Uc: g.uc = std::max(0, number); break;
        case Word::U: {
            long long code = number;
            if (code < 0) code += 65536;  // RTF writes code points above 32767 as negative 16-bit numbers
            if (code > 0 && code <= 0xFFFF) put(QChar(char16_t(code)));
            skipCount_ = g.uc;
            break;
        }
        case Word::Char: put(QChar(info.ch)); break;
        case Word::Bin: break;
        }
    }

    static int twips(int n) { return std::clamp(n, -31680, 31680); }  // within 22 inches either way

    void putByte(unsigned char byte) {
        if (byte < 0x20) {
            if (byte == '\t') put(QChar(u'\t'));
            return;  // other control bytes are not text
        }
        put(QChar(page_[byte]));
    }

    void put(QChar ch) {
        if (overflow_ > 0) return;
        Group& g = top();
        if (g.dest == Dest::Skip) return;
        if (g.dest == Dest::FieldInstruction) {
            if (fieldInstruction_.size() < 4096) fieldInstruction_.append(ch);
            return;
        }
        if (g.dest == Dest::Bookmark) {
            if (bookmark_.size() < 256) bookmark_.append(ch);
            return;
        }
        if (g.para.inTable || table_) placeForTable(g.para);
        if (pendingBlock_) {
            flush();
            newBlock();
            pendingBlock_ = false;
        }
        if (!bookmark_.isEmpty()) {
            // A bookmark names the character that follows it, so that a link to "#name" can be scrolled to.
            flush();
            QTextCharFormat named = charFormat(g.chr);
            named.setAnchor(true);
            named.setAnchorNames({bookmark_});
            cursor_.insertText(QString(ch), named);
            bookmark_.clear();
            dirty_ = true;
            return;
        }
        if (dirty_) {
            if (!(g.chr == runProps_)) {
                flush();
                runProps_ = g.chr;
            }
            dirty_ = false;
        }
        run_.append(ch);
        if (paraDirty_) {
            lastTextPara_ = g.para;
            paraDirty_ = false;
        }
    }

    // Ends the paragraph: it takes the paragraph properties in force at its \par. The next block is made
    // only when more text comes, so a closing \par leaves no empty paragraph behind.
    void paragraph() {
        if (skipping() || top().dest != Dest::Text) return;
        if (top().para.inTable || table_) placeForTable(top().para);
        if (pendingBlock_) {
            flush();
            newBlock();
        }
        flush();
        cursor_.setBlockFormat(blockFormat(top().para));
        pendingBlock_ = true;
    }

    // Tables. A cell or row end only marks the end; the cursor moves on when the next content comes, so
    // that the last \cell of a row makes no extra column and the last \row no extra row.
    void placeForTable(const ParaProps& para) {
        if (!para.inTable) {
            if (table_) closeTable();
            return;
        }
        if (!table_) {
            openTable();
        } else if (rowEnded_) {
            flush();
            table_->appendRows(1);
            ++row_;
            col_ = 0;
            widenTable(int(cellRights_.size()));
            cursor_ = table_->cellAt(row_, 0).firstCursorPosition();
        } else if (cellEnded_) {
            flush();
            if (col_ + 1 >= table_->columns()) widenTable(col_ + 2);
            if (col_ + 1 < table_->columns()) {
                ++col_;
                cursor_ = table_->cellAt(row_, col_).firstCursorPosition();
            } else {
                run_.append(QChar(u'\t'));  // beyond the widest table: the cell runs on
            }
        }
        rowEnded_ = cellEnded_ = false;
    }

    void openTable() {
        flush();
        pendingBlock_ = false;  // Qt puts the table after the paragraph that just ended
        const int columns = std::max<int>(1, int(cellRights_.size()));
        QTextTableFormat format;
        format.setBorder(1);
        format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format.setBorderCollapse(true);
        format.setCellSpacing(0);
        format.setCellPadding(4);
        QList<QTextLength> widths;
        int left = 0;
        for (int right : cellRights_) {
            widths.append(QTextLength(QTextLength::FixedLength, std::max(15, right - left) / 15.0));
            left = right;
        }
        if (int(widths.size()) == columns) format.setColumnWidthConstraints(widths);
        table_ = cursor_.insertTable(1, columns, format);
        row_ = col_ = 0;
    }

    void widenTable(int columns) {
        columns = std::min(columns, kMaxColumns);
        if (columns > table_->columns()) table_->appendColumns(columns - table_->columns());
    }

    void closeTable() {
        flush();
        cursor_ = table_->lastCursorPosition();
        cursor_.movePosition(QTextCursor::NextBlock);
        table_ = nullptr;
        pendingBlock_ = rowEnded_ = cellEnded_ = false;
    }

    void endCell() {
        if (skipping() || top().dest != Dest::Text) return;
        if (!top().para.inTable && !table_) {
            put(QChar(u'\t'));  // a cell outside any table reads as a tab
            return;
        }
        placeForTable(top().para);
        flush();
        pendingBlock_ = false;
        cellEnded_ = true;
    }

    void endRow() {
        if (skipping() || top().dest != Dest::Text) return;
        if (!table_) {
            paragraph();
            return;
        }
        flush();
        pendingBlock_ = false;
        rowEnded_ = true;
        cellEnded_ = false;
    }

    void flush() {
        if (run_.isEmpty()) return;
        cursor_.insertText(run_, charFormat(runProps_));
        run_.clear();
    }

    // A new paragraph; the block format and the character format are given, so the cursor is not asked.
    void newBlock() { cursor_.insertBlock(blockFormat_, charFormat(runProps_)); }

    // Formats are kept and handed out again: a document reuses a handful of them, and the document
    // looks up a format it has seen faster than a new one.
    const QTextCharFormat& charFormat(const CharProps& c) {
        for (const auto& [props, format] : charFormats_)
            if (props == c) return format;
        if (charFormats_.size() >= 32) charFormats_.clear();
        charFormats_.emplace_back(c, makeCharFormat(c));
        return charFormats_.back().second;
    }

    const QTextBlockFormat& blockFormat(const ParaProps& p) {
        if (!(p == blockProps_)) {
            blockProps_ = p;
            blockFormat_ = makeBlockFormat(p);
        }
        return blockFormat_;
    }

    static QTextCharFormat makeCharFormat(const CharProps& c) {
        QTextCharFormat f;
        f.setFontWeight(c.bold ? QFont::Bold : QFont::Normal);
        f.setFontItalic(c.italic);
        f.setFontUnderline(c.underline);
        f.setFontStrikeOut(c.strike);
        f.setFontPointSize(c.halfPoints / 2.0);
        if (c.vertical != 0)
            f.setVerticalAlignment(c.vertical > 0 ? QTextCharFormat::AlignSuperScript
                                                  : QTextCharFormat::AlignSubScript);
        if (!c.href.isEmpty()) {
            f.setAnchor(true);
            f.setAnchorHref(c.href);
        }
        return f;
    }

    static QTextBlockFormat makeBlockFormat(const ParaProps& p) {
        // Twips to the document's pixels at 96 dpi.
        QTextBlockFormat f;
        f.setAlignment(p.align);
        f.setLeftMargin(p.left / 15.0);
        f.setRightMargin(p.right / 15.0);
        f.setTextIndent(p.first / 15.0);
        f.setTopMargin(p.before / 15.0);
        f.setBottomMargin(p.after / 15.0);
        if (p.tabCount > 0) {
            // Both RTF and Qt measure tab stops from the page's left edge, not the paragraph's indent.
            QList<QTextOption::Tab> tabs;
            for (int t = 0; t < p.tabCount; ++t)
                if (p.tabs[t] > 0) tabs.append(QTextOption::Tab(p.tabs[t] / 15.0, QTextOption::LeftTab));
            f.setTabPositions(tabs);
        }
        return f;
    }

    static bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
    static bool isDigit(char c) { return c >= '0' && c <= '9'; }
    static int hexValue(char c) {
        if (c >= '0' && c <= '9') return c - '0';
        if (c >= 'a' && c <= 'f') return c - 'a' + 10;
        if (c >= 'A' && c <= 'F') return c - 'A' + 10;
        return -1;
    }

    const char* p_;
    const char* end_;
    QTextCursor cursor_;
    CodePage page_;
    std::vector<Group> stack_;
    int overflow_ = 0;        // groups opened beyond the depth cap, passed over whole
    int skipCount_ = 0;       // fallback characters still to drop after a \uN
    bool star_ = false;       // "\*" seen: the next destination is ignorable
    bool dirty_ = true;       // character properties may have changed since the last run
    bool pendingBlock_ = false;
    bool paraDirty_ = true;  // paragraph properties may have changed since lastTextPara_ was taken
    ParaProps lastTextPara_;  // paragraph properties at the last text, for a last paragraph with no \par
    CharProps runProps_;
    QString run_;
    QString fieldInstruction_;
    QString bookmark_;  // name of a bookmark whose text has not come yet
    std::vector<std::pair<CharProps, QTextCharFormat>> charFormats_;
    ParaProps blockProps_;
    QTextBlockFormat blockFormat_ = makeBlockFormat(ParaProps{});
    QTextTable* table_ = nullptr;   // the table the cursor stands in
    int row_ = 0, col_ = 0;
    bool cellEnded_ = false, rowEnded_ = false;
    std::vector<int> cellRights_;   // \cellx of the current row definition, twips
};

}  // namespace

void readRtf(const QByteArray& rtf, QTextDocument& document) {
    document.clear();
    const bool undo = document.isUndoRedoEnabled();
    document.setUndoRedoEnabled(false);
    Reader(rtf, document).read();
    document.setUndoRedoEnabled(undo);
}

}  // namespace documents
