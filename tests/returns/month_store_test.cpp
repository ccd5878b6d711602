// Saving a month: Add, Delete and the month list of frmNormal, with the store read back and the boxes
// the user sees.
#include "platform/basic/runtime_error.h"
#include "return_window.h"

#include "support/case_name.h"
#include "support/sqlite_rows.h"

#include <QLoggingCategory>

using forms::RecordedBox;

namespace {

class MonthStore : public ReturnWindow {
protected:
    // Closing the program and starting it again.
    void restart() {
        w.reset();
        returns::ReleaseReturnStores();
        w = std::make_unique<returns::frmNormal>();
        forms::MsgBoxRecorder quiet;
        w->Show();
    }
};

const RecordedBox kAdded{"RECORD ADDED  SUCCESSFULLY", 64, "Success...........!"};

// Keyed, added, program closed and started again: the bills come back in date order and renumbered,
// and the month's summary row holds the figures.
TEST_F(MonthStore, AddedMonthComesBackAfterRestart) {
    put(w->fg1, {{"20-03-26", "Beta Traders", "32071", "B-7", "    12.5", "200", "25", "2", "227.00"},
                 {"02-03-26", "Alpha Stores", "32070", "A-1", "      4", "1000", "40", "1", "1041.00"},
                 {"11-03-26", "Gamma", "", "G-3", "      4", "500.5", "20.02", "", "520.52"}});
    put(w->fg2, {{"05-03-26", "Cash", "", "S-1", "     20  ", "300", "60", "4.5", "364.50"}});
    w->txtPlace->setText(" Kochi ");
    EXPECT_EQ(add(), std::vector<RecordedBox>{kAdded});

    restart();
    const Bills purchases = rows(w->fg1);
    ASSERT_EQ(purchases.size(), 3u);
    EXPECT_EQ(purchases[0], (QStringList{"1", "02-03-26", "Alpha Stores", "32070", "A-1", "      4", "1000.00",
                                         "40.00", "1.00", "1041.00"}));
    EXPECT_EQ(purchases[1].mid(0, 3), (QStringList{"2", "11-03-26", "Gamma"}));
    EXPECT_EQ(purchases[1][8], "");   // a cess never typed stays empty
    EXPECT_EQ(purchases[2].mid(0, 3), (QStringList{"3", "20-03-26", "Beta Traders"}));
    EXPECT_EQ(rows(w->fg2).at(0).mid(1, 5), (QStringList{"05-03-26", "Cash", "", "S-1", "     20  "}));
    EXPECT_EQ(w->txtPlace->text(), "Kochi");
    EXPECT_EQ(w->Label14->text(), "1500.50");
    EXPECT_TRUE(w->grab().save(screen("frmNormal-reloaded.png")));

    // The summary row, read outside the program. RT12 adds the sales cess at 20 % (4.5), not the
    // purchase cess at 12.5 % (2); figures are two-decimal texts, RT* plain numbers.
    EXPECT_EQ(query(folder.filePath("nwForm10DB.mdb"), "SELECT cMonth, PTA4, PTT4, PTC12, STC20, netTotal, Place, eDate, "
                                                       "RT4, RT12, RT0 FROM tblCommon"),
              QStringList{"March|1500.5|60.02|2.0|4.5|1788.52|Kochi|15-03-26|1561.52|229.5|0.0"});
}

// Add writes the kind that List4 shows and the sales, leaves the other kind's table alone, and stages
// the month for the registers: bills in date order, the summary, and a bare key for the other kind.
TEST_F(MonthStore, AddWritesAndStagesTheShownPurchaseKindOnly) {
    const struct { int kind; const char* written, *untouched, *staged, *summary, *bare; } cases[] = {
        {0, "tblPurchase1", "tblPurchaseInterState1", "tblRptPurchase1", "tblRptPurchaseC", "tblRptPurchaseInterStateC"},
        {1, "tblPurchaseInterState1", "tblPurchase1", "tblRptPurchaseInterState", "tblRptPurchaseInterStateC", "tblRptPurchaseC"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.written);
        for (const char* table : {"tblPurchase1", "tblPurchaseInterState1", "tblSales"}) exec(QString("DELETE FROM ") + table);
        exec(QString("INSERT INTO %1 (cCode, cMonth, Party) VALUES ('', 'March', 'Kept')").arg(c.untouched));
        exec("INSERT INTO tblSales (cCode, cMonth, Party) VALUES ('', 'March', 'Old sale')");
        w->List4->setListIndex(c.kind);
        put(w->fg1, {{"20-03-26", "Beta Traders", "32071", "B-7", "    12.5", "200", "25", "2", "227.00"},
                     {"02-03-26", "Alpha Stores", "32070", "A-1", "      4", "1000", "40", "1", "1041.00"}});
        put(w->fg2, {{"06-03-26", "Export Co", "", "S-2", "CST", "100", "2", "", "102.00"},
                     {"05-03-26", "Cash", "", "S-1", "     20  ", "300", "60", "4.5", "364.50"}});
        w->txtPlace->setText(" Kochi ");
        EXPECT_EQ(add(), std::vector<RecordedBox>{kAdded});
        EXPECT_EQ(column(QString("SELECT Party FROM %1").arg(c.written)), (QStringList{"Beta Traders", "Alpha Stores"}));
        EXPECT_EQ(column(QString("SELECT Party FROM %1").arg(c.untouched)), QStringList{"Kept"});
        EXPECT_EQ(column("SELECT Party FROM tblSales"), (QStringList{"Export Co", "Cash"}));

        EXPECT_EQ(column(QString("SELECT SlNo, BillDate, Party, RateOfTax, Amount, Cess, NetAmount, cMonth, Place "
                                 "FROM %1").arg(c.staged)),
                  (QStringList{"1|02-03-26|Alpha Stores|      4|1000|1|1041|March|Kochi",
                               "2|20-03-26|Beta Traders|    12.5|200|2|227|March|Kochi"}));
        EXPECT_EQ(column(QString("SELECT cMonth, PTA4, PTT4, PTC4, PRT4, PRT12, PRT0, PCTAmt, PCTTax, PCTCess, "
                                 "PCTTotal, Place, eDate FROM %1").arg(c.summary)),
                  QStringList{"March|1000|40|1|1041|227|0|1200|65|3|1268|Kochi|15-03-26"});
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

// Delete asks per kind; a kind with nothing stored gets its own box, and No keeps what was typed.
TEST_F(MonthStore, DeleteAsksForPurchasesThenSales) {
    const RecordedBox noPurchase{" Record Not exists  of Local Purchase", 64, "Sorry.........!"};
    const RecordedBox noSales{" Record Not exists  of Local Sales", 64, "Sorry.........!"};
    const RecordedBox askPurchase{" Are you Sure ", 36, "Delete Local Purchase Records "};
    const RecordedBox askSales{" Are you Sure ", 36, "Delete Sales Records "};
    {
        forms::MsgBoxRecorder boxes;
        w->cmdDelete_Click();
        EXPECT_EQ(boxes.boxes(), (std::vector<RecordedBox>{noPurchase, noSales}));
        boxes.clear();
        w->cmdDelete_KeyPress(13);   // by Enter the same boxes come without title or icon
        EXPECT_EQ(boxes.boxes(), (std::vector<RecordedBox>{{noPurchase.text, 0, forms::standardTitle()},
                                                           {noSales.text, 0, forms::standardTitle()}}));
    }
    put(w->fg1, {{"01-03-26", "P", "", "", "      0", "10", "0", "", "10.00"}});
    put(w->fg2, {{"01-03-26", "S", "", "", "      0", "20", "0", "", "20.00"}});
    add();
    exec("INSERT INTO tblSales (cCode, cMonth, Party) VALUES ('', 'April', 'Other month')");

    forms::MsgBoxRecorder boxes({forms::vbNo, forms::vbYes});
    w->cmdDelete_Click();
    EXPECT_EQ(boxes.boxes(), (std::vector<RecordedBox>{askPurchase, askSales}));
    EXPECT_EQ(column("SELECT Party FROM tblPurchase1"), QStringList{"P"});
    EXPECT_EQ(column("SELECT Party FROM tblSales"), QStringList{"Other month"});
    EXPECT_EQ(w->fg1->TextMatrix(1, 2), "P");
    EXPECT_EQ(w->fg2->TextMatrix(1, 2), "");
    EXPECT_EQ(column("SELECT count(*) FROM tblCommon"), QStringList{"1"});   // the summary outlives the bills
}

// A box of Delete or Export waits for the user with the return file free: another program writes the
// file while each box is open (a row named for the box), and the press still does its work after it.
struct WaitingBoxes {
    const char* name;
    void (returns::frmNormal::*press)();
    const char* period;
    QStringList written;
    const char* after, *rows;
};

class BoxWaits : public MonthStore, public ::testing::WithParamInterface<WaitingBoxes> {};

TEST_P(BoxWaits, AnotherProgramWritesMeanwhile) {
    const WaitingBoxes& c = GetParam();
    put(w->fg1, {{"01-03-26", "P", "", "", "      0", "10", "0", "", "10.00"}});
    put(w->fg2, {{"01-03-26", "S", "", "", "      0", "20", "0", "", "20.00"}});
    add();
    w->txtRPTo->setText(c.period);
    const QString file = folder.filePath("nwForm10DB.mdb");
    forms::MsgBoxRecorder boxes;
    boxes.whileOpen([&](const RecordedBox& box) {
        query(file, "INSERT INTO tblSales (cCode, cMonth, Party) VALUES ('', 'April', '" + box.title + "')");
    });
    (w.get()->*c.press)();
    EXPECT_EQ(column("SELECT Party FROM tblSales WHERE cMonth='April' ORDER BY Party"), c.written);
    EXPECT_EQ(column(c.after), QStringList{c.rows});
}

INSTANTIATE_TEST_SUITE_P(
    MonthStore, BoxWaits,
    ::testing::Values(WaitingBoxes{"DeleteQuestions", &returns::frmNormal::cmdDelete_Click, "March",
                                   {"Delete Local Purchase Records ", "Delete Sales Records "},
                                   "SELECT count(*) FROM tblPurchase1", "0"},
                      WaitingBoxes{"ExportWithoutPeriod", &returns::frmNormal::cmdExport_Click, "",
                                   {"Success...........!", "Vorlan", "Vorlan", "Vorlan"},
                                   "SELECT count(*) FROM tblMPage3", "0"}),
    CaseName());

// A cell that a read leaves empty can be explained afterwards: with the returns log on, the error the
// read passed over is there with its routine; with it off, nothing is written.
TEST_F(MonthStore, NullCellReadLeavesItsTraceInTheLog) {
    exec("INSERT INTO tblPurchase1 (cCode, cMonth, Party, BillDate) VALUES ('', 'March', 'No TIN', '2026-03-02')");
    // TIN, BillNo, RateOfTax, eDate and Place are Null: five reads pass over their error.
    static QStringList lines;
    const QtMessageHandler before = qInstallMessageHandler([](QtMsgType, const QMessageLogContext& where, const QString& text) {
        lines << QString::fromLatin1(where.category) + ": " + text;
    });
    for (const bool on : {false, true}) {
        lines.clear();
        QLoggingCategory::setFilterRules(on ? "vorlan.returns.debug=true" : "");
        w->procReadPurchase();
        EXPECT_EQ(w->fg1->TextMatrix(1, 3), "");
        EXPECT_EQ(lines.filter("ignored error 94 Invalid use of Null in ").filter("readBills").size(), on ? 5 : 0)
            << lines.join('\n').toStdString();
    }
    QLoggingCategory::setFilterRules("");
    qInstallMessageHandler(before);
}

// A month is found by its local purchases only: a month of sales alone reads as empty, and the box
// comes twice, once for the Enter and once more as the list loses the focus.
TEST_F(MonthStore, MonthWithOnlySalesReadsAsNoRecord) {
    exec("INSERT INTO tblSales (cCode, cMonth, Party, BillDate) VALUES ('', 'February', 'Only sale', '2026-02-03')");
    put(w->fg1, {{"01-03-26", "Typed", "", "", "      0", "10", "0", "", "10.00"}});
    w->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(w.get()));
    w->txtRPTo->setFocus();
    ASSERT_TRUE(w->List1->isVisible());
    EXPECT_EQ(w->List1->Text(), "March");
    EXPECT_FALSE(w->List4->isEnabled());
    forms::MsgBoxRecorder boxes;
    QTest::keyClick(w->List1, Qt::Key_Up);
    EXPECT_EQ(w->txtMonth->text(), "February");
    EXPECT_EQ(w->fg1->TextMatrix(1, 2), "Typed");   // arrowing loads nothing
    QTest::keyClick(w->List1, Qt::Key_Return);
    const RecordedBox none{"No Record Exists", 64, "Sorry...."};
    EXPECT_EQ(boxes.boxes(), (std::vector<RecordedBox>{none, none}));
    EXPECT_FALSE(w->List1->isVisible());
    EXPECT_TRUE(w->List4->isEnabled());
    EXPECT_EQ(w->fg1->TextMatrix(1, 2), "");
    EXPECT_EQ(w->fg2->TextMatrix(1, 2), "");
    EXPECT_EQ(column("SELECT Party FROM tblSales"), QStringList{"Only sale"});
}

// The keyboard reaches the month box by Shift+Tab from the purchase editor without opening its list;
// Enter, F4 or Alt+Down opens it. A month picked puts the keyboard back in the purchase editor, with
// that month's totals shown at once, a month without bills too.
TEST_F(MonthStore, MonthBoxByKeyboard) {
    exec("INSERT INTO tblPurchase1 (cCode, cMonth, Party, BillDate, RateOfTax, Amount) VALUES ('', 'March', 'M', '2026-03-02', '4', 1000)");
    exec("INSERT INTO tblPurchase1 (cCode, cMonth, Party, BillDate, RateOfTax, Amount) VALUES ('', 'February', 'F', '2026-02-02', '4', 250)");
    w->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(w.get()));
    const struct { Qt::Key key; Qt::KeyboardModifiers mods; int ups; const char* month; const char* amount4; size_t boxes; } cases[] = {
        {Qt::Key_Return, {}, 1, "February", "250.00", 0}, {Qt::Key_F4, {}, 2, "January", "0.00", 2},
        {Qt::Key_Down, Qt::AltModifier, 0, "March", "1000.00", 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.month);
        w->txtGrid1->setFocus();
        QTest::keyClick(w->txtGrid1, Qt::Key_Backtab, Qt::ShiftModifier);
        ASSERT_EQ(QApplication::focusWidget(), w->txtRPTo);
        EXPECT_FALSE(w->List1->isVisible());
        QTest::keyClick(w->txtRPTo, c.key, c.mods);
        ASSERT_TRUE(w->List1->isVisible());
        for (int i = 0; i < c.ups; ++i) QTest::keyClick(w->List1, Qt::Key_Up);
        forms::MsgBoxRecorder boxes;
        QTest::keyClick(w->List1, Qt::Key_Return);
        EXPECT_EQ(w->txtRPTo->text(), c.month);
        EXPECT_EQ(QApplication::focusWidget(), w->txtGrid1);
        EXPECT_EQ(w->Label14->text(), c.amount4);
        EXPECT_EQ(boxes.boxes().size(), c.boxes);
    }
}

// The bill keys hold the month only: March of the next year replaces March, other months stay.
TEST_F(MonthStore, SameMonthAYearLaterReplacesTheFirst) {
    exec("INSERT INTO tblPurchase1 (cCode, cMonth, Party) VALUES ('', 'April', 'April bill')");
    put(w->fg1, {{"01-03-26", "First year", "", "", "      0", "10", "0", "", "10.00"},
                 {"02-03-26", "First year 2", "", "", "      0", "10", "0", "", "10.00"}});
    add();
    basic::Clock::set(QDate(2027, 3, 10));
    restart();
    EXPECT_EQ(rows(w->fg1).size(), 2u);   // last year's March is this March
    put(w->fg1, {{"01-03-27", "Second year", "", "", "      0", "10", "0", "", "10.00"}});
    add();
    EXPECT_EQ(column("SELECT Party FROM tblPurchase1 ORDER BY Party"), (QStringList{"April bill", "Second year"}));
    EXPECT_EQ(column("SELECT count(*) FROM tblCommon WHERE cMonth='March'"), QStringList{"1"});
}

// Saving drops blank rows from the grid: the trailing ones, and a row with only an amount, which is lost.
TEST_F(MonthStore, SavingDropsBlankRows) {
    // stored: the parties in the store; gridRows: the bill rows left on the grid.
    const struct { const char* name; Bills typed; QStringList stored; int gridRows; const char* total; } cases[] = {
        {"empty grid", {{}}, {"null"}, 1, "0.00"},
        {"two trailing blanks", {{"01-03-26", "A", "", "", "      0", "1", "", "", "1.00"}, {}, {}}, {"A"}, 1, "1.00"},
        {"amount only", {{"01-03-26", "A", "", "", "      0", "1", "", "", "1.00"}, {"", "", "", "", "", "99", "", "", "99.00"},
                         {"02-03-26", "B", "", "", "      0", "2", "", "", "2.00"}}, {"A", "B"}, 2, "3.00"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        put(w->fg1, c.typed);
        add();
        EXPECT_EQ(column("SELECT Party FROM tblPurchase1 ORDER BY Party"), c.stored);
        EXPECT_EQ(int(rows(w->fg1).size()), c.gridRows);
        EXPECT_EQ(w->txtTotal->text(), c.total);
    }
    // The empty grid's row holds only the keys of the month.
    put(w->fg1, {{}});
    add();
    EXPECT_EQ(column("SELECT SlNo, cMonth, eDate, BillDate, Place FROM tblPurchase1"),
              QStringList{"1|March|15-03-26|null|null"});
}

// A press whose store work fails stores nothing at all, keeps what was typed and says what failed.
TEST_F(MonthStore, FailingAddStoresNothingAndKeepsTheGrid) {
    put(w->fg1, {{"01-03-26", "Stored before", "", "", "      0", "10", "0", "", "10.00"}});
    add();
    const struct { const char* name; Bills purchases; QString place, says; } cases[] = {
        {"date that is no date", {{"01-03-26", "New", "", "", "      0", "5", "", "", "5.00"},
                                  {"3x-0q-26", "Bad date", "", "", "      0", "6", "", "", "6.00"}},
         "Kochi", "the date 3x-0q-26 of purchase bill 2 is not a date of the form DD-MM-YY"},
        {"day that does not exist", {{"31-02-26", "No such day", "", "", "      0", "5", "", "", "5.00"}},
         "Kochi", "the date 31-02-26 of purchase bill 1 is a day that does not exist"},
        {"apostrophe in the place", {{"01-03-26", "New", "", "", "      0", "5", "", "", "5.00"}},
         "Cochin's port", "the store refused it"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        put(w->fg1, c.purchases);
        put(w->fg2, {{"04-03-26", "Sale typed", "", "", "      0", "7", "", "", "7.00"}});
        w->txtPlace->setText(c.place);
        const Bills typed = rows(w->fg1);
        const auto boxes = add();
        ASSERT_EQ(boxes.size(), 1u);
        EXPECT_TRUE(boxes[0].title == "Not saved" && boxes[0].text.contains(c.says)) << boxes[0].text.toStdString();
        EXPECT_EQ(rows(w->fg1), typed);
        EXPECT_EQ(w->fg2->TextMatrix(1, 2), "Sale typed");
        EXPECT_EQ(w->txtPlace->text(), c.place);
        EXPECT_EQ(column("SELECT Party FROM tblPurchase1"), QStringList{"Stored before"});
        EXPECT_EQ(column("SELECT count(*) FROM tblSales WHERE Party='Sale typed'"), QStringList{"0"});
        EXPECT_EQ(column("SELECT PTA0 FROM tblCommon"), QStringList{"10"});
    }
}

// The keys of the return tables take the empty text, repeat and compare without regard to case.
TEST_F(MonthStore, KeysAcceptTheEmptyTextRepeatAndCompareWithoutCase) {
    for (const char* day : {"09", "02"}) {
        exec("INSERT INTO tblMPage3 (cCode, cYear, cSequence, cRPFrom) VALUES ('', '2009', 'Monthly', 'March')");
        exec(QString("INSERT INTO tblPurchase1 (cCode, cMonth, BillDate, Amount) VALUES ('', 'March', #03/%1/2009#, 10)").arg(day));
    }
    EXPECT_EQ(column("SELECT count(*) FROM tblMPage3 WHERE cCode='' AND cRPFrom='MARCH'"), QStringList{"2"});
    store::Recordset rs;
    rs.Open("SELECT BillDate FROM tblPurchase1 WHERE cMonth='march' ORDER BY BillDate", returns::cnReturn);
    ASSERT_EQ(rs.RecordCount(), 2);
    EXPECT_EQ(rs.Fields("BillDate").Value(), basic::Variant(QDate(2009, 3, 2)));
}

TEST_F(MonthStore, ClearTableEmptiesEveryMonthOnAFreshConnection) {
    for (const char* month : {"January", "March"}) exec(QString("INSERT INTO tblRptSales (cMonth) VALUES ('%1')").arg(month));
    exec("INSERT INTO tblRptSales1 (cMonth) VALUES ('March')");
    const store::Connection before = returns::cnReturn;
    returns::ClearTable("tblRptSales");
    EXPECT_FALSE(returns::cnReturn == before);
    EXPECT_EQ(column("SELECT count(*) FROM tblRptSales"), QStringList{"0"});
    EXPECT_EQ(column("SELECT count(*) FROM tblRptSales1"), QStringList{"1"});
}

// The dates of typed bills as Add reads them: "26-09-2008" takes "20" as its year; a text that is no date
// is the caller's error 13.
TEST(Module2, DateFromBillText) {
    const struct { const char* text; QDate date; } dates[] = {
        {"26-09-08", QDate(2008, 9, 26)}, {" 01-12-09 ", QDate(2009, 12, 1)}, {"13-01-99", QDate(1999, 1, 13)},
        {"26-09-2008", QDate(2020, 9, 26)}};
    for (const auto& tc : dates) EXPECT_EQ(returns::DateFromBillText(tc.text), tc.date) << tc.text;
    EXPECT_THROW(returns::DateFromBillText("ab-cd-ef"), basic::RuntimeError);
}

}  // namespace
