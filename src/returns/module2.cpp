#include "returns/module2.h"

#include "platform/basic/app_path.h"
#include "platform/basic/variant.h"
#include "returns/return_schema.h"

#include <QFileInfo>
#include <QLineEdit>

namespace returns {

store::Connection cnReturn = store::Connection::nothing();
store::Recordset rsLookup = store::Recordset::nothing();
store::Recordset rsBills = store::Recordset::nothing();
store::Recordset rsReport = store::Recordset::nothing();
QString SqlText;
QString DealerCode;
QString DealerName;
QString DealerTIN;
QString DealerCST;
QString ReturnDealerCode;
bool DirectToForm = false;
QString ReturnYearKey;
QString ReturnSequenceKey;
QString ReturnPeriodKey;

namespace {
const QString kDriver = QStringLiteral("Driver={Microsoft Access Driver (*.mdb)};Dbq=");
}

void ConnectReturnStore() {
    // Made when missing. A file that is there is not read here: another program's lock is met by the
    // first statement, where the routine's own handling of errors stands.
    const QString folder = basic::CurDir();
    if (!QFileInfo::exists(folder + QStringLiteral("/nwForm10DB.mdb"))) CreateReturnStores(folder);
    cnReturn = store::Connection();
    cnReturn.setConnectionString(kDriver + folder + "\\nwForm10DB.mdb");
    cnReturn.Open();
    rsLookup = store::Recordset();
    rsBills = store::Recordset();
    rsReport = store::Recordset();
}

void ReleaseReturnStores() {
    // Dropping the connection is what frees the file; nothing opens the new one, so no Close is needed.
    cnReturn = store::Connection();
    for (const char* file : {"\\nwForm10DB.mdb", "\\Form10Data.mdb", "\\TAXDATA.mdb"}) {
        cnReturn.setConnectionString(kDriver + basic::CurDir() + QString::fromLatin1(file));
        if (cnReturn.State() == 1) cnReturn.Close();
    }
}

void ClearTable(const QString& tableName) {
    ConnectReturnStore();
    if (rsBills.State() == 1) rsBills.Close();
    SqlText = "DELETE * FROM  " + tableName;
    rsBills.Open(SqlText, cnReturn, store::Recordset::adOpenKeyset, store::Recordset::adLockOptimistic);
    cnReturn.Execute(SqlText);
}

void SelectAllOnFocus(QLineEdit* box) {
    // The colours are set to what they are, so focus changes nothing but the selection.
    box->setSelection(0, int(box->text().size()));
}

QDate DateFromBillText(const QString& text) {
    const QString t = basic::Trim(text);
    const QString day = basic::Mid(t, 1, 2);
    const QString month = basic::Mid(t, 4, 2);
    const QString year = basic::Mid(t, 7, 2);
    return basic::CDate(basic::Variant(basic::Trim(month + "-" + day + "-" + year)));
}

QString FirstOfMonthText(const QString& monthName, const QString& yearText) {
    static const char* const kMonths[] = {"JANUARY", "FEBRUARY", "MARCH",     "APRIL",   "MAY",      "JUNE",
                                          "JULY",    "AUGUST",   "SEPTEMBER", "OCTOBER", "NOVEMBER", "DECEMBER"};
    const QString name = basic::UCase(monthName);
    for (int m = 0; m < 12; ++m)
        if (name == QLatin1String(kMonths[m])) return QStringLiteral("01-%1-").arg(m + 1, 2, 10, QChar(u'0')) + yearText;
    return QString();
}

bool IsBillDateShape(const QString& text) {
    const QString t = basic::Trim(text);
    return basic::Mid(t, 3, 1) == QLatin1String("-") && basic::Mid(t, 6, 1) == QLatin1String("-");
}

}  // namespace returns
