// Finding within a shown document: the find bar's count and steps on an RTF document, and where the
// words of a library search stand in a text.
#include "platform/documents/document_view.h"
#include "platform/documents/find_bar.h"
#include "platform/documents/hit_marks.h"

#include "support/case_name.h"
#include "support/printers.h"

#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTextBrowser>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace documents {

TEST(FindBar, CountsAndStepsThroughTheHitsOfAnRtfDocument) {
    QWidget window;
    auto* view = new DocumentView(&window);
    (new QVBoxLayout(&window))->addWidget(view);
    view->setDocument("{\\rtf1\\ansi {\\b Input tax CREDIT}\\par Credit on capital goods.\\par "
                      "No credit for vehicles; a creditor is paid first.\\par}");
    FindBar* bar = FindBar::attach(view);
    window.resize(600, 400);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QTextBrowser* text = view->textBrowser();

    QTest::keyClick(text, Qt::Key_F, Qt::ControlModifier);
    ASSERT_TRUE(bar->isVisible());
    QTest::keyClicks(bar->field, QStringLiteral("credit"));
    const struct { Qt::Key key; Qt::KeyboardModifiers modifiers; const char* count; } steps[] = {
        {Qt::Key_unknown, {}, "1 of 4"},          {Qt::Key_Return, {}, "2 of 4"},
        {Qt::Key_F3, {}, "3 of 4"},               {Qt::Key_Return, Qt::ShiftModifier, "2 of 4"},
        {Qt::Key_F3, Qt::ShiftModifier, "1 of 4"}, {Qt::Key_F3, Qt::ShiftModifier, "4 of 4"},
        {Qt::Key_Return, {}, "1 of 4"},
    };
    for (const auto& s : steps) {
        if (s.key != Qt::Key_unknown) QTest::keyClick(bar->field, s.key, s.modifiers);
        EXPECT_EQ(bar->count->text(), QString::fromLatin1(s.count));
        EXPECT_EQ(text->textCursor().selectedText().toLower(), QStringLiteral("credit")) << s.count;
        EXPECT_EQ(text->extraSelections().size(), 4) << s.count;
    }
    QTest::keyClicks(bar->field, QStringLiteral("zz"));
    EXPECT_EQ(bar->count->text(), QStringLiteral("Not found"));

    QTest::keyClick(bar->field, Qt::Key_Escape);
    EXPECT_FALSE(bar->isVisible());
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(text->extraSelections().isEmpty());
}

// The words of a search lit in a text as the index reads them: joined by a hyphen, in capitals, by prefix,
// in Malayalam, and not the words a NOT leaves out.
struct HitCase { const char* name; const char* typed; const char* hits; };

const HitCase kHits[] = {
    {"PhraseAcrossAHyphen", "\"input tax\"", "Input-tax INPUT TAX"},
    {"WholeWordOnly", "credit", "credit"},
    {"PrefixWithoutTheExcluded", "credit* NOT goods", "credit credited"},
    {"EitherWord", "tax OR ഇളവ്", "tax TAX ഇളവ്"},
    {"MalayalamPrefix", "നികുതി*", "നികുതി നികുതിയും"},
};

class HitMarks : public ::testing::TestWithParam<HitCase> {};

TEST_P(HitMarks, FindsTheWordsOfASearchAsTheIndexReadsThem) {
    const QString text = QStringLiteral("Input-tax credit; the INPUT TAX of credited goods. നികുതി ഇളവ്, നികുതിയും.");
    QStringList found;
    for (const TextRange& r : findTerms(text, store::parseTextQuery(QString::fromUtf8(GetParam().typed)).sought()))
        found << text.mid(r.start, r.end - r.start);
    EXPECT_EQ(found.join(u' '), QString::fromUtf8(GetParam().hits));
}

INSTANTIATE_TEST_SUITE_P(Searches, HitMarks, ::testing::ValuesIn(kHits), CaseName());

}  // namespace documents
