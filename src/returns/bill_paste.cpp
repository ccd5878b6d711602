#include "returns/bill_paste.h"

#include <QMimeData>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>
#include <algorithm>

namespace returns {

namespace {

void dropEmptyEnd(std::vector<QStringList>& rows) {
    auto empty = [](const QStringList& row) {
        for (const QString& c : row)
            if (!c.trimmed().isEmpty()) return false;
        return true;
    };
    while (!rows.empty() && empty(rows.back())) rows.pop_back();
}

QTextTable* firstTable(QTextFrame* frame) {
    for (QTextFrame* child : frame->childFrames()) {
        if (auto* table = qobject_cast<QTextTable*>(child)) return table;
        if (QTextTable* inner = firstTable(child)) return inner;
    }
    return nullptr;
}

}  // namespace

std::vector<QStringList> RowsOfTabText(const QString& text) {
    std::vector<QStringList> rows(1);
    QString cell;
    bool quoted = false, atCellStart = true;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (quoted) {
            if (c == u'"' && i + 1 < text.size() && text[i + 1] == u'"') {
                cell += u'"';
                ++i;
            } else if (c == u'"') {
                quoted = false;
            } else {
                cell += c;
            }
            continue;
        }
        if (c == u'"' && atCellStart) {
            quoted = true;
            atCellStart = false;
        } else if (c == u'\t') {
            rows.back() << cell;
            cell.clear();
            atCellStart = true;
        } else if (c == u'\n' || c == u'\r') {
            if (c == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') ++i;
            rows.back() << cell;
            cell.clear();
            rows.emplace_back();
            atCellStart = true;
        } else {
            cell += c;
            atCellStart = false;
        }
    }
    rows.back() << cell;
    dropEmptyEnd(rows);
    return rows;
}

std::vector<QStringList> RowsOfHtmlTable(const QString& html) {
    QTextDocument doc;
    doc.setHtml(html);
    std::vector<QStringList> rows;
    QTextTable* table = firstTable(doc.rootFrame());
    if (!table) return rows;
    for (int r = 0; r < table->rows(); ++r) {
        QStringList row;
        for (int c = 0; c < table->columns(); ++c) {
            const QTextTableCell cell = table->cellAt(r, c);
            // A merged cell's text stands in its first row and column only, as in a sheet.
            if (cell.row() != r || cell.column() != c) {
                row << QString();
                continue;
            }
            QTextCursor cursor = cell.firstCursorPosition();
            cursor.setPosition(cell.lastCursorPosition().position(), QTextCursor::KeepAnchor);
            row << cursor.selectedText().replace(QChar::ParagraphSeparator, u'\n');
        }
        rows.push_back(row);
    }
    dropEmptyEnd(rows);
    return rows;
}

std::vector<QStringList> ClipboardRows(const QMimeData* data) {
    if (!data) return {};
    const QString text = data->hasText() ? data->text() : QString();
    if (text.contains(u'\t')) return RowsOfTabText(text);
    if (data->hasHtml() && data->html().contains(QLatin1String("<table"), Qt::CaseInsensitive)) {
        std::vector<QStringList> rows = RowsOfHtmlTable(data->html());
        if (!rows.empty()) return rows;
    }
    return RowsOfTabText(text);
}

PastePlan PlanPaste(const std::vector<QStringList>& copied, int row, int col, const QStringList& rateEntries) {
    PastePlan plan;
    plan.firstRow = row;
    std::vector<BillField> fields;
    std::size_t first = 0;
    if (!copied.empty()) {
        fields = GuessBillFields(copied.front());
        // Column names carry no digits; a bill's date and amounts do.
        int named = 0;
        for (BillField f : fields) named += f != BillField::None;
        const bool digits = std::any_of(copied.front().begin(), copied.front().end(), [](const QString& c) {
            return std::any_of(c.begin(), c.end(), [](QChar ch) { return ch.isDigit(); });
        });
        plan.header = named >= 2 && !digits;
    }
    if (plan.header) {
        first = 1;
    } else {
        if (col > kLastBillField) {
            plan.refusals << QStringLiteral("Total Amount is worked out from Amount, Tax and Cess; paste from a column left of it.");
            return plan;
        }
        fields.clear();
        for (int c = col; c < col + kLastBillField; ++c) fields.push_back(c <= kLastBillField ? BillField(c) : BillField::None);
    }
    for (std::size_t i = first; i < copied.size(); ++i) {
        if (IsTotalLine(copied[i])) continue;
        BillLine line = ReadBillLine(copied[i], fields, rateEntries);
        const int bill = plan.firstRow + int(plan.lines.size());
        for (const QString& why : line.refusals)
            plan.refusals << QStringLiteral("Copied row %1 (bill %2): %3").arg(i + 1).arg(bill).arg(why);
        plan.lines.push_back(std::move(line));
    }
    return plan;
}

}  // namespace returns
