#include "platform/forms/text_editor_window.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "platform/forms/msgbox.h"

namespace {

QByteArray read(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("(missing)");
}

// Open a note, change it, save it, and close: unsaved changes are asked about, a cancelled save keeps the window.
TEST(TextEditorWindow, OpensEditsSavesAndAsksBeforeLosingChanges) {
    QTemporaryDir dir;
    const QString note = dir.filePath("note.txt"), copy = dir.filePath("copy.txt");
    QFile f(note);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly) && f.write("Kochi\n") > 0);
    f.close();
    forms::TextEditorWindow w;
    w.askOpenName = [&] { return note; };
    w.open();
    EXPECT_EQ(w.Text1->toPlainText(), "Kochi\n");
    EXPECT_EQ(w.windowTitle(), "note.txt - Notepad");
    QTest::keyClicks(w.Text1, "Place: ");
    EXPECT_EQ(w.windowTitle(), "*note.txt - Notepad");
    w.save();
    EXPECT_EQ(read(note), "Place: Kochi\n");
    // A new text closed: Cancel keeps it; Yes saves it under the name asked for, and stays if none is given.
    const struct { int answer; bool named; bool closes; const char* copyHolds; } cases[] = {
        {forms::vbCancel, true, false, "(missing)"}, {forms::vbYes, false, false, "(missing)"},
        {forms::vbYes, true, true, "x"}, {forms::vbNo, true, true, "(missing)"},
    };
    for (const auto& c : cases) {
        QFile::remove(copy);
        forms::TextEditorWindow fresh;
        fresh.show();
        QTest::keyClicks(fresh.Text1, "x");
        fresh.askSaveName = [&] { return c.named ? copy : QString(); };
        forms::MsgBoxRecorder boxes{c.answer};
        EXPECT_EQ(fresh.close(), c.closes) << c.answer << c.named;
        EXPECT_EQ(boxes.boxes().size(), 1u);
        EXPECT_EQ(read(copy), c.copyHolds) << c.answer << c.named;
    }
}

}  // namespace
