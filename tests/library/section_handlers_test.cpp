// From a node of frmkerala to a document on the sample library: every grid of the catalogue, every Go
// and Back answer, the list page's buttons, the dormant keys.
#include "library_window_fixture.h"

#include <QToolButton>

#include "library/grid_catalogue.h"

using library::frmGlobalSections;
using library::frmkerala;
using GridRef = frmGlobalSections* frmkerala::*;
using GoHandler = void (frmkerala::*)(frmGlobalSections*, basic::Variant&);

namespace {

// A document row: the library file it lies in and the statement that finds it.
struct Doc { int file; const char* where; };
const Doc kStandby{1, "SELECT fname FROM Globalvat WHERE name='default'"};

const QString kSelectStatus = QStringLiteral(
    "Select the required item from list box by search or manual and press Go button to display the data");

}  // namespace

class Browser : public KeralaWindow {
protected:
    void SetUp() override {
        KeralaWindow::SetUp();
        forms::define(QStringLiteral("frmSelect"), [] { return new QWidget; });
        shell::wordSearchTable.clear();
        shell::wordSearchColumn.clear();
        shell::wordSearchOrderBy.clear();
        showActive();
    }

    // A toolbar press, then a click on the node as a user gives it: double, or single for the allied tree.
    void openNode(const QString& toolbarKey, forms::TreeView* tree, const QString& nodeKey) {
        w->Toolbar2_ButtonClick(toolbarKey);
        if (!tree) return;
        QTreeWidgetItem* item = tree->Nodes(nodeKey).item();
        if (item->parent()) item->parent()->setExpanded(true);   // a double click on the root folds it
        const QPoint pos = tree->viewport()->mapTo(w, tree->visualItemRect(item).center());
        if (tree == w->tvwali)
            QTest::mouseClick(w->windowHandle(), Qt::LeftButton, {}, pos);
        else
            QTest::mouseDClick(w->windowHandle(), Qt::LeftButton, {}, pos);
    }

    // The document window stands on this row, through this file's connection; on no document at all
    // when the row has no statement.
    void expectDocument(const Doc& doc) {
        const std::pair<store::Connection, QString> files[] = {{shell::cnLibrary1, shell::strLibraryCn1},
                                                               {shell::cnLibrary2, shell::strLibraryCn2},
                                                               {shell::cnLibrary3, shell::strLibraryCn3}};
        EXPECT_TRUE(kf()->isVisible());
        EXPECT_EQ(kf()->MSRDC1->Connect(), files[doc.file - 1].second);
        const QByteArray want = doc.where ? shell::getRecordSetByCn(QString::fromUtf8(doc.where), files[doc.file - 1].first)
                                                .Fields(QStringLiteral("fname")).Value().bytes() : QByteArray();
        ASSERT_EQ(want.isEmpty(), !doc.where) << doc.where;
        EXPECT_EQ(kf()->MSRDC1->bytes(QStringLiteral("fname")), want) << doc.where;
        EXPECT_EQ(kf()->OLE1->DataField(), QStringLiteral("fname"));
    }

    static void pick(frmGlobalSections* grid, int column, const QString& value) {
        for (int row = 0; row < grid->DataGrid1->RowCount(); ++row) {
            grid->DataGrid1->setRow(row);
            if (grid->DataGrid1->ColumnText(column) == value) return;
        }
        ADD_FAILURE() << "no row " << value.toStdString();
    }

};

