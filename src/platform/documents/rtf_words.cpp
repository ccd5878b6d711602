#include "platform/documents/rtf_words.h"

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

}  // namespace documents::rtf
