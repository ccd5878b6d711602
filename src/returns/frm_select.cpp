#include "returns/frm_select.h"

#include "platform/basic/clock.h"
#include "platform/basic/variant.h"
#include "platform/forms/event_tap.h"
#include "platform/forms/layout.h"
#include "platform/forms/show_form.h"
#include "platform/forms/runtime_errors.h"
#include "platform/forms/twips.h"
#include "platform/forms/window_registry.h"
#include "returns/frm_normal.h"
#include "returns/module2.h"

#include <QApplication>
#include <QKeyEvent>
#include <functional>

namespace returns {

namespace {

void paint(QWidget* w, unsigned back, unsigned fore) {
    forms::setBackColour(w, back);
    forms::setForeColour(w, fore);
}

using forms::EventTap;

bool isEnter(const QEvent* e) {
    if (e->type() != QEvent::KeyPress) return false;
    const int k = static_cast<const QKeyEvent*>(e)->key();
    return k == Qt::Key_Return || k == Qt::Key_Enter;
}

}  // namespace

frmSelect::frmSelect(QWidget* parent) : QWidget(parent) {
    setWindowTitle(QStringLiteral("                                    SELECT YOUR OPTION"));
    Option1 = new QRadioButton(QStringLiteral(" &Form No. 52"), this);
    Option2 = new QRadioButton(QStringLiteral(" &E - Filing"), this);
    Option3 = new QRadioButton(QStringLiteral(" &Direct To Form"), this);
    cmdClose = new QPushButton(QStringLiteral("&Cancel"), this);
    int top = 480;
    for (QRadioButton* option : {Option1, Option2, Option3}) {
        forms::place(option, 1200, top, 4200, 495);
        option->setToolTip(QStringLiteral("Select and Press Enter Key"));
        paint(option, 9720116, 0x80FF80);
        top += 720;
        option->installEventFilter(new EventTap(this, [this, option](QEvent* e) {
            if (e->type() == QEvent::FocusIn) paint(option, 10907686, 0xFFFF00);
            else if (e->type() == QEvent::FocusOut) paint(option, 9720116, 0x80FF80);
            else if (e->type() == QEvent::MouseButtonDblClick) {
                if (option == Option1) Option1_DblClick();
                else if (option == Option2) Option2_DblClick();
                else Option3_DblClick();
                return true;
            } else if (isEnter(e)) {
                if (option == Option1) Option1_KeyPress(13);
                else if (option == Option2) Option2_KeyPress(13);
                else Option3_KeyPress(13);
                return true;
            }
            return false;
        }));
    }
    forms::place(cmdClose, 2640, 2760, 1335, 375);
    cmdClose->installEventFilter(new EventTap(this, [this](QEvent* e) {
        if (e->type() == QEvent::FocusIn) paint(cmdClose, 0xC0FFFF, 0x000000);
        else if (e->type() == QEvent::FocusOut) paint(cmdClose, 11313734, 0x000000);
        return false;
    }));
    forms::wire(cmdClose, &QPushButton::clicked, this, [this] { cmdClose_Click(); });
}

void frmSelect::Show() { forms::showForm(this, loaded_); }

void frmSelect::Form_Load() {
    move(forms::twips(4000), forms::twips(2500));
    resize(forms::twips(7000), forms::twips(4000));
}

void frmSelect::Form_Activate() { Option1->setFocus(); }

void frmSelect::choose(QRadioButton* option) {
    if (!option->isEnabled()) return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    if (option == Option1) {
        forms::get<frmNormal>(QStringLiteral("frmNormal"))->Show();
    } else if (option == Option2) {
        forms::get(QStringLiteral("frmEFiling"))->show();
    } else {
        ReturnDealerCode = DealerCode;
        DirectToForm = true;
        auto* target = forms::get<frmDirectToForm>(QStringLiteral("frmDirectToForm"));
        target->txtDealerName->setText(DealerName);
        target->txtTIN->setText(DealerTIN);
        target->txtCST->setText(DealerCST);
        target->txtYear->setText(basic::Format(basic::Variant(basic::Clock::today()), QStringLiteral("yyyy")));
        ReturnYearKey = target->txtYear->text();
        target->show();
    }
    QApplication::restoreOverrideCursor();
}

void frmSelect::Option1_DblClick() {
    if (!Option1->isEnabled()) return;
    choose(Option1);
    hide();
}

void frmSelect::Option1_KeyPress(int KeyAscii) {
    if (KeyAscii == 13) choose(Option1);
}

void frmSelect::Option2_DblClick() { choose(Option2); }

void frmSelect::Option2_KeyPress(int KeyAscii) {
    if (KeyAscii == 13) choose(Option2);
}

void frmSelect::Option3_DblClick() { choose(Option3); }

void frmSelect::Option3_KeyPress(int KeyAscii) {
    if (KeyAscii == 13) choose(Option3);
}

void frmSelect::cmdClose_Click() {
    hide();
    if (forms::exists(QStringLiteral("frmNormal"))) forms::get<frmNormal>(QStringLiteral("frmNormal"))->Unload();
    forms::get(QStringLiteral("main"))->show();
}

}  // namespace returns
