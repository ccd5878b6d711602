#pragma once
// The remote data control: a connect string and a statement; Refresh runs the statement and keeps its
// first row, whose columns bound controls show. It holds no rows beyond the first.
#include "platform/basic/variant.h"

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QString>
#include <QStringList>

namespace documents {

class DataControl : public QObject {
    Q_OBJECT
public:
    explicit DataControl(QObject* parent = nullptr);

    QString Connect() const { return connect_; }
    void setConnect(const QString& connectionString) { connect_ = connectionString; }
    QString SQL() const { return sql_; }
    void setSQL(const QString& sql) { sql_ = sql; }

    // Runs SQL on Connect and keeps the first row; no row leaves every column Null. The store's run-time
    // errors pass to the caller, and the row it had is dropped.
    void Refresh();

    bool Eof() const { return row_.isEmpty(); }
    // Whether the last refresh returned a column of that name (any case).
    bool hasField(const QString& fieldName) const { return columns_.contains(fieldName.toLower()); }
    // A column of the kept row, named without regard to case; Null when there is no row. A name that the
    // statement does not return raises error 3265, as the record set's Fields does.
    basic::Variant value(const QString& fieldName) const;
    // The column's bytes: a long-binary value as stored, a text as UTF-8, anything else empty.
    QByteArray bytes(const QString& fieldName) const;

signals:
    void refreshed();

private:
    QString connect_;
    QString sql_;
    QStringList columns_;                 // lower-case column names of the last refresh
    QHash<QString, basic::Variant> row_;  // lower-case column name to value
};

}  // namespace documents
