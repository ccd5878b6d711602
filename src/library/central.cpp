#include "library/central.h"
#include "library/law_toolbar.h"
#include "library/log.h"

#include <QEvent>
#include <QMouseEvent>
#include <QStyle>

#include "platform/basic/app_path.h"
#include "platform/documents/ole_container.h"
#include "platform/forms/errors.h"
#include "platform/forms/keys.h"
#include "platform/forms/layout.h"
#include "platform/forms/runtime_errors.h"
#include "platform/forms/toolbar.h"
#include "platform/forms/tree_view.h"
#include "platform/forms/twips.h"
#include "platform/forms/window_registry.h"

namespace library {

namespace {

constexpr int kToolbarHeight = 750;

using forms::place;

// The nodes, all under the root "One"; the second "States" is a node of its own.
const char* const kNodes[][2] = {
    {"Two", "States"},           {"COM", "Andhra Pradesh"},  {"CAT", "Arunachal Pradesh"},
    {"DEP", "Assam"},            {"DES", "Bihar"},           {"EMP", "chattisgarh"},
    {"Del", "Delhi"},            {"Go", "Goa"},              {"Guj", "Gujarat"},
    {"Hay", "Haryana"},          {"Hp", "Himachal Pradesh"}, {"Jha", "Jharkand"},
    {"jk", "Jammu and kashmir"}, {"Kar", "Karnataka"},       {"Ker", "Kerala"},
    {"Mad", "Madya Pradesh"},    {"Mah", "Maharashtra"},     {"Man", "Manipur"},
    {"Meh", "Meghalaya"},        {"Orissa", "Orissa"},       {"Punjab", "Punjab"},
    {"Raj", "Rajasthan"},        {"Sik", "Sikkim"},          {"Tam", "TamilNadu"},
    {"Tri", "Tripura"},          {"Utt", "Uttar Pradesh"},   {"Uta", "Utharanchal"},
    {"We", "West Bangal"},
};

// The keys a double click once sent to windows of their own. Each window was a local object that nothing
// sets, so showing it is error 91; "SRDAT" is compared too and leads to nothing.
const char* const kUnsetWindowKeys[] = {"COM", "EMP",    "DEP", "DES",  "EMPUPD", "OVE", "ATT",
                                        "DED", "ATTREG", "PAY", "SLIP", "SALHIS", "GEN", "PAS"};

// Shows a window held in a reference that was never set.
void showUnset(QWidget* window) {
    if (!window) throw forms::objectNotSet();
    window->show();
}

}  // namespace

central::central(QWidget* parent) : QWidget(parent) {
    buildControls();
    Form_Load();
}

void central::buildControls() {
    setWindowTitle(QStringLiteral("Central sales Act"));
    resize(forms::twips(13650), forms::twips(8520));
    setMouseTracking(true);

    ImageList1.Add(style()->standardIcon(QStyle::SP_DirClosedIcon));
    ImageList1.Add(style()->standardIcon(QStyle::SP_DirOpenIcon));

    Toolbar2 = new forms::Toolbar(this);
    Toolbar2->setImageList(&ImageList2);
    Toolbar2->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    Toolbar2->setMovable(false);
    fillLawToolbar(Toolbar2, ImageList2, style(), PaymentButtons::OnTheBar);
    place(Toolbar2, 0, 0, 13650, kToolbarHeight);

    Tvw = new forms::TreeView(this);
    Tvw->setToolTipText(QStringLiteral("double click on each state to get details"));
    place(Tvw, 120, 870, 3480, 7530);

    img1 = new QLabel(this);
    img1->setFrameStyle(QFrame::Panel | QFrame::Raised);
    img1->setMouseTracking(true);
    img1->installEventFilter(this);
    place(img1, 3630, 870, 75, 7530);

    // The right-hand area; the label and the pages lie on it.
    Picture1 = new QLabel(this);
    Picture1->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    place(Picture1, 3735, 870, 9795, 7530);

    Label3 = new QLabel(QStringLiteral("click on contents ot see details"), this);
    place(Label3, 3855, 960, 9555, 285);
    // The picture, the image and the label keep their mouse to themselves, as controls of the window do.
    for (QWidget* w : {static_cast<QWidget*>(Picture1), static_cast<QWidget*>(img1), static_cast<QWidget*>(Label3)})
        w->setAttribute(Qt::WA_NoMousePropagation);

    // The pages are part of the window's design. A program folder without them gives empty pages,
    // which open nothing.
    const QString folder = basic::AppPath() + QStringLiteral("\\central\\");
    const char* const pages[] = {"CST ACT CONTENTS.rtf", "CST FORMS CONTENTS.rtf", "CST RULES.rtf"};
    documents::OleContainer** containers[] = {&OLE1, &OLE2, &OLE3};
    for (int i = 0; i < 3; ++i) {
        auto* ole = *containers[i] = new documents::OleContainer(this);
        place(ole, 3855, 1320, 9555, 6960);
        ignore([&] { ole->CreateEmbed(folder + QString::fromUtf8(pages[i])); });
    }

    forms::wire(Toolbar2, &forms::Toolbar::ButtonClick, this,
                [this](const QString& key) { Toolbar2_ButtonClick(key); });
    forms::wire(OLE1, &documents::OleContainer::Click, this, [this] { OLE1_Click(); });
    forms::wire(OLE2, &documents::OleContainer::Click, this, [this] { OLE2_Click(); });
    forms::wire(OLE3, &documents::OleContainer::Click, this, [this] { OLE3_Click(); });
    forms::wire(Tvw, &forms::TreeView::DblClick, this, [this] { Tvw_DblClick(); });
    forms::wire(Tvw, &forms::TreeView::KeyDown, this, [this](int key, int shift) { Tvw_KeyDown(key, shift); });
    forms::wire(Tvw, &forms::TreeView::MouseDown, this, [this] { Tvw_MouseDown(); });
    forms::wire(Tvw, &forms::TreeView::MouseMove, this, [this] { Tvw_MouseMove(); });
}

void central::Form_Load() {
    setWindowState(Qt::WindowMaximized);
    OLE1->hide();
    OLE2->hide();
    OLE3->hide();
    Label3->hide();
    Tvw->setImageList(&ImageList1);
    Tvw->Nodes.Clear();
    Tvw->Nodes.Add(QStringLiteral("One"), QStringLiteral("States"), 1);
    for (const auto& node : kNodes)
        Tvw->Nodes.Add(QStringLiteral("One"), forms::tvwChild, QString::fromUtf8(node[0]),
                       QString::fromUtf8(node[1]), 1, 2);
    Tvw->Nodes(1).setExpanded(true);
    loaded_ = true;
}

void central::Form_Resize() {}

void central::Form_MouseDown() { lower(); }

void central::Form_MouseMove() { lower(); }

void central::Toolbar2_ButtonClick(const QString& key) {
    if (key == QLatin1String("Act")) {
        OLE2->hide();
        OLE3->hide();
        OLE1->show();
        Label3->show();
    } else if (key == QLatin1String("rul")) {
        OLE1->hide();
        OLE2->hide();
        OLE3->show();
        Label3->show();
    } else if (key == QLatin1String("forms")) {
        OLE1->hide();
        OLE3->hide();
        OLE2->show();
        Label3->show();
    } else if (key == QLatin1String("bac")) {
        hide();
        forms::get(QStringLiteral("main"))->show();
    } else if (key == QLatin1String("print")) {
        // The document object to print from is a local reference that nothing sets.
        throw forms::objectNotSet();
    } else if (key == QLatin1String("back")) {
        Unload();
        forms::get(QStringLiteral("frmkerala"))->show();
    } else if (key == QLatin1String("dele")) {
        showUnset(nullptr);
    }
}

// A click opens the page in full, where its links work; the Act's page is read afresh first.
void central::OLE1_Click() {
    OLE1->Refresh();
    OLE1->DoVerb(2);
}

void central::OLE2_Click() { OLE2->DoVerb(2); }

void central::OLE3_Click() { OLE3->DoVerb(2); }

void central::Tvw_DblClick() {
    const QString key = Tvw->SelectedItem().Key();
    for (const char* unset : kUnsetWindowKeys)
        if (key == QLatin1String(unset)) showUnset(nullptr);
}

void central::Tvw_KeyDown(int KeyCode, int) {
    if (KeyCode == forms::vbKeyReturn) Tvw_DblClick();
}

void central::Tvw_MouseDown() { lower(); }

void central::Tvw_MouseMove() {
    unsetCursor();
    lower();
}

void central::img1_MouseMove() { setCursor(Qt::SizeHorCursor); }

void central::Unload() {
    hide();
    loaded_ = false;
}

void central::showEvent(QShowEvent* event) {
    if (!loaded_) forms::guard([this] { Form_Load(); });
    QWidget::showEvent(event);
}

void central::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    // The toolbar is aligned to the window's top edge; nothing else moves.
    Toolbar2->setGeometry(0, 0, width(), forms::twips(kToolbarHeight));
    ignore([this] { Form_Resize(); });
}

void central::mousePressEvent(QMouseEvent* event) {
    QWidget::mousePressEvent(event);
    forms::guard([this] { Form_MouseDown(); });
}

void central::mouseMoveEvent(QMouseEvent* event) {
    QWidget::mouseMoveEvent(event);
    forms::guard([this] { Form_MouseMove(); });
}

bool central::eventFilter(QObject* watched, QEvent* event) {
    if (watched == img1 && event->type() == QEvent::MouseMove) forms::guard([this] { img1_MouseMove(); });
    return QWidget::eventFilter(watched, event);
}

}  // namespace library
