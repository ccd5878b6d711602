// ODS: a zip (libzip) whose first entry is the uncompressed mimetype, then the manifest, the styles
// and content.xml, each written by QXmlStreamWriter.
#include "platform/sheets/number_format.h"
#include "platform/sheets/sheet_cells.h"
#include "platform/sheets/target_file.h"

#include <QBuffer>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QXmlStreamWriter>
#include <zip.h>

#include <cerrno>
#include <functional>

namespace sheets {

namespace {

const char* const kOffice = "urn:oasis:names:tc:opendocument:xmlns:office:1.0";
const char* const kStyle = "urn:oasis:names:tc:opendocument:xmlns:style:1.0";
const char* const kText = "urn:oasis:names:tc:opendocument:xmlns:text:1.0";
const char* const kTable = "urn:oasis:names:tc:opendocument:xmlns:table:1.0";
const char* const kFo = "urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0";
const char* const kNumber = "urn:oasis:names:tc:opendocument:xmlns:datastyle:1.0";
const char* const kManifest = "urn:oasis:names:tc:opendocument:xmlns:manifest:1.0";

QString formatOf(const Cell& c) {
    if (c.kind == Cell::Kind::Date && c.numberFormat.isEmpty()) return QStringLiteral("dd-mm-yyyy");
    if (c.kind == Cell::Kind::Number || c.kind == Cell::Kind::Date) return c.numberFormat;
    return QString();
}

// The cell styles of a workbook: one per distinct number format and weight, named ce1, ce2, ...
class Styles {
public:
    explicit Styles(const std::vector<Sheet>& sheets) {
        for (const Sheet& s : sheets)
            for (const auto& row : s.rows)
                for (const Cell& c : row)
                    if (c.bold || !formatOf(c).isEmpty()) nameOf(c);
    }
    QString nameOf(const Cell& c) {
        if (!c.bold && formatOf(c).isEmpty()) return QString();
        const QString key = formatOf(c) + (c.bold ? QStringLiteral("\x01") : QString());
        auto it = names_.find(key);
        if (it == names_.end()) it = names_.insert(key, QStringLiteral("ce%1").arg(names_.size() + 1));
        return it.value();
    }
    NumberPattern patternOf(const Cell& c) const { return ParseNumberFormat(formatOf(c)); }

