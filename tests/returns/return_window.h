#pragma once
// A return window on a fresh return file in a program folder of its own, with the register templates
// beside it; helpers to key bills, press buttons and read the store back.
#include "platform/basic/app_path.h"
#include "platform/basic/clock.h"
#include "platform/forms/flex_grid.h"
#include "platform/forms/list_box.h"
#include "platform/forms/msgbox.h"
#include "returns/frm_normal.h"
#include "returns/module2.h"
#include "support/printers.h"
#include "support/screens.h"

#include <QTest>
#include <gtest/gtest.h>
#include <memory>

class ReturnWindow : public ::testing::Test {
protected:
    using Bills = std::vector<QStringList>;

    void SetUp() override {
        ASSERT_TRUE(folder.isValid());
        for (const char* rpt : {"RptPurchase.rpt", "RptPurchaseInterState.rpt", "RptSales.rpt"})
            ASSERT_TRUE(QFile::copy(QStringLiteral(VORLAN_PROGRAM_DIR "/") + rpt, folder.filePath(rpt))) << rpt;
        basic::SetAppPath(folder.path());
        basic::Clock::set(QDate(2026, 3, 15));
        w = std::make_unique<returns::frmNormal>();
        forms::MsgBoxRecorder quiet;
        w->Show();
    }
    void TearDown() override {
        w.reset();
        returns::ReleaseReturnStores();
        returns::rsLookup = returns::rsBills = returns::rsReport = store::Recordset::nothing();
        basic::Clock::reset();
    }
    // Bills typed into a grid (cells 1 to 9 of each row), and the labels worked out as on leaving a cell.
    void put(forms::FlexGrid* g, const Bills& bills) {
        g->setRows(int(bills.size()) + 1);
        for (int r = 0; r < int(bills.size()); ++r) {
            g->setTextMatrix(r + 1, 0, QString::number(r + 1));
            for (int c = 0; c < 9; ++c) g->setTextMatrix(r + 1, c + 1, bills[r].value(c));
        }
        w->procTotalCal1();
        w->procTotalCal2();
    }
    // The grid's bill rows, each with its ten cells.
    static Bills rows(forms::FlexGrid* g) {
        Bills out;
        for (int r = 1; r < g->Rows(); ++r) {
            out.emplace_back();
            for (int c = 0; c < 10; ++c) out.back() << g->TextMatrix(r, c);
        }
        return out;
    }
    // Each row of the statement as its fields joined by "|", NULL as "null".
    QStringList column(const QString& sql) {
        returns::ConnectReturnStore();
        store::Recordset rs;
        rs.Open(sql, returns::cnReturn);
        QStringList out;
        for (; !rs.Eof(); rs.MoveNext()) {
            QStringList fields;
            for (int f = 0; f < rs.FieldCount(); ++f) {
                const basic::Variant v = rs.Fields(f).Value();
                fields << (v.isNull() ? QStringLiteral("null") : basic::CStr(v));
            }
            out << fields.join('|');
        }
        return out;
    }
    void exec(const QString& sql) {
        returns::ConnectReturnStore();
        returns::cnReturn.Execute(sql);
    }
    template <class Press>
    std::vector<forms::RecordedBox> press(Press pressed) {
        forms::MsgBoxRecorder boxes;
        pressed();
        return boxes.boxes();
    }
    std::vector<forms::RecordedBox> add() { return press([&] { w->cmdAdd_Click(); }); }
    // The texts of the labels and boxes, joined by blanks.
    template <class... Shown>
    static QString texts(Shown*... shown) { return QStringList{shown->text()...}.join(' '); }

    QTemporaryDir folder;
    std::unique_ptr<returns::frmNormal> w;
};
