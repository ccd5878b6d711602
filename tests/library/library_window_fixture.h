#pragma once
// The sample library opened by MyMOD in a program folder of the test's own, with the document window and
// a stand-in for the state browser registered as app/ registers them; the windows and controls the
// library's tests drive.
#include "library/frm_global_sections.h"
#include "library/frm_kerala.h"
#include "library/keralaforms.h"
#include "platform/forms/list_box.h"
#include "platform/forms/status_bar.h"
#include "platform/forms/toolbar.h"
#include "platform/forms/twips.h"
#include "shell/library_fixture.h"
#include "support/screens.h"

#include <QTest>

class LibraryWindows : public LibraryFixture {
protected:
    void SetUp() override {
        LibraryFixture::SetUp();
        forms::define(QStringLiteral("keralaforms"), [] { return new library::keralaforms; });
        forms::define(QStringLiteral("frmkerala"), [] { return new QWidget; });
    }
    library::keralaforms* kf() { return forms::get<library::keralaforms>(QStringLiteral("keralaforms")); }
};

// frmkerala registered as app/ registers it, with the main window a stand-in; showActive() brings it up at
// a common screen's size with the keyboard in it.
class KeralaWindow : public LibraryWindows {
protected:
    void SetUp() override {
        LibraryWindows::SetUp();
        forms::define(QStringLiteral("main"), [] { return new QWidget; });
        forms::define(QStringLiteral("frmkerala"), [] { return new library::frmkerala; });
        w = forms::get<library::frmkerala>(QStringLiteral("frmkerala"));
    }
    void showActive() {
        w->setWindowState(Qt::WindowNoState);
        w->resize(1366, 768);
        w->show();
        w->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(w));
    }
    // The child of the frame drawn on top where `widget` stands.
    static QWidget* front(QWidget* frame, QWidget* widget) {
        QWidget* at = frame->childAt(widget->geometry().center());
        while (at && at->parentWidget() != frame) at = at->parentWidget();
        return at;
    }
    QStringList listed() const {
        QStringList all;
        for (int i = 0; i < w->List1->ListCount(); ++i) all << w->List1->List(i);
        return all;
    }
    library::frmkerala* w = nullptr;
    forms::MsgBoxRecorder boxes;
};
