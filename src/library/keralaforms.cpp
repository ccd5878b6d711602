#include "library/keralaforms.h"
#include "library/log.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>
#include <cmath>

#include "library/document_view_tools.h"
#include "platform/documents/find_bar.h"
#include "platform/forms/errors.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/runtime_errors.h"
#include "platform/forms/layout.h"
#include "platform/forms/twips.h"
#include "platform/forms/window_registry.h"
#include "platform/forms/window_update.h"
#include "shell/my_mod.h"

namespace library {

namespace {


QLabel* makeHint(QWidget* parent) {
    auto* label = new QLabel(QStringLiteral("Double Click on the Displayed view to fully view the data."), parent);
    label->setFont(QFont(QStringLiteral("Arial")));
    label->adjustSize();
    return label;
}

QToolButton* makeBack(QWidget* parent) {
    auto* back = new QToolButton(parent);
    back->setText(QStringLiteral("Back"));
    back->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    back->setIcon(parent->style()->standardIcon(QStyle::SP_ArrowBack));
    back->resize(forms::twips(1095), forms::twips(270));
    return back;
}

}  // namespace

keralaforms::keralaforms()
    : MSRDC1(new documents::DataControl(this)),
      OLE1(new documents::OleContainer(this)),
      Label1(makeHint(this)),
      Picture4(makeBack(this)),
      cmdCancelNonVisible(new QPushButton(this)),
      Timer1(new forms::Timer(this)),
      Timer2(new forms::Timer(this)) {
    setWindowTitle(QStringLiteral("Display  Window"));
    MSRDC1->setObjectName(QStringLiteral("MSRDC1"));
    OLE1->setObjectName(QStringLiteral("OLE1"));
    OLE1->setDataSource(MSRDC1);
    forms::place(OLE1, 2498, 360, 10245, 10290);
    documents::FindBar::attach(OLE1);
    attachViewTools(this);
    forms::place(cmdCancelNonVisible, 0, 0, 15, 135);
    cmdCancelNonVisible->setFocusPolicy(Qt::NoFocus);
    resize(forms::twips(15240), forms::twips(8595));
    Timer1->setInterval(100);
    Timer1->setEnabled(true);
    Timer2->setInterval(100);
    Timer2->setEnabled(false);
    forms::wire(Timer1, &forms::Timer::Tick, this, [this] { Timer1_Timer(); });
    forms::wire(Timer2, &forms::Timer::Tick, this, [this] { Timer2_Timer(); });
    forms::wire(OLE1, &documents::OleContainer::Click, this, [this] { OLE1_Click(); });
    forms::wire(Picture4, &QToolButton::clicked, this, [this] { Picture4_Click(); });
    forms::wire(cmdCancelNonVisible, &QPushButton::clicked, this, [this] { cmdCancelNonVisible_Click(); });
    Form_Load();
}

void keralaforms::Form_Load() {
    OLE1->Refresh();
    // Never write the object back: the library is read-only to the user.
    OLE1->setDataChanged(false);
    ArrangeDocumentView();
}

void keralaforms::ArrangeDocumentView() {
    forms::LockWindowUpdate(this);
    forms::LockWindowUpdate(OLE1);
    forms::setTop(Label1, 15);
    const int oleWidth = forms::widthOf(OLE1);
    int left = int(std::lround((forms::widthOf(this) - oleWidth) / 2.0));
    if (left < 0) left = 0;
    forms::place(OLE1, left, 270, oleWidth, forms::heightOf(this) - 540);
    forms::place(Picture4, left + oleWidth - forms::widthOf(Picture4), 0, forms::widthOf(Picture4), forms::heightOf(Picture4));
    forms::LockWindowUpdate(nullptr);
}

void keralaforms::Timer1_Timer() {
    forms::setLeft(Label1, forms::leftOf(Label1) + 100);
    if (forms::toTwips(frameGeometry().width()) - forms::widthOf(Label1) <= forms::leftOf(Label1)) {
        Timer1->setEnabled(false);
        Timer2->setEnabled(true);
    }
}

void keralaforms::Timer2_Timer() {
    forms::LockWindowUpdate(OLE1);
    forms::setLeft(Label1, forms::leftOf(Label1) - 100);
    if (forms::leftOf(Label1) <= 0) {
        Timer1->setEnabled(true);
        Timer2->setEnabled(false);
    }
    forms::LockWindowUpdate(nullptr);
}

void keralaforms::OLE1_Click() {
    try {
        OLE1->Refresh();
        OLE1->setDataChanged(false);
        OLE1->DoVerb(documents::OleContainer::vbOLEOpen);
    } catch (const basic::RuntimeError& e) {
        if (shell::ShowErrorDetail())
            forms::MsgBox(QStringLiteral("Exception Display Data \n") + e.description(), forms::vbOKOnly,
                          QStringLiteral("IN_DEBUG"));
        else qCDebug(lcLibrary) << "OLE1_Click passed over error" << e.number() << e.description();
    }
}

void keralaforms::Picture4_Click() {
    setVisible(false);
    if (shell::currentStateNo == 14) forms::get(QStringLiteral("frmkerala"))->show();
}

void keralaforms::Form_QueryUnload(bool& cancel, int unloadMode) {
    if (unloadMode != 0) return;
    cancel = true;
    Picture4_Click();
}

void keralaforms::closeEvent(QCloseEvent* event) {
    bool cancel = false;
    forms::guard([&] { Form_QueryUnload(cancel, 0); });
    if (cancel) event->ignore();
    else event->accept();
}

void keralaforms::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    forms::guard([&] { Form_Resize(); });
}

void keralaforms::keyPressEvent(QKeyEvent* event) {
    // cmdCancelNonVisible is the window's Cancel button: Esc presses it.
    if (event->key() == Qt::Key_Escape) {
        cmdCancelNonVisible->click();
        return;
    }
    QWidget::keyPressEvent(event);
}

GlobalDisplay::GlobalDisplay()
    : MSRDC1(new documents::DataControl(this)),
      OLE1(new documents::OleContainer(this)),
      Label1(makeHint(this)),
      Picture4(makeBack(this)) {
    setWindowTitle(QStringLiteral("Global Display Window"));
    MSRDC1->setObjectName(QStringLiteral("MSRDC1"));
    OLE1->setObjectName(QStringLiteral("OLE1"));
    OLE1->setDataSource(MSRDC1);
    forms::place(OLE1, 2498, 360, 10245, 7800);
    resize(forms::twips(15240), forms::twips(8595));
    forms::wire(OLE1, &documents::OleContainer::Click, this, [this] { OLE1_Click(); });
    forms::wire(Picture4, &QToolButton::clicked, this, [this] { Picture4_Click(); });
    Form_Load();
}

void GlobalDisplay::Form_Load() {
    OLE1->Refresh();
    OLE1->setDataChanged(false);
}

void GlobalDisplay::OLE1_Click() {
    OLE1->DoVerb();
}

void GlobalDisplay::Picture4_Click() {
    OLE1->Refresh();
    if (!opener) throw forms::objectNotSet();
    opener->show();
}

void GlobalDisplay::Timer1_Timer() {
    forms::setLeft(Label1, forms::leftOf(Label1) + 100);
}

void GlobalDisplay::Timer2_Timer() {
    forms::LockWindowUpdate(OLE1);
    forms::setLeft(Label1, forms::leftOf(Label1) - 100);
    forms::LockWindowUpdate(nullptr);
}

}  // namespace library
