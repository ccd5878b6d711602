// The month exported as XLSX, ODS and CSV and read back: every bill as the grid holds it, the heading,
// the summary as the labels show it; the workbook read by openpyxl cell by cell; the year's summary.
#include "books_fixture.h"
#include "sheets_window.h"

#include "platform/sheets/sheet_reader.h"
#include "returns/return_book.h"

namespace {

using Bills = std::vector<QStringList>;

const Bills kPurchases = {
    {"05-03-26", "Malabar Agencies", "03207012345", "1021", "    12.5", "125000.00", "15625.00", "1.25", "140626.25"},
    {"06-03-26", "=HYPERLINK(\"http://x\")", "", "'; DROP TABLE tblSales; --", "      4", "1000.00", "40.00", "", "1040.00"},
    {"07-03-26", "Kollam Stores", "32090111222", "553", "      0", "1200.00", "0.00", "0.00", "1200.00"}};
const Bills kSales = {
    {"18-03-26", "Madras Metals", "33010555444", "S-13", "     CST ", "4000.00", "160.00", "0.00", "4160.00"}};

// The sheet's bills read back through the import: cells 1 to 8 as the grid would hold them.
Bills readBack(const QString& path, const QString& sheet, const QStringList& rates, QStringList* notes,
                             QStringList* heading) {
    const sheets::SheetContents s = sheets::ReadSheet(path, path.endsWith(".csv") ? QString() : sheet);
    const int header = returns::FindHeaderRow(s.rows);
    const returns::BillImport read = returns::ReadBills(s, header, returns::GuessBillFields(s.rows.at(header)), rates);
    for (const returns::ImportNote& n : read.notes) *notes << n.text;
    for (int r = 0; r < header; ++r) *heading << s.rows[std::size_t(r)].join('|');
    Bills out;
    for (const returns::BillLine& b : read.bills) out.push_back(QStringList(b.cells.begin() + 1, b.cells.end()));
    return out;
}

class ExportMonth : public SheetsWindow, public testing::WithParamInterface<const char*> {};

TEST_P(ExportMonth, ReadsBackAsTheGridHoldsIt) {
    put(w->fg1, kPurchases);
    put(w->fg2, kSales);
    const QString path = folder.filePath(QStringLiteral("march.") + GetParam());
    forms::MsgBoxRecorder boxes;
    sheets->exportMonth(path);
    ASSERT_EQ(boxes.boxes().size(), 1u);
    EXPECT_EQ(boxes.boxes()[0].style, forms::vbInformation) << boxes.boxes()[0].text.toStdString();

    const returns::ReturnBook& book = returns::CurrentBook();
    // A row read back ends at its last filled cell.
    auto line = [](QStringList cells) {
        while (!cells.isEmpty() && cells.last().isEmpty()) cells.removeLast();
        return cells.join('|');
    };
    const QStringList expectedHeading = {"Purchase register (Local Purchase)", line({"Dealer", book.dealerName}),
                                         line({"TIN", book.tin}), "Period|March 2026", ""};
    const bool csv = QString(GetParam()) == "csv";
    struct Register {
        QString sheet;
        QStringList rates;
        Bills grid;
    };
    const Register registers[] = {{"Local purchases", {"      0", "      1", "      4", "    12.5", "     20       "}, kPurchases},
                                  {"Sales", {"      0", "      1", "      4", "    12.5", "     20  ", "     CST "}, kSales}};
    for (const Register& reg : registers) {
        QStringList notes, heading;
        const QString file = csv ? returns::SheetFileName(path, reg.sheet) : path;
        Bills expected;
        for (const QStringList& b : reg.grid) expected.push_back(b.mid(0, 8));
        EXPECT_EQ(readBack(file, reg.sheet, reg.rates, &notes, &heading), expected) << reg.sheet.toStdString();
        ASSERT_EQ(notes.size(), 1);
        EXPECT_TRUE(notes[0].contains("is the sum of the bills read")) << notes[0].toStdString();
        if (reg.sheet == "Local purchases") {
            EXPECT_EQ(heading, expectedHeading);
        }
    }

    // The summary: a line a band with the labels' figures, and each register's total.
    const QString summary = csv ? returns::SheetFileName(path, "Summary") : path;
    QStringList lines;
    for (const QStringList& r : sheets::ReadSheet(summary, csv ? QString() : "Summary").rows) lines << r.join('|');
    EXPECT_TRUE(lines.contains("12.5|125000.00|15625.00|1.25|140626.25")) << lines.join('\n').toStdString();
    EXPECT_TRUE(lines.contains("TOTAL|127200.00|15665.00|1.25|" + w->txtTotal->text()));
    EXPECT_TRUE(lines.contains("CST|4000.00|160.00|0.00|4160.00"));
}

INSTANTIATE_TEST_SUITE_P(Formats, ExportMonth, testing::Values("xlsx", "ods", "csv"));

// openpyxl, another program, sees each bill cell as the grid shows it, with its kind: numbers, a date,
// text that stays text.
TEST_F(SheetsWindow, ExportedWorkbookCellsEqualTheGridInOpenpyxl) {
    put(w->fg1, kPurchases);
    const QString path = folder.filePath("march.xlsx");
    forms::MsgBoxRecorder boxes;
    sheets->exportMonth(path);
    const QByteArray json = python(R"(
import json, sys, datetime, openpyxl
ws = openpyxl.load_workbook(sys.argv[1])["Local purchases"]
out = []
for row in ws.iter_rows(min_row=7, max_row=9, values_only=True):
    out.append([v.strftime("%d-%m-%y") if isinstance(v, datetime.datetime) else ("n:%.2f" % v if isinstance(v, (int, float)) else v or "") for v in row])
print(json.dumps(out))
)", path);
    const QJsonArray read = QJsonDocument::fromJson(json).array();
    ASSERT_EQ(read.size(), int(kPurchases.size()));
    for (int r = 0; r < read.size(); ++r) {
        QStringList expected{QStringLiteral("n:%1.00").arg(r + 1)};
        for (int c = 0; c < 9; ++c) {
            const QString cell = kPurchases[std::size_t(r)][c];
            const bool number = c == 4 || (c >= 5 && !cell.isEmpty());
            expected << (number ? QStringLiteral("n:%1").arg(basic::Val(cell), 0, 'f', 2) : cell);
        }
        QStringList got;
        for (const QJsonValue& v : read[r].toArray()) got << v.toString();
        EXPECT_EQ(got, expected);
    }
}

// A dealer's book: the month's heading and the year's summary name the dealer, and the year's summary
// has each month's stored bills by band, months in the book's order.
class BookSheets : public Practice {
protected:
    void keyed(forms::FlexGrid* g, const Bills& bills) {
        g->setRows(int(bills.size()) + 1);
        for (int r = 0; r < int(bills.size()); ++r) {
            g->setTextMatrix(r + 1, 0, QString::number(r + 1));
            for (int c = 0; c < 9; ++c) g->setTextMatrix(r + 1, c + 1, bills[std::size_t(r)].value(c));
        }
        w->procTotalCal1();
        w->procTotalCal2();
        forms::MsgBoxRecorder quiet;
        w->cmdAdd_Click();
    }
};

TEST_F(BookSheets, MonthAndYearOfANamedDealer) {
    returns::Register().Add(dealer("32071234567", "Malabar Agencies"));
    returns::MakeBook(returns::Register(), book("32071234567", 2025));
    openWindow(book("32071234567", 2025), "April");
    keyed(w->fg1, {{"10-04-25", "April Traders", "", "", "      4", "500.00", "20.00", "", "520.00"}});
    keyed(w->fg2, {{"11-04-25", "April Buyer", "", "", "      4", "300.00", "12.00", "", "312.00"}});
    openWindow(book("32071234567", 2025), "March");
    keyed(w->fg1, kPurchases);
    keyed(w->fg2, kSales);
    auto* sheets = w->findChild<returns::BillSheets*>();
    const QString month = root.filePath("march.xlsx"), year = root.filePath("year.xlsx");
    forms::MsgBoxRecorder boxes;
    sheets->exportMonth(month);
    sheets->exportYear(year);
    ASSERT_EQ(boxes.boxes().size(), 2u);
    for (const forms::RecordedBox& b : boxes.boxes()) EXPECT_EQ(b.style, forms::vbInformation) << b.text.toStdString();

    QStringList heading;
    for (const QStringList& r : sheets::ReadSheet(month, "Sales").rows) heading << r.join('|');
    EXPECT_EQ(heading.mid(0, 4), (QStringList{"Sales register", "Dealer|Malabar Agencies", "TIN|32071234567", "Period|March 2026"}));

    const sheets::SheetContents s = sheets::ReadSheet(year);
    EXPECT_EQ(s.sheetNames, QStringList{"Year 2025-26"});
    // Each register's lines keyed by "register|month|column".
    QHash<QString, QString> cell;
    QString reg;
    QStringList header;
    for (const QStringList& r : s.rows) {
        if (r.size() == 1) reg = r[0];
        else if (r.value(0) == "Month") header = r;
        else
            for (int c = 1; c < r.size(); ++c) cell[reg + "|" + r[0] + "|" + header.value(c)] = r[c];
    }
    const std::pair<const char*, const char*> expected[] = {
        {"Local purchases|April 2025|4 % Amount", "500.00"},   {"Local purchases|April 2025|4 % Tax", "20.00"},
        {"Local purchases|March 2026|12.5 % Cess", "1.25"},    {"Local purchases|March 2026|Total", "142866.25"},
        {"Local purchases|May 2025|Total", "0.00"},             {"Local purchases|TOTAL|Total Amount", "127700.00"},
        {"Inter-state purchases|TOTAL|Total", "0.00"},          {"Sales|March 2026|CST % Amount", "4000.00"},
        {"Sales|April 2025|4 % Tax", "12.00"},                  {"Sales|TOTAL|Total", "4472.00"}};
    for (const auto& [key, value] : expected) EXPECT_EQ(cell.value(key), value) << key;
    EXPECT_EQ(s.rows.at(1), (QStringList{"Dealer", "Malabar Agencies"}));
}

}  // namespace
