#include "platform/forms/text_editor_window.h"
#include "support/case_name.h"

#include <gtest/gtest.h>

#include <QTest>

#include "platform/forms/msgbox.h"

namespace {

QByteArray contentsOf(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : "-";
}

// A note opened, changed and saved.
TEST(TextEditorWindow, OpensAndSaves) {
    QTemporaryDir dir;
    const QString note = dir.filePath("note.txt");
    QFile f(note);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly) && f.write("Kochi\n") > 0 && f.flush());
    forms::TextEditorWindow w;
    w.askOpenName = [&] { return note; };
    w.open();
    QTest::keyClicks(w.Text1, "Place: ");
    EXPECT_EQ(w.windowTitle(), "*note.txt - Notepad");
    w.save();
    EXPECT_EQ(contentsOf(note), "Place: Kochi\n");
}

// A changed text closed: Cancel keeps it, Yes saves it under the name asked for and stays when none is
// given, No drops it.
struct CloseCase { const char* name; int answer; bool named; bool closes; const char* copyHolds; };

const CloseCase kCloses[] = {
    {"CancelKeepsTheWindow", forms::vbCancel, true, false, "-"},
    {"YesWithoutANameStays", forms::vbYes, false, false, "-"},
    {"YesSavesAndCloses", forms::vbYes, true, true, "x"},
    {"NoDropsTheText", forms::vbNo, true, true, "-"},
};

class TextEditorClose : public ::testing::TestWithParam<CloseCase> {};

TEST_P(TextEditorClose, AsksBeforeLosingChanges) {
    const CloseCase& c = GetParam();
    QTemporaryDir dir;
    const QString copy = dir.filePath("copy.txt");
    forms::TextEditorWindow fresh;
    fresh.show();
    QTest::keyClicks(fresh.Text1, "x");
    fresh.askSaveName = [&] { return c.named ? copy : QString(); };
    forms::MsgBoxRecorder boxes{c.answer};
    EXPECT_EQ(fresh.close(), c.closes);
    EXPECT_EQ(contentsOf(copy), c.copyHolds);
}

INSTANTIATE_TEST_SUITE_P(Answers, TextEditorClose, ::testing::ValuesIn(kCloses), CaseName());

}  // namespace
