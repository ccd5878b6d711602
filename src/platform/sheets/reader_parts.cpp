#include "platform/sheets/reader_parts.h"

#include "platform/sheets/sheet_cells.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QTime>
#include <cmath>
#include <zip.h>

namespace sheets {

namespace {

constexpr int kMaxCellText = 32767;
// The text kept of one sheet (in characters): far above a month of bills, far below the memory of
// the machine; a sheet past it is read as far as this goes, as with the row limit.
constexpr qint64 kMaxText = 64LL * 1024 * 1024;

}  // namespace

basic::RuntimeError ReadError(const QString& path, const QString& what, int number) {
    return basic::RuntimeError(number, QStringLiteral("The file %1 %2").arg(QDir::toNativeSeparators(path), what));
}

bool RowSink::add(int index, QStringList cells) {
    if (stopped_) return false;
    while (!cells.isEmpty() && cells.constLast().isEmpty()) cells.removeLast();
    if (cells.isEmpty()) return true;   // an empty row counts only if a row with text follows
    if (index >= maxRows_ || characters_ > kMaxText) {
        out_.truncated = true;
        stopped_ = true;
        if (characters_ > kMaxText)
            problem(-1, -1, QStringLiteral("The sheet holds more text than is read at once; only the first %1 rows are read.")
                                .arg(out_.rows.size()));
        return false;
    }
    if (cells.size() > kMaxColumns) {
        cells.resize(kMaxColumns);
        if (!columnsCut_)
            problem(-1, -1, QStringLiteral("Only the first %1 columns are read.").arg(kMaxColumns));
        columnsCut_ = true;
    }
    for (qsizetype c = 0; c < cells.size(); ++c) {
        if (cells[c].size() > kMaxCellText) {
            cells[c].truncate(kMaxCellText);
            problem(index, int(c), QStringLiteral("Cell %1 holds more than %2 characters; the rest is left out.")
                                       .arg(CellName(index, int(c))).arg(kMaxCellText));
        }
        characters_ += cells[c].size();
    }
    out_.rows.resize(size_t(index));
    out_.rows.push_back(std::move(cells));
    return true;
}

void RowSink::problem(int row, int column, const QString& text, int rows) {
    out_.problems.push_back({row, column, rows, text});
}

QString IsoOfSerial(double serial, bool date1904, bool withDate, bool withTime) {
    if (!std::isfinite(serial) || serial < 0 || serial >= 2958466) return QString();
    const double day = std::floor(serial);
    // The nearest second: 0.5 / 86400 of error in the stored fraction is common.
    const qint64 seconds = std::llround((serial - day) * 86400.0);
    qint64 days = qint64(day) + seconds / 86400;
    const QTime time = QTime(0, 0).addSecs(int(seconds % 86400));
    if (!withDate) return time.toString(QStringLiteral("HH:mm:ss"));
    QString date;
    if (date1904) date = QDate(1904, 1, 1).addDays(days).toString(Qt::ISODate);
    else if (days == 60) date = QStringLiteral("1900-02-29");
    else date = QDate(1899, 12, days < 60 ? 31 : 30).addDays(days).toString(Qt::ISODate);
    if (withTime && time != QTime(0, 0)) date += u'T' + time.toString(QStringLiteral("HH:mm:ss"));
    return date;
}

QString UnescapeXlsx(const QString& text) {
    qsizetype at = text.indexOf(QStringLiteral("_x"));
    if (at < 0) return text;
    QString out;
    qsizetype from = 0;
    for (; at >= 0; at = text.indexOf(QStringLiteral("_x"), at + 1)) {
        if (at < from || at + 7 > text.size() || text[at + 6] != u'_') continue;
        bool ok = false;
        const ushort code = text.mid(at + 2, 4).toUShort(&ok, 16);
        if (!ok) continue;
        out += QStringView(text).mid(from, at - from);
        out += QChar(code);
        from = at + 7;
        at += 6;
    }
    out += QStringView(text).mid(from);
    return out;
}

ZipEntry::ZipEntry(zip_file_t* file, qint64 size) : file_(file), size_(size) { open(QIODevice::ReadOnly); }

ZipEntry::~ZipEntry() { zip_fclose(file_); }

qint64 ZipEntry::readData(char* data, qint64 maxSize) {
    const zip_int64_t n = zip_fread(file_, data, zip_uint64_t(maxSize));
    if (n < 0) setErrorString(QString::fromUtf8(zip_error_strerror(zip_file_get_error(file_))));
    else consumed_ += n;
    return n;
}

ZipArchive::ZipArchive(const QString& path) : path_(path) {
    int error = 0;
    zip_ = zip_open(QFile::encodeName(path).constData(), ZIP_RDONLY, &error);
    if (!zip_)
        throw ReadError(path, QStringLiteral("is damaged or incomplete (its zip archive cannot be opened). "
                                             "Save it again in the spreadsheet program, or ask for a new copy."));
}

ZipArchive::~ZipArchive() {
    if (zip_) zip_discard(zip_);
}

bool ZipArchive::contains(const QString& name) const {
    return zip_name_locate(zip_, name.toUtf8().constData(), 0) >= 0;
}

std::unique_ptr<ZipEntry> ZipArchive::open(const QString& name) const {
    const zip_int64_t index = zip_name_locate(zip_, name.toUtf8().constData(), 0);
    if (index < 0) return nullptr;
    zip_stat_t stat;
    zip_stat_init(&stat);
    const qint64 size = zip_stat_index(zip_, zip_uint64_t(index), 0, &stat) == 0 && (stat.valid & ZIP_STAT_SIZE) ? qint64(stat.size) : -1;
    zip_file_t* file = zip_fopen_index(zip_, zip_uint64_t(index), 0);
    if (!file)
        throw ReadError(path_, QStringLiteral("is damaged: its part %1 cannot be read (%2).")
                                   .arg(name, QString::fromUtf8(zip_strerror(zip_))));
    return std::make_unique<ZipEntry>(file, size);
}

QByteArray ZipArchive::head(const QString& name, qint64 maxBytes) const {
    const auto device = open(name);
    return device ? device->read(maxBytes) : QByteArray();
}

}  // namespace sheets
