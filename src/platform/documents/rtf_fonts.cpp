#include "platform/documents/rtf_fonts.h"

#include "platform/documents/rtf_reader_parts.h"

#include <QByteArray>
#include <QStringDecoder>

#include <map>

namespace documents::rtf {

namespace {

// Bytes 0x80-0x9F of Windows code page 1252; the rest of its upper half is Latin-1.
constexpr char16_t kCp1252High[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// The Symbol font from 0x20 to 0x7F and from 0xA0 to 0xFF; 0 where the byte reads as itself.
constexpr char16_t kSymbolLow[96] = {
    0, 0, 0x2200, 0, 0x2203, 0, 0, 0x220B, 0, 0, 0x2217, 0, 0, 0x2212, 0, 0,
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
    0x2245, 0x0391, 0x0392, 0x03A7, 0x0394, 0x0395, 0x03A6, 0x0393, 0x0397, 0x0399, 0x03D1, 0x039A, 0x039B, 0x039C, 0x039D, 0x039F,
    0x03A0, 0x0398, 0x03A1, 0x03A3, 0x03A4, 0x03A5, 0x03C2, 0x03A9, 0x039E, 0x03A8, 0x0396, 0, 0x2234, 0, 0x22A5, 0,
    0x203E, 0x03B1, 0x03B2, 0x03C7, 0x03B4, 0x03B5, 0x03C6, 0x03B3, 0x03B7, 0x03B9, 0x03D5, 0x03BA, 0x03BB, 0x03BC, 0x03BD, 0x03BF,
    0x03C0, 0x03B8, 0x03C1, 0x03C3, 0x03C4, 0x03C5, 0x03D6, 0x03C9, 0x03BE, 0x03C8, 0x03B6, 0, 0, 0, 0x223C, 0};
constexpr char16_t kSymbolHigh[96] = {
    0x20AC, 0x03D2, 0x2032, 0x2264, 0x2044, 0x221E, 0x0192, 0x2663, 0x2666, 0x2665, 0x2660, 0x2194, 0x2190, 0x2191, 0x2192, 0x2193,
    0x00B0, 0x00B1, 0x2033, 0x2265, 0x00D7, 0x221D, 0x2202, 0x2022, 0x00F7, 0x2260, 0x2261, 0x2248, 0x2026, 0x23D0, 0x23AF, 0x21B5,
    0x2135, 0x2111, 0x211C, 0x2118, 0x2297, 0x2295, 0x2205, 0x2229, 0x222A, 0x2283, 0x2287, 0x2284, 0x2282, 0x2286, 0x2208, 0x2209,
    0x2220, 0x2207, 0x00AE, 0x00A9, 0x2122, 0x220F, 0x221A, 0x22C5, 0x00AC, 0x2227, 0x2228, 0x21D4, 0x21D0, 0x21D1, 0x21D2, 0x21D3,
    0x25CA, 0x27E8, 0x00AE, 0x00A9, 0x2122, 0x2211, 0x239B, 0x239C, 0x239D, 0x23A1, 0x23A2, 0x23A3, 0x23A7, 0x23A8, 0x23A9, 0x23AA,
    0, 0x27E9, 0x222B, 0x2320, 0x23AE, 0x2321, 0x239E, 0x239F, 0x23A0, 0x23A4, 0x23A5, 0x23A6, 0x23AB, 0x23AC, 0x23AD, 0};

CodePage latin1() {
    CodePage page{};
    for (int b = 0; b < 256; ++b) page[b] = char16_t(b);
    return page;
}

CodePage decoded(int number) {
    CodePage page = codePage1252();
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

bool named(const QString& name, std::initializer_list<const char*> names) {
    for (const char* n : names)
        if (name.compare(QLatin1String(n), Qt::CaseInsensitive) == 0) return true;
    return false;
}

}  // namespace

const CodePage& codePage1252() {
    static const CodePage page = [] {
        CodePage p = latin1();
        for (int b = 0; b < 32; ++b) p[0x80 + b] = kCp1252High[b];
        return p;
    }();
    return page;
}

const CodePage& codePage(int number) {
    // Decoding a page asks Qt 128 times; a document names a handful, so each is made once.
    static std::map<int, CodePage> made;
    if (number == 1252) return codePage1252();
    const auto found = made.find(number);
    if (found != made.end()) return found->second;
    if (made.size() >= 64) return codePage1252();
    return made.emplace(number, decoded(number)).first->second;
}

const CodePage& symbolPage() {
    static const CodePage page = [] {
        CodePage p = latin1();
        for (int b = 0; b < 96; ++b) {
            if (kSymbolLow[b]) p[0x20 + b] = kSymbolLow[b];
            if (kSymbolHigh[b]) p[0xA0 + b] = kSymbolHigh[b];
        }
        return p;
    }();
    return page;
}

const CodePage& wingdingsPage() {
    static const CodePage page = [] {
        CodePage p = latin1();
        const std::pair<int, char16_t> bullets[] = {{0xA7, 0x25AA}, {0xD8, 0x27A2}, {0x76, 0x2756}, {0xFC, 0x2714},
                                                    {0x71, 0x2751}, {0x6E, 0x25A0}, {0x6C, 0x25CF}, {0xA8, 0x25FB}};
        for (const auto& [byte, ch] : bullets) p[byte] = ch;
        return p;
    }();
    return page;
}

int charsetCodePage(int charset) {
    switch (charset) {
    case 77: return 10000;
    case 161: return 1253;   // Greek
    case 162: return 1254;   // Turkish
    case 163: return 1258;   // Vietnamese
    case 177: return 1255;   // Hebrew
    case 178: return 1256;   // Arabic
    case 186: return 1257;   // Baltic
    case 204: return 1251;   // Cyrillic
    case 222: return 874;    // Thai
    case 238: return 1250;   // Central European
    case 254: return 437;
    case 255: return 850;
    default: return 0;
    }
}

const CodePage& pageOf(const FontEntry& font, const CodePage& documentPage) {
    if (font.charset == 2) return named(font.name, {"Wingdings"}) ? wingdingsPage() : symbolPage();
    const int number = charsetCodePage(font.charset);
    return number == 0 ? documentPage : codePage(number);
}

QStringList familiesOf(const FontEntry& font) {
    if (font.charset == 2 || named(font.name, {"Symbol", "Wingdings"})) return {};
    QStringList families;
    if (!font.name.isEmpty()) families << font.name;
    QFont::StyleHint family = font.family;
    if (named(font.name, {"Times New Roman", "Times", "Tms Rmn"})) family = QFont::Serif;
    if (named(font.name, {"Arial", "Helvetica", "Helv", "Arial MT"})) family = QFont::SansSerif;
    if (named(font.name, {"Courier New", "Courier"})) family = QFont::TypeWriter;
    switch (family) {
    case QFont::Serif: families << QStringLiteral("Liberation Serif"); break;
    case QFont::SansSerif: families << QStringLiteral("Liberation Sans"); break;
    case QFont::TypeWriter: families << QStringLiteral("Liberation Mono"); break;
    default: break;
    }
    families.removeDuplicates();
    return families;
}

// ---- the reader's font table and code pages ---------------------------------------------------------

// Fonts and their code pages.
void Reader::commitFont() {
    if (fontNumber_ >= 0 && fonts_.size() < 4096) {
        font_.name = font_.name.trimmed();
        fonts_[fontNumber_] = font_;
        charFormats_.clear();
        pageFont_ = INT_MIN;
    }
    font_ = FontEntry{};
    fontNumber_ = -1;
}

void Reader::setDocumentPage(const CodePage& page) {
    documentPage_ = &page;
    pageFont_ = INT_MIN;
}

const FontEntry* Reader::fontOf(const CharProps& c) const {
    const auto found = fonts_.find(c.font < 0 ? deff_ : c.font);
    return found == fonts_.end() ? nullptr : &found->second;
}

}  // namespace documents::rtf
