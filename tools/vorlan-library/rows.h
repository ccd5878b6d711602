#pragma once
// Rows on their way into a library file, each with the place it came from for messages.
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <variant>
#include <vector>

namespace libbuilder {

// Null, whole number, number, text, or a document's bytes.
using Value = std::variant<std::monostate, qint64, double, QString, QByteArray>;

struct Row {
    QString origin;  // "<file>:<line>", or a generated row's description
    std::vector<Value> values;
    QString document;  // the file its document came from, for messages; empty when none
};

struct TableRows {
    QString table;
    QStringList columns;
    std::vector<Row> rows;
};

// A fault in the source or in writing; the message names the file and line.
struct BuildError {
    QString message;
};

}  // namespace libbuilder
