#pragma once
// A month keyed in the return window as a user keys it, added and exported, and the windows that read
// it reached through the chooser: the ground of the form's and the filing's tests.
#include "platform/forms/window_registry.h"
#include "return_window.h"
#include "returns/frm_select.h"

#include <QStandardPaths>

class KeyedMonth : public ReturnWindow {
protected:
    void SetUp() override {
        QStandardPaths::setTestModeEnabled(true);   // remembered folders go to a settings file of the tests
        ReturnWindow::SetUp();
        forms::define("frmSelect", [] { return new returns::frmSelect; });
        forms::define("frmNormal", [this] { return w.get(); });
        forms::define("frmEFiling", [] { return new returns::frmEFiling; });
        forms::define("frmDirectToForm", [] { return new returns::frmDirectToForm; });
        forms::define("main", [] { return new QWidget; });
        normal = forms::get<returns::frmNormal>("frmNormal");
    }
    void TearDown() override {
        (void)w.release();   // the registry's now, and it lets the window go
        forms::reset();
        ReturnWindow::TearDown();
    }

public:
    using Bills = ReturnWindow::Bills;

    // The bills of the golden month: local purchases at 0, 4 and 12.5 %, sales at 4 and 12.5 % and a CST sale.
    static Bills purchases() {
        return {{"02-03-26", "Alpha Stores", "32071000001", "A-1", "4", "100000", "4000", "", "104000.00"},
                {"11-03-26", "Gamma Agencies", "32071000002", "G-3", "0", "25000.50", "", "", "25000.50"},
                {"20-03-26", "Beta Traders", "32071000003", "B-7", "12.5", "20000", "2500", "25", "22525.00"}};
    }
    static Bills sales() {
        return {{"05-03-26", "Kochi Retail", "32071000009", "S-1", "12.5", "150000", "18750", "", "168750.00"},
                {"06-03-26", "Cash Sales", "", "S-2", "4", "30000", "1200", "", "31200.00"},
                {"09-03-26", "Madras Export Co", "33010000001", "S-3", "CST", "10000", "200", "", "10200.00"}};
    }
    // Keys the bills into the grids and presses Add; Export after it when asked.
    void keyMonth(const Bills& bought, const Bills& sold, bool exported = true, int purchaseKind = 0) {
        normal->List4->setListIndex(purchaseKind);
        put(normal->fg1, bought);
        put(normal->fg2, sold);
        forms::MsgBoxRecorder quiet;
        normal->cmdAdd_Click();
        if (exported) normal->cmdExport_Click();
    }
    // The chooser's third option, by Enter, as the user opens the form.
    returns::frmDirectToForm* openForm() {
        auto* select = forms::get<returns::frmSelect>("frmSelect");
        select->Show();
        select->Option3->setFocus();
        QTest::keyClick(select->Option3, Qt::Key_Return);
        return forms::get<returns::frmDirectToForm>("frmDirectToForm");
    }

    returns::frmNormal* normal = nullptr;
};
