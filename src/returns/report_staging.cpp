// The staging tables that the registers print from. Each holds one month, the one last added: the
// bills as the grids show them after reading back, and the summaries copied from tblCommon with the
// band and column totals that the registers print.
#include "platform/basic/runtime_error.h"
#include "platform/basic/app_path.h"
#include "platform/basic/variant.h"
#include "platform/forms/list_box.h"
#include "platform/forms/msgbox.h"
#include "platform/reports/crystal_report.h"
#include "returns/frm_normal.h"
#include "returns/log.h"
#include "returns/module2.h"

#include <QApplication>
#include <QStringList>

namespace returns {

namespace {

using basic::Variant;
using store::Recordset;

}  // namespace

// Empties the three summaries and gives each a row with nothing but the month's key; the summary
// routines then find that row and fill it. Errors are passed over after the first clearing.
void frmNormal::procLoadKey() {
    ConnectReturnStore();
    bool first = true;
    for (const char* table : {"tblRptPurchaseC", "tblRptPurchaseInterStateC", "tblRptSales"}) {
        const QString name = QString::fromLatin1(table);
        if (first) ClearTable(name);
        else ignore([&] { ClearTable(name); });
        first = false;
        ignore([&] { rsReport.Open("SELECT * FROM  " + name + " ", cnReturn, Recordset::adOpenKeyset, Recordset::adLockOptimistic); });
        ignore([&] { rsReport.AddNew(); });
        ignore([&] { rsReport.Fields(QStringLiteral("cCode")) = Variant(DealerCode); });
        ignore([&] { rsReport.Fields(QStringLiteral("cMonth")) = Variant(txtRPTo->text()); });
        ignore([&] { rsReport.Fields(QStringLiteral("cAddress")) = Variant(lblCustomerName->text()); });
        ignore([&] { rsReport.Update(); });
        ignore([&] { rsReport.Close(); });
    }
}

// Fills the month's key row of a summary from tblCommon. Every statement runs with errors ignored:
// without a key row or a tblCommon row nothing is written, and nothing is said.
void frmNormal::stageSummary(Summary which) {
    const bool sales = which == Summary::Sales;
    const QString table = which == Summary::Purchase     ? QStringLiteral("tblRptPurchaseC")
                          : which == Summary::InterState ? QStringLiteral("tblRptPurchaseInterStateC")
                                                         : QStringLiteral("tblRptSales");
    const QStringList bands = sales ? QStringList{"0", "1", "4", "12", "20", "CST"} : QStringList{"0", "1", "4", "12", "20"};
    const QString side = sales ? QStringLiteral("S") : QStringLiteral("P");

    ConnectReturnStore();
    ignore([&] {
        SqlText = "SELECT * FROM tblCommon WHERE cCode='" + DealerCode + "' AND cMonth= '" + txtRPTo->text() + "'";
    });
    ignore([&] { rsLookup.Open(SqlText, cnReturn, Recordset::adOpenDynamic, Recordset::adLockOptimistic); });
    ignore([&] {
        SqlText = "SELECT * FROM  " + table + " Where cCode =" + "'" + DealerCode + "'AND cMonth= '" + txtRPTo->text() +
                  "'AND cAddress= '" + lblCustomerName->text() + "'";
    });
    ignore([&] { rsReport.Open(SqlText, cnReturn, Recordset::adOpenKeyset, Recordset::adLockOptimistic); });

    const auto copy = [&](const QString& column) {
        ignore([&] { rsReport.Fields(column) = rsLookup.Fields(column).Value(); });
    };
    for (const char* figure : {"TA", "TT", "TC"})
        for (const QString& band : bands) copy(side + QString::fromLatin1(figure) + band);
    if (which == Summary::Purchase) {
        // The local purchase summary takes place and date from the window, the others from tblCommon.
        ignore([&] { rsReport.Fields(QStringLiteral("Place")) = Variant(basic::Trim(txtPlace->text())); });
        ignore([&] { rsReport.Fields(QStringLiteral("eDate")) = Variant(basic::Trim(txtDate->text())); });
    } else {
        copy(QStringLiteral("Place"));
        copy(QStringLiteral("eDate"));
    }

    const auto value = [&](const QString& column) { return basic::CDbl(rsLookup.Fields(column).Value()); };
    for (const QString& band : bands)
        ignore([&] {
            rsReport.Fields(side + "RT" + band) =
                Variant(value(side + "TA" + band) + value(side + "TT" + band) + value(side + "TC" + band));
        });
    const auto columnTotal = [&](const QString& column, const QStringList& figures) {
        ignore([&] {
            double sum = 0;
            for (const QString& figure : figures)
                for (const QString& band : bands) sum += value(side + figure + band);
            rsReport.Fields(side + "CT" + column) = Variant(sum);
        });
    };
    columnTotal(QStringLiteral("Amt"), {"TA"});
    columnTotal(QStringLiteral("Tax"), {"TT"});
    columnTotal(QStringLiteral("Cess"), {"TC"});
    columnTotal(QStringLiteral("Total"), {"TA", "TT", "TC"});
    ignore([&] { rsReport.Update(); });
    ignore([&] { rsLookup.Close(); });
    ignore([&] { rsReport.Close(); });
}

void frmNormal::procLoadRptPurchaseC() { stageSummary(Summary::Purchase); }
void frmNormal::procLoadRptPurchaseInterStateC() { stageSummary(Summary::InterState); }
void frmNormal::procLoadRptSalesC() { stageSummary(Summary::Sales); }

// The bills of the grid again, into the report copy, BillDate as the cell's text. The old rows are
// deleted when the bill table has the month (the local kinds) or always (inter-state); the caller has
// just emptied the table, so either way they find nothing.
void frmNormal::stageBills(BillKind kind) {
    const bool sales = kind == BillKind::Sales;
    const QString table = kind == BillKind::Local        ? QStringLiteral("tblRptPurchase1")
                          : kind == BillKind::InterState ? QStringLiteral("tblRptPurchaseInterState")
                                                         : QStringLiteral("tblRptSales1");

    ConnectReturnStore();
    if (rsReport.State() == 1) rsReport.Close();
    bool remove = true;
    if (kind == BillKind::Local) {
        procRecExists(QStringLiteral("tblPurchase1"));
        remove = RecordExists;
    } else if (sales) {
        procRecExists(QStringLiteral("tblSales"));
        remove = RecordExists;
    }
    if (remove) {
        SqlText = "DELETE * FROM  " + table + "  WHERE cCode='" + DealerCode + "' AND cMonth='" + txtRPTo->text() + "'";
        rsReport.Open(SqlText, cnReturn, Recordset::adOpenKeyset, Recordset::adLockOptimistic);
        cnReturn.Execute(SqlText);
    }
    if (rsReport.State() == 1) rsReport.Close();
    SqlText = kind == BillKind::Local ? monthFilter(table) + "ORDER BY BillDate" : "SELECT * FROM " + table + " ORDER BY BillDate";
    rsReport.Open(SqlText, cnReturn, Recordset::adOpenKeyset, Recordset::adLockOptimistic);
    storeGridRows(rsReport, sales, !sales, true);
    rsReport.Close();
}

void frmNormal::procLoadRptPurchase() { stageBills(BillKind::Local); }
void frmNormal::procRptPurchaseInterState() { stageBills(BillKind::InterState); }
void frmNormal::procLoadRptSales() { stageBills(BillKind::Sales); }

// ---- printing ------------------------------------------------------------------------------------------

// The register of what was last staged: no month is handed to the report, so it prints the month last
// added whatever the window shows now. A template or data file that cannot be read is named in a box,
// and the pointer comes back.
void frmNormal::printRegister(const QString& templateFile) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const basic::RuntimeError failure = basic::resume([&] {
        CrystalReport1->setDataFiles(0, basic::CurDir() + "\\nwForm10DB.mdb");
        CrystalReport1->setReportFileName(basic::AppPath() + templateFile);
        CrystalReport1->setWindowState(2);
        CrystalReport1->setAction(1);
    });
    QApplication::restoreOverrideCursor();
    if (failure.number() != 0)
        forms::MsgBox(failure.description() + QStringLiteral("\n\nThe register was not printed."), forms::vbExclamation,
                      QStringLiteral("Not printed"));
}

void frmNormal::cmdPrint1_Click() {
    printRegister(List4->ListIndex() == 0 ? QStringLiteral("\\RptPurchase.rpt") : QStringLiteral("\\RptPurchaseInterState.rpt"));
}

void frmNormal::Command2_Click() { printRegister(QStringLiteral("\\RptSales.rpt")); }

}  // namespace returns
