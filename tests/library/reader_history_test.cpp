// The reader's history: Alt+Left and Alt+Right between the documents opened, the Recent list of a main
// toolbar, and the place left in a document, kept for its next opening.
#include "reader_fixture.h"

#include "library/frm_text_search.h"
#include "platform/documents/view_place.h"
#include "support/case_name.h"
#include "support/screens.h"

#include <QMenu>
#include <QScrollBar>
#include <QTextBrowser>
#include <QToolBar>

namespace reader_test {
namespace {

// "1" to "5" open Kerala rows, "J" the judgement, "S" the schedule; "<" is Alt+Left, ">" Alt+Right.
QString keyOf(QChar token) {
    if (token == u'J') return kCoconut;
    if (token == u'S') return kSchedule;
    return QStringLiteral("Kerala:") + token;
}

struct HistoryCase {
    const char* name;
    const char* steps;
    char shown;          // the document shown at the end
    const char* recent;  // the Recent list, latest first
};

class History : public ReaderFixture, public ::testing::TestWithParam<HistoryCase> {};

TEST_P(History, StepsBetweenTheDocumentsOpened) {
    const HistoryCase& c = GetParam();
    const QString steps = QString::fromLatin1(c.steps).remove(u' ');
    for (const QChar step : steps) {
        if (step == u'<' || step == u'>') press(kf(), step == u'<' ? Qt::Key_Left : Qt::Key_Right, Qt::AltModifier);
        else open(keyOf(step));
    }
    EXPECT_EQ(shownKey(), keyOf(QChar::fromLatin1(c.shown)));

    QToolBar toolbar;
    library::addReaderTools(&toolbar);
    auto* menu = toolbar.findChild<QMenu*>(QStringLiteral("RecentMenu"));
    ASSERT_TRUE(menu);
    emit menu->aboutToShow();
    QStringList recent, expected;
    for (QAction* a : menu->actions()) recent << a->data().toString();
    const QString tokens = QString::fromLatin1(c.recent).remove(u' ');
    for (const QChar t : tokens) expected << keyOf(t);
    EXPECT_EQ(recent, expected);
    EXPECT_TRUE(menu->actions().first()->text().contains(QStringLiteral("today"))) << menu->actions().first()->text().toStdString();
    if (std::string(c.name) == "ANewDocumentDropsWhatLayAhead") {
        menu->popup(QPoint(0, 0));
        QCoreApplication::processEvents();
        menu->grab().save(screen(QStringLiteral("reader-recent.png")));
        menu->hide();
    }
}

INSTANTIATE_TEST_SUITE_P(Reader, History, ::testing::Values(
    HistoryCase{"BackTwiceThenForward", "1 2 3 < < >", '2', "2 1 3"},
    HistoryCase{"ANewDocumentDropsWhatLayAhead", "1 2 3 < < 5 > <", '1', "1 5 2 3"},
    HistoryCase{"StepsStopAtBothEnds", "1 < < 2 > >", '2', "2 1"},
    HistoryCase{"TheSameDocumentAgainIsNoStep", "1 1 2 < <", '1', "1 2"},
    HistoryCase{"AJudgementAndASchedule", "J S 1 < <", 'J', "J S 1"}),
    CaseName());

struct PlaceCase {
    const char* name;
    char document;
    enum { AltLeft, ClosedAndOpenedAgain, SearchHitOpened } back;
};

class Place : public ReaderFixture, public ::testing::TestWithParam<PlaceCase> {};

TEST_P(Place, ADocumentOpensWhereTheReaderLeftIt) {
    const PlaceCase& c = GetParam();
    const QString key = keyOf(QChar::fromLatin1(c.document));
    open(key);
    QScrollBar* bar = kf()->OLE1->textBrowser()->verticalScrollBar();
    ASSERT_GT(bar->maximum(), 0) << "the document must be longer than the window";
    bar->setValue(bar->maximum() * 3 / 5);
    const QString left = documents::placeOf(kf()->OLE1);
    ASSERT_FALSE(left.isEmpty());

    switch (c.back) {
    case PlaceCase::AltLeft:
        open(kSro82);
        press(kf(), Qt::Key_Left, Qt::AltModifier);
        break;
    case PlaceCase::ClosedAndOpenedAgain:
        QTest::keyClick(kf(), Qt::Key_Escape);
        forms::reset();   // every window made anew, as at the next start
        open(key);
        QCoreApplication::processEvents();
        break;
    case PlaceCase::SearchHitOpened: {
        open(kSro82);
        ASSERT_EQ(searched(QStringLiteral("\"plant and machinery\"")), QStringList{key});
        forms::get<library::frmTextSearch>(QStringLiteral("frmTextSearch"))->OpenResult();
        QCoreApplication::processEvents();
        // The search's hit stands above the place left: the hit wins.
        EXPECT_EQ(kf()->OLE1->textBrowser()->textCursor().selectedText(), QStringLiteral("plant and machinery"));
        EXPECT_NE(documents::placeOf(kf()->OLE1), left);
        return;
    }
    }
    EXPECT_EQ(shownKey(), key);
    EXPECT_EQ(documents::placeOf(kf()->OLE1), left);
}

INSTANTIATE_TEST_SUITE_P(Reader, Place, ::testing::Values(
    PlaceCase{"RtfAfterAltLeft", '1', PlaceCase::AltLeft},
    PlaceCase{"TextAfterAltLeft", '2', PlaceCase::AltLeft},
    PlaceCase{"RtfAfterTheWindowWasClosed", '3', PlaceCase::ClosedAndOpenedAgain},
    PlaceCase{"ASearchHitBeforeThePlace", '3', PlaceCase::SearchHitOpened}),
    CaseName());

}  // namespace
}  // namespace reader_test
