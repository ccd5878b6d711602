// Add stages the month for the registers: the bills of the kind on the window in date order, its
// summary with band and column totals, the sales likewise; the other kind's summary keeps a bare key.
#include "platform/forms/list_box.h"
#include "return_window.h"

namespace {

class Staging : public ReturnWindow {};

TEST_F(Staging, AddStagesTheKindOnTheWindowAndTheSales) {
    struct Case {
        int kind;
        const char* bills;
        const char* summary;
        const char* bare;
        const char* place;   // the local summary takes the window's place, the inter-state one tblCommon's
    } cases[] = {
        {1, "tblRptPurchaseInterState", "tblRptPurchaseInterStateC", "tblRptPurchaseC", "Kochi"},
        {0, "tblRptPurchase1", "tblRptPurchaseC", "tblRptPurchaseInterStateC", "Kochi"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.summary);
        w->List4->setListIndex(c.kind);
        put(w->fg1, {{"20-03-26", "Beta Traders", "32071", "B-7", "    12.5", "200", "25", "2", "227.00"},
                     {"02-03-26", "Alpha Stores", "32070", "A-1", "      4", "1000", "40", "1", "1041.00"}});
        put(w->fg2, {{"06-03-26", "Export Co", "", "S-2", "CST", "100", "2", "", "102.00"},
                     {"05-03-26", "Cash", "", "S-1", "     20  ", "300", "60", "4.5", "364.50"}});
        w->txtPlace->setText(" Kochi ");
        const auto boxes = press([&] { w->cmdAdd_Click(); });
        ASSERT_EQ(boxes.size(), 1u);
        EXPECT_EQ(boxes[0].text, "RECORD ADDED  SUCCESSFULLY");

        EXPECT_EQ(column(QString("SELECT SlNo, BillDate, Party, RateOfTax, Amount, Cess, NetAmount, cMonth, Place "
                                 "FROM %1").arg(c.bills)),
                  (QStringList{"1|02-03-26|Alpha Stores|      4|1000|1|1041|March|Kochi",
                               "2|20-03-26|Beta Traders|    12.5|200|2|227|March|Kochi"}));
        EXPECT_EQ(column(QString("SELECT cMonth, PTA4, PTT4, PTC4, PRT4, PRT12, PRT0, PCTAmt, PCTTax, PCTCess, "
                                 "PCTTotal, Place, eDate FROM %1").arg(c.summary)),
                  QStringList{QString("March|1000|40|1|1041|227|0|1200|65|3|1268|%1|15-03-26").arg(c.place)});
        EXPECT_EQ(column(QString("SELECT cCode, cMonth, cAddress, PTA4, PRT4, PCTTotal, Place FROM %1").arg(c.bare)),
                  QStringList{"|March||null|null|null|null"});
        EXPECT_EQ(column("SELECT SRT20, SRTCST, SRT4, SCTAmt, SCTTax, SCTCess, SCTTotal, Place FROM tblRptSales"),
                  QStringList{"364.5|102|0|400|62|4.5|466.5|Kochi"});
        EXPECT_EQ(column("SELECT Party, BillDate FROM tblRptSales1"), (QStringList{"Cash|05-03-26", "Export Co|06-03-26"}));
    }

    // A summary routine that finds no key row writes nothing and says nothing.
    returns::ClearTable("tblRptSales");
    EXPECT_TRUE(press([&] { w->procLoadRptSalesC(); }).empty());
    EXPECT_EQ(column("SELECT count(*) FROM tblRptSales"), QStringList{"0"});
}

}  // namespace