    void write(QXmlStreamWriter& x) const {
        for (auto it = names_.cbegin(); it != names_.cend(); ++it) {
            const QString format = it.key().endsWith(u'\x01') ? it.key().chopped(1) : it.key();
            const NumberPattern p = ParseNumberFormat(format);
            const QString data = QStringLiteral("N") + it.value().mid(2);
            const bool hasData = writeData(x, data, p);
            x.writeStartElement(kStyle, "style");
            x.writeAttribute(kStyle, "name", it.value());
            x.writeAttribute(kStyle, "family", "table-cell");
            x.writeAttribute(kStyle, "parent-style-name", "Default");
            if (hasData) x.writeAttribute(kStyle, "data-style-name", data);
            if (it.key().endsWith(u'\x01')) {
                x.writeEmptyElement(kStyle, "text-properties");
                x.writeAttribute(kFo, "font-weight", "bold");
            }
            x.writeEndElement();
        }
    }

private:
    static bool writeData(QXmlStreamWriter& x, const QString& name, const NumberPattern& p) {
        using K = NumberPattern::Kind;
        if (p.kind == K::Number || p.kind == K::Percent) {
            x.writeStartElement(kNumber, p.kind == K::Percent ? "percentage-style" : "number-style");
            x.writeAttribute(kStyle, "name", name);
            x.writeEmptyElement(kNumber, "number");
            x.writeAttribute(kNumber, "decimal-places", QString::number(p.decimals));
            x.writeAttribute(kNumber, "min-decimal-places", QString::number(p.decimals));
            x.writeAttribute(kNumber, "min-integer-digits", QString::number(p.integerDigits));
            if (p.grouping) x.writeAttribute(kNumber, "grouping", "true");
            if (p.kind == K::Percent) x.writeTextElement(kNumber, "text", "%");
            x.writeEndElement();
            return true;
        }
        if (p.kind != K::Date && p.kind != K::DateTime) return false;
        x.writeStartElement(kNumber, "date-style");
        x.writeAttribute(kStyle, "name", name);
        for (const DatePart& d : p.dateParts) {
            switch (d.kind) {
            case DatePart::Kind::Day:
                x.writeEmptyElement(kNumber, "day");
                if (d.width == 2) x.writeAttribute(kNumber, "style", "long");
                break;
            case DatePart::Kind::Month:
            case DatePart::Kind::MonthName:
                x.writeEmptyElement(kNumber, "month");
                if (d.kind == DatePart::Kind::MonthName) x.writeAttribute(kNumber, "textual", "true");
                if (d.width == 2 || d.width == 4) x.writeAttribute(kNumber, "style", "long");
                break;
            case DatePart::Kind::Year:
                x.writeEmptyElement(kNumber, "year");
                if (d.width == 4) x.writeAttribute(kNumber, "style", "long");
                break;
            case DatePart::Kind::Literal:
                x.writeTextElement(kNumber, "text", d.text);
                break;
            }
        }
        x.writeEndElement();
        return true;
    }
    QMap<QString, QString> names_;
};

// A text cell's paragraphs. Runs of blanks, blanks at either end and tabs are written as elements,
// since a reader collapses white space in the character data; characters XML cannot hold become U+FFFD.
void writeParagraphs(QXmlStreamWriter& x, const QString& text) {
    static const QRegularExpression breaks(QStringLiteral("\r\n|\n|\r"));
    const QStringList lines = text.contains(u'\n') || text.contains(u'\r') ? text.split(breaks) : QStringList{text};
    for (const QString& line : lines) {
        x.writeStartElement(kText, "p");
        QString pending;
        for (qsizetype i = 0; i < line.size();) {
            const QChar c = line[i];
            if (c == u' ') {
                qsizetype n = 1;
                while (i + n < line.size() && line[i + n] == u' ') ++n;
                if (n == 1 && i > 0 && i + 1 < line.size()) {
                    pending += u' ';
                } else {
                    x.writeCharacters(pending);
                    pending.clear();
                    x.writeEmptyElement(kText, "s");
                    if (n > 1) x.writeAttribute(kText, "c", QString::number(n));
                }
                i += n;
                continue;
            }
            if (c == u'\t') {
                x.writeCharacters(pending);
                pending.clear();
                x.writeEmptyElement(kText, "tab");
            } else if (c.unicode() < 0x20 || c.unicode() == 0xFFFE || c.unicode() == 0xFFFF) {
                pending += QChar(0xFFFD);
            } else {
                pending += c;
            }
            ++i;
        }
        x.writeCharacters(pending);
        x.writeEndElement();
    }
}

QString dateText(const QDate& d, const NumberPattern& p) {
    QString s;
    for (const DatePart& part : p.dateParts) {
        switch (part.kind) {
        case DatePart::Kind::Day: s += d.toString(part.width == 2 ? QStringLiteral("dd") : QStringLiteral("d")); break;
        case DatePart::Kind::Month: s += d.toString(part.width == 2 ? QStringLiteral("MM") : QStringLiteral("M")); break;
        case DatePart::Kind::MonthName: s += d.toString(part.width == 4 ? QStringLiteral("MMMM") : QStringLiteral("MMM")); break;
        case DatePart::Kind::Year: s += d.toString(part.width == 2 ? QStringLiteral("yy") : QStringLiteral("yyyy")); break;
        case DatePart::Kind::Literal: s += part.text; break;
        }
    }
    return s;
}

void writeCell(QXmlStreamWriter& x, const Cell& c, Styles& styles, int repeat) {
    x.writeStartElement(kTable, "table-cell");
    if (repeat > 1) x.writeAttribute(kTable, "number-columns-repeated", QString::number(repeat));
    const QString style = styles.nameOf(c);
    if (!style.isEmpty()) x.writeAttribute(kTable, "style-name", style);
    switch (c.kind) {
    case Cell::Kind::Empty:
        break;
    case Cell::Kind::Text:
        if (c.text.isEmpty()) break;
        x.writeAttribute(kOffice, "value-type", "string");
        writeParagraphs(x, c.text);
        break;
    case Cell::Kind::Number: {
        const NumberPattern p = styles.patternOf(c);
        const bool percent = p.kind == NumberPattern::Kind::Percent;
        x.writeAttribute(kOffice, "value-type", percent ? "percentage" : "float");
        x.writeAttribute(kOffice, "value", QString::number(c.number, 'g', 17));
        x.writeTextElement(kText, "p", ShowNumber(c.number, p));
        break;
    }
    case Cell::Kind::Date:
        x.writeAttribute(kOffice, "value-type", "date");
        x.writeAttribute(kOffice, "date-value", c.date.toString(Qt::ISODate));
        x.writeTextElement(kText, "p", dateText(c.date, styles.patternOf(c)));
        break;
    }
    x.writeEndElement();
}

void writeSheet(QXmlStreamWriter& x, const Sheet& sheet, Styles& styles, int firstColumnStyle) {
    x.writeStartElement(kTable, "table");
    x.writeAttribute(kTable, "name", sheet.name);
    size_t columns = sheet.columnWidths.size();
    for (const auto& row : sheet.rows) columns = std::max(columns, row.size());
    for (size_t c = 0; c < std::max<size_t>(columns, 1); ++c) {
        x.writeEmptyElement(kTable, "table-column");
        if (c < sheet.columnWidths.size() && sheet.columnWidths[c] > 0)
            x.writeAttribute(kTable, "style-name", QStringLiteral("co%1").arg(firstColumnStyle + int(c)));
    }
    for (const auto& row : sheet.rows) {
        x.writeStartElement(kTable, "table-row");
        if (row.empty()) writeCell(x, Cell(), styles, 1);
        for (size_t c = 0; c < row.size();) {
            // Empty cells side by side go as one repeated cell.
            size_t n = 1;
            if (row[c].kind == Cell::Kind::Empty && !row[c].bold)
                while (c + n < row.size() && row[c + n].kind == Cell::Kind::Empty && !row[c + n].bold) ++n;
            writeCell(x, row[c], styles, int(n));
            c += n;
        }
        x.writeEndElement();
    }
    x.writeEndElement();
}

void startDocument(QXmlStreamWriter& x, const char* root) {
    x.writeStartDocument();
    x.writeNamespace(kOffice, "office");
    x.writeNamespace(kStyle, "style");
    x.writeNamespace(kText, "text");
    x.writeNamespace(kTable, "table");
    x.writeNamespace(kFo, "fo");
    x.writeNamespace(kNumber, "number");
    x.writeStartElement(kOffice, root);
    x.writeAttribute(kOffice, "version", "1.2");
}

void writeContent(QIODevice* device, const std::vector<Sheet>& sheets) {
    QXmlStreamWriter x(device);
    startDocument(x, "document-content");
    Styles styles(sheets);
    x.writeStartElement(kOffice, "automatic-styles");
    int column = 1;
    for (const Sheet& s : sheets)
        for (double width : s.columnWidths) {
            if (width > 0) {
                x.writeStartElement(kStyle, "style");
                x.writeAttribute(kStyle, "name", QStringLiteral("co%1").arg(column));
                x.writeAttribute(kStyle, "family", "table-column");
                x.writeEmptyElement(kStyle, "table-column-properties");
                // a character of the default font is about 0.21 cm wide, with a margin either side
                x.writeAttribute(kStyle, "column-width", QStringLiteral("%1cm").arg(width * 0.21 + 0.2, 0, 'f', 3));
                x.writeEndElement();
            }
            ++column;
        }
    styles.write(x);
    x.writeEndElement();
    x.writeStartElement(kOffice, "body");
    x.writeStartElement(kOffice, "spreadsheet");
    column = 1;
    for (const Sheet& s : sheets) {
        writeSheet(x, s, styles, column);
        column += int(s.columnWidths.size());
    }
    x.writeEndDocument();
}

void writeStyles(QIODevice* device) {
    QXmlStreamWriter x(device);
    startDocument(x, "document-styles");
    x.writeStartElement(kOffice, "styles");
    x.writeEmptyElement(kStyle, "style");
    x.writeAttribute(kStyle, "name", "Default");
    x.writeAttribute(kStyle, "family", "table-cell");
    x.writeEndDocument();
}

void writeManifest(QIODevice* device) {
    QXmlStreamWriter x(device);
    x.writeStartDocument();
    x.writeNamespace(kManifest, "manifest");
    x.writeStartElement(kManifest, "manifest");
    x.writeAttribute(kManifest, "version", "1.2");
    const std::pair<const char*, const char*> entries[] = {
        {"/", "application/vnd.oasis.opendocument.spreadsheet"}, {"content.xml", "text/xml"}, {"styles.xml", "text/xml"}};
    for (const auto& [path, type] : entries) {
        x.writeEmptyElement(kManifest, "file-entry");
        x.writeAttribute(kManifest, "full-path", path);
        if (QByteArray(path) == "/") x.writeAttribute(kManifest, "version", "1.2");
        x.writeAttribute(kManifest, "media-type", type);
    }
    x.writeEndDocument();
}

}  // namespace

void WriteOds(const QString& path, const std::vector<Sheet>& sheets) {
    CheckSheets(path, sheets, kWorkbookRows, kWorkbookColumns);
    TargetFile target(path);
    int openError = 0;
    zip_t* zip = zip_open(QFile::encodeName(target.temporaryPath()).constData(), ZIP_CREATE | ZIP_TRUNCATE, &openError);
    if (!zip) {
        zip_error_t e;
        zip_error_init_with_code(&e, openError);
        target.fail(zip_error_code_system(&e));
    }
    // The parts stay in memory until the zip is closed; libzip reads them then.
    std::vector<QByteArray> parts;
    parts.reserve(4);
    auto entry = [&](const char* name, bool stored, const std::function<void(QIODevice*)>& write) {
        QBuffer buffer(&parts.emplace_back());
        buffer.open(QIODevice::WriteOnly);
        write(&buffer);
        zip_source_t* source = zip_source_buffer(zip, parts.back().constData(), zip_uint64_t(parts.back().size()), 0);
        const zip_int64_t index = source ? zip_file_add(zip, name, source, ZIP_FL_ENC_UTF_8) : -1;
        if (index < 0) {
            if (source) zip_source_free(source);
            zip_discard(zip);
            throw SheetError(path, QStringLiteral("the part %1 cannot be added.").arg(QString::fromLatin1(name)));
        }
        if (stored) zip_set_file_compression(zip, zip_uint64_t(index), ZIP_CM_STORE, 0);
    };
    // The type first and uncompressed, so that a program can tell the file by its first bytes.
    entry("mimetype", true, [](QIODevice* d) { d->write("application/vnd.oasis.opendocument.spreadsheet"); });
    entry("META-INF/manifest.xml", false, writeManifest);
    entry("styles.xml", false, writeStyles);
    entry("content.xml", false, [&](QIODevice* d) { writeContent(d, sheets); });
    if (zip_close(zip) != 0) {
        const int error = zip_error_code_system(zip_get_error(zip));
        zip_discard(zip);
        target.fail(error);
    }
    target.commit();
}

}  // namespace sheets
