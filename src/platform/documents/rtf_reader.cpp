#include "platform/documents/rtf_reader.h"

#include "platform/documents/rtf_fonts.h"
#include "platform/documents/rtf_pictures.h"
#include "platform/documents/rtf_tables.h"
#include "platform/documents/rtf_words.h"

#include <QTextBlockFormat>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextImageFormat>
#include <QTextTable>
#include <QUrl>

#include <algorithm>
#include <array>
#include <climits>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace documents {

namespace {

using namespace rtf;

struct CharProps {
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strike = false;
    int vertical = 0;  // -1 subscript, 1 superscript
    int halfPoints = 24;
    int font = -1;     // \fN; -1 is the document's default font
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
// A long table is built as tables of this many rows, one under the other, so that the view lays out only
// the rows it shows; Qt lays a table out whole.
constexpr int kRowsPerTable = 100;
// A paragraph longer than this is laid out in pieces, broken at the next blank, or anywhere past the hard
// limit: Qt lays a paragraph out whole, and one of megabytes stalls the view for seconds.
constexpr int kSoftBreak = 4096;
constexpr int kHardBreak = 16384;
// Empty paragraphs in a row beyond this many add nothing a reader can see, only memory.
constexpr int kMaxEmptyParagraphs = 100;
// A run of hex digits this long in the text is picture data whose group was damaged, not words.
constexpr int kStrayHexRun = 256;

enum class Dest { Text, FieldInstruction, Bookmark, FontTable, Picture, Skip };
// What holds a picture: nothing, \shppict (the picture itself) or \nonshppict (an alternative for readers
// that do not know the first; read only to stand in for a metafile).
enum class Wrap { None, Shape, NonShape };

struct Group {
    CharProps chr;
    ParaProps para;
    Dest dest = Dest::Text;
    Wrap wrap = Wrap::None;
    int uc = 1;  // bytes of fallback that follow each \uN
};

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
        : p_(rtf.constData()), end_(rtf.constData() + rtf.size()), cursor_(&document), document_(document) {
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
                star_ = false;
                if (skipCount_ > 0) {
                    ++p_;
                    --skipCount_;
                    continue;
                }
                const Dest dest = overflow_ > 0 ? Dest::Skip : top().dest;
                if (dest == Dest::Picture) {
                    pictureData();
                    continue;
                }
                if (dest == Dest::Text && hexValue(c) >= 0 && p_ >= hexClearUntil_ && skipStrayHex()) continue;
                ++p_;
                putByte(static_cast<unsigned char>(c));
            }
        }
        if (pictureDepth_ > 0) finishPicture();  // a picture cut off by the end of the file
        if (table_) closeTable();
        flush();
        if (!pendingBlock_) cursor_.setBlockFormat(pieceFormat(lastTextPara_, true));
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
        if (pictureDepth_ == int(stack_.size())) finishPicture();
        if (top().dest == Dest::FontTable) commitFont();  // an entry without its ';'
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
        const WordInfo* found = findWord(name);
        if (found && found->word == Word::Bin) {  // binary data: pass over its bytes whatever the group
            const long long n = std::min<long long>(std::max(0, number), end_ - p_);
            if (overflow_ == 0 && top().dest == Dest::Picture) picture_.data.append(p_, qsizetype(n));
            p_ += n;
            return;
        }
        if (overflow_ > 0) return;  // a group beyond the depth cap changes nothing
        if (starred && (!found || (found->word != Word::FieldInstruction && found->word != Word::BookmarkStart &&
                                   found->word != Word::ShapePicture))) {
            top().dest = Dest::Skip;  // an ignorable destination we do not read
            return;
        }
        if (!found) return;
        const WordInfo info = *found;
        if (skipCount_ > 0) {
            --skipCount_;
            return;
        }
        Group& g = top();
        const bool on = !hasNumber || number != 0;
        paraDirty_ = true;
        switch (info.word) {
        case Word::Skip: g.dest = Dest::Skip; break;
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
        case Word::RowDefaults:
            cellDefs_.clear();
            pendingCell_ = CellDef{};
            borderSide_ = -1;
            break;
        case Word::CellRight:
            pendingCell_.right = twips(number);
            if (int(cellDefs_.size()) < kMaxColumns) cellDefs_.push_back(pendingCell_);
            pendingCell_ = CellDef{};
            borderSide_ = -1;
            break;
        case Word::CellBorder:
            borderSide_ = info.value;
            pendingCell_.borders[borderSide_] = Border{};
            break;
        case Word::OtherBorder: borderSide_ = -1; break;
        case Word::BorderStyle:
            if (borderSide_ >= 0) pendingCell_.borders[borderSide_].kind = BorderKind(info.value);
            break;
        case Word::BorderWidth:
            if (borderSide_ >= 0) pendingCell_.borders[borderSide_].width = std::clamp(number, 0, 300);
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
        case Word::Ansi: setDocumentPage(codePage1252()); break;
        case Word::Mac: setDocumentPage(codePage(10000)); break;
        case Word::Pc: setDocumentPage(codePage(437)); break;
        case Word::Pca: setDocumentPage(codePage(850)); break;
        case Word::AnsiCodePage:
            if (hasNumber) setDocumentPage(codePage(number));
            break;
        case Word::Uc: g.uc = std::max(0, number); break;
        case Word::U: {
            long long code = number;
            if (code < 0) code += 65536;  // RTF writes code points above 32767 as negative 16-bit numbers
            if (code > 0 && code <= 0xFFFF) put(QChar(char16_t(code)));
            skipCount_ = g.uc;
            break;
        }
        case Word::Char: put(QChar(char16_t(info.value))); break;
        case Word::FontTable:
            if (g.dest == Dest::Text) g.dest = Dest::FontTable;
            break;
        case Word::Font:
            if (g.dest == Dest::FontTable) {
                commitFont();
                fontNumber_ = number;
            } else {
                g.chr.font = number;
                dirty_ = true;
            }
            break;
        case Word::DefaultFont:
            deff_ = number;
            pageFont_ = INT_MIN;
            break;
        case Word::FontFamily:
            if (g.dest == Dest::FontTable) font_.family = QFont::StyleHint(info.value);
            break;
        case Word::FontCharset:
            if (g.dest == Dest::FontTable) font_.charset = number;
            break;
        case Word::ShapePicture:
            if (g.dest == Dest::Text) g.wrap = Wrap::Shape;
            break;
        case Word::NonShapePicture:
            if (g.dest == Dest::Text) g.wrap = Wrap::NonShape;
            g.dest = Dest::Skip;
            break;
        case Word::Picture:
            if (pictureDepth_ == 0 && (g.dest == Dest::Text || (g.dest == Dest::Skip && g.wrap == Wrap::NonShape))) {
                g.dest = Dest::Picture;
                pictureDepth_ = int(stack_.size());
                pictureWrap_ = g.wrap;
                picture_ = PictureProps{};
                nibble_ = -1;
            } else {
                g.dest = Dest::Skip;
            }
            break;
        case Word::PictureKind:
            if (g.dest == Dest::Picture) picture_.kind = PictureKind(info.value);
            break;
        case Word::PictureWidth: pictureSize(g, picture_.width, number); break;
        case Word::PictureHeight: pictureSize(g, picture_.height, number); break;
        case Word::PictureGoalWidth: pictureSize(g, picture_.goalWidth, number); break;
        case Word::PictureGoalHeight: pictureSize(g, picture_.goalHeight, number); break;
        case Word::PictureScaleX: pictureSize(g, picture_.scaleX, number); break;
        case Word::PictureScaleY: pictureSize(g, picture_.scaleY, number); break;
        case Word::Bin: break;
        }
    }

    static int twips(int n) { return std::clamp(n, -31680, 31680); }  // within 22 inches either way

    void pictureSize(const Group& g, int& field, int number) {
        if (g.dest == Dest::Picture) field = std::clamp(number, 0, 1000000);
    }

    // Fonts and their code pages.
    void commitFont() {
        if (fontNumber_ >= 0 && fonts_.size() < 4096) {
            font_.name = font_.name.trimmed();
            fonts_[fontNumber_] = font_;
            charFormats_.clear();
            pageFont_ = INT_MIN;
        }
        font_ = FontEntry{};
        fontNumber_ = -1;
    }

    void setDocumentPage(const CodePage& page) {
        documentPage_ = &page;
        pageFont_ = INT_MIN;
    }

    const FontEntry* fontOf(const CharProps& c) const {
        const auto found = fonts_.find(c.font < 0 ? deff_ : c.font);
        return found == fonts_.end() ? nullptr : &found->second;
    }

    // The code page of the run's font, looked up again only when the font changes.
    const CodePage& runPage() {
        const int font = top().chr.font < 0 ? deff_ : top().chr.font;
        if (font != pageFont_) {
            pageFont_ = font;
            const FontEntry* entry = fontOf(top().chr);
            runPage_ = entry ? &pageOf(*entry, *documentPage_) : documentPage_;
        }
        return *runPage_;
    }

    void putByte(unsigned char byte) {
        if (byte < 0x20) {
            if (byte == '\t') put(QChar(u'\t'));
            return;  // other control bytes are not text
        }
        put(QChar(runPage()[byte]));
    }

    void put(QChar ch) {
        if (overflow_ > 0) return;
        Group& g = top();
        switch (g.dest) {
        case Dest::Skip: case Dest::Picture: return;
        case Dest::FieldInstruction:
            if (fieldInstruction_.size() < 4096) fieldInstruction_.append(ch);
            return;
        case Dest::Bookmark:
            if (bookmark_.size() < 256) bookmark_.append(ch);
            return;
        case Dest::FontTable:
            if (ch == u';') commitFont();
            else if (fontNumber_ >= 0 && font_.name.size() < 128) font_.name.append(ch);
            return;
        case Dest::Text: break;
        }
        beginContent(g.para);
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
        if (++blockChars_ >= kHardBreak || (blockChars_ >= kSoftBreak && ch == u' ')) splitParagraph();
    }

    // Where content goes: into the table cell it belongs to, and into a new paragraph after a \par.
    void beginContent(const ParaProps& para) {
        if (para.inTable || table_) placeForTable(para);
        if (pendingBlock_) {
            flush();
            newBlock();
            pendingBlock_ = false;
        }
        emptyParagraphs_ = 0;
        replaceable_ = false;
    }

    // Ends the paragraph: it takes the paragraph properties in force at its \par. The next block is made
    // only when more text comes, so a closing \par leaves no empty paragraph behind.
    void paragraph() {
        if (skipping() || top().dest != Dest::Text) return;
        if (pendingBlock_ && !table_) {
            if (emptyParagraphs_ >= kMaxEmptyParagraphs) return;
            ++emptyParagraphs_;
        }
        if (top().para.inTable || table_) placeForTable(top().para);
        if (pendingBlock_) {
            flush();
            newBlock();
        }
        flush();
        cursor_.setBlockFormat(pieceFormat(top().para, true));
        pendingBlock_ = true;
        replaceable_ = false;
    }

    // Ends a piece of a long paragraph in the middle: no space below it, none above the next piece and no
    // first-line indent on it, so the pieces read as one paragraph.
    void splitParagraph() {
        flush();
        cursor_.setBlockFormat(pieceFormat(top().para, false));
        newBlock();
        continuing_ = true;
    }

    const QTextBlockFormat& pieceFormat(const ParaProps& para, bool last) {
        if (!continuing_ && last) return blockFormat(para);
        ParaProps piece = para;
        if (continuing_) piece.before = piece.first = 0;
        if (!last) piece.after = 0;
        return blockFormat(piece);
    }

    // Pictures. The hex run of the picture's group is its bytes; anything else in it is passed over.
    void pictureData() {
        while (p_ < end_) {
            const char c = *p_;
            if (c == '{' || c == '}' || c == '\\') return;
            ++p_;
            const int v = hexValue(c);
            if (v < 0) continue;
            if (nibble_ < 0) {
                nibble_ = v;
            } else {
                picture_.data.append(char(nibble_ * 16 + v));
                nibble_ = -1;
            }
        }
    }

    // Hex digits at p_, across line ends. A long run is dropped whole; a short one is text, and is not
    // looked at again.
    bool skipStrayHex() {
        const char* q = p_;
        int digits = 0;
        while (q < end_ && (hexValue(*q) >= 0 || *q == '\r' || *q == '\n')) {
            digits += *q != '\r' && *q != '\n';
            ++q;
        }
        if (digits < kStrayHexRun) {
            hexClearUntil_ = q;
            return false;
        }
        p_ = q;
        return true;
    }

    // At the end of a \pict group. A \nonshppict picture only replaces the placeholder of the metafile
    // just before it; any other picture goes in where it stands.
    void finishPicture() {
        const Wrap wrap = pictureWrap_;
        pictureDepth_ = 0;
        const Picture picture = decodePicture(picture_);
        picture_ = PictureProps{};
        if (wrap == Wrap::NonShape) {
            if (replaceable_ && !picture.placeholder() && !picture.size.isEmpty() && run_.isEmpty() &&
                cursor_.position() == placeholderAt_ + 1) {
                cursor_.setPosition(placeholderAt_, QTextCursor::KeepAnchor);
                cursor_.removeSelectedText();
                insertPicture(picture);
            }
            replaceable_ = false;
            return;
        }
        if (picture.size.isEmpty()) return;
        beginContent(top().para);
        flush();
        placeholderAt_ = cursor_.position();
        insertPicture(picture);
        replaceable_ = picture.placeholder();
    }

    void insertPicture(const Picture& picture) {
        QString name = QStringLiteral("rtf-picture:placeholder");
        if (!picture.placeholder()) {
            name = QStringLiteral("rtf-picture:%1").arg(++pictures_);
            document_.addResource(QTextDocument::ImageResource, QUrl(name), picture.image);
        } else if (!placeholderAdded_) {
            document_.addResource(QTextDocument::ImageResource, QUrl(name), placeholderImage());
            placeholderAdded_ = true;
        }
        QTextImageFormat format;
        format.merge(charFormat(top().chr));
        format.setName(name);
        format.setWidth(picture.size.width());
        format.setHeight(picture.size.height());
        cursor_.insertImage(format);
        ++blockChars_;
    }

    // Tables. A cell or row end only marks the end; the cursor moves on when the next content comes, so
    // that the last \cell of a row makes no extra column and the last \row no extra row.
    void placeForTable(const ParaProps& para) {
        if (!para.inTable) {
            if (table_) closeTable();
            return;
        }
        if (!table_) {
            openTable(false);
        } else if (rowEnded_) {
            flush();
            if (row_ + 1 >= kRowsPerTable) {
                closeTable();
                openTable(true);
            } else {
                // Rows are made in doubling batches: each batch costs Qt a pass over the table's cells.
                if (row_ + 1 >= table_->rows()) table_->appendRows(std::min(table_->rows(), kRowsPerTable - table_->rows()));
                ++row_;
                col_ = 0;
                widenTable(int(cellDefs_.size()));
                enterCell();
            }
        } else if (cellEnded_) {
            flush();
            if (col_ + 1 >= table_->columns()) widenTable(col_ + 2);
            if (col_ + 1 < table_->columns()) {
                ++col_;
                enterCell();
            } else {
                run_.append(QChar(u'\t'));  // beyond the widest table: the cell runs on
            }
        }
        rowEnded_ = cellEnded_ = false;
    }

    // `continued`: the rows go on from the table just closed, whose last row drew its bottom line.
    void openTable(bool continued) {
        flush();
        pendingBlock_ = false;  // Qt puts the table after the paragraph that just ended
        const int columns = std::max<int>(1, int(cellDefs_.size()));
        table_ = cursor_.insertTable(1, columns, tableFormat(cellDefs_));
        row_ = col_ = 0;
        continued_ = continued;
        enterCell();
    }

    void enterCell() {
        QTextTableCell cell = table_->cellAt(row_, col_);
        if (col_ < int(cellDefs_.size()) && cellDefs_[col_].hasBorder()) {
            const bool lineAbove = continued_ && row_ == 0 && col_ < int(bottoms_.size()) && bottoms_[col_];
            cell.setFormat(cellFormat(cellDefs_[col_], lineAbove));
        }
        cursor_ = cell.firstCursorPosition();
        continuing_ = false;
        blockChars_ = 0;
    }

    void widenTable(int columns) {
        columns = std::min(columns, kMaxColumns);
        if (columns > table_->columns()) table_->appendColumns(columns - table_->columns());
    }

    void closeTable() {
        flush();
        if (table_->rows() > row_ + 1) table_->removeRows(row_ + 1, table_->rows() - row_ - 1);  // unused batch
        cursor_ = table_->lastCursorPosition();
        cursor_.movePosition(QTextCursor::NextBlock);
        table_ = nullptr;
        pendingBlock_ = rowEnded_ = cellEnded_ = false;
        continuing_ = false;
        blockChars_ = 0;
    }

    void endCell() {
        if (skipping() || top().dest != Dest::Text) return;
        if (!top().para.inTable && !table_) {
            put(QChar(u'\t'));  // a cell outside any table reads as a tab
            return;
        }
        placeForTable(top().para);
        flush();
        // A cell's last paragraph has no \par: it takes its alignment, spacing and indents here.
        if (table_ && !pendingBlock_) cursor_.setBlockFormat(pieceFormat(top().para, true));
        if (table_) padCell();
        pendingBlock_ = false;
        cellEnded_ = true;
        replaceable_ = false;
    }

    // Qt lays out no space above a cell's first paragraph nor below its last; the cell's padding takes it.
    void padCell() {
        QTextTableCell cell = table_->cellAt(row_, col_);
        const double above = document_.findBlock(cell.firstPosition()).blockFormat().topMargin();
        const double below = cursor_.block().blockFormat().bottomMargin();
        if (above <= 0 && below <= 0) return;
        QTextTableCellFormat format = cell.format().toTableCellFormat();
        format.setTopPadding(table_->format().cellPadding() + std::max(0.0, above));
        format.setBottomPadding(table_->format().cellPadding() + std::max(0.0, below));
        cell.setFormat(format);
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
        replaceable_ = false;
        bottoms_.assign(cellDefs_.size(), false);
        for (std::size_t c = 0; c < cellDefs_.size(); ++c)
            bottoms_[c] = cellDefs_[c].borders[Bottom].kind != BorderKind::None;
    }

    void flush() {
        if (run_.isEmpty()) return;
        cursor_.insertText(run_, charFormat(runProps_));
        run_.clear();
    }

    // A new paragraph; the block format and the character format are given, so the cursor is not asked.
    void newBlock() {
        cursor_.insertBlock(blockFormat_, charFormat(runProps_));
        continuing_ = false;
        blockChars_ = 0;
    }

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

    QTextCharFormat makeCharFormat(const CharProps& c) const {
        QTextCharFormat f;
        f.setFontWeight(c.bold ? QFont::Bold : QFont::Normal);
        f.setFontItalic(c.italic);
        f.setFontUnderline(c.underline);
        f.setFontStrikeOut(c.strike);
        f.setFontPointSize(c.halfPoints / 2.0);
        if (const FontEntry* font = fontOf(c)) {
            const QStringList families = familiesOf(*font);
            if (!families.isEmpty()) {
                f.setFontFamilies(families);
                f.setFontStyleHint(font->family);
            }
        }
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
    QTextDocument& document_;
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
    int blockChars_ = 0;       // characters in the current block
    bool continuing_ = false;  // the current block goes on a paragraph broken for its length
    int emptyParagraphs_ = 0;  // empty paragraphs made since the last content
    const char* hexClearUntil_ = nullptr;  // hex digits before this were found to be text

    // Fonts: the table read so far, the entry being read, and the code pages.
    std::unordered_map<int, FontEntry> fonts_;
    FontEntry font_;
    int fontNumber_ = -1;
    int deff_ = 0;
    const CodePage* documentPage_ = &codePage1252();
    const CodePage* runPage_ = documentPage_;
    int pageFont_ = INT_MIN;  // the font runPage_ was looked up for

    // The picture being read, and the placeholder a \nonshppict alternative may replace.
    PictureProps picture_;
    int pictureDepth_ = 0;  // depth of the \pict group, 0 outside one
    Wrap pictureWrap_ = Wrap::None;
    int nibble_ = -1;       // a hex digit waiting for its pair
    int pictures_ = 0;
    bool placeholderAdded_ = false;
    bool replaceable_ = false;
    int placeholderAt_ = 0;

    // Tables.
    QTextTable* table_ = nullptr;   // the table the cursor stands in
    int row_ = 0, col_ = 0;
    bool cellEnded_ = false, rowEnded_ = false;
    bool continued_ = false;        // the table goes on from the one before it
    std::vector<CellDef> cellDefs_; // the current row definition
    CellDef pendingCell_;           // the cell being defined, until its \cellx
    int borderSide_ = -1;           // the side of pendingCell_ that border words apply to
    std::vector<bool> bottoms_;     // columns of the last ended row with a line below
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
