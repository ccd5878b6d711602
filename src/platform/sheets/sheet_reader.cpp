// Which reader a file goes to, told by its first bytes; the files no reader takes, refused with a
// message that says what to do.
#include "platform/sheets/sheet_reader.h"

#include "platform/sheets/reader_parts.h"

#include <QFile>
#include <QFileInfo>

namespace sheets {

namespace {

const QString kSaveAs = QStringLiteral("Open it in the spreadsheet program and save it as XLSX, ODS or CSV, then read that file.");

SheetContents readZip(const QString& path, const QString& sheetName, int maxRows) {
    const ZipArchive zip(path);
    const QByteArray type = zip.head(QStringLiteral("mimetype"), 200).trimmed();
    if (type.startsWith("application/vnd.oasis.opendocument.spreadsheet")) return ReadOds(zip, sheetName, maxRows);
    if (type.startsWith("application/vnd.oasis.opendocument."))
        throw ReadError(path, QStringLiteral("is an OpenDocument %1, not a spreadsheet.")
                                  .arg(QString::fromLatin1(type.mid(type.lastIndexOf('.') + 1))));
    if (zip.contains(QStringLiteral("[Content_Types].xml"))) {
        if (zip.contains(QStringLiteral("word/document.xml"))) throw ReadError(path, QStringLiteral("is a Word document, not a spreadsheet."));
        if (zip.contains(QStringLiteral("ppt/presentation.xml"))) throw ReadError(path, QStringLiteral("is a presentation, not a spreadsheet."));
        return ReadXlsx(zip, sheetName, maxRows);
    }
    throw ReadError(path, QStringLiteral("is a zip archive, not a spreadsheet."));
}

}  // namespace

SheetContents ReadSheet(const QString& path, const QString& sheetName, int maxRows) {
    const QFileInfo info(path);
    if (!info.exists()) throw ReadError(path, QStringLiteral("is not there."), 53);
    if (info.isDir()) throw ReadError(path, QStringLiteral("is a folder, not a spreadsheet."));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw ReadError(path, QStringLiteral("may not be read (%1).").arg(file.errorString()), 70);
    const QByteArray head = file.peek(8);
    if (head.startsWith("PK\x03\x04") || head.startsWith("PK\x05\x06")) {
        file.close();
        return readZip(path, sheetName, maxRows);
    }
    if (head == QByteArray("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", 8)) {
        switch (ClassifyOle(file)) {
        case OleKind::Encrypted:
            throw ReadError(path, QStringLiteral("is protected by a password. Open it in the spreadsheet program, "
                                                 "save a copy without the password, and read that copy."));
        case OleKind::OldWorkbook:
            throw ReadError(path, QStringLiteral("is an old Excel workbook (.xls), which is not read here. ") + kSaveAs);
        case OleKind::Other:
            throw ReadError(path, QStringLiteral("is an old Office document, not a spreadsheet."));
        }
    }
    const QByteArray start = file.peek(4096);
    if (start.startsWith("%PDF")) throw ReadError(path, QStringLiteral("is a PDF document, not a spreadsheet."));
    const bool utf16 = start.startsWith("\xFF\xFE") || start.startsWith("\xFE\xFF");
    if (!utf16 && start.contains('\0')) throw ReadError(path, QStringLiteral("is not a spreadsheet: it is not text, and not an XLSX or ODS file."));
    const QByteArray text = start.startsWith("\xEF\xBB\xBF") ? start.mid(3).trimmed() : start.trimmed();
    if (!utf16 && text.startsWith('<'))
        throw ReadError(path, QStringLiteral("is a web page or an XML file, not a spreadsheet (some programs give such files "
                                             "the name of a workbook). ") + kSaveAs);
    if (maxRows < 0) maxRows = 0;
    return ReadCsv(path, file, maxRows);
}

}  // namespace sheets
