#include "schema.h"

namespace libbuilder {

namespace {

using T = ColumnType;

QList<Column> documentColumns()
{
    return {{"name", T::Text, true}, {"type", T::Text}, {"fname", T::LongBinary}};
}

QList<LibraryFile> makeFiles()
{
    const Table kerala{"Kerala",
                       {{"id", T::Integer, true},
                        {"name", T::Text, false, true},
                        {"SecDesc", T::Text},
                        {"type", T::Text},
                        {"ChapterNo", T::Integer},
                        {"fname", T::LongBinary}}};
    const Table keralafields{"Keralafields",
                             {{"ID", T::Integer, true},
                              {"ActSection", T::Text},
                              {"VatJudgmentSection", T::Text},
                              {"VatJudgmentCitation", T::Text},
                              {"VatJudgmentSubject", T::Text},
                              {"RJudjmentSection", T::Text},
                              {"RJudgmentCitation", T::Text},
                              {"RJudgmentSubject", T::Text},
                              {"CircularNumber", T::Text},
                              {"CircularSection", T::Text},
                              {"CircularSubject", T::Text},
                              {"NotificationNumber", T::Text},
                              {"NotifcaionSection", T::Text},
                              {"NotificationSubject", T::Text}}};
    const Table allshedule{"Allshedule",
                           {{"ID", T::Integer, true},
                            {"Schname", T::Text},
                            {"Stid", T::Text},
                            {"fname", T::LongBinary}}};
    const Table caPractice{"CAPractice",
                           {{"ID", T::Integer, true},
                            {"name", T::Text},
                            {"Type", T::Text},
                            {"Weight", T::Double},
                            {"fname", T::LongBinary}}};
    return {
        {"0909214SD01.mdb", "bergamot", {kerala, keralafields, {"Globalvat", documentColumns()}}},
        {"1309214SD02.mdb", "lantern", {{"Globalvatse", documentColumns()}}},
        {"1509214SD03.mdb", "marbled", {allshedule, caPractice}},
    };
}

}  // namespace

const Column* Table::column(const QString& columnName) const
{
    for (const Column& c : columns)
        if (c.name == columnName)
            return &c;
    return nullptr;
}

const QList<LibraryFile>& libraryFiles()
{
    static const QList<LibraryFile> files = makeFiles();
    return files;
}

const Table* findTable(const QString& tableName)
{
    for (const LibraryFile& file : libraryFiles())
        for (const Table& table : file.tables)
            if (table.name == tableName)
                return &table;
    return nullptr;
}

QString declaredType(ColumnType type)
{
    switch (type) {
    case T::Integer: return "INTEGER";
    case T::Double: return "DOUBLE";
    case T::Currency: return "CURRENCY";
    case T::Boolean: return "BOOLEAN";
    case T::DateTime: return "DATETIME";
    case T::Text: return "TEXT";
    case T::Memo: return "MEMO";
    case T::LongBinary: return "LONGBINARY";
    }
    return "TEXT";
}

bool isText(ColumnType type)
{
    return type == T::Text || type == T::Memo;
}

QString createStatement(const Table& table)
{
    QStringList defs;
    for (const Column& c : table.columns) {
        QString def = c.name + ' ' + declaredType(c.type);
        if (isText(c.type))
            def += " COLLATE NOCASE";
        if (c.key)
            def += " NOT NULL PRIMARY KEY";
        defs << def;
    }
    return "CREATE TABLE " + table.name + " (" + defs.join(", ") + ")";
}

QStringList indexStatements(const Table& table)
{
    QStringList statements;
    for (const Column& c : table.columns)
        if (c.indexed)
            statements << "CREATE INDEX " + table.name + '_' + c.name + " ON " + table.name + " (" + c.name + ")";
    return statements;
}

}  // namespace libbuilder
