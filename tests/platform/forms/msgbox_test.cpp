#include "platform/forms/msgbox.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <stdexcept>

#include "platform/forms/runtime_errors.h"
#include "support/printers.h"

namespace {

TEST(MsgBox, RealBoxAnswersTheButtonPressed) {
    // Presses No on the box shown, once the event loop runs inside it.
    QTimer::singleShot(0, [] {
        for (QWidget* w : QApplication::topLevelWidgets())
            if (auto* box = qobject_cast<QMessageBox*>(w)) box->button(QMessageBox::No)->click();
    });
    EXPECT_EQ(forms::MsgBox("Are  you Sure?", forms::vbYesNo, "Exit Windows"), forms::vbNo);
}

TEST(Guard, EscapingErrorsBecomeTheRunTimeErrorBox) {
    const std::pair<std::function<void()>, QString> cases[] = {  // box text, empty: no box
        {[] {}, ""},
        {[] { throw basic::typeMismatch(); }, "Run-time error '13':\n\nType mismatch"},
        {[] { throw std::runtime_error("disk full"); }, "Run-time error '5':\n\ndisk full"},
        {[] { throw 42; }, "Run-time error '51':\n\nInternal error"}};
    for (const auto& [handler, box] : cases) {
        forms::MsgBoxRecorder recorder;
        forms::guard(handler);
        EXPECT_EQ(recorder.boxes(), (box.isEmpty() ? std::vector<forms::RecordedBox>{}
                                                   : std::vector<forms::RecordedBox>{{box, 16, "Vorlan"}}));
    }
}

}  // namespace
