#pragma once
// The return window with its spreadsheet entries, and Debian's Python to make and read files as
// another program does.
#include "return_window.h"
#include "returns/bill_sheets.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

class SheetsWindow : public ReturnWindow {
protected:
    void SetUp() override {
        ReturnWindow::SetUp();
        sheets = w->findChild<returns::BillSheets*>();
        ASSERT_TRUE(sheets);
    }

    // Runs a Python script with argv[1] = a path; its standard output.
    static QByteArray python(const QString& script, const QString& path) {
        QProcess p;
        p.start(QStringLiteral("/usr/bin/python3"), {QStringLiteral("-c"), script, path});
        if (!p.waitForFinished(60000) || p.exitCode() != 0) {
            ADD_FAILURE() << "python: " << p.readAllStandardError().toStdString();
            return {};
        }
        return p.readAllStandardOutput();
    }

    // Cells 1 to 8 of the grid's bill rows: what a bill is before its total.
    static Bills bills(forms::FlexGrid* g) {
        Bills out;
        for (const QStringList& r : rows(g)) out.push_back(r.mid(1, 8));
        return out;
    }

    returns::BillSheets* sheets = nullptr;
};
