// XLSX through libxlsxwriter: shared strings for text, one format object per distinct look.
#include "platform/sheets/sheet_cells.h"
#include "platform/sheets/target_file.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>

#include <cerrno>
#include <xlsxwriter.h>
#include <zip.h>

namespace sheets {

namespace {

// The file format reads "_x0041_" as an escaped character; a text that holds such a run of its own
// has its underscore escaped, so that the reader sees the characters that were written.
QByteArray textOf(const QString& text) {
    static const QRegularExpression escapeLike(QStringLiteral("_(?=x[0-9A-Fa-f]{4}_)"));
    if (!text.contains(QStringLiteral("_x"))) return text.toUtf8();
    QString t = text;
    return t.replace(escapeLike, QStringLiteral("_x005F_")).toUtf8();
}

// Closes (and so frees) the workbook on every path; libxlsxwriter writes its file only then.
struct Workbook {
    lxw_workbook* book;
    bool closed = false;
    explicit Workbook(lxw_workbook* b) : book(b) {}
    ~Workbook() { if (!closed) workbook_close(book); }
    lxw_error close() {
        closed = true;
        return workbook_close(book);
    }
};

class Formats {
public:
    explicit Formats(lxw_workbook* book) : book_(book) {}
    lxw_format* of(const Cell& cell) {
        QString pattern = cell.numberFormat;
        if (cell.kind == Cell::Kind::Date && pattern.isEmpty()) pattern = QStringLiteral("dd-mm-yyyy");
        if (cell.kind == Cell::Kind::Text) pattern = QStringLiteral("@");
        if (pattern.isEmpty() && !cell.bold) return nullptr;
        const QString key = pattern + (cell.bold ? QStringLiteral("\x01") : QString());
        if (lxw_format* f = formats_.value(key)) return f;
        lxw_format* f = workbook_add_format(book_);
        if (!pattern.isEmpty()) format_set_num_format(f, pattern.toUtf8().constData());
        if (cell.bold) format_set_bold(f);
        formats_.insert(key, f);
        return f;
    }

private:
    lxw_workbook* book_;
    QHash<QString, lxw_format*> formats_;
};

// libxlsxwriter (1.1.4) builds each part in a scratch file and does not check those writes: on a disk
// that fills up it zips the parts cut short and reports success. So each XML part of the finished file
// is inflated again (which also checks its CRC) and must end with the end tag of its root element.
bool partsWhole(const QByteArray& file) {
    zip_t* zip = zip_open(file.constData(), ZIP_RDONLY, nullptr);
    if (!zip) return false;
    bool whole = true;
    const zip_int64_t entries = zip_get_num_entries(zip, 0);
    QByteArray buffer(1 << 16, Qt::Uninitialized);
    for (zip_int64_t i = 0; i < entries && whole; ++i) {
        const QByteArray name(zip_get_name(zip, zip_uint64_t(i), 0));
        if (!name.endsWith(".xml") && !name.endsWith(".rels")) continue;
        zip_file_t* part = zip_fopen_index(zip, zip_uint64_t(i), 0);
        if (!part) {
            whole = false;
            break;
        }
        QByteArray head, tail;
        for (zip_int64_t n; (n = zip_fread(part, buffer.data(), zip_uint64_t(buffer.size()))) != 0;) {
            if (n < 0) {
                whole = false;
                break;
            }
            if (head.size() < 512) head += buffer.left(qsizetype(n));
            tail = (tail + buffer.left(qsizetype(n))).right(512);
        }
        zip_fclose(part);
        // The root's name: the first element after the declaration.
        static const QRegularExpression root(QStringLiteral("<([A-Za-z_][\\w.:-]*)"));
        const auto m = root.match(QString::fromLatin1(head));
        const QByteArray end = tail.trimmed();
        whole = whole && m.hasMatch() && (end.endsWith("</" + m.captured(1).toLatin1() + ">") || (end.endsWith("/>") && head.size() == end.size()));
    }
    zip_discard(zip);
    return whole;
}

}  // namespace

void WriteXlsx(const QString& path, const std::vector<Sheet>& sheets) {
    CheckSheets(path, sheets, kWorkbookRows, kWorkbookColumns);
    TargetFile target(path);
    const QByteArray file = QFile::encodeName(target.temporaryPath());
    // libxlsxwriter's own scratch files go beside the target too: one disk, one verdict when it is full.
    QByteArray scratch = QFile::encodeName(QFileInfo(target.path()).absolutePath());
    lxw_workbook_options options{};
    options.tmpdir = scratch.data();
    Workbook book(workbook_new_opt(file.constData(), &options));
    if (!book.book) target.fail(LibraryWriteErrno());
    Formats formats(book.book);
    for (const Sheet& sheet : sheets) {
        lxw_worksheet* ws = workbook_add_worksheet(book.book, sheet.name.toUtf8().constData());
        if (!ws) throw SheetError(path, QStringLiteral("the sheet \"%1\" cannot be added.").arg(sheet.name));
        for (size_t c = 0; c < sheet.columnWidths.size(); ++c)
            if (sheet.columnWidths[c] > 0) worksheet_set_column(ws, lxw_col_t(c), lxw_col_t(c), sheet.columnWidths[c], nullptr);
        for (size_t r = 0; r < sheet.rows.size(); ++r) {
            const auto& row = sheet.rows[r];
            for (size_t c = 0; c < row.size(); ++c) {
                const Cell& cell = row[c];
                const auto rr = lxw_row_t(r);
                const auto cc = lxw_col_t(c);
                lxw_error e = LXW_NO_ERROR;
                switch (cell.kind) {
                case Cell::Kind::Empty:
                    if (cell.bold) e = worksheet_write_blank(ws, rr, cc, formats.of(cell));
                    break;
                case Cell::Kind::Text:
                    if (cell.text.isEmpty()) e = worksheet_write_blank(ws, rr, cc, formats.of(cell));
                    else e = worksheet_write_string(ws, rr, cc, textOf(cell.text).constData(), formats.of(cell));
                    break;
                case Cell::Kind::Number:
                    e = worksheet_write_number(ws, rr, cc, cell.number, formats.of(cell));
                    break;
                case Cell::Kind::Date: {
                    lxw_datetime when{cell.date.year(), cell.date.month(), cell.date.day(), 0, 0, 0.0};
                    e = worksheet_write_datetime(ws, rr, cc, &when, formats.of(cell));
                    break;
                }
                }
                if (e != LXW_NO_ERROR)
                    throw SheetError(path, QStringLiteral("cell %1 of the sheet \"%2\": %3.")
                                               .arg(CellName(int(r), int(c)), sheet.name, QString::fromUtf8(lxw_strerror(e))));
            }
        }
    }
    errno = 0;
    const lxw_error closed = book.close();
    const int error = LibraryWriteErrno();   // a scratch file's failed write leaves its errno here
    if (closed == LXW_ERROR_MEMORY_MALLOC_FAILED) throw SheetError(path, QStringLiteral("out of memory."));
    if (closed != LXW_NO_ERROR || !partsWhole(file)) target.fail(error);
    target.commit();
}

}  // namespace sheets
