#include "platform/forms/text_editor_window.h"

#include <gtest/gtest.h>

#include <QTest>

#include "platform/forms/msgbox.h"

namespace {

// A note opened, changed and saved; then a changed text closed: Cancel keeps it, Yes saves it under the
// name asked for and stays when none is given, No drops it.
TEST(TextEditorWindow, OpensSavesAndAsksBeforeLosingChanges) {
    QTemporaryDir dir;
    const QString note = dir.filePath("note.txt"), copy = dir.filePath("copy.txt");
    const auto read = [](const QString& path) { QFile f(path); return f.open(QIODevice::ReadOnly) ? f.readAll() : "-"; };
    QFile f(note);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly) && f.write("Kochi\n") > 0 && f.flush());
    forms::TextEditorWindow w;
    w.askOpenName = [&] { return note; };
    w.open();
    QTest::keyClicks(w.Text1, "Place: ");
    EXPECT_EQ(w.windowTitle(), "*note.txt - Notepad");
    w.save();
    EXPECT_EQ(read(note), "Place: Kochi\n");
    const struct { int answer; bool named; bool closes; const char* copyHolds; } cases[] = {
        {forms::vbCancel, true, false, "-"}, {forms::vbYes, false, false, "-"}, {forms::vbYes, true, true, "x"},
        {forms::vbNo, true, true, "-"}};
    for (const auto& c : cases) {
        QFile::remove(copy);
        forms::TextEditorWindow fresh;
        fresh.show();
        QTest::keyClicks(fresh.Text1, "x");
        fresh.askSaveName = [&] { return c.named ? copy : QString(); };
        forms::MsgBoxRecorder boxes{c.answer};
        EXPECT_EQ(fresh.close(), c.closes) << c.answer << c.named;
        EXPECT_EQ(read(copy), c.copyHolds) << c.answer << c.named;
    }
}

}  // namespace
