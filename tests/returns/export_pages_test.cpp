// Export posts the labels' figures to the return pages. Rows are looked up under the year "2008" but
// made with the system date's year, so what a press leaves depends on the calendar.
#include "return_window.h"
#include "shell/main_window.h"

namespace {

using forms::RecordedBox;

const RecordedBox kExported{"  EXPORTED  SUCCESSFULLY", 64, "Success...........!"};

class Export : public ReturnWindow {
protected:
    void SetUp() override {
        ReturnWindow::SetUp();
        for (auto [label, text] : {std::pair{w->Label14, "1000.00"}, {w->Label18, "40.00"}, {w->Label10, "50.00"},
                                   {w->Label34, "10.00"}, {w->Label21, "300.00"}, {w->Label25, "12.00"},
                                   {w->Label35, "100.00"}, {w->Label36, "2.00"}})
            label->setText(QString::fromLatin1(text));
    }
    void clearPages() {
        for (int p = 1; p <= 5; ++p) exec(QString("DELETE FROM tblMPage%1").arg(p));
    }
    QStringList counts() {
        QStringList out;
        for (int p = 1; p <= 5; ++p) out += column(QString("SELECT count(*) FROM tblMPage%1").arg(p));
        return out;
    }
    std::vector<RecordedBox> exportNow() { return press([&] { w->cmdExport_Click(); }); }
    void blankPurchaseLabels() {
        for (QLabel* l : {w->Label12, w->Label13, w->Label14, w->Label15, w->Label10, w->Label16, w->Label17,
                          w->Label18, w->Label19, w->Label34})
            l->setText(QString());
    }
};

TEST_F(Export, RowsEachPressLeavesFollowTheYear) {
    const struct { int year, kind; QStringList afterOne, afterTwo; } cases[] = {   // rows in tblMPage1 .. tblMPage5
        {2008, 0, {"1", "1", "1", "1", "1"}, {"1", "1", "1", "1", "1"}},
        {2008, 1, {"1", "1", "1", "1", "1"}, {"1", "1", "1", "1", "1"}},
        {2026, 0, {"3", "3", "3", "3", "3"}, {"6", "6", "6", "6", "6"}},
        {2011, 1, {"2", "2", "2", "2", "2"}, {"4", "4", "4", "4", "4"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.year << " kind " << c.kind);
        clearPages();
        basic::Clock::set(QDate(c.year, 3, 15));
        w->List4->setListIndex(c.kind);
        EXPECT_EQ(exportNow(), std::vector<RecordedBox>{kExported});
        EXPECT_EQ(counts(), c.afterOne);
        // The second press by Enter on the button.
        EXPECT_EQ(press([&] { QTest::keyClick(w->cmdExport, Qt::Key_Return); }), std::vector<RecordedBox>{kExported});
        EXPECT_EQ(counts(), c.afterTwo);
        EXPECT_EQ(column("SELECT DISTINCT cYear || cSequence || cRPFrom FROM tblMPage2"),
                  QStringList{QString::number(c.year) + "MonthlyMarch"});
    }
}

TEST_F(Export, BoxesOfEachBranch) {
    basic::Clock::set(QDate(2008, 3, 15));
    const QString page3 = "SELECT C1_13, C1_14, C1_34, C1_35, C1_36, C1_37, C1_63, C1_64, C1_54, C1_55, C1_56, C1_57, "
                          "C3_34, C3_36, C3_37, C2_44, C2_46, C2_34, C2_35, C2_36 FROM tblMPage3";
    // Local in 2008: a new purchase row, and the sales row that it keyed updated with the local lines.
    EXPECT_EQ(exportNow(), std::vector<RecordedBox>{kExported});
    EXPECT_EQ(column(page3), QStringList{"0|0.00|1000.00|40.00|1040.00|40.00|20|50.00|1050.00|50.00|1100.00|50.00|"
                                         "1050.00|1100.00|50.00|null|null|null|null|null"});
    EXPECT_EQ(column("SELECT SL33, SL34, SL37, SL54, SL57, A1T4, A1T7, SL14, ISS13, ISS14, ISS17, ISS34, A2T4, A2T7 "
                     "FROM tblMPage1"),
              QStringList{"4|300.00|12.00|300.00|12.00|300.00|12.00|0.00|CST|100.00|2.00|100.00|100.00|2.00"});
    // A second press replaces the figures, it does not add to them.
    w->Label14->setText("2000.00");
    exportNow();
    EXPECT_EQ(column("SELECT C1_34, C1_54, C3_34 FROM tblMPage3"), QStringList{"2000.00|2050.00|2050.00"});

    // Inter-state: the new row has the total line in C1_34..C1_36, an update in C2_34..C2_36 with the
    // tax alone as amount + tax, and leaves C1_3x as the new row wrote them.
    clearPages();
    w->List4->setListIndex(1);
    blankPurchaseLabels();
    w->Label14->setText("1000.00");
    w->Label18->setText("40.00");
    w->Label10->setText("50.00");
    w->Label34->setText("10.00");
    exportNow();
    const QString interState = "SELECT C2_43, C2_44, C2_46, C2_34, C2_35, C2_36, C1_34, C1_35, C1_36, C3_34, C3_35, "
                               "C3_36, C3_37 FROM tblMPage3";
    EXPECT_EQ(column(interState), QStringList{"4|1000.00|1040.00|null|null|null|1050.00|50.00|1100.00|1050.00|50.00|1100.00|null"});
    exportNow();
    EXPECT_EQ(column(interState), QStringList{"4|1000.00|1040.00|1050.00|50.00|50.00|1050.00|50.00|1100.00|1050.00|50.00|1100.00|null"});
    EXPECT_EQ(column("SELECT SL34, ISS14 FROM tblMPage1"), QStringList{"null|100.00"});   // no local sales on this path

    // In another year a new sales row holds the CST block only; the local sales reach no row.
    clearPages();
    basic::Clock::set(QDate(2026, 3, 15));
    w->List4->setListIndex(0);
    w->Label21->setText("300.00");
    exportNow();
    EXPECT_EQ(column("SELECT SL34, ISS14, cYear FROM tblMPage1 WHERE ISS13='CST'"),
              (QStringList{"null|100.00|2026", "null|100.00|2026"}));
}

// Totals lines add the two sums after rounding each; band lines add the raw figures.
TEST_F(Export, FiguresAreRoundedAsTheBoxesWant) {
    basic::Clock::set(QDate(2008, 3, 15));
    // Blank labels, and third decimals in the 0 % band's amount and tax; C1_14, C1_16, C1_54, C1_56, C3_36.
    for (auto [figure, expected] : {std::pair{"", "0.00|0.00|0.00|0.00|0.00"}, {"1.006", "1.01|2.01|1.01|2.02|2.02"}}) {
        SCOPED_TRACE(figure);
        clearPages();
        blankPurchaseLabels();
        w->Label12->setText(figure);
        w->Label16->setText(figure);
        exportNow();
        EXPECT_EQ(column("SELECT C1_14, C1_16, C1_54, C1_56, C3_36 FROM tblMPage3"), QStringList{expected});
    }
}

// Without a period each operation says so and stores nothing; the press still ends in success. A
// period the statements cannot take is a run-time error, and nothing of the press is stored.
TEST_F(Export, PeriodThatCannotBeStored) {
    const RecordedBox period{"Please Enter Return Period  ", 0, forms::standardTitle()};
    const struct { int kind; std::vector<RecordedBox> boxes; } cases[] = {{0, {period, period, period, kExported}},
                                                                          {1, {period, period, kExported}}};
    w->txtRPTo->setText("");
    for (const auto& c : cases) {
        w->List4->setListIndex(c.kind);
        EXPECT_EQ(exportNow(), c.boxes);
        EXPECT_EQ(counts(), (QStringList{"0", "1", "0", "0", "0"}));   // a new file's one row stays alone
    }
    w->txtRPTo->setText("Ma'rch");
    const auto boxes = exportNow();
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_TRUE(boxes[0].text.startsWith("Run-time error")) << boxes[0].text.toStdString();
    EXPECT_EQ(counts(), (QStringList{"0", "1", "0", "0", "0"}));
}

// A new return file carries the row that Exit writes its flag on, so Exit ends the program at once; the
// row stays first, and Export beside it still makes and then finds its own rows. Without it, Exit fails
// into its box and the program stays.
TEST_F(Export, ExitOnANewFileClearsTheFlagAndExportKeepsItsRows) {
    shell::main main;
    bool ended = false;
    main.endProgram = [&] { ended = true; };
    basic::Clock::set(QDate(2008, 3, 15));
    const struct { const char* before; bool exportFirst; bool ends; QStringList flags, pages; } cases[] = {
        {"UPDATE tblMPage2 SET FrmFlg=1", false, true, {"0"}, {"0", "1", "0", "0", "0"}},
        {"UPDATE tblMPage2 SET FrmFlg=1", true, true, {"0", "1"}, {"1", "2", "1", "1", "1"}},   // made, then found
        {"DELETE FROM tblMPage2", false, false, {}, {"1", "0", "1", "1", "1"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.before);
        if (c.exportFirst) exportNow(), exportNow();
        exec(c.before);
        ended = false;
        const auto boxes = press([&] { main.Toolbar2_ButtonClick("EXI"); });
        EXPECT_EQ(ended, c.ends);
        const RecordedBox notWorking{"This feature is not working", 64, "Vorlan"};
        EXPECT_EQ(boxes, c.ends ? std::vector<RecordedBox>{} : std::vector<RecordedBox>{notWorking});
        EXPECT_EQ(column("SELECT FrmFlg FROM tblMPage2"), c.flags);
        EXPECT_EQ(counts(), c.pages);
    }
}

}  // namespace
