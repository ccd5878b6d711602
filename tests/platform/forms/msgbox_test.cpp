#include "platform/forms/msgbox.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <stdexcept>

#include "platform/forms/runtime_errors.h"
#include "support/case_name.h"
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

// An error escaping a handler becomes the run-time error box; a handler that ends well shows none.
struct GuardCase { const char* name; void (*handler)(); const char* box; };

const GuardCase kGuards[] = {
    {"NoErrorNoBox", [] {}, ""},
    {"RuntimeError", [] { throw basic::typeMismatch(); }, "Run-time error '13':\n\nType mismatch"},
    {"StandardException", [] { throw std::runtime_error("disk full"); }, "Run-time error '5':\n\ndisk full"},
    {"AnythingElse", [] { throw 42; }, "Run-time error '51':\n\nInternal error"},
};

class Guard : public ::testing::TestWithParam<GuardCase> {};

TEST_P(Guard, EscapingErrorsBecomeTheRunTimeErrorBox) {
    forms::MsgBoxRecorder recorder;
    forms::guard(GetParam().handler);
    const QString box = QString::fromUtf8(GetParam().box);
    EXPECT_EQ(recorder.boxes(), (box.isEmpty() ? std::vector<forms::RecordedBox>{}
                                               : std::vector<forms::RecordedBox>{{box, 16, "Vorlan"}}));
}

INSTANTIATE_TEST_SUITE_P(Handlers, Guard, ::testing::ValuesIn(kGuards), CaseName());

}  // namespace
