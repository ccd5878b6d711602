// The return store: the tables of nwForm10DB.mdb and the shared routines of Module2.
#include "platform/basic/app_path.h"
#include "platform/basic/runtime_error.h"
#include "platform/store/recordset.h"
#include "returns/module2.h"
#include "returns/return_schema.h"
#include "support/printers.h"

#include <QDir>
#include <QFileInfo>
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

TEST_F(ReturnStore, FilesAreMadeBesideEachOtherWhenMissing) {
    for (const char* file : {"nwForm10DB.mdb", "Form10Data.mdb", "TAXDATA.mdb"})
        EXPECT_TRUE(QFileInfo::exists(folder.filePath(file))) << file;
    EXPECT_EQ(cnReturn.State(), 1);
    QStringList tables = cnReturn.TableNames();
    for (const ReturnTable& t : ReturnSchema()) EXPECT_TRUE(tables.contains(t.name, Qt::CaseInsensitive)) << t.name.toStdString();
    // An existing file is left as it is: rows stay.
    cnReturn.Execute("INSERT INTO tblSales (cMonth) VALUES ('March')");
    CreateReturnStores(folder.path());
    EXPECT_EQ(open("SELECT * FROM tblSales").RecordCount(), 1);
}

// Columns the other routines read by name, with the type number each must report.
TEST_F(ReturnStore, ColumnsHaveTheTypesTheRoutinesNeed) {
    struct {
        const char* table;
        const char* column;
        int type;
    } cases[] = {
        {"tblPurchase1", "BillDate", store::adDate},     {"tblRptPurchase1", "BillDate", store::adVarWChar},
        {"tblPurchase1", "RateOfTax", store::adVarWChar}, {"tblSales", "NetAmount", store::adDouble},
        {"tblPurchaseInterState1", "Place", store::adVarWChar}, {"tblCommon", "STCCST", store::adDouble},
        {"tblCommon", "RT12", store::adDouble},          {"tblCommon", "Category", store::adVarWChar},
        {"tblRptPurchaseC", "STTCST", store::adDouble},   {"tblRptPurchaseInterStateC", "PCTTotal", store::adDouble},
        {"tblRptSales", "SRTCST", store::adDouble},       {"tblRptCommon", "STACST", store::adDouble},
        {"tblMPage1", "ISS13", store::adVarWChar},        {"tblMPage1", "A2T8", store::adVarWChar},
        {"tblMPage2", "FrmFlg", store::adInteger},        {"tblMPage3", "C1_45", store::adVarWChar},
        {"tblMPage3", "C2_36", store::adVarWChar},        {"tblMPage3", "C3_37", store::adVarWChar},
        {"tblMPage5", "I_xvi", store::adVarWChar},        {"tblMPage4", "cRPFrom", store::adVarWChar},
    };
    for (const auto& tc : cases) {
        const store::Recordset rs = open(QString("SELECT * FROM ") + tc.table);
        EXPECT_EQ(rs.Fields(tc.column).Type(), tc.type) << tc.table << "." << tc.column;
    }
    // Boxes that do not exist on the page: the total lines have no rate box, block C2_ no column 7.
    const store::Recordset page3 = open("SELECT * FROM tblMPage3");
    const store::Recordset page1 = open("SELECT * FROM tblMPage1");
    for (const char* absent : {"C1_53", "C2_33", "C2_47"}) EXPECT_THROW(page3.Fields(absent), basic::RuntimeError) << absent;
    for (const char* absent : {"SL53", "SL15"}) EXPECT_THROW(page1.Fields(absent), basic::RuntimeError) << absent;
    EXPECT_THROW(open("SELECT Place FROM tblSales"), basic::RuntimeError);
    EXPECT_THROW(open("SELECT Place FROM tblRptSales1"), basic::RuntimeError);
}

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

TEST(Module2, BillDateHelpers) {
    struct {
        const char* month;
        const char* year;
        const char* first;
    } months[] = {{"march", "09", "01-03-09"}, {"DECEMBER", "09", "01-12-09"}, {"Sept", "09", ""},
                  {" March", "09", ""}, {"January", "2010", "01-01-2010"}};
    for (const auto& tc : months) EXPECT_EQ(FirstOfMonthText(tc.month, tc.year), tc.first) << tc.month;

    struct {
        const char* text;
        bool shape;
    } shapes[] = {{"26-09-08", true}, {" ab-cd-ef ", true}, {"01-01-2009", true}, {"26/09/08", false},
                  {"6-9-08", false},  {"1-1-2009", false},  {"26-0", false}};
    for (const auto& tc : shapes) EXPECT_EQ(IsBillDateShape(tc.text), tc.shape) << tc.text;

    struct {
        const char* text;
        QDate date;
    } dates[] = {{"26-09-08", QDate(2008, 9, 26)}, {" 01-12-09 ", QDate(2009, 12, 1)}, {"13-01-99", QDate(1999, 1, 13)}};
    for (const auto& tc : dates) EXPECT_EQ(DateFromBillText(tc.text), tc.date) << tc.text;
    // "26-09-2008" takes "20" as its year; a text that is no date is the caller's error 13.
    EXPECT_EQ(DateFromBillText("26-09-2008"), QDate(2020, 9, 26));
    EXPECT_THROW(DateFromBillText("ab-cd-ef"), basic::RuntimeError);
}

}  // namespace
