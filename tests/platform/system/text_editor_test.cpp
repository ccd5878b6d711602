#include "platform/system/text_editor.h"

#include <gtest/gtest.h>

#include "platform/basic/runtime_error.h"

namespace {

TEST(TextEditor, FirstUsualEditorOnPathElseFileNotFound) {
    const struct { QStringList onPath; QString chosen; } cases[] = {  // chosen empty: none, error 53
        {{"kate", "gedit"}, "gedit"}, {{"kwrite", "mousepad"}, "mousepad"}, {{"xedit"}, "xedit"},
        {{"vim", "nano", "notepad.exe"}, ""}, {{}, ""}};
    for (const auto& c : cases) {
        const auto lookup = [&](const QString& program) {
            return c.onPath.contains(program) ? QStringLiteral("/usr/bin/") + program : QString();
        };
        const std::string name = c.onPath.join(' ').toStdString();
        const basic::RuntimeError e = basic::resume(
            [&] { EXPECT_EQ(sys::chooseTextEditor(lookup), QStringLiteral("/usr/bin/") + c.chosen) << name; });
        EXPECT_EQ(e.number(), c.chosen.isEmpty() ? 53 : 0) << name;
        if (e.number()) { EXPECT_EQ(e.description(), QStringLiteral("File not found")); }
    }
}

}  // namespace