TEST_F(Browser, EveryCatalogueRowOpensItsGridOnceAndGoShowsItsRow) {
    // The allied circulars and notifications have rows but no node yet: the test gives them one.
    w->tvwali->Nodes.Add(QStringLiteral("One"), forms::tvwChild, QStringLiteral("Sec4al"), QStringLiteral("Circulars"));
    w->tvwali->Nodes.Add(QStringLiteral("One"), forms::tvwChild, QStringLiteral("Sec5al"), QStringLiteral("Notif"));
    // tree nullptr: the toolbar key opens the grid; back: its Back brings the browser up; column and value:
    // the row picked, column -1: Go raised with the value on the empty grid.
    const struct { const char* toolbar; forms::TreeView* frmkerala::*tree; const char* node; GridRef grid; bool back;
                   long rows; int column; const char* value; Doc doc; } table[] = {
        {"Act", &frmkerala::Tvw, "VAT", &frmkerala::ObjActGlobalSections, false, 6, 1, "1-2", {1, "SELECT fname FROM Kerala WHERE id=5"}},
        {"Act", &frmkerala::Tvw, "KGST", &frmkerala::ObjSectionIndexKGSTGB, true, 1, 0, "Section index KGST", {1, "SELECT fname FROM Kerala WHERE id=9"}},
        {"Act", &frmkerala::Tvw, "GENERAL", &frmkerala::ObjGenSaleTaxActGB, true, 1, 0, "THE KERALA GENERAL SALES TAX ACT", {1, "SELECT fname FROM Kerala WHERE id=8"}},
        {"Act", &frmkerala::Tvw, "GST", &frmkerala::ObjGSTPaperReportGB, true, 2, 0, "Report On GST Of Task Force", {1, "SELECT fname FROM Kerala WHERE id=11"}},
        {"rul", &frmkerala::tvw2, "Sectionwise", &frmkerala::ObjRuleGlobalSections, false, 3, 1, "Rule 2", {1, "SELECT fname FROM Kerala WHERE id=21"}},
        {"rul", &frmkerala::tvw2, "GENERAL", &frmkerala::ObjGSTRuleGB, true, 1, 0, "KERALA GENERAL SALES TAX RULES", {1, "SELECT fname FROM Kerala WHERE id=24"}},
        {"circu", &frmkerala::tvwc, "Gen", &frmkerala::gsCircularNumber, false, 7, 0, "5-2008-Works contract composition", {1, "SELECT fname FROM Kerala WHERE id=202"}},
        {"circu", &frmkerala::tvwc, "Twor", &frmkerala::gsCircularSection, false, 3, 0, "Sec 11-Circular 12/2006", {1, "SELECT fname FROM Kerala WHERE id=200"}},
        {"circu", &frmkerala::tvwc, "cirsub", &frmkerala::gsCircularSubject, false, 4, 0, "Returns by post-Circular 3/2007", {1, "SELECT fname FROM Kerala WHERE id=201"}},
        {"not", &frmkerala::tvwn, "Twon", &frmkerala::gsNotificationSection, false, 4, 0, "Sec 6-SRO 1040/2007", {1, "SELECT fname FROM Kerala WHERE id=211"}},
        {"not", &frmkerala::tvwn, "Sec2r", &frmkerala::gsNotificationNumber, false, 3, 0, "SRO 7/2008-Exemption to small dealers", {1, "SELECT fname FROM Kerala WHERE id=212"}},
        {"not", &frmkerala::tvwn, "Notsub", &frmkerala::gsNotificationSubject, false, 3, 0, "Rubber-SRO 82/2006", {1, "SELECT fname FROM Kerala WHERE id=210"}},
        {"jud", &frmkerala::tvw3, "Twor", &frmkerala::gsJudgmentSection, false, 4, 0, "Sec 6-Kerala Cashew Board-Assessment appeal", {2, "SELECT fname FROM Globalvatse WHERE name='Kerala Cashew Board-Assessment appeal'"}},
        {"jud", &frmkerala::tvw3, "Sec1r", &frmkerala::gsJudgmentCitation, true, 4, 0, "[2006] 4 KTR 12-State v. Coconut Traders (2006)", {1, "SELECT fname FROM Globalvat WHERE name='State v. Coconut Traders (2006)'"}},
        {"jud", &frmkerala::tvw3, "Sec2r", &frmkerala::gsJudgmentSubject, false, 4, 0, "Empty record-Sree Traders v. Intelligence Officer", kStandby},
        {"rec", &frmkerala::tvwr, "Twor", &frmkerala::gsArJudgmentSection, false, 4, 0, "Sec 7-Unreported order", kStandby},
        {"rec", &frmkerala::tvwr, "Sec1r", &frmkerala::gsArJudgmentCitation, false, 3, 0, "(1998) 110 STC 4-Travancore Rubber v. State", {2, "SELECT fname FROM Globalvatse WHERE name='Travancore Rubber v. State'"}},
        {"rec", &frmkerala::tvwr, "Subr", &frmkerala::gsArJudgmentSubject, false, 3, 0, "Penalty-Malabar Tiles v. Commissioner", {1, "SELECT fname FROM Globalvat WHERE name='Malabar Tiles v. Commissioner'"}},
        {"Ali", &frmkerala::tvwali, "Sec1al", &frmkerala::ObjAlliedActGB, true, 3, 0, "THE KERALA MONEY-LENDERS ACT 1958 ", {1, "SELECT fname FROM Kerala WHERE id=41"}},
        {"Ali", &frmkerala::tvwali, "Sec2al", &frmkerala::ObjAlliedRuleGB, true, 3, 0, "MANGALYA NIDHI CESS RULES", {1, "SELECT fname FROM Kerala WHERE id=45"}},
        // 63 names, less the one the sample leaves out; the double blank must match.
        {"Ali", &frmkerala::tvwali, "Sec3al", &frmkerala::ObjAlliedFormsGB, true, 62, 0, "Mangalya  FORM II", {1, "SELECT fname FROM Kerala WHERE id=124"}},
        {"Ali", &frmkerala::tvwali, "Sec4al", &frmkerala::ObjAlliedCircularsGB, true, 0, -1, "KERALA LUXURY TAX NOTIFICATIONS", {1, "SELECT fname FROM Kerala WHERE id=46"}},
        {"Ali", &frmkerala::tvwali, "Sec5al", &frmkerala::ObjAlliedNotificationsGB, true, 1, 0, "KERALA LUXURY TAX NOTIFICATIONS", {1, "SELECT fname FROM Kerala WHERE id=46"}},
        {"sch", nullptr, "", &frmkerala::ObjScheduleGlobalSection, false, 5, 0, "Third Schedule - Goods taxed at 4 per cent", {3, "SELECT fname FROM Allshedule WHERE ID=3"}},
        {"forms", nullptr, "", &frmkerala::ObjFormGlobalSections, false, 4, 1, "FORM 8", {1, "SELECT fname FROM Kerala WHERE id=32"}},
        {"ca", nullptr, "", &frmkerala::ObjCAMenuItemGlobalSection, false, 4, 2, "Engagement letter", {3, "SELECT fname FROM CAPractice WHERE ID=3"}},
    };
    ASSERT_EQ(std::size(table), std::size(library::kGridCatalogue));
    for (const auto& row : table) {
        SCOPED_TRACE(row.value);
        const auto open = [&] {
            openNode(QString::fromUtf8(row.toolbar), row.tree ? w->*row.tree : nullptr, QString::fromUtf8(row.node));
        };
        open();
        frmGlobalSections* grid = w->*row.grid;
        ASSERT_NE(grid, nullptr);
        EXPECT_TRUE(grid->isVisible());
        EXPECT_EQ(grid->DataGrid1->RowCount(), row.rows);
        if (row.column >= 0) {
            pick(grid, row.column, QString::fromUtf8(row.value));
            QTest::mouseClick(grid->cmdGO, Qt::LeftButton);
        } else {
            EXPECT_FALSE(grid->cmdGO->isEnabled());
            basic::Variant value(QString::fromUtf8(row.value));
            emit grid->GoClicked(grid, value);
        }
        expectDocument(row.doc);
        kf()->Picture4->click();
        // The node again brings the same grid back as it was left, neither made nor filled anew.
        grid->txtSearch->setText(QStringLiteral("zzz"));
        w->hide();
        grid->cmdBack->click();
        EXPECT_FALSE(grid->isVisible());
        EXPECT_EQ(w->isVisible(), row.back);
        w->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(w));
        open();
        EXPECT_EQ(w->*row.grid, grid);
        EXPECT_TRUE(grid->isVisible());
        EXPECT_EQ(grid->DataGrid1->RowCount(), 0);
        grid->hide();
    }
    // Each grid was made once; a root node opens nothing.
    openNode(QStringLiteral("Act"), w->Tvw, QStringLiteral("One"));
    openNode(QStringLiteral("Ali"), w->tvwali, QStringLiteral("One"));
    EXPECT_EQ(w->findChildren<frmGlobalSections*>().size(), std::size(table));
    EXPECT_TRUE(boxes.boxes().empty());
}

