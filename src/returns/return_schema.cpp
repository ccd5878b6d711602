#include "returns/return_schema.h"

#include "platform/basic/runtime_error.h"
#include "platform/forms/msgbox.h"
#include "platform/store/connection.h"
#include "platform/store/database_file.h"
#include "platform/store/errors.h"
#include "platform/store/transaction.h"
#include "returns/log.h"

#include <QDir>
#include <QFileInfo>
#include <cstdio>

namespace returns {

namespace {

const QString kText = QStringLiteral("TEXT");
const QString kDouble = QStringLiteral("DOUBLE");
const QString kDate = QStringLiteral("DATETIME");
const QString kInteger = QStringLiteral("INTEGER");

const QStringList kBands = {"0", "1", "4", "12", "20"};

void add(std::vector<ReturnColumn>& to, const QStringList& names, const QString& type) {
    for (const QString& n : names) to.push_back({n, type});
}

QStringList banded(const QString& prefix, const QStringList& bands = kBands) {
    QStringList out;
    for (const QString& b : bands) out << prefix + b;
    return out;
}

// SlNo to NetAmount as the grid's columns, then the keys. The report copies keep BillDate as the cell's
// text; only the bill tables hold it as a date, so that "ORDER BY BillDate" sorts by date.
ReturnTable billTable(const QString& name, bool reportCopy, bool withPlace) {
    ReturnTable t{name, {}};
    add(t.columns, {"SlNo"}, kText);
    add(t.columns, {"BillDate"}, reportCopy ? kText : kDate);
    add(t.columns, {"Party", "TIN", "BillNo", "RateOfTax"}, kText);
    add(t.columns, {"Amount", "Tax", "Cess", "NetAmount"}, kDouble);
    add(t.columns, {"cMonth", "cAddress", "eDate"}, kText);
    if (withPlace) add(t.columns, {"Place"}, kText);
    add(t.columns, {"cCode"}, kText);
    return t;
}

ReturnTable purchaseSummary(const QString& name, bool withSalesColumns) {
    ReturnTable t{name, {}};
    add(t.columns, {"cCode", "cMonth", "cAddress"}, kText);
    add(t.columns, banded("PTA") + banded("PTT") + banded("PTC"), kDouble);
    add(t.columns, {"Place", "eDate"}, kText);
    add(t.columns, banded("PRT") + QStringList{"PCTAmt", "PCTTax", "PCTCess", "PCTTotal"}, kDouble);
    // Written only by a procedure that nothing calls; the columns stay empty.
    if (withSalesColumns) add(t.columns, banded("STA") + banded("STT") + QStringList{"STACST", "STTCST"}, kDouble);
    return t;
}

ReturnTable pageTable(const QString& name) {
    ReturnTable t{name, {}};
    add(t.columns, {"cCode", "cYear", "cSequence", "cRPFrom"}, kText);
    return t;
}

// Box columns: prefix, line digit, column digit.
QStringList boxes(const QString& prefix, const QList<int>& lines, const QList<int>& cols) {
    QStringList out;
    for (int line : lines)
        for (int col : cols) out << prefix + QString::number(line) + QString::number(col);
    return out;
}

std::vector<ReturnTable> makeSchema() {
    std::vector<ReturnTable> s;
    s.push_back(billTable("tblPurchase1", false, true));
    s.push_back(billTable("tblPurchaseInterState1", false, true));
    s.push_back(billTable("tblSales", false, false));
    s.push_back(billTable("tblRptPurchase1", true, true));
    s.push_back(billTable("tblRptPurchaseInterState", true, true));
    s.push_back(billTable("tblRptSales1", true, false));

    ReturnTable common{"tblCommon", {}};
    add(common.columns, {"cCode", "cMonth", "cAddress"}, kText);
    const QStringList salesBands = {"0", "1", "4", "12", "CST", "20"};
    add(common.columns,
        banded("PTA") + banded("PTT") + banded("PTC") + banded("STA", salesBands) + banded("STT", salesBands) +
            banded("STC", salesBands) + QStringList{"netTotal"},
        kDouble);
    add(common.columns, {"eDate", "Place"}, kText);
    add(common.columns, banded("RT"), kDouble);
    add(common.columns, {"Category"}, kText);
    s.push_back(common);

    s.push_back(purchaseSummary("tblRptPurchaseC", true));
    s.push_back(purchaseSummary("tblRptPurchaseInterStateC", false));

    ReturnTable sales{"tblRptSales", {}};
    const QStringList salesOrder = {"0", "1", "4", "12", "20", "CST"};
    add(sales.columns, {"cCode", "cMonth", "cAddress"}, kText);
    add(sales.columns, banded("STA", salesOrder) + banded("STT", salesOrder) + banded("STC", salesOrder), kDouble);
    add(sales.columns, {"Place", "eDate"}, kText);
    add(sales.columns, banded("SRT", salesOrder) + QStringList{"SCTAmt", "SCTTax", "SCTCess", "SCTTotal"}, kDouble);
    s.push_back(sales);

    ReturnTable rptCommon{"tblRptCommon", {}};
    add(rptCommon.columns, {"cCode", "cMonth", "cAddress"}, kText);
    add(rptCommon.columns, banded("PTA") + banded("PTT"), kDouble);
    add(rptCommon.columns, {"Category"}, kText);
    add(rptCommon.columns, {"STACST", "STTCST"}, kDouble);
    add(rptCommon.columns, {"eDate"}, kText);
    s.push_back(rptCommon);

    // Sales page: local sales by line (5 is the total line, without a rate box), the CST line and its
    // total, block totals, and the boxes of the printed page that nothing fills.
    ReturnTable page1 = pageTable("tblMPage1");
    add(page1.columns,
        boxes("SL", {1, 2, 3, 4}, {3, 4, 7}) + boxes("SL", {5}, {4, 7}) + boxes("SL", {6}, {3, 4, 7}) +
            QStringList{"ISS13", "ISS14", "ISS17", "ISS34", "ISS37", "A1T4", "A1T7", "A2T4", "A2T7"} +
            QStringList{"ISS11", "ISS12", "ISS15", "ISS16", "ISS18"} + boxes("ISS", {2}, {1, 2, 3, 4, 5, 6, 7, 8}) +
            QStringList{"ISS35", "ISS36", "ISS38"} + boxes("ES", {1}, {1, 2, 3, 4, 5, 6, 7, 8}) +
            boxes("ES", {2}, {4, 5, 6, 7, 8}) + boxes("SX", {1}, {1, 2, 3, 4, 5, 6, 7, 8}) +
            boxes("SX", {2}, {4, 5, 6, 7, 8}) + QStringList{"A2T5", "A2T6", "A2T8"},
        kText);
    s.push_back(page1);

    ReturnTable page2 = pageTable("tblMPage2");
    add(page2.columns, {"FrmFlg"}, kInteger);
    add(page2.columns, {"TotalA"}, kText);
    s.push_back(page2);

    // Purchase page: C1_ local (line 5 the total line), C2_ inter-state (line 3 the total line), C3_ totals.
    ReturnTable page3 = pageTable("tblMPage3");
    QStringList c1;
    for (int line = 1; line <= 6; ++line) c1 += boxes("C1_", {line}, line == 5 ? QList<int>{4, 5, 6, 7} : QList<int>{3, 4, 5, 6, 7});
    QStringList c2;
    for (int line = 1; line <= 5; ++line) c2 += boxes("C2_", {line}, line == 3 ? QList<int>{4, 5, 6} : QList<int>{3, 4, 5, 6});
    add(page3.columns, c1 + c2 + boxes("C3_", {3}, {4, 5, 6, 7}), kText);
    s.push_back(page3);

    s.push_back(pageTable("tblMPage4"));

    ReturnTable page5 = pageTable("tblMPage5");
    add(page5.columns, {"I_11", "I_12", "I_22", "I_xiii", "I_xvi"}, kText);
    s.push_back(page5);
    return s;
}

QString connectionString(const QString& folder, const QString& file) {
    return QStringLiteral("Driver={Microsoft Access Driver (*.mdb)};Dbq=") + folder + "\\" + file;
}

}  // namespace

const std::vector<ReturnTable>& ReturnSchema() {
    static const std::vector<ReturnTable> schema = makeSchema();
    return schema;
}

QStringList ReturnSchemaSql() {
    QStringList out;
    for (const ReturnTable& t : ReturnSchema()) {
        QStringList cols;
        for (const ReturnColumn& c : t.columns)
            cols << c.name + " " + c.type + (c.type == kText ? QStringLiteral(" COLLATE NOCASE") : QString());
        out << "CREATE TABLE " + t.name + " (" + cols.join(", ") + ")";
    }
    // The row the main window's Exit clears its flag on, first in the table. Its key is empty in every
    // part, which no return row has (a return period is never empty), so no lookup of a return finds it.
    out << QStringLiteral("INSERT INTO tblMPage2 (cCode, cYear, cSequence, cRPFrom, FrmFlg) VALUES ('', '', '', '', 0)");
    return out;
}

namespace {

// A file that lacks tables (made by a program stopped half-way, or an older one) gets them, all in one
// transaction, and keeps what it holds.
void completeTables(const QString& connection) {
    store::Connection cn;
    cn.Open(connection);
    const QStringList present = cn.TableNames();
    QStringList missing;
    const QStringList sql = ReturnSchemaSql();
    for (size_t t = 0; t < ReturnSchema().size(); ++t)
        if (!present.contains(ReturnSchema()[t].name, Qt::CaseInsensitive)) missing << sql[qsizetype(t)];
    if (!missing.isEmpty()) {
        store::inTransaction(cn, [&] {
            for (const QString& statement : missing) cn.Execute(statement);
        });
    }
    cn.Close();
}

}  // namespace

void CreateReturnStores(const QString& folder) {
    const QString main = connectionString(folder, QStringLiteral("nwForm10DB.mdb"));
    if (!QFileInfo::exists(store::databasePath(main))) store::BuildDatabaseFile(store::databasePath(main), ReturnSchemaSql());
    else completeTables(main);
    for (const char* file : {"Form10Data.mdb", "TAXDATA.mdb"}) {
        const QString path = store::databasePath(connectionString(folder, QString::fromLatin1(file)));
        if (!QFileInfo::exists(path)) store::BuildDatabaseFile(path, {});
    }
}

bool ReturnStoresReady(const QString& folder) {
    const basic::RuntimeError e = basic::resume([&] { CreateReturnStores(folder); });
    if (e.number() == 0) return true;
    QString what;
    if (store::isDiskFull(e))
        what = QStringLiteral("The disk is full.\n\nFree some space on the disk and start Vorlan again.");
    else if (store::isDamaged(e))
        what = QStringLiteral("The file nwForm10DB.mdb in it is damaged (") + e.description() +
               QStringLiteral(").\n\nMove that file out of the folder and start Vorlan again; then bring your months "
                              "back with BackUp / Restore.");
    else
        what = QStringLiteral("Vorlan may not write in this folder (") + e.description() +
               QStringLiteral(").\n\nVorlan keeps the months you key in this folder. Start Vorlan from a folder you "
                              "may write to, or ask for write access to this one, and start again.");
    const QString text = QStringLiteral("Vorlan cannot make its return files in the folder\n") +
                         QDir::toNativeSeparators(folder) + QStringLiteral("\n\n") + what;
    std::fprintf(stderr, "%s\n", qPrintable(text));
    forms::MsgBox(text, forms::vbCritical, QStringLiteral("Vorlan"));
    return false;
}

}  // namespace returns
