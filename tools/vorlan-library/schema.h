#pragma once
// The three library files: which tables each holds, their columns, declared types and passwords.
// The declared types are the fixed set the record-set layer maps to the platform's type numbers.
#include <QList>
#include <QString>
#include <QStringList>

namespace libbuilder {

enum class ColumnType { Integer, Double, Currency, Boolean, DateTime, Text, Memo, LongBinary };

struct Column {
    QString name;
    ColumnType type;
    bool key = false;      // the row key; no other column is unique
    bool indexed = false;  // looked up by value as the user types: an index of its own
};

struct Table {
    QString name;
    QList<Column> columns;
    const Column* column(const QString& columnName) const;  // exact spelling, or nullptr
};

struct LibraryFile {
    QString fileName;
    QString password;
    QList<Table> tables;
};

const QList<LibraryFile>& libraryFiles();
const Table* findTable(const QString& tableName);  // exact spelling, or nullptr

QString declaredType(ColumnType type);
bool isText(ColumnType type);

// The CREATE TABLE statement: every text column compares without regard to case.
QString createStatement(const Table& table);
// A CREATE INDEX statement for each indexed column; the index keeps the column's collation.
QStringList indexStatements(const Table& table);

}  // namespace libbuilder
