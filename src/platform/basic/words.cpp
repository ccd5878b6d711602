#include "platform/basic/words.h"

namespace basic {

namespace {

constexpr char32_t kZeroWidthNonJoiner = 0x200C, kZeroWidthJoiner = 0x200D;
constexpr char16_t kMalayalamVirama = 0x0D4D;
// Where a word may break at a line's end: part of the word, not a cut in it ("tel\-lurian" in RTF).
constexpr char16_t kSoftHyphen = 0x00AD;

bool inWord(char32_t c) {
    if (c == kZeroWidthNonJoiner || c == kZeroWidthJoiner || c == kSoftHyphen) return true;
    switch (QChar::category(c)) {
    case QChar::Letter_Uppercase:
    case QChar::Letter_Lowercase:
    case QChar::Letter_Titlecase:
    case QChar::Letter_Modifier:
    case QChar::Letter_Other:
    case QChar::Number_DecimalDigit:
    case QChar::Number_Letter:
    case QChar::Number_Other:
    case QChar::Mark_NonSpacing:
    case QChar::Mark_SpacingCombining:
    case QChar::Mark_Enclosing:
        return true;
    default:
        return false;
    }
}

// The base consonant of the atomic chillu letters U+0D7A to U+0D7F, written in full as base + virama.
char16_t chilluBase(char16_t c) {
    static constexpr char16_t bases[] = {0x0D23, 0x0D28, 0x0D30, 0x0D32, 0x0D33, 0x0D15};
    return c >= 0x0D7A && c <= 0x0D7F ? bases[c - 0x0D7A] : 0;
}

}  // namespace

QString foldWord(QStringView word) {
    QString folded;
    folded.reserve(word.size());
    for (const QChar c : word) {
        const char16_t u = c.unicode();
        if (u == kZeroWidthJoiner || u == kZeroWidthNonJoiner || u == kSoftHyphen) continue;
        if (const char16_t base = chilluBase(u)) {
            folded += QChar(base);
            folded += QChar(kMalayalamVirama);
        } else {
            folded += c;
        }
    }
    return folded.toCaseFolded();
}

std::vector<Word> splitWords(QStringView text) {
    std::vector<Word> words;
    qsizetype start = -1;
    auto end = [&](qsizetype at) {
        QString folded = foldWord(text.sliced(start, at - start));
        if (!folded.isEmpty()) words.push_back({start, at - start, std::move(folded)});  // a lone joiner is no word
        start = -1;
    };
    for (qsizetype i = 0; i < text.size();) {
        char32_t c = text[i].unicode();
        qsizetype width = 1;
        if (text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            c = QChar::surrogateToUcs4(text[i], text[i + 1]);
            width = 2;
        }
        if (inWord(c)) {
            if (start < 0) start = i;
        } else if (start >= 0) {
            end(i);
        }
        i += width;
    }
    if (start >= 0) end(text.size());
    return words;
}

}  // namespace basic
