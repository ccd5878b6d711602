#pragma once
// A small library-and-return database made in a temporary folder, and a text picture of a record set's rows.
#include "platform/basic/runtime_error.h"
#include "platform/store/recordset.h"
#include "support/printers.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

inline int errorNumber(const std::function<void()>& f) { return basic::resume(f).number(); }

inline QString rowsText(store::Recordset& rs) {
    QStringList rows;
    for (rs.Bof() && rs.Eof() ? void() : rs.MoveFirst(); !rs.Eof(); rs.MoveNext()) {
        QStringList fields;
        for (int i = 0; i < rs.FieldCount(); ++i) {
            const basic::Variant v = rs.Fields(i).Value();
            if (v.isNull()) fields << QStringLiteral("<Null>");
            else if (v.type() == basic::Variant::Date) fields << v.date().toString(Qt::ISODate);
            else if (v.type() == basic::Variant::Bytes) fields << QStringLiteral("<bytes %1>").arg(v.bytes().size());
            else fields << basic::CStr(v);
        }
        rows << fields.join(u'|');
    }
    return rows.join(u';');
}

class StoreFixture : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir.isValid());
        cn.Create(connectionString());
        cn.BeginTrans();
        for (const char* sql : kSchema) cn.Execute(QString::fromUtf8(sql));
        cn.CommitTrans();
    }

    // Written as the system writes it: a folder, then a file part with a backslash.
    QString connectionString(const QString& file = QStringLiteral("\\nwForm10DB.mdb"),
                             const QString& tail = QString()) const {
        return QStringLiteral("Driver={Microsoft Access Driver (*.mdb)};Dbq=") + dir.path() + file + tail;
    }

    store::Recordset open(const QString& sql) {
        store::Recordset rs;
        rs.Open(sql, cn, store::Recordset::adOpenStatic, store::Recordset::adLockOptimistic);
        return rs;
    }
    QString query(const QString& sql) {
        store::Recordset rs = open(sql);
        return rowsText(rs);
    }

    QTemporaryDir dir;
    store::Connection cn;

    static constexpr const char* kSchema[] = {
        "CREATE TABLE Kerala (ID INTEGER PRIMARY KEY, name TEXT COLLATE NOCASE, SecDesc MEMO COLLATE NOCASE, "
        "type TEXT COLLATE NOCASE, ChapterNo INTEGER, fname LONGBINARY)",
        "INSERT INTO Kerala VALUES (1,'Section 1','Levy of tax','Act',1,NULL), (2,'Section 2',NULL,'ACT',1,NULL), "
        "(3,'The Kerala General Sales Tax Act','x','Act',1,NULL), (4,'Rule 1','r','Rules',1,NULL), "
        "(5,'Section 0','zero','Act',0,NULL)",
        "CREATE TABLE Keralafields (ID INTEGER PRIMARY KEY, CircularNumber TEXT COLLATE NOCASE, "
        "ActSection TEXT COLLATE NOCASE)",
        "INSERT INTO Keralafields VALUES (1,'a-b-c','12-Sale'), (2,'Circular 5','Input Tax credit'), "
        "(3,'x',NULL), (4,'  z ','input  and output tax'), (5,NULL,'Syntax'), (6,'B-2','Sales Tax-inputs')",
        "CREATE TABLE CAPractice (ID INTEGER PRIMARY KEY, name TEXT COLLATE NOCASE, Type TEXT COLLATE NOCASE, "
        "Weight INTEGER)",
        "INSERT INTO CAPractice VALUES (1,'Audit','Guide',2), (2,'Tax',NULL,1), (3,'X','Y',3)",
        "CREATE TABLE Globalvat (name TEXT COLLATE NOCASE, type TEXT COLLATE NOCASE, fname LONGBINARY)",
        "INSERT INTO Globalvat VALUES ('Default','DEFAULT',zeroblob(4))",
        "CREATE TABLE tblPurchase1 (SlNo TEXT COLLATE NOCASE, BillDate DATETIME, Party TEXT COLLATE NOCASE, "
        "Amount DOUBLE, Paid BOOLEAN, Fee CURRENCY, cCode TEXT COLLATE NOCASE, cMonth TEXT COLLATE NOCASE)",
        "INSERT INTO tblPurchase1 VALUES ('1','2008-10-02','P1',100,NULL,NULL,'','May'), "
        "('2','2008-09-26','P2',50.5,NULL,NULL,'','May'), ('3','2007-12-01','P3',NULL,NULL,NULL,'','June'), "
        "('4','2008-01-15','P4',1,NULL,NULL,'','MAY')",
        "CREATE TABLE tblRptSales (cCode TEXT COLLATE NOCASE, cMonth TEXT COLLATE NOCASE, "
        "cAddress TEXT COLLATE NOCASE, STA0 DOUBLE)",
        "INSERT INTO tblRptSales VALUES ('','May','',1.5), ('','June','',2)",
        "CREATE TABLE tblMPage1 (cCode TEXT COLLATE NOCASE, cYear TEXT COLLATE NOCASE, cSequence TEXT COLLATE "
        "NOCASE, cRPFrom TEXT COLLATE NOCASE, SL13 TEXT COLLATE NOCASE, SL14 TEXT COLLATE NOCASE)",
        "INSERT INTO tblMPage1 (cCode, cYear, cSequence, cRPFrom) VALUES ('','2008','Monthly','May')",
        "CREATE TABLE tblMPage2 (cCode TEXT COLLATE NOCASE, cYear TEXT COLLATE NOCASE, cSequence TEXT COLLATE "
        "NOCASE, cRPFrom TEXT COLLATE NOCASE, FrmFlg INTEGER)",
    };
};