TEST_F(Browser, TheNameStandsBehindTheFirstHyphenAndAMissingDocumentShowsTheStandby) {
    // doc.where nullptr: no document at all; sql, when given: the statement as the data control holds it.
    const Doc noCaItem{3, nullptr};
    const struct { GoHandler handler; const char* value; Doc doc; const char* sql; } table[] = {
        {&frmkerala::gsCircularNumber_GoClicked, "Circular 12/2006", kStandby, nullptr},      // no hyphen
        {&frmkerala::gsCircularNumber_GoClicked, "14/2008-", kStandby, nullptr},              // hyphen last
        {&frmkerala::gsCircularNumber_GoClicked, "-Circular 3/2007", {1, "SELECT fname FROM Kerala WHERE id=201"}, nullptr},
        {&frmkerala::gsCircularSection_GoClicked, "a-2008-Works contract composition", {1, "SELECT fname FROM Kerala WHERE id=202"},
         "select fname from Kerala where name='2008-Works contract composition'"},
        // The whole value is the name: a hyphen in it is no cut.
        {&frmkerala::ObjSectionIndexKGSTGB_GoClicked, "1-2", {1, "SELECT fname FROM Kerala WHERE id=5"}, nullptr},
        {&frmkerala::ObjAlliedActGB_GoClicked, "THE KERALA MONEY-LENDERS ACT 1958 ", {1, "SELECT fname FROM Kerala WHERE id=41"},
         "select fname from Kerala where name='THE KERALA MONEY-LENDERS ACT 1958 ' and type='Allied'"},
        {&frmkerala::ObjAlliedFormsGB_GoClicked, "xxxx Currently No items", kStandby, nullptr},  // not of type Allied
        // Numeric keys stand unquoted; only the CA item goes without the stand-by.
        {&frmkerala::ObjScheduleGlobalSection_GoClicked, "2", {3, "SELECT fname FROM Allshedule WHERE ID=2"},
         "select fname from Allshedule where ID=2 "},
        {&frmkerala::ObjScheduleGlobalSection_GoClicked, "99", kStandby, nullptr},
        {&frmkerala::ObjCAMenuItemGlobalSection_GoClicked, "1", {3, "SELECT fname FROM CAPractice WHERE ID=1"},
         "select fname from CAPractice where ID=1"},
        {&frmkerala::ObjCAMenuItemGlobalSection_GoClicked, "99", noCaItem, "select fname from CAPractice where ID=99"},
    };
    openNode(QStringLiteral("sch"), nullptr, QString());
    openNode(QStringLiteral("ca"), nullptr, QString());
    openNode(QStringLiteral("Ali"), w->tvwali, QStringLiteral("Sec1al"));
    for (const auto& row : table) {
        SCOPED_TRACE(row.value);
        // The grid handed over matters to the handlers that read its settings.
        frmGlobalSections* frm = row.handler == &frmkerala::ObjScheduleGlobalSection_GoClicked ? w->ObjScheduleGlobalSection
                                 : row.handler == &frmkerala::ObjCAMenuItemGlobalSection_GoClicked
                                     ? w->ObjCAMenuItemGlobalSection
                                     : w->ObjAlliedActGB;
        // A second Go on the same value points the window again.
        for (int go = 0; go < 2; ++go) {
            kf()->MSRDC1->setSQL(QStringLiteral("SELECT fname FROM Kerala WHERE id=1"));
            basic::Variant value(QString::fromUtf8(row.value));
            (w->*row.handler)(frm, value);
            expectDocument(row.doc);
            if (row.sql) { EXPECT_EQ(kf()->MSRDC1->SQL(), QString::fromUtf8(row.sql)); }
        }
        kf()->Picture4->click();
    }
    EXPECT_TRUE(boxes.boxes().empty());
}

