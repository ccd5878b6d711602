#pragma once
// A register template: the page, the heading, the bill grid and the summary block, read from one of
// our ".rpt" files. The format is in TEMPLATES.md beside this file.
#include <QPageLayout>
#include <QPageSize>
#include <QString>
#include <QStringList>
#include <vector>

namespace reports {

struct BillColumn {
    QString heading;
    QString field;
    double width = 1;                   // a share of the line; the shares are scaled to the page
    enum Kind { Text, Trim, Amount } kind = Text;
};

struct SummaryRow {
    QString label;
    QStringList fields;                 // one per figure column
    bool total = false;                 // printed bold under a rule
};

struct ReportTemplate {
    QString file;                       // where it was read from, for messages

    QPageSize::PageSizeId pageSize = QPageSize::A4;
    QPageLayout::Orientation orientation = QPageLayout::Portrait;
    QMarginsF marginsMm{15, 12, 15, 12};
    QString fontFamily = QStringLiteral("DejaVu Sans");
    double fontSize = 8;
    QString footer = QStringLiteral("Page {page} of {pages}");

    QString headingSource;              // one row: the heading's {Field}s
    QString title;
    std::vector<QStringList> headingLines;      // each: left part, and optionally a right part

    QString billSource;
    QString orderField;                 // empty: the table's own order
    QString orderShape;                 // "dd-mm-yy" reads the field as such a date; empty compares text
    std::vector<BillColumn> columns;

    QString summarySource;
    QString summaryCaption;
    QStringList summaryHeadings;        // the label column's heading first
    std::vector<SummaryRow> summaryRows;

    QPageLayout pageLayout() const;
};

// Reads a template. A missing file raises error 53, an unreadable or malformed one error 75; both
// name the file (and the line at fault).
ReportTemplate readTemplate(const QString& path);

// The same from text already read; `file` only names it in messages.
ReportTemplate parseTemplate(const QString& text, const QString& file);

}  // namespace reports
