// The return store: the tables of nwForm10DB.mdb and the shared routines of Module2.
#include "platform/basic/app_path.h"
#include "platform/basic/runtime_error.h"
#include "returns/module2.h"
#include "returns/return_schema.h"
#include "support/printers.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace returns;

namespace {

class ReturnStore : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(folder.isValid());
        basic::SetAppPath(folder.path());
        ConnectReturnStore();
    }
    void TearDown() override {
        ReleaseReturnStores();
        rsLookup = rsBills = rsReport = store::Recordset::nothing();
    }
    store::Recordset open(const QString& sql) {
        store::Recordset rs;
        rs.Open(sql, cnReturn, store::Recordset::adOpenDynamic, store::Recordset::adLockOptimistic);
        return rs;
    }
    QTemporaryDir folder;
};

TEST_F(ReturnStore, KeysAcceptTheEmptyTextRepeatAndCompareWithoutCase) {
    for (int i = 0; i < 2; ++i) {
        cnReturn.Execute("INSERT INTO tblMPage3 (cCode, cYear, cSequence, cRPFrom) VALUES ('', '2009', 'Monthly', 'March')");
        cnReturn.Execute("INSERT INTO tblPurchase1 (cCode, cMonth, BillDate, Amount) VALUES ('', 'March', #03/0" +
                         QString::number(9 - i * 7) + "/2009#, 10)");
    }
    EXPECT_EQ(open("SELECT * FROM tblMPage3 WHERE cCode='' AND cRPFrom='MARCH'").RecordCount(), 2);
    store::Recordset rs = open("SELECT * FROM tblPurchase1 WHERE cMonth='march' ORDER BY BillDate");
    ASSERT_EQ(rs.RecordCount(), 2);
    EXPECT_EQ(rs.Fields("BillDate").Value(), basic::Variant(QDate(2009, 3, 2)));
}

TEST_F(ReturnStore, ClearTableEmptiesEveryMonth) {
    for (const char* month : {"January", "March"}) cnReturn.Execute(QString("INSERT INTO tblRptSales (cMonth) VALUES ('") + month + "')");
    cnReturn.Execute("INSERT INTO tblRptSales1 (cMonth) VALUES ('March')");
    const store::Connection before = cnReturn;
    ClearTable("tblRptSales");
    EXPECT_EQ(SqlText, "DELETE * FROM  tblRptSales");
    EXPECT_FALSE(cnReturn == before);                     // a fresh connection for each operation
    EXPECT_EQ(open("SELECT * FROM tblRptSales").RecordCount(), 0);
    EXPECT_EQ(open("SELECT * FROM tblRptSales1").RecordCount(), 1);
}

// The dates of typed bills as Add reads them.
TEST(Module2, DateFromBillText) {
    const struct { const char* text; QDate date; } dates[] = {
        {"26-09-08", QDate(2008, 9, 26)}, {" 01-12-09 ", QDate(2009, 12, 1)}, {"13-01-99", QDate(1999, 1, 13)}};
    for (const auto& tc : dates) EXPECT_EQ(DateFromBillText(tc.text), tc.date) << tc.text;
    // "26-09-2008" takes "20" as its year; a text that is no date is the caller's error 13.
    EXPECT_EQ(DateFromBillText("26-09-2008"), QDate(2020, 9, 26));
    EXPECT_THROW(DateFromBillText("ab-cd-ef"), basic::RuntimeError);
}

}  // namespace