TEST_F(Browser, AnApostropheBreaksTheQueryIntoTheHandlersOwnBox) {
    openNode(QStringLiteral("Ali"), w->tvwali, QStringLiteral("Sec1al"));
    // boxes: the Kerala lookups pass the store's own box first.
    const struct { GoHandler handler; const char* name, *value; int boxes; } table[] = {
        {&frmkerala::gsCircularNumber_GoClicked, "gsCircularNumber_GoClicked", "9/2008-Dealer's turnover clarification", 2},
        {&frmkerala::gsArJudgmentCitation_GoClicked, "gsArJudgmentCitation_GoClicked", "(2001) 9 STC 7-O'Neil Agencies v. State", 1},
        {&frmkerala::ObjAlliedNotificationsGB_GoClicked, "ObjAlliedNotificationsGB_GoClicked", "O'Neil", 2},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.name);
        boxes.clear();
        basic::Variant value(QString::fromUtf8(row.value));
        (w->*row.handler)(w->ObjAlliedActGB, value);
        ASSERT_EQ(int(boxes.boxes().size()), row.boxes);
        EXPECT_EQ(boxes.boxes().front().title, QString(row.boxes == 2 ? "_IN_DEBUG" : "Vorlan"));
        const forms::RecordedBox& last = boxes.boxes().back();
        EXPECT_TRUE(last.text.startsWith(QStringLiteral("Error on ") + row.name + QStringLiteral("() \n")) &&
                    last.text.contains(QStringLiteral(" | No: "))) << last.text.toStdString();
        EXPECT_EQ(std::pair(int(last.style), last.title), std::pair(int(forms::vbOKOnly), QStringLiteral("Vorlan")));
    }
}

