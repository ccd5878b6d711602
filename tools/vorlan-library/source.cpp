#include "source.h"

#include "schema.h"

#include <QDate>
#include <QDateTime>
#include <QDir>
#include <QFile>

namespace libbuilder {

namespace {

[[noreturn]] void fail(const QString& where, const QString& what)
{
    throw BuildError{where + ": " + what};
}

Value convert(const QString& field, const Column& column, const QString& documentDir, const QString& where)
{
    if (field.isEmpty())
        return std::monostate{};
    switch (column.type) {
    case ColumnType::Text:
    case ColumnType::Memo:
        // "" stands for the empty text, which is not the same as Null.
        return field == QLatin1String("\"\"") ? QString() : field;
    case ColumnType::Integer:
    case ColumnType::Boolean: {
        bool ok = false;
        const qint64 n = field.toLongLong(&ok);
        if (!ok)
            fail(where, "column " + column.name + " wants a whole number, not '" + field + "'");
        return n;
    }
    case ColumnType::Double:
    case ColumnType::Currency: {
        bool ok = false;
        const double d = field.toDouble(&ok);
        if (!ok)
            fail(where, "column " + column.name + " wants a number, not '" + field + "'");
        return d;
    }
    case ColumnType::DateTime:
        if (!QDate::fromString(field, Qt::ISODate).isValid() &&
            !QDateTime::fromString(field, Qt::ISODate).isValid())
            fail(where, "column " + column.name + " wants a date yyyy-mm-dd, not '" + field + "'");
        return field;
    case ColumnType::LongBinary: {
        QFile document(documentDir + '/' + field);
        if (!document.open(QIODevice::ReadOnly))
            fail(where, "document '" + field + "' not found in " + documentDir);
        return document.readAll();
    }
    }
    return field;
}

TableRows readTable(const QString& path, const Table& table, const QString& documentDir)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        fail(path, "cannot be read: every table of the library needs its file");
    const QList<QByteArray> lines = file.readAll().split('\n');

    auto lineText = [&](qsizetype i) {
        QByteArray line = lines[i];
        if (line.endsWith('\r'))
            line.chop(1);
        return QString::fromUtf8(line);
    };

    TableRows result{table.name, {}, {}};
    std::vector<const Column*> columns;
    const QString headerWhere = path + ":1";
    if (lines.isEmpty() || lineText(0).isEmpty())
        fail(headerWhere, "the first line must name the columns");
    for (const QString& name : lineText(0).split('\t')) {
        const Column* column = table.column(name);
        if (!column)
            fail(headerWhere, "unknown column '" + name + "' in table " + table.name);
        if (result.columns.contains(name))
            fail(headerWhere, "column '" + name + "' named twice");
        result.columns << name;
        columns.push_back(column);
    }

    for (qsizetype i = 1; i < lines.size(); ++i) {
        const QString line = lineText(i);
        if (line.isEmpty() || line.startsWith('#'))
            continue;
        const QString where = path + ':' + QString::number(i + 1);
        const QStringList fields = line.split('\t');
        if (fields.size() != result.columns.size())
            fail(where, QString("%1 fields where the header names %2 columns")
                            .arg(fields.size())
                            .arg(result.columns.size()));
        Row row{where, {}, {}};
        row.values.reserve(fields.size());
        for (qsizetype c = 0; c < fields.size(); ++c) {
            row.values.push_back(convert(fields[c], *columns[c], documentDir, where));
            if (columns[c]->type == ColumnType::LongBinary)
                row.document = fields[c];
        }
        result.rows.push_back(std::move(row));
    }
    return result;
}

}  // namespace

std::vector<TableRows> readSource(const QString& sourceDir)
{
    const QDir dir(sourceDir);
    if (!dir.exists())
        fail(sourceDir, "no such folder");

    // A file that names no table is most likely a misspelt one; say so rather than skip it.
    for (const QString& name : dir.entryList({"*.tsv"}, QDir::Files)) {
        if (!findTable(name.chopped(4)))
            fail(dir.filePath(name), "names no table of the library");
    }

    const QString documentDir = dir.filePath("documents");
    std::vector<TableRows> tables;
    for (const LibraryFile& file : libraryFiles())
        for (const Table& table : file.tables)
            tables.push_back(readTable(dir.filePath(table.name + ".tsv"), table, documentDir));
    return tables;
}

}  // namespace libbuilder
