// The directory of an OLE compound file, read far enough to name its streams: an encrypted XLSX keeps
// "EncryptionInfo" and "EncryptedPackage" there, an old workbook "Workbook" or "Book".
#include "platform/sheets/reader_parts.h"

#include <QtEndian>
#include <unordered_set>

namespace sheets {

namespace {

constexpr quint32 kEndOfChain = 0xFFFFFFFE;
constexpr int kMaxDirectorySectors = 4096;   // a real directory has a handful

quint32 u32(const QByteArray& b, qsizetype at) {
    return at + 4 <= b.size() ? qFromLittleEndian<quint32>(b.constData() + at) : kEndOfChain;
}

class Compound {
public:
    explicit Compound(QIODevice& file) : file_(file) {
        header_ = readAt(0, 512);
        const int shift = header_.size() >= 32 ? qFromLittleEndian<quint16>(header_.constData() + 30) : 0;
        sectorSize_ = shift == 9 || shift == 12 ? 1 << shift : 0;
    }

    QStringList streamNames() {
        QStringList names;
        if (sectorSize_ == 0) return names;
        std::unordered_set<quint32> seen;
        for (quint32 sector = u32(header_, 48); sector < kEndOfChain && seen.insert(sector).second &&
                                               seen.size() < size_t(kMaxDirectorySectors);
             sector = next(sector)) {
            const QByteArray entries = readSector(sector);
            for (qsizetype at = 0; at + 128 <= entries.size(); at += 128) {
                const int bytes = qFromLittleEndian<quint16>(entries.constData() + at + 64);
                if (bytes < 2 || bytes > 64) continue;
                names << QString::fromUtf16(reinterpret_cast<const char16_t*>(entries.constData() + at), bytes / 2 - 1);
            }
        }
        return names;
    }

private:
    QByteArray readAt(qint64 offset, qint64 size) {
        if (!file_.seek(offset)) return QByteArray();
        return file_.read(size);
    }
    QByteArray readSector(quint32 sector) { return readAt(qint64(sector + 1) * sectorSize_, sectorSize_); }

    // The next sector of a chain, from the allocation table; the header lists its first 109 sectors,
    // which hold the directory of any file a spreadsheet program writes.
    quint32 next(quint32 sector) {
        const quint32 perSector = quint32(sectorSize_ / 4);
        const quint32 fatIndex = sector / perSector;
        if (fatIndex >= 109) return kEndOfChain;
        const quint32 fatSector = u32(header_, 76 + qsizetype(fatIndex) * 4);
        if (fatSector >= kEndOfChain) return kEndOfChain;
        return u32(readSector(fatSector), qsizetype(sector % perSector) * 4);
    }

    QIODevice& file_;
    QByteArray header_;
    int sectorSize_ = 0;
};

}  // namespace

OleKind ClassifyOle(QIODevice& file) {
    const QStringList names = Compound(file).streamNames();
    if (names.contains(QStringLiteral("EncryptedPackage")) || names.contains(QStringLiteral("EncryptionInfo")))
        return OleKind::Encrypted;
    if (names.contains(QStringLiteral("Workbook")) || names.contains(QStringLiteral("Book"))) return OleKind::OldWorkbook;
    return OleKind::Other;
}

}  // namespace sheets