// Each Back of the list page brings its tree forward with its focus rule, each Go shows the document
// modally; the return form, from the list page or the forms grid, opens the chooser instead.
TEST_F(Browser, ListPageButtonsAndTheReturnForm) {
    // tree nullptr: Back shows neither page.
    const struct { QPushButton *frmkerala::*go, *frmkerala::*back; forms::TreeView* frmkerala::*tree; bool focus;
                   const char* text1; } table[] = {
        {&frmkerala::cmdactgo, &frmkerala::cmdactback, &frmkerala::Tvw, true, "1"},
        {&frmkerala::cmdrulego, &frmkerala::cmdruleback, &frmkerala::tvw2, true, ""},
        {&frmkerala::notGo, &frmkerala::notBack, &frmkerala::tvwn, true, ""},
        {&frmkerala::aligo, &frmkerala::aliback, &frmkerala::tvwali, true, ""},
        {&frmkerala::judgo, &frmkerala::judback, &frmkerala::tvw3, false, ""},
        {&frmkerala::rngo, &frmkerala::rnback, &frmkerala::tvwr, false, ""},
        {&frmkerala::Command1, &frmkerala::Command4, &frmkerala::tvwc, false, ""},
        {&frmkerala::cmdshgo, &frmkerala::cmdshback, nullptr, false, ""},
        {&frmkerala::formsgo, &frmkerala::formsback, nullptr, false, "FORM 8"},
    };
    for (const auto& row : table) {
        w->Frame1->hide();
        w->Frame2->show();
        w->Text3->setFocus();
        (w->*row.back)->click();
        EXPECT_FALSE(w->Frame2->isVisible());
        EXPECT_EQ(w->Frame1->isVisible(), row.tree != nullptr);
        if (!row.tree) continue;
        EXPECT_EQ(front(w->Frame1, w->*row.tree), w->*row.tree);
        EXPECT_EQ(QApplication::focusWidget() == w->*row.tree, row.focus);
    }
    QWidget* chooser = forms::get(QStringLiteral("frmSelect"));
    for (const auto& row : table) {
        SCOPED_TRACE(row.text1);
        w->Text1->setText(QString::fromUtf8(row.text1));
        (w->*row.go)->click();
        EXPECT_TRUE(kf()->isVisible());
        EXPECT_EQ(kf()->windowModality(), Qt::ApplicationModal);
        EXPECT_FALSE(chooser->isVisible());
        kf()->Picture4->click();
    }
    w->Text1->setText(QStringLiteral("  FORM10-AUTOCOMPUTATION "));
    w->formsgo->click();
    EXPECT_TRUE(chooser->isVisible());
    EXPECT_FALSE(kf()->isVisible());
    chooser->hide();
    openNode(QStringLiteral("forms"), nullptr, QString());
    pick(w->ObjFormGlobalSections, 1, QStringLiteral("FORM10-AUTOCOMPUTATION"));
    w->ObjFormGlobalSections->cmdGO->click();
    EXPECT_TRUE(chooser->isVisible());
    EXPECT_FALSE(kf()->isVisible());
    pick(w->ObjFormGlobalSections, 1, QStringLiteral("FORM 1"));
    w->ObjFormGlobalSections->cmdGO->click();
    expectDocument({1, "SELECT fname FROM Kerala WHERE id=31"});
    EXPECT_EQ(kf()->windowModality(), Qt::NonModal);
    EXPECT_TRUE(boxes.boxes().empty());
}

