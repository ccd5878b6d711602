#pragma once
// A practice in a user's folder of its own: the register, books made on demand, the return window
// opened on a book with bills keyed, and the settings kept away from the user's own.
#include "platform/basic/app_path.h"
#include "platform/basic/clock.h"
#include "platform/basic/settings.h"
#include "platform/forms/flex_grid.h"
#include "platform/forms/msgbox.h"
#include "returns/frm_normal.h"
#include "returns/module2.h"
#include "returns/return_books.h"
#include "support/sqlite_rows.h"

#include <QStandardPaths>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>

class Practice : public ::testing::Test {
protected:
    void SetUp() override {
        QStandardPaths::setTestModeEnabled(true);
        basic::Settings().remove(QStringLiteral("returns"));
        program = root.filePath("program");
        user = root.filePath("user");
        QDir().mkpath(program);
        QDir().mkpath(user);
        basic::SetFolders(program, user);
        basic::Clock::set(QDate(2026, 3, 15));
    }
    void TearDown() override {
        w.reset();
        returns::ResetRegister();
        returns::ReleaseReturnStores();
        returns::rsLookup = returns::rsBills = returns::rsReport = store::Recordset::nothing();
        basic::Clock::reset();
    }
    static returns::Dealer dealer(const QString& tin, const QString& name, const QString& place = QString()) {
        return {tin, name, QString(), QString(), place, QString(), QString()};
    }
    returns::ReturnBook book(const QString& tin, int year) { return returns::BookOf(returns::Register(), {tin, year}); }
    // Opens the book, the return window on it at the month, and returns the window.
    returns::frmNormal* openWindow(const returns::ReturnBook& b, const QString& month = QStringLiteral("January")) {
        w.reset();
        EXPECT_EQ(returns::OpenBook(b), QString());
        w = std::make_unique<returns::frmNormal>();
        forms::MsgBoxRecorder quiet;
        w->Show();
        w->txtRPTo->setText(month);
        w->procReadPurchase();
        w->procReadSales_1();
        return w.get();
    }
    // One local purchase bill keyed and added; the text of the last box.
    QString addBill(const QString& party, const QString& amount) {
        const QStringList cells = {"1", "02-01-26", party, "32079999999", "B-1", "      4", amount, "0.00", "0.00", amount};
        w->fg1->setRows(2);
        for (int c = 0; c < 10; ++c) w->fg1->setTextMatrix(1, c, cells[c]);
        w->procTotalCal1();
        forms::MsgBoxRecorder boxes;
        w->cmdAdd_Click();
        return boxes.boxes().empty() ? QString() : boxes.boxes().back().text;
    }
    QString file(const returns::ReturnBook& b) const { return b.folder + "/nwForm10DB.mdb"; }

    QTemporaryDir root;
    QString program, user;
    std::unique_ptr<returns::frmNormal> w;
};
