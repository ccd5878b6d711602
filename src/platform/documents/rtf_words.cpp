#include "platform/documents/rtf_words.h"

#include "platform/documents/rtf_reader_parts.h"

#include "platform/documents/rtf_pictures.h"
#include "platform/documents/rtf_tables.h"

#include <QFont>

#include <unordered_map>

namespace documents::rtf {

namespace {

std::unordered_map<std::string_view, WordInfo> makeTable() {
    std::unordered_map<std::string_view, WordInfo> t;
    // Destinations whose text is not part of the document body.
    for (const char* w : {"colortbl", "stylesheet", "info", "object", "header", "footer",
                          "headerl", "headerr", "headerf", "footerl", "footerr", "footerf", "footnote",
                          "annotation", "themedata", "colorschememapping", "latentstyles", "datastore",
                          "xmlnstbl", "listtable", "listoverridetable", "rsidtbl", "generator", "pgdsctbl",
                          "revtbl", "filetbl", "fontemb", "fonturl", "objdata", "pn",
                          "bkmkend", "xe", "tc", "txe", "template", "userprops", "docvar",
                          "private", "shpinst", "mmathPr", "wgrffmtfilter", "pnseclvl", "atnid",
                          "atnauthor", "atrfstart", "atrfend", "comment", "author", "title", "subject",
                          "keywords", "doccomm", "operator", "company", "hlinkbase", "panose", "falt"})
        t[w] = {Word::Skip};
    const std::pair<const char*, Word> plain[] = {
        {"fldinst", Word::FieldInstruction}, {"bkmkstart", Word::BookmarkStart}, {"fldrslt", Word::FieldResult},
        {"field", Word::Field}, {"par", Word::Par}, {"page", Word::Par}, {"sect", Word::Par}, {"row", Word::Row},
        {"nestrow", Word::Par}, {"pard", Word::Pard}, {"line", Word::Line}, {"tab", Word::Tab}, {"cell", Word::Cell},
        {"intbl", Word::InTable}, {"trowd", Word::RowDefaults}, {"cellx", Word::CellRight}, {"nestcell", Word::Tab},
        {"plain", Word::Plain}, {"b", Word::Bold}, {"i", Word::Italic},
        {"ul", Word::Underline}, {"uld", Word::Underline}, {"uldb", Word::Underline},
        {"uldash", Word::Underline}, {"ulw", Word::Underline}, {"ulwave", Word::Underline},
        {"ulth", Word::Underline}, {"ulnone", Word::UnderlineNone}, {"strike", Word::Strike},
        {"fs", Word::FontSize}, {"super", Word::Super}, {"sub", Word::Sub}, {"nosupersub", Word::NoSuperSub},
        {"ql", Word::AlignLeft}, {"qc", Word::AlignCenter}, {"qr", Word::AlignRight},
        {"qj", Word::AlignJustify}, {"li", Word::LeftIndent}, {"ri", Word::RightIndent},
        {"fi", Word::FirstIndent}, {"sb", Word::SpaceBefore}, {"sa", Word::SpaceAfter}, {"tx", Word::TabStop},
        {"ansi", Word::Ansi}, {"mac", Word::Mac}, {"pc", Word::Pc}, {"pca", Word::Pca},
        {"ansicpg", Word::AnsiCodePage}, {"uc", Word::Uc}, {"u", Word::U}, {"bin", Word::Bin},
        {"fonttbl", Word::FontTable}, {"f", Word::Font}, {"deff", Word::DefaultFont}, {"fcharset", Word::FontCharset},
        {"pict", Word::Picture}, {"shppict", Word::ShapePicture}, {"nonshppict", Word::NonShapePicture},
        {"picw", Word::PictureWidth}, {"pich", Word::PictureHeight}, {"picwgoal", Word::PictureGoalWidth},
        {"pichgoal", Word::PictureGoalHeight}, {"picscalex", Word::PictureScaleX}, {"picscaley", Word::PictureScaleY},
        {"brdrw", Word::BorderWidth}};
    for (const auto& [w, word] : plain) t[w] = {word};
    const std::pair<const char*, QFont::StyleHint> families[] = {
        {"fnil", QFont::AnyStyle}, {"froman", QFont::Serif}, {"fswiss", QFont::SansSerif},
        {"fmodern", QFont::TypeWriter}, {"fscript", QFont::Cursive}, {"fdecor", QFont::Decorative},
        {"ftech", QFont::AnyStyle}, {"fbidi", QFont::AnyStyle}};
    for (const auto& [w, family] : families) t[w] = {Word::FontFamily, int(family)};
    const std::pair<const char*, PictureKind> kinds[] = {
        {"pngblip", PictureKind::Png}, {"jpegblip", PictureKind::Jpeg}, {"emfblip", PictureKind::Metafile},
        {"wmetafile", PictureKind::Metafile}, {"pmmetafile", PictureKind::Metafile},
        {"macpict", PictureKind::Unknown}, {"dibitmap", PictureKind::Unknown}, {"wbitmap", PictureKind::Unknown}};
    for (const auto& [w, kind] : kinds) t[w] = {Word::PictureKind, int(kind)};
    const std::pair<const char*, Side> sides[] = {
        {"clbrdrt", Top}, {"clbrdrl", Left}, {"clbrdrb", Bottom}, {"clbrdrr", Right}};
    for (const auto& [w, side] : sides) t[w] = {Word::CellBorder, int(side)};
    // Borders of paragraphs and rows: their styles must not land on a cell.
    for (const char* w : {"brdrt", "brdrb", "brdrl", "brdrr", "box", "brdrbtw", "brdrbar", "trbrdrt", "trbrdrl",
                          "trbrdrb", "trbrdrr", "trbrdrh", "trbrdrv", "chbrdr", "pgbrdrt", "pgbrdrb", "pgbrdrl",
                          "pgbrdrr"})
        t[w] = {Word::OtherBorder};
    const std::pair<const char*, BorderKind> styles[] = {
        {"brdrs", BorderKind::Single}, {"brdrsh", BorderKind::Single}, {"brdrhair", BorderKind::Single},
        {"brdrth", BorderKind::Thick}, {"brdrdb", BorderKind::Double}, {"brdrtriple", BorderKind::Double},
        {"brdrdot", BorderKind::Dotted}, {"brdrdash", BorderKind::Dashed}, {"brdrdashsm", BorderKind::Dashed},
        {"brdrnone", BorderKind::None}, {"brdrnil", BorderKind::None}};
    for (const auto& [w, kind] : styles) t[w] = {Word::BorderStyle, int(kind)};
    const std::pair<const char*, char16_t> chars[] = {
        {"emdash", 0x2014}, {"endash", 0x2013}, {"bullet", 0x2022}, {"lquote", 0x2018},
        {"rquote", 0x2019}, {"ldblquote", 0x201C}, {"rdblquote", 0x201D}, {"emspace", 0x2003},
        {"enspace", 0x2002}, {"qmspace", 0x2005}, {"zwj", 0x200D}, {"zwnj", 0x200C},
        {"ltrmark", 0x200E}, {"rtlmark", 0x200F}};
    for (const auto& [w, ch] : chars) t[w] = {Word::Char, ch};
    return t;
}

}  // namespace

const WordInfo* findWord(std::string_view name) {
    static const std::unordered_map<std::string_view, WordInfo> table = makeTable();
    const auto found = table.find(name);
    return found == table.end() ? nullptr : &found->second;
}

// ---- the reader's control words ---------------------------------------------------------------------

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

void Reader::word(std::string_view name, bool hasNumber, int number) {
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

void Reader::pictureSize(const Group& g, int& field, int number) {
    if (g.dest == Dest::Picture) field = std::clamp(number, 0, 1000000);
}

}  // namespace documents::rtf
