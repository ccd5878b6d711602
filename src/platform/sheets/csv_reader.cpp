// CSV: decoded and split as a stream, the encoding and the separator found from the first bytes.
#include "platform/sheets/reader_parts.h"

#include <QFileInfo>
#include <QStringDecoder>
#include <array>

namespace sheets {

namespace {

constexpr qint64 kChunk = 1 << 16;
constexpr int kMaxField = 32767 + 1;   // one past a cell's limit, so that the sink reports the cut

// Windows-1252 at 0x80..0x9F; the rest of the code page is Latin-1.
constexpr std::array<char16_t, 32> kCp1252 = {
    0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD,
    0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

// Bytes to text. Without a byte-order mark the first byte beyond ASCII decides: the start of a whole
// UTF-8 sequence makes the file UTF-8 (a stray byte later shows as U+FFFD), anything else makes it
// Windows-1252 (the ASCII before reads the same either way).
class Decoder {
public:
    enum class Mode { Guess, Utf8, Utf16, Cp1252 };

    // Takes the byte-order mark off the first chunk.
    void start(QByteArray& first) {
        if (first.startsWith("\xEF\xBB\xBF")) {
            mode_ = Mode::Utf8;
            first.remove(0, 3);
        } else if (first.startsWith("\xFF\xFE") || first.startsWith("\xFE\xFF")) {
            mode_ = Mode::Utf16;
            utf16_ = QStringDecoder(first.startsWith("\xFF\xFE") ? QStringConverter::Utf16LE : QStringConverter::Utf16BE);
            first.remove(0, 2);
        }
    }

    QString decode(const QByteArray& bytes) {
        if (mode_ == Mode::Guess) {
            const QByteArray data = tail_ + bytes;
            tail_.clear();
            const qsizetype valid = validPrefix(data);
            if (mode_ == Mode::Guess) {
                tail_ = data.mid(valid);   // a sequence cut by the chunk's end waits for the next
                return utf8_(data.left(valid));
            }
            return decode(data);
        }
        switch (mode_) {
        case Mode::Utf16: return utf16_(bytes);
        case Mode::Cp1252: return cp1252(bytes);
        default: {
            QString text = utf8_(bytes);
            if (utf8_.hasError()) broken_ = true;
            return text;
        }
        }
    }
    // What is left at the end of the file: a cut sequence is no UTF-8.
    QString flush() {
        if (tail_.isEmpty()) return QString();
        if (mode_ == Mode::Guess) mode_ = Mode::Cp1252;
        return decode(std::exchange(tail_, QByteArray()));
    }
    bool broken() const { return broken_; }

private:
    // The length of the prefix that is plain ASCII or whole UTF-8 sequences; settles the mode at the
    // first UTF-8 letter beyond ASCII (UTF-8) or the first byte UTF-8 cannot have (Windows-1252).
    qsizetype validPrefix(const QByteArray& data) {
        qsizetype i = 0;
        while (i < data.size()) {
            const auto b = uchar(data[i]);
            const int length = b < 0x80 ? 1 : (b & 0xE0) == 0xC0 ? 2 : (b & 0xF0) == 0xE0 ? 3 : (b & 0xF8) == 0xF0 ? 4 : 0;
            if (length == 0 || (length == 2 && b < 0xC2)) {
                mode_ = Mode::Cp1252;
                return i;
            }
            if (i + length > data.size()) return i;
            for (int k = 1; k < length; ++k)
                if ((uchar(data[i + k]) & 0xC0) != 0x80) {
                    mode_ = Mode::Cp1252;
                    return i;
                }
            if (length > 1) {
                mode_ = Mode::Utf8;
                return i;
            }
            ++i;
        }
        return i;
    }

    static QString cp1252(const QByteArray& bytes) {
        QString text(bytes.size(), Qt::Uninitialized);
        for (qsizetype i = 0; i < bytes.size(); ++i) {
            const auto b = uchar(bytes[i]);
            text[i] = b >= 0x80 && b < 0xA0 ? QChar(kCp1252[b - 0x80]) : QChar(b);
        }
        return text;
    }

    Mode mode_ = Mode::Guess;
    QStringDecoder utf8_{QStringConverter::Utf8};
    QStringDecoder utf16_{QStringConverter::Utf16LE};
    QByteArray tail_;
    bool broken_ = false;
};

// The separator whose count per line is steadiest over the first lines (quoted text left out):
// "sep=;" on the first line settles it outright.
QChar sniffSeparator(const QString& head, qsizetype& skip) {
    skip = 0;
    if (head.startsWith(QStringLiteral("sep="), Qt::CaseInsensitive) && head.size() > 4) {
        const qsizetype end = head.indexOf(u'\n');
        skip = end < 0 ? head.size() : end + 1;
        return head[4];
    }
    const QChar candidates[] = {u',', u';', u'\t'};
    QChar best = u',';
    int bestScore = -1;
    for (QChar sep : candidates) {
        std::vector<int> counts;
        int count = 0;
        bool quoted = false;
        for (qsizetype i = 0; i < head.size() && counts.size() < 50; ++i) {
            const QChar c = head[i];
            if (c == u'"') quoted = !quoted;
            else if (!quoted && c == sep) ++count;
            else if (!quoted && c == u'\n') counts.push_back(std::exchange(count, 0));
        }
        if (count > 0) counts.push_back(count);
        if (counts.empty()) continue;
        // Lines that agree with the first line, then the number of fields, decide.
        int agree = 0;
        for (int n : counts) agree += n == counts.front() && n > 0;
        const int score = agree * 1000 + std::min(counts.front(), 999);
        if (score > bestScore) bestScore = score, best = sep;
    }
    return best;
}

class Splitter {
public:
    Splitter(RowSink& sink, QChar separator) : sink_(sink), sep_(separator) {}

    // false once the sink wants no more rows.
    bool feed(const QString& text) {
        for (QChar c : text) {
            if (afterCR_) {
                afterCR_ = false;
                if (c == u'\n') continue;
            }
            if (quoted_) {
                if (quoteSeen_) {
                    quoteSeen_ = false;
                    if (c == u'"') { put(c); continue; }
                    quoted_ = false;   // the closing quote; c is read as outside quotes below
                } else if (c == u'"') {
                    quoteSeen_ = true;
                    continue;
                } else {
                    if (c == u'\n' || c == u'\r') ++lines_;
                    put(c);
                    continue;
                }
            }
            if (c == sep_) {
                endField();
            } else if (c == u'\n' || c == u'\r') {
                afterCR_ = c == u'\r';
                ++lines_;
                if (!endRow()) return false;
            } else if (c == u'"' && field_.isEmpty() && !fieldHasText_) {
                quoted_ = true;
                quoteLine_ = lines_;
            } else {
                put(c);
            }
        }
        return true;
    }

    void finish() {
        if (quoted_ && !quoteSeen_)
            sink_.problem(row_, int(cells_.size()), QStringLiteral("Line %1: a quote opened here is never closed; the rest of the file is read as one cell.")
                                                        .arg(quoteLine_ + 1));
        if (!field_.isEmpty() || !cells_.isEmpty() || fieldHasText_) endRow();
    }

private:
    void put(QChar c) {
        fieldHasText_ = true;
        if (field_.size() < kMaxField) field_ += c;
    }
    void endField() {
        if (cells_.size() <= kMaxColumns) cells_ << field_;
        field_.clear();
        fieldHasText_ = false;
    }
    bool endRow() {
        endField();
        const bool more = sink_.add(row_++, cells_);
        cells_.clear();
        return more;
    }

    RowSink& sink_;
    QChar sep_;
    QStringList cells_;
    QString field_;
    bool fieldHasText_ = false;
    bool quoted_ = false, quoteSeen_ = false, afterCR_ = false;
    int row_ = 0, lines_ = 0, quoteLine_ = 0;
};

}  // namespace

SheetContents ReadCsv(const QString& path, QIODevice& file, int maxRows) {
    SheetContents out;
    out.sheetName = QFileInfo(path).completeBaseName();
    out.sheetNames << out.sheetName;
    RowSink sink(out, maxRows);
    Decoder decoder;
    QByteArray first = file.read(kChunk);
    decoder.start(first);
    QString text = decoder.decode(first);
    qsizetype skip = 0;
    const QChar separator = sniffSeparator(text, skip);
    Splitter splitter(sink, separator);
    bool more = splitter.feed(text.mid(skip));
    while (more && !file.atEnd()) {
        const QByteArray bytes = file.read(kChunk);
        if (bytes.isEmpty()) break;
        more = splitter.feed(decoder.decode(bytes));
    }
    if (more && splitter.feed(decoder.flush())) splitter.finish();
    if (decoder.broken())
        sink.problem(-1, -1, QStringLiteral("Some bytes of the file are not UTF-8 text; they are shown as \uFFFD."));
    return out;
}

}  // namespace sheets
