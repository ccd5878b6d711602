// The chooser and the return window between each other, and the purchase-kind list.
#include "platform/forms/twips.h"
#include "platform/forms/window_registry.h"
#include "return_window.h"
#include "returns/frm_select.h"

using namespace returns;

namespace {

class WindowFlows : public ReturnWindow {
protected:
    void SetUp() override {
        ReturnWindow::SetUp();
        forms::define("frmSelect", [] { return new frmSelect; });
        forms::define("frmNormal", [] { return new frmNormal; });
        forms::define("frmEFiling", [] { return new frmEFiling; });
        forms::define("frmDirectToForm", [] { return new frmDirectToForm; });
        forms::define("main", [] { return new QWidget; });
    }
    void TearDown() override {
        DealerName.clear();
        DirectToForm = false;
        forms::reset();
        ReturnWindow::TearDown();
    }
    forms::MsgBoxRecorder boxes;
};

TEST_F(WindowFlows, ChooserOpensAndTakesBackTheReturnWindow) {
    auto* select = forms::get<frmSelect>("frmSelect");
    select->Show();
    EXPECT_EQ(select->pos(), QPoint(forms::twips(4000), forms::twips(2500)));
    EXPECT_EQ(select->size(), QSize(forms::twips(7000), forms::twips(4000)));
    EXPECT_TRUE(select->grab().save(screen("frmSelect.png")));

    // Enter opens the return window and leaves the chooser behind it; a double click hides the chooser.
    select->Option1_KeyPress(13);
    auto* normal = forms::get<frmNormal>("frmNormal");
    EXPECT_TRUE(normal->isVisible());
    EXPECT_TRUE(select->isVisible());
    EXPECT_EQ(normal->txtRPTo->text(), "March");
    EXPECT_EQ(normal->List4->Text(), "Local Purchase");
    EXPECT_EQ(normal->List2->List(4), "     20       ");   // the load's filling is replaced at once

    // Close drops what was not added, asks nothing, and brings the chooser back.
    normal->fg1->setTextMatrix(1, 2, "Unsaved party");
    normal->cmdClose_Click();
    EXPECT_FALSE(normal->isVisible());
    EXPECT_TRUE(select->isVisible());
    select->Option1_DblClick();
    EXPECT_FALSE(select->isVisible());
    EXPECT_EQ(normal->fg1->TextMatrix(1, 2), "");

    // A disabled option does nothing; Cancel closes both windows and shows the main window.
    select->Show();
    select->Option2->setEnabled(false);
    select->Option2_KeyPress(13);
    EXPECT_FALSE(forms::exists("frmEFiling"));
    select->cmdClose_Click();
    EXPECT_FALSE(select->isVisible());
    EXPECT_FALSE(normal->isVisible());
    EXPECT_TRUE(forms::get("main")->isVisible());
    EXPECT_TRUE(boxes.boxes().empty());

    // The third option hands its window the dealer and the year, and stays behind it.
    DealerName = "Kerala Traders";
    select->Show();
    select->Option3_DblClick();
    auto* target = forms::get<frmDirectToForm>("frmDirectToForm");
    EXPECT_TRUE(target->isVisible());
    EXPECT_TRUE(select->isVisible());
    EXPECT_EQ(target->txtDealerName->text(), "Kerala Traders");
    EXPECT_EQ(target->txtYear->text(), "2026");
    EXPECT_EQ(ReturnYearKey, "2026");
    EXPECT_TRUE(DirectToForm);
}

// List4 chooses the table fg1 stands for and the padding of the purchase rates.
TEST_F(WindowFlows, PurchaseKindSwitchesTheGridAndTheRates) {
    exec("INSERT INTO tblPurchase1 (cCode, cMonth, Party, BillDate) VALUES ('', 'March', 'Local', '2026-03-02')");
    exec("INSERT INTO tblPurchaseInterState1 (cCode, cMonth, Party, BillDate, Amount, RateOfTax) "
         "VALUES ('', 'March', 'From Chennai', '2026-03-04', 250, '4')");
    const struct { int index; const char* party, *lastRate, *amount4; } cases[] = {{1, "From Chennai", "      20", "250.00"}, {0, "Local", "     20       ", "0.00"}};
    for (const auto& c : cases) {
        w->List4->setListIndex(c.index);
        EXPECT_EQ(QStringList({w->fg1->TextMatrix(1, 2), w->List2->List(4), w->Label14->text()}),
                  QStringList({c.party, c.lastRate, c.amount4}));
    }
}

}  // namespace
