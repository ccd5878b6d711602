#pragma once
// What a register prints, read from the data file through the tables its template names, and turned
// into the texts of the page: amounts as "#0.00", dates as "dd-mm-yy", NULL as nothing.
#include "platform/reports/report_template.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <vector>

namespace reports {

struct ReportData {
    QHash<QString, QString> heading;            // the heading source's first row, by column (lower case)
    std::vector<QStringList> bills;             // one text per template column, in the template's order
    std::vector<QStringList> summary;           // one text per figure of each summary row
};

// Reads the data file (a database file path, "\" or "/" between folders). A missing file raises error
// 53, a file or table that cannot be read error 75; both name the file.
ReportData loadData(const ReportTemplate& t, const QString& dataFile);

// The {Field} places of a heading text filled from the row; an unknown field prints as nothing.
QString fillFields(const QString& text, const QHash<QString, QString>& row);

}  // namespace reports
