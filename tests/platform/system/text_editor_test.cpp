#include "platform/system/text_editor.h"

#include <gtest/gtest.h>

#include "platform/basic/runtime_error.h"

namespace {

struct EditorCase {
    const char* name;
    QStringList onPath;
    QString chosen;     // empty: none, error 53
};

class TextEditorTest : public testing::TestWithParam<EditorCase> {};

TEST_P(TextEditorTest, FirstUsualEditorOnPath) {
    const EditorCase& c = GetParam();
    auto lookup = [&](const QString& program) {
        return c.onPath.contains(program) ? QStringLiteral("/usr/bin/") + program : QString();
    };
    if (c.chosen.isEmpty()) {
        try {
            sys::chooseTextEditor(lookup);
            FAIL() << "no editor should be found";
        } catch (const basic::RuntimeError& e) {
            EXPECT_EQ(e.number(), 53);
            EXPECT_EQ(e.description(), QStringLiteral("File not found"));
        }
    } else {
        EXPECT_EQ(sys::chooseTextEditor(lookup), QStringLiteral("/usr/bin/") + c.chosen);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Choice, TextEditorTest,
    testing::Values(EditorCase{"GnomeFirst", {"kate", "gedit"}, "gedit"},
                    EditorCase{"XfceBeforeKde", {"kwrite", "mousepad"}, "mousepad"},
                    EditorCase{"LastResort", {"xedit"}, "xedit"},
                    EditorCase{"OtherProgramsIgnored", {"vim", "nano", "notepad.exe"}, ""},
                    EditorCase{"NoneFound", {}, ""}),
    [](const testing::TestParamInfo<EditorCase>& info) { return std::string(info.param.name); });

}  // namespace
