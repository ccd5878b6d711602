#pragma once
// The tables of nwForm10DB.mdb: bills, their report copies, the month's summary, the staging tables of
// the registers and the return pages. The file holds no definitions of its own, so they are made here:
// text compares without regard to case, amounts are doubles, BillDate of the bill tables is a date, the
// page boxes are text (they hold "CST"), and no key is unique (a page may hold several rows of one key).
#include <QString>
#include <QStringList>
#include <vector>

namespace returns {

struct ReturnColumn {
    QString name;
    QString type;          // INTEGER, DOUBLE, DATETIME or TEXT
};

struct ReturnTable {
    QString name;
    std::vector<ReturnColumn> columns;
};

const std::vector<ReturnTable>& ReturnSchema();

// "CREATE TABLE ..." for each table of ReturnSchema(), in its order, then the INSERT of the one row a new
// file carries: the row of tblMPage2 that holds FrmFlg.
QStringList ReturnSchemaSql();

// In `folder`: nwForm10DB.mdb with every table when it is missing, and the empty Form10Data.mdb and
// TAXDATA.mdb that backup and restore copy. A file is made whole or not at all; a nwForm10DB.mdb that
// lacks tables gets them, and keeps what it holds.
void CreateReturnStores(const QString& folder);

// CreateReturnStores at the start of the program. When the files cannot be made, a box names the
// folder, says why and what the user can do, and the answer is false; nothing half-made stays behind.
bool ReturnStoresReady(const QString& folder);

}  // namespace returns
