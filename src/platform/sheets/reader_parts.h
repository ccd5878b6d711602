#pragma once
// What the three readers share: the rows kept within their bounds, the read errors, the zip archive
// (libzip) whose entries are read as streams, and dates from spreadsheet serials.
#include "platform/basic/runtime_error.h"
#include "platform/sheets/sheet_reader.h"

#include <QIODevice>
#include <QXmlStreamAttributes>
#include <memory>

struct zip;
struct zip_file;

namespace sheets {

// "The file <path> <what>": 75 unless told.
basic::RuntimeError ReadError(const QString& path, const QString& what, int number = 75);

// Rows as they come from a file (ascending row numbers, gaps allowed), kept within the bounds:
// maxRows rows, kMaxColumns columns, 32,767 characters a cell, a total of text.
class RowSink {
public:
    RowSink(SheetContents& out, int maxRows) : out_(out), maxRows_(maxRows) {}
    // The row at `index` (from 0); false once no more rows are wanted.
    bool add(int index, QStringList cells);
    void problem(int row, int column, const QString& text, int rows = 1);
    bool stopped() const { return stopped_; }

private:
    SheetContents& out_;
    int maxRows_;
    bool stopped_ = false;
    bool columnsCut_ = false;
    qint64 characters_ = 0;
};

// The ISO text of a date serial ("2026-03-05", "2026-03-05T10:30:00", "10:30:00" for a time alone).
// The 1900 system counts the 29th of February 1900 that never was (serial 60); it comes as "1900-02-29".
QString IsoOfSerial(double serial, bool date1904, bool withDate, bool withTime);

// An XML attribute by its local name, whatever prefix the file gives its namespace.
inline QStringView Attribute(const QXmlStreamAttributes& a, QStringView local) {
    for (const auto& attribute : a)
        if (attribute.name() == local) return attribute.value();
    return {};
}

// Excel's escapes in text: "_x000D_" is a carriage return, "_x005F_" an underscore.
QString UnescapeXlsx(const QString& text);

// One entry of a zip archive as a sequential device that inflates as it is read.
class ZipEntry : public QIODevice {
public:
    ZipEntry(zip_file* file, qint64 size);
    ~ZipEntry() override;
    bool isSequential() const override { return true; }
    qint64 size() const override { return size_; }   // inflated
    qint64 consumed() const { return consumed_; }     // inflated bytes handed out so far

protected:
    qint64 readData(char* data, qint64 maxSize) override;
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    zip_file* file_;
    qint64 size_;
    qint64 consumed_ = 0;
};

class ZipArchive {
public:
    // Throws ReadError naming `path` when the file is not a whole zip archive.
    explicit ZipArchive(const QString& path);
    ~ZipArchive();
    ZipArchive(const ZipArchive&) = delete;
    ZipArchive& operator=(const ZipArchive&) = delete;

    bool contains(const QString& name) const;
    // The entry as a stream; null when the archive has no such entry.
    std::unique_ptr<ZipEntry> open(const QString& name) const;
    // The first maxBytes of a (small) entry; empty when it is missing.
    QByteArray head(const QString& name, qint64 maxBytes) const;
    const QString& path() const { return path_; }

private:
    QString path_;
    ::zip* zip_ = nullptr;
};

SheetContents ReadXlsx(const ZipArchive& zip, const QString& sheetName, int maxRows);
SheetContents ReadOds(const ZipArchive& zip, const QString& sheetName, int maxRows);
SheetContents ReadCsv(const QString& path, QIODevice& file, int maxRows);

// What an OLE compound file (the container of old Office files) holds, by the names of its streams.
enum class OleKind { Encrypted, OldWorkbook, Other };
OleKind ClassifyOle(QIODevice& file);

}  // namespace sheets
