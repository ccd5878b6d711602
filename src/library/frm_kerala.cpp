#include "library/frm_kerala.h"
#include "library/frm_global_sections.h"
#include "library/grid_catalogue.h"
#include "library/law_toolbar.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMouseEvent>
#include <QStyle>
#include <cmath>

#include "platform/basic/app_path.h"
#include "platform/basic/variant.h"
#include "platform/forms/errors.h"
#include "platform/forms/keys.h"
#include "platform/forms/layout.h"
#include "platform/forms/runtime_errors.h"
#include "platform/forms/list_box.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/status_bar.h"
#include "platform/forms/toolbar.h"
#include "platform/forms/twips.h"
#include "platform/forms/window_registry.h"
#include "platform/forms/window_update.h"
#include "shell/library_search_action.h"
#include "shell/my_mod.h"

namespace library {

namespace {

constexpr int kToolbarHeight = 750;
constexpr int kStatusBarHeight = 375;

using forms::heightOf;
using forms::place;
using forms::setHeight;
using forms::setLeft;
using forms::setTop;
using forms::topOf;
using forms::widthOf;

// The nodes of the seven trees, each tree's root first, children in the order they are added.
struct NodeRow {
    int tree;           // 0 Tvw, 1 tvw2, 2 tvwc, 3 tvwn, 4 tvw3, 5 tvwr, 6 tvwali
    const char* key;
    const char* text;
    const char* parent; // nullptr for the root
};

const NodeRow kNodes[] = {
    {0, "One", "Kerala Value Added  Tax Act", nullptr},
    {0, "VAT", "Sectionwise & Subjectwise", "One"},
    {0, "KGST", "Section index KGST", "One"},
    {0, "GENERAL", "THE KERALA GENERAL SALES TAX ACT", "One"},
    {0, "GST", "Papers & Reports On GST", "One"},
    {0, "Sectionwise", "Section list with word search", "One"},
    {1, "Oner", "Kerala Value Added  Tax Rules", nullptr},
    {1, "Sectionwise", "Sectionwise, Subjectwise & Rulewise", "Oner"},
    {1, "GENERAL", "KERALA GENERAL SALES TAX RULES", "Oner"},
    {1, "Index", "Index to Rules", "Oner"},
    {1, "FullText", "Full Text of Rules", "Oner"},
    {2, "Oner", "Kerala value Added  Tax Circulars", nullptr},
    {2, "Twor", "Sectionwise", "Oner"},
    {2, "cirsub", "Subjectwise", "Oner"},
    {2, "Gen", "Numberwise", "Oner"},
    {3, "Oner", "Kerala Value Added  Tax Notifications", nullptr},
    {3, "Twon", "Sectionwise", "Oner"},
    {3, "Notsub", "Subjectwise", "Oner"},
    {3, "Sec2r", "Numberwise", "Oner"},
    {4, "Oner", "Kerala Value Added  Tax Judgements", nullptr},
    {4, "Twor", "Section wise", "Oner"},
    {4, "Sec2r", "Subject wise", "Oner"},
    {4, "Sec1r", "Citation wise", "Oner"},
    {5, "Oner", "Old and Recent Judgement on Sales Tax Laws", nullptr},
    {5, "Twor", "Section wise", "Oner"},
    {5, "Subr", "Subject wise", "Oner"},
    {5, "Sec1r", "Citation wise", "Oner"},
    {6, "One", "Kerala Allied Acts, Rules & Forms", nullptr},
    {6, "Sec1al", "Allied Acts", "One"},
    {6, "Sec2al", "Allied Rules", "One"},
    {6, "Sec3al", "Allied Forms", "One"},
};

// ResizeValue is a 16-bit integer: the nearest whole number (halves to even, as the
// language assigns), and a value beyond its range is the overflow error.
std::int16_t toResizeValue(double value) {
    const double rounded = std::nearbyint(value);
    if (rounded < -32768 || rounded > 32767) throw basic::overflowError();
    return static_cast<std::int16_t>(rounded);
}

QPushButton* button(QWidget* parent, const QString& caption, int left, int top, int width, int height) {
    auto* b = new QPushButton(caption, parent);
    place(b, left, top, width, height);
    return b;
}

}  // namespace

frmkerala::frmkerala(QWidget* parent) : QWidget(parent) {
    buildControls();
    Form_Load();
    wireListPage();
}

void frmkerala::buildControls() {
    setWindowTitle(QStringLiteral("Kerala"));
    resize(forms::twips(13650), forms::twips(8520));

    ImageList1.Add(style()->standardIcon(QStyle::SP_DirClosedIcon));
    ImageList1.Add(style()->standardIcon(QStyle::SP_DirOpenIcon));

    Toolbar2 = new forms::Toolbar(this);
    Toolbar2->setImageList(&ImageList2);
    Toolbar2->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    Toolbar2->setMovable(false);
    // The toolbar holds the focus until a tree takes it, as its buttons are pressed.
    Toolbar2->setFocusPolicy(Qt::StrongFocus);
    fillLawToolbar(Toolbar2, ImageList2, style(), PaymentButtons::InRulesMenu);
    shell::addLibrarySearch(Toolbar2);
    place(Toolbar2, 0, 0, 13650, kToolbarHeight);

    StatusBar1 = new forms::StatusBar(1, this);
    StatusBar1->setSizeGripEnabled(false);
    place(StatusBar1, 0, 8145, 13650, kStatusBarHeight);

    Frame1 = new QGroupBox(QStringLiteral("Click on the topic you need"), this);
    place(Frame1, 1478, 1740, 8295, 5775);
    for (forms::TreeView** tree : {&Tvw, &tvw2, &tvwc, &tvwn, &tvw3, &tvwr, &tvwali}) {
        *tree = new forms::TreeView(Frame1);
        place(*tree, 1380, 1080, 5445, 3735);
    }

    Frame2 = new QGroupBox(QStringLiteral("Select the topic you want and click on Go"), this);
    place(Frame2, 0, 1740, 12735, 5535);
    Label1 = new QLabel(QStringLiteral("Search"), Frame2);
    place(Label1, 30, 750, 1245, 210);
    Text1 = new QLineEdit(Frame2);
    place(Text1, 1320, 1020, 10095, 600);
    // Made from the bottom of the stack up: a later child lies on top of an earlier one.
    aligo = button(Frame2, QStringLiteral("Go"), 11640, 270, 735, 400);
    aliback = button(Frame2, QStringLiteral("Back"), 11640, 4740, 735, 420);
    cmdactback = button(Frame2, QStringLiteral("Back"), 11640, 4740, 735, 420);
    cmdactgo = button(Frame2, QStringLiteral("Go"), 11640, 270, 735, 400);
    notGo = button(Frame2, QStringLiteral("Go"), 11640, 270, 735, 400);
    notBack = button(Frame2, QStringLiteral("Back"), 11640, 4740, 735, 420);
    List1 = new forms::ListBox(Frame2);
    place(List1, 1320, 1650, 10095, 3180);
    Text3 = new QLineEdit(Frame2);
    place(Text3, 1320, 720, 10095, 285);
    Cmdwordsearch = button(Frame2, QStringLiteral("Words Search"), 9960, 720, 1455, 285);
    Command1 = button(Frame2, QStringLiteral("Go"), 11640, 270, 735, 400);
    Command4 = button(Frame2, QStringLiteral("Back"), 11640, 4740, 735, 420);
    cmdruleback = button(Frame2, QStringLiteral("Back"), 11640, 4740, 735, 420);
    cmdrulego = button(Frame2, QStringLiteral("Go"), 11640, 270, 735, 400);
    cmdshback = button(Frame2, QStringLiteral("Back"), 11640, 4740, 735, 420);
    cmdshgo = button(Frame2, QStringLiteral("Go"), 11640, 270, 735, 400);
    formsback = button(Frame2, QStringLiteral("Back"), 11640, 4740, 735, 420);
    formsgo = button(Frame2, QStringLiteral("Go"), 11640, 270, 735, 400);
    rngo = button(Frame2, QStringLiteral("Go"), 11640, 270, 735, 400);
    rnback = button(Frame2, QStringLiteral("Back"), 11640, 4740, 735, 420);
    judback = button(Frame2, QStringLiteral("Back"), 11640, 4740, 735, 420);
    judgo = button(Frame2, QStringLiteral("Go"), 11640, 270, 735, 400);

    forms::wire(Toolbar2, &forms::Toolbar::ButtonClick, this,
                [this](const QString& key) { Toolbar2_ButtonClick(key); });
    forms::wire(Tvw, &forms::TreeView::KeyDown, this, [this](int key, int shift) { Tvw_KeyDown(key, shift); });
    forms::wire(Tvw, &forms::TreeView::MouseDown, this, [this] { Tvw_MouseDown(); });
    forms::wire(Tvw, &forms::TreeView::MouseMove, this, [this] { Tvw_MouseMove(); });
    forms::wire(Tvw, &forms::TreeView::DblClick, this, [this] { Tvw_DblClick(); });
    forms::wire(tvw2, &forms::TreeView::DblClick, this, [this] { tvw2_DblClick(); });
    forms::wire(tvwc, &forms::TreeView::DblClick, this, [this] { tvwc_DblClick(); });
    forms::wire(tvwn, &forms::TreeView::DblClick, this, [this] { tvwn_DblClick(); });
    forms::wire(tvw3, &forms::TreeView::DblClick, this, [this] { tvw3_DblClick(); });
    forms::wire(tvwr, &forms::TreeView::DblClick, this, [this] { tvwr_DblClick(); });
    forms::wire(tvwali, &forms::TreeView::Click, this, [this] { tvwali_Click(); });
    wireListPageButtons();
}

void frmkerala::Form_Load() {
    // The report engine's component has no counterpart to register here; the call stays, its result unread.
    std::int32_t result = 0;
    RegisterComponent(basic::AppPath() + QStringLiteral("/crystl32.ocx"), 0, result);
    setWindowState(Qt::WindowMaximized);
    Frame1->hide();
    Frame2->hide();
    fillTrees();
    Form_Resize();
}

void frmkerala::fillTrees() {
    forms::TreeView* trees[] = {Tvw, tvw2, tvwc, tvwn, tvw3, tvwr, tvwali};
    for (int t = 0; t < 7; ++t) {
        forms::TreeView* tree = trees[t];
        tree->setImageList(&ImageList1);
        for (const NodeRow& row : kNodes) {
            if (row.tree != t) continue;
            const QString key = QString::fromUtf8(row.key), text = QString::fromUtf8(row.text);
            if (row.parent) {
                tree->Nodes.Add(QString::fromUtf8(row.parent), forms::tvwChild, key, text, 1, 2);
            } else {
                // Only the allied tree's root changes its picture when selected.
                LastRootNode = tree->Nodes.Add(key, text, 1, tree == tvwali ? 2 : 0);
            }
        }
        // Every node is expanded, but for the last one of the recent judgements.
        const int expanded = tree == tvwr ? tree->Nodes.Count() - 1 : tree->Nodes.Count();
        for (int i = 1; i <= expanded; ++i) tree->Nodes(i).setExpanded(true);
    }
}

// Keeps both pages centred and stretches the list page downwards; the list page never shrinks.
void frmkerala::Form_Resize() {
    forms::LockWindowUpdate(this);
    struct Release {
        ~Release() { forms::LockWindowUpdate(nullptr); }
    } release;
    const int W = forms::toTwips(width()), H = forms::toTwips(height());

    ResizeValue = toResizeValue((W - widthOf(Frame1)) / 2.0);
    if (ResizeValue < 0) ResizeValue = 0;
    setLeft(Frame1, ResizeValue);
    ResizeValue = shell::GetBrowserLayout().first.top;
    if (ResizeValue < 0) ResizeValue = 0;
    setTop(Frame1, ResizeValue);

    ResizeValue = toResizeValue((W - widthOf(Frame2)) / 2.0);
    if (ResizeValue < 0) ResizeValue = 0;
    setLeft(Frame2, ResizeValue);
    ResizeValue = shell::GetBrowserLayout().first.top;
    if (ResizeValue < 0) ResizeValue = 0;
    setTop(Frame2, ResizeValue);

    // The frame's top counts twice, less the toolbar's height.
    ResizeValue = toResizeValue(H - topOf(Frame2) - (topOf(Frame2) - kToolbarHeight));
    if (ResizeValue > shell::GetBrowserLayout().second.height) setHeight(Frame2, ResizeValue);

    setHeight(List1, heightOf(Frame2) - (topOf(Text1) + heightOf(Text1) + topOf(Text3)));

    ResizeValue = toResizeValue(heightOf(Frame2) - topOf(Text1) + heightOf(cmdruleback) / 2.0);
    for (QPushButton* back : {cmdruleback, cmdshback, Command4, formsback, judback, rnback, notBack, cmdactback,
                              aliback})
        setTop(back, ResizeValue);
}

void frmkerala::Form_QueryUnload(bool& Cancel, int UnloadMode) {
    if (UnloadMode == 0) {
        forms::get(QStringLiteral("main"))->show();
        hide();
        Cancel = true;
    }
}

void frmkerala::Form_MouseDown() {
    lower();
    // The old window always had an active control once shown; ours may have none before the first key,
    // and a click on the bare window must not raise an error box.
    if (QWidget* active = focusWidget()) active->setFocus(Qt::OtherFocusReason);
}

void frmkerala::Toolbar2_ButtonClick(const QString& key) {
    CurrentToolbarKey = key;
    if (key == QLatin1String("Act")) {
        showTree(Tvw, true);
    } else if (key == QLatin1String("rul")) {
        showTree(tvw2, true);
    } else if (key == QLatin1String("circu")) {
        showTree(tvwc, false);
    } else if (key == QLatin1String("not")) {
        showTree(tvwn, true);
    } else if (key == QLatin1String("jud")) {
        showTree(tvw3, false);
    } else if (key == QLatin1String("sch")) {
        openScheduleGrid();
    } else if (key == QLatin1String("forms")) {
        openFormsGrid();
    } else if (key == QLatin1String("Ali")) {
        showTree(tvwali, true);
    } else if (key == QLatin1String("rec")) {
        showTree(tvwr, false);
    } else if (key == QLatin1String("ca")) {
        SHOW_CA_MENU_GRID();
    } else if (key == QLatin1String("print")) {
        // no button carries this key
    } else if (key == QLatin1String("bac")) {
        forms::get(QStringLiteral("main"))->show();
        hide();
    } else if (key == QLatin1String("dele")) {
        // no button carries this key
    }
}

// No tree is hidden again: the one raised last covers the others on the same spot. Circulars,
// Judgements and Recent Judgements leave the focus where it was.
void frmkerala::showTree(forms::TreeView* tree, bool takeFocus) {
    Frame2->hide();
    Frame1->show();
    tree->setVisible(true);
    tree->raise();
    if (takeFocus) shell::SafeSetFocus(tree);
}

void frmkerala::Tvw_KeyDown(int KeyCode, int) {
    if (KeyCode == forms::vbKeyReturn) Tvw_DblClick();
}

void frmkerala::Tvw_MouseDown() { lower(); }

void frmkerala::Tvw_MouseMove() {
    unsetCursor();
    lower();
}

// Each tree handler reads its selected node's key; a key with no catalogue row, the roots among them,
// does nothing.
void frmkerala::Tvw_DblClick() {
    const QString key = Tvw->SelectedItem().Key();
    if (key == QLatin1String("Sectionwise")) {
        FillSectionwiseList();
        return;
    }
    const GridEntry* entry = findGridEntry(QStringLiteral("Tvw"), key);
    if (!entry) return;
    openGrid(*entry);
    if (key == QLatin1String("VAT")) showSelectStatus();
}

void frmkerala::tvw2_DblClick() {
    const QString key = tvw2->SelectedItem().Key();
    if (key == QLatin1String("Index") || key == QLatin1String("FullText")) {
        FillRulesList(key);
        return;
    }
    const GridEntry* entry = findGridEntry(QStringLiteral("tvw2"), key);
    if (!entry) return;
    openGrid(*entry);
    if (key == QLatin1String("Sectionwise")) showSelectStatus();
}

void frmkerala::tvwc_DblClick() {
    if (const GridEntry* entry = findGridEntry(QStringLiteral("tvwc"), tvwc->SelectedItem().Key())) openGrid(*entry);
}

void frmkerala::tvwn_DblClick() {
    if (const GridEntry* entry = findGridEntry(QStringLiteral("tvwn"), tvwn->SelectedItem().Key())) openGrid(*entry);
}

void frmkerala::tvw3_DblClick() {
    if (const GridEntry* entry = findGridEntry(QStringLiteral("tvw3"), tvw3->SelectedItem().Key())) openGrid(*entry);
}

void frmkerala::tvwr_DblClick() {
    if (const GridEntry* entry = findGridEntry(QStringLiteral("tvwr"), tvwr->SelectedItem().Key())) openGrid(*entry);
}

// This tree answers a single click. "Sec4al" and "Sec5al" have rows but no node.
void frmkerala::tvwali_Click() {
    if (const GridEntry* entry = findGridEntry(QStringLiteral("tvwali"), tvwali->SelectedItem().Key()))
        openGrid(*entry);
}

void frmkerala::openScheduleGrid() { openGrid(*findGridEntry(QStringLiteral("Toolbar2"), QStringLiteral("sch"))); }
void frmkerala::openFormsGrid() { openGrid(*findGridEntry(QStringLiteral("Toolbar2"), QStringLiteral("forms"))); }

namespace {

const GridEntry& caEntry() { return *findGridEntry(QStringLiteral("Toolbar2"), QStringLiteral("ca")); }

void showGridError(const char* routine, const basic::RuntimeError& e, const char* fallback) {
    if (shell::ShowErrorDetail())
        forms::MsgBox(QStringLiteral("Error on ") + QLatin1String(routine) + QStringLiteral("() \n") + e.description() +
                      e.detail());
    else
        forms::MsgBox(QLatin1String(fallback), forms::vbOKOnly, QStringLiteral("Vorlan"));
}

}  // namespace

void frmkerala::LOAD_CA_MENU_GRID() {
    try {
        loadGrid(caEntry());
    } catch (const basic::RuntimeError& e) {
        showGridError("LOAD_CA_MENU_GRID", e, " Exception case: CA Grid Load");
    }
}

void frmkerala::SHOW_CA_MENU_GRID() {
    try {
        if (!ObjCAMenuItemGlobalSection) LOAD_CA_MENU_GRID();
        showGrid(ObjCAMenuItemGlobalSection);
    } catch (const basic::RuntimeError& e) {
        showGridError("SHOW_CA_MENU_GRID", e, " Exception case: CA Item Show");
    }
}

void frmkerala::openGrid(const GridEntry& entry) {
    loadGrid(entry);
    showGrid(this->*entry.reference);
}

// A grid is made and filled once for the run; later openings only show it, with its rows, scroll place
// and filter as the user left them.
void frmkerala::loadGrid(const GridEntry& entry) {
    frmGlobalSections*& grid = this->*entry.reference;
    if (grid) return;
    grid = new frmGlobalSections(this);
    // The value comes by reference; the Go handlers catch their own errors.
    if (entry.go)
        connect(grid, &frmGlobalSections::GoClicked, this,
                [this, go = entry.go](frmGlobalSections* frm, basic::Variant& value) { (this->*go)(frm, value); });
    if (entry.back)
        forms::wire(grid, &frmGlobalSections::BackClicked, this,
                    [this, back = entry.back](frmGlobalSections* frm) { (this->*back)(frm); });
    if (entry.dontShowOleForm) grid->setDontShowOleForm(true);

    const QString query = entry.query ? QString::fromUtf8(entry.query) : AlliedFormsQuery();
    if (entry.recordSetByTable) {
        grid->setRecSet(shell::getRecordSet(query, QStringLiteral("Kerala")));
    } else {
        const store::Connection& cn = entry.libraryFile == 3 ? shell::cnLibrary3 : shell::cnLibrary1;
        grid->setRecSet(shell::getRecordSetByCn(query, cn));
    }
    grid->setHeader(QString::fromUtf8(entry.header));
    if (!entry.dontShowOleForm) grid->setWindowTitle(grid->Header());
    grid->setAutoSizeColumnIndex(entry.autoSizeColumnIndex);
    grid->setSearchColumnIndex(entry.searchColumnIndex);
    grid->setDetailIndex(entry.detailIndex);
    if (entry.hiddenIDIndex >= 0) grid->setHiddenIDIndex(entry.hiddenIDIndex);
    grid->setConnectionString(entry.libraryFile == 3 ? shell::strLibraryCn3 : shell::strLibraryCn1);
    grid->setOleTableName(QString::fromUtf8(entry.oleTableName));
    grid->setOleColumnName(QStringLiteral("fname"));
    grid->setPredicateColumnName(QString::fromUtf8(entry.predicateColumnName));
    grid->setPredicateValueColumnIndex(entry.predicateValueColumnIndex);
    grid->setAdditionalSearchConditions(QString::fromUtf8(entry.additionalSearchConditions));
    grid->LoadGridData();
}

void frmkerala::showGrid(frmGlobalSections* grid) {
    if (!grid) throw forms::objectNotSet();
    grid->show();
    grid->raise();
    grid->activateWindow();
}

void frmkerala::showSelectStatus() {
    if (!shell::wordSearchColumn.isEmpty())
        StatusBar1->Panels(1).setText(QStringLiteral(
            "Select the required item from list box by search or manual and press Go button to display the data"));
    Form_Resize();
}

void frmkerala::RegisterComponent(const QString& fileName, int mode, std::int32_t& result) {
    if (mode == 0)
        result = shell::RegisterServerFile(basic::Trim(fileName), 1);
    else if (mode == 1)
        result = shell::RegisterServerFile(basic::Trim(fileName), 2);
    else
        result = 0;
}

void frmkerala::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    // The toolbar and the status bar are aligned to the window's top and bottom edges.
    Toolbar2->setGeometry(0, 0, width(), forms::twips(kToolbarHeight));
    StatusBar1->setGeometry(0, height() - forms::twips(kStatusBarHeight), width(),
                            forms::twips(kStatusBarHeight));
    forms::guard([this] { Form_Resize(); });
}

void frmkerala::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    // With neither page shown, the keyboard starts on the toolbar.
    if (Frame1->isHidden() && Frame2->isHidden()) Toolbar2->focusButtons();
}

void frmkerala::closeEvent(QCloseEvent* event) {
    // A close the user asks for (the close box) arrives from the window system; the program's own is mode 1.
    bool cancel = false;
    const int unloadMode = event->spontaneous() ? 0 : 1;
    forms::guard([&] { Form_QueryUnload(cancel, unloadMode); });
    if (cancel)
        event->ignore();
    else
        event->accept();
}

void frmkerala::mousePressEvent(QMouseEvent* event) {
    QWidget::mousePressEvent(event);
    forms::guard([this] { Form_MouseDown(); });
}

}  // namespace library
