// The RTF reader's main loop, and the text and paragraphs it writes into the document.
#include "platform/documents/rtf_reader.h"

#include "platform/documents/rtf_reader_parts.h"
#include "platform/documents/rtf_words.h"

#include <QTextDocument>
#include <QTextTable>

namespace documents {

namespace rtf {

Reader::Reader(const QByteArray& rtf, QTextDocument& document)
    : p_(rtf.constData()), end_(rtf.constData() + rtf.size()), cursor_(&document), document_(document) {
    stack_.reserve(64);
    stack_.emplace_back();
    run_.reserve(4096);
}


void Reader::read() {
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

void Reader::openGroup() {
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

void Reader::closeGroup() {
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
void Reader::control() {
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

// Where content goes: into the table cell it belongs to, and into a new paragraph after a \par.
void Reader::beginContent(const ParaProps& para) {
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
void Reader::paragraph() {
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
void Reader::splitParagraph() {
    flush();
    cursor_.setBlockFormat(pieceFormat(top().para, false));
    newBlock();
    continuing_ = true;
}

const QTextBlockFormat& Reader::pieceFormat(const ParaProps& para, bool last) {
    if (!continuing_ && last) return blockFormat(para);
    ParaProps piece = para;
    if (continuing_) piece.before = piece.first = 0;
    if (!last) piece.after = 0;
    return blockFormat(piece);
}

// Hex digits at p_, across line ends. A long run is dropped whole; a short one is text, and is not
// looked at again.
bool Reader::skipStrayHex() {
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

void Reader::flush() {
    if (run_.isEmpty()) return;
    cursor_.insertText(run_, charFormat(runProps_));
    run_.clear();
}

// A new paragraph; the block format and the character format are given, so the cursor is not asked.
void Reader::newBlock() {
    cursor_.insertBlock(blockFormat_, charFormat(runProps_));
    continuing_ = false;
    blockChars_ = 0;
}

// Formats are kept and handed out again: a document reuses a handful of them, and the document
// looks up a format it has seen faster than a new one.
const QTextCharFormat& Reader::charFormat(const CharProps& c) {
    for (const auto& [props, format] : charFormats_)
        if (props == c) return format;
    if (charFormats_.size() >= 32) charFormats_.clear();
    charFormats_.emplace_back(c, makeCharFormat(c));
    return charFormats_.back().second;
}

const QTextBlockFormat& Reader::blockFormat(const ParaProps& p) {
    if (!(p == blockProps_)) {
        blockProps_ = p;
        blockFormat_ = makeBlockFormat(p);
    }
    return blockFormat_;
}

QTextCharFormat Reader::makeCharFormat(const CharProps& c) const {
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

QTextBlockFormat Reader::makeBlockFormat(const ParaProps& p) {
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

}  // namespace rtf

void readRtf(const QByteArray& rtf, QTextDocument& document) {
    document.clear();
    const bool undo = document.isUndoRedoEnabled();
    document.setUndoRedoEnabled(false);
    rtf::Reader(rtf, document).read();
    document.setUndoRedoEnabled(undo);
}

}  // namespace documents
