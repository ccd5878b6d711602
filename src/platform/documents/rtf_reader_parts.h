#pragma once
// The RTF reader's state and its steps, shared by the files that hold them: the main loop, the text and
// its paragraphs (rtf_reader.cpp), the control words (rtf_words.cpp), the font table (rtf_fonts.cpp),
// pictures (rtf_pictures.cpp) and tables (rtf_tables.cpp). Only the reader includes it.
#include "platform/documents/rtf_fonts.h"
#include "platform/documents/rtf_pictures.h"
#include "platform/documents/rtf_tables.h"

#include <QString>
#include <QTextBlockFormat>
#include <QTextCharFormat>
#include <QTextCursor>

#include <algorithm>
#include <array>
#include <climits>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

class QTextDocument;
class QTextTable;

namespace documents::rtf {

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
inline constexpr int kMaxColumns = 64;
// A long table is built as tables of this many rows, one under the other, so that the view lays out only
// the rows it shows; Qt lays a table out whole.
inline constexpr int kRowsPerTable = 100;
// A paragraph longer than this is laid out in pieces, broken at the next blank, or anywhere past the hard
// limit: Qt lays a paragraph out whole, and one of megabytes stalls the view for seconds.
inline constexpr int kSoftBreak = 4096;
inline constexpr int kHardBreak = 16384;
// Empty paragraphs in a row beyond this many add nothing a reader can see, only memory.
inline constexpr int kMaxEmptyParagraphs = 100;
// A run of hex digits this long in the text is picture data whose group was damaged, not words.
inline constexpr int kStrayHexRun = 256;

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
// to "".
QString hyperlinkTarget(const QString& instruction);

class Reader {
public:
    Reader(const QByteArray& rtf, QTextDocument& document);
    void read();

private:
    Group& top() { return stack_.back(); }
    bool skipping() const { return overflow_ > 0 || stack_.back().dest == Dest::Skip; }

    // The main loop's steps (rtf_reader.cpp).
    void openGroup();
    void closeGroup();
    void control();
    bool skipStrayHex();

    // Text and paragraphs (rtf_reader.cpp).
    const CodePage& runPage();
    void putByte(unsigned char byte);
    void put(QChar ch);
    void beginContent(const ParaProps& para);
    void paragraph();
    void splitParagraph();
    const QTextBlockFormat& pieceFormat(const ParaProps& para, bool last);
    void flush();
    void newBlock();
    const QTextCharFormat& charFormat(const CharProps& c);
    const QTextBlockFormat& blockFormat(const ParaProps& p);
    QTextCharFormat makeCharFormat(const CharProps& c) const;
    static QTextBlockFormat makeBlockFormat(const ParaProps& p);

    // Control words (rtf_words.cpp).
    void word(std::string_view name, bool hasNumber, int number);
    void pictureSize(const Group& g, int& field, int number);
    static int twips(int n) { return std::clamp(n, -31680, 31680); }  // within 22 inches either way

    // The font table and the code pages (rtf_fonts.cpp).
    void commitFont();
    void setDocumentPage(const CodePage& page);
    const FontEntry* fontOf(const CharProps& c) const;

    // Pictures (rtf_pictures.cpp).
    void pictureData();
    void finishPicture();
    void insertPicture(const Picture& picture);

    // Tables (rtf_tables.cpp).
    void placeForTable(const ParaProps& para);
    void openTable(bool continued);
    void enterCell();
    void widenTable(int columns);
    void closeTable();
    void endCell();
    void padCell();
    void endRow();

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

// The text's own path, taken for every character: inline, so that the main loop runs without calls.

// The code page of the run's font, looked up again only when the font changes.
inline const CodePage& Reader::runPage() {
    const int font = top().chr.font < 0 ? deff_ : top().chr.font;
    if (font != pageFont_) {
        pageFont_ = font;
        const FontEntry* entry = fontOf(top().chr);
        runPage_ = entry ? &pageOf(*entry, *documentPage_) : documentPage_;
    }
    return *runPage_;
}

inline void Reader::putByte(unsigned char byte) {
    if (byte < 0x20) {
        if (byte == '\t') put(QChar(u'\t'));
        return;  // other control bytes are not text
    }
    put(QChar(runPage()[byte]));
}

inline void Reader::put(QChar ch) {
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

}  // namespace documents::rtf