// The list page has its nodes: one in the Act tree, two in the Rules tree; each fills the page at one
// double click, and its Go shows the document of the entry chosen.
TEST_F(Browser, ListPageNodesFillThePage) {
    // pick: the entry chosen, and doc the document its Go shows.
    const struct { const char* toolbar; forms::TreeView* frmkerala::*tree; const char* node; QStringList entries;
                   QPushButton *frmkerala::*go, *frmkerala::*back; bool focusSearch, status; int pick; Doc doc; } table[] = {
        // These empty the word-search strings, and with them the status text.
        {"rul", &frmkerala::tvw2, "Index", {"Index to Rules"}, &frmkerala::cmdrulego, &frmkerala::cmdruleback, false, false,
         0, {1, "SELECT fname FROM Kerala WHERE id=25"}},
        {"rul", &frmkerala::tvw2, "FullText", {"Full Text of Rules"}, &frmkerala::cmdrulego, &frmkerala::cmdruleback, true,
         false, 0, {1, "SELECT fname FROM Kerala WHERE id=26"}},
        // Cut at the last hyphen when the first stands after the first character; "" is left out.
        {"Act", &frmkerala::Tvw, "Sectionwise", {"1", "2", "6", "6A", "1-2", "10", "-Levy of tax", "99", "7"},
         &frmkerala::cmdactgo, &frmkerala::cmdactback, true, true, 3, {1, "SELECT fname FROM Kerala WHERE id=4"}},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.node);
        w->StatusBar1->Panels(1).setText(QString());
        w->Text1->setText(QStringLiteral("old"));
        w->Toolbar2->setFocus();
        openNode(QString::fromUtf8(row.toolbar), w->*row.tree, QString::fromUtf8(row.node));
        EXPECT_EQ(listed(), row.entries);
        if (row.status) { EXPECT_EQ(w->List1->ItemData(4), 5); }   // "1-2" keeps its row's ID
        EXPECT_TRUE(w->Frame2->isVisible());
        EXPECT_FALSE(w->Frame1->isVisible());
        for (auto button : {row.go, row.back}) EXPECT_EQ(w->Frame2->childAt((w->*button)->geometry().center()), w->*button);
        int stops = 0;   // Tab stops on the pair in sight, on none of the buttons under it
        for (QPushButton* b : w->Frame2->findChildren<QPushButton*>()) stops += b->focusPolicy() != Qt::NoFocus;
        EXPECT_EQ(stops, 3);   // with "Words Search"
        EXPECT_EQ(shell::wordSearchColumn, row.status ? "ActSection" : "");
        EXPECT_TRUE(w->Text1->text().isEmpty());
        EXPECT_EQ(QApplication::focusWidget() == w->Text3, row.focusSearch);
        EXPECT_EQ(w->StatusBar1->Panels(1).Text(), row.status ? kSelectStatus : QString());
    }
    EXPECT_TRUE(w->findChildren<frmGlobalSections*>().isEmpty());
    EXPECT_TRUE(boxes.boxes().empty());
    // With a word-search list in place, the Act grid's node leaves the same status text.
    w->StatusBar1->Panels(1).setText(QString());
    openNode(QStringLiteral("Act"), w->Tvw, QStringLiteral("VAT"));
    EXPECT_EQ(w->StatusBar1->Panels(1).Text(), kSelectStatus);
    for (const auto& row : table) {   // Go shows the chosen entry's document
        openNode(QString::fromUtf8(row.toolbar), w->*row.tree, QString::fromUtf8(row.node));
        w->List1->setListIndex(row.pick);
        (w->*row.go)->click();
        expectDocument(row.doc);
        kf()->Picture4->click();
    }
}
