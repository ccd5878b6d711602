#include "returns/frm_select.h"

#include "platform/basic/clock.h"
#include "platform/basic/variant.h"
#include "platform/forms/event_tap.h"
#include "platform/forms/layout.h"
#include "platform/forms/show_form.h"
#include "platform/forms/runtime_errors.h"
#include "platform/forms/twips.h"
#include "platform/forms/window_registry.h"
#include "returns/book_chooser.h"
#include "returns/frm_normal.h"
#include "returns/log.h"
#include "returns/module2.h"
#include "returns/practice_copy.h"
#include "returns/return_books.h"

#include <QApplication>
#include <QKeyEvent>
#include <functional>
#include <utility>

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

    lblBook = new QLabel(this);
    forms::place(lblBook, 240, 60, 6520, 375);
    lblBook->setTextFormat(Qt::PlainText);
    cmdBook = new QPushButton(QStringLiteral("Dealer and &year"), this);
    forms::place(cmdBook, 4200, 2760, 2055, 375);
    cmdBook->setToolTip(QStringLiteral("Choose the dealer and the year of the return"));
    forms::wire(cmdBook, &QPushButton::clicked, this, [this] { cmdBook_Click(); });
}

void frmSelect::Show() { forms::showForm(this, loaded_); }

void frmSelect::Form_Load() {
    move(forms::twips(4000), forms::twips(2500));
    resize(forms::twips(7000), forms::twips(4000));
    // The last book used opens by itself.
    if (HasPractice() && !BookIsOpen()) {
        bookTrouble_.clear();
        ignore([&] {
            if (const std::optional<BookKey> last = LastBook(Register())) bookTrouble_ = OpenBook(BookOf(Register(), *last));
        });
    }
}

void frmSelect::Form_Activate() {
    ShowBook();
    Option1->setFocus();
}

void frmSelect::choose(QRadioButton* option) {
    if (!option->isEnabled()) return;
    // Where books are kept, every option works on one: without it, the register comes first, and the
    // option follows on the book chosen there. The program folder's own return files are no dealer's.
    if (HasPractice() && !BookIsOpen()) {
        cmdBook_Click();
        thenOption_ = option;
        return;
    }
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

void frmSelect::cmdBook_Click() {
    auto* chooser = forms::get<BookChooser>(QStringLiteral("BookChooser"));
    if (!chooser->property("wired").toBool()) {
        chooser->setProperty("wired", true);
        connect(chooser, &BookChooser::registerChanged, this, [this] {
            ShowBook();
            // A dealer named or edited: the return window open on the book shows and writes the new name.
            if (forms::exists(QStringLiteral("frmNormal")) && forms::get(QStringLiteral("frmNormal"))->isVisible())
                forms::get<frmNormal>(QStringLiteral("frmNormal"))->ShowDealer();
            if (forms::exists(QStringLiteral("frmDirectToForm")) && forms::get(QStringLiteral("frmDirectToForm"))->isVisible()) {
                auto* form = forms::get<frmDirectToForm>(QStringLiteral("frmDirectToForm"));
                form->txtDealerName->setText(DealerName);
                form->txtTIN->setText(DealerTIN);
                form->txtCST->setText(DealerCST);
                form->TakeTheBookAgain();
            }
        });
        connect(chooser, &BookChooser::bookOpened, this, [this] {
            bookTrouble_.clear();
            ShowBook();
            // The return window shows the book just opened: open, it is loaded again; asked for, it opens now.
            auto* normal = forms::get<frmNormal>(QStringLiteral("frmNormal"));
            QRadioButton* then = std::exchange(thenOption_, nullptr);
            if (normal->isVisible() || then == Option1) {
                normal->Unload();
                normal->Show();
            }
            if (then && then != Option1) {
                choose(then);
            } else if (!then && !normal->isVisible()) {
                activateWindow();
                Option1->setFocus();
            }
        });
    }
    thenOption_ = nullptr;
    chooser->show();
    chooser->raise();
    chooser->activateWindow();
}

void frmSelect::ShowBook() {
    const bool practice = HasPractice();
    lblBook->setVisible(practice);
    cmdBook->setVisible(practice);
    if (!practice) return;
    if (BookIsOpen()) {
        const ReturnBook& book = CurrentBook();
        lblBook->setText(book.tin.isEmpty() ? QStringLiteral("For: %1, %2").arg(book.dealerName, book.yearText())
                                            : QStringLiteral("For: %1, TIN %2, %3").arg(book.dealerName.left(120), book.tin, book.yearText()));
    } else {
        lblBook->setText(bookTrouble_.isEmpty() ? QStringLiteral("No dealer and year chosen yet: press Dealer and year.")
                                                : bookTrouble_);
    }
    lblBook->setToolTip(lblBook->text());
}

}  // namespace returns
