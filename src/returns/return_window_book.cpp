// The return window and the book it works on: its title, the book's line under the dealer's name,
// the place the return is signed at, and the box after a load that another program's lock passed over.
#include "platform/basic/app_path.h"
#include "platform/forms/msgbox.h"
#include "returns/frm_normal.h"
#include "returns/module2.h"
#include "returns/return_books.h"

#include <QDir>
#include <utility>

namespace returns {

namespace {
const QString kCaption = QStringLiteral("             Form No. 52");
}

void frmNormal::showBook() {
    ShowDealer();
    if (BookIsOpen()) txtPlace->setText(ForStatements(CurrentBook().place));
}

void frmNormal::ShowDealer() {
    // The name the month's rows carry in cAddress: what Add writes and the registers head with.
    lblCustomerName->setText(DealerName);
    if (!BookIsOpen()) {
        setWindowTitle(kCaption);
        lblBook->clear();
        return;
    }
    const ReturnBook& book = CurrentBook();
    const QString tinAndYear = book.tin.isEmpty() ? book.yearText() : QStringLiteral("TIN %1, %2").arg(book.tin, book.yearText());
    setWindowTitle(kCaption + QStringLiteral("  -  ") + book.dealerName.left(120) + QStringLiteral(", ") + tinAndYear);
    lblBook->setText(tinAndYear);
}

// The reads of a load go on past every error, so a month that another program kept locked shows as
// empty: the user hears whose book it is and that nothing of it was read.
void frmNormal::sayLockMet() {
    if (!std::exchange(lockMet_, false)) return;
    const QString who = BookIsOpen() ? OpenElsewhereText(CurrentBook())
                                     : QStringLiteral("Another program is using the return file ") +
                                           QDir::toNativeSeparators(basic::CurDir() + QStringLiteral("/nwForm10DB.mdb"));
    forms::MsgBox(who + QStringLiteral(".\n\nThe month could not be read, so the window does not show it. Close the window "
                                       "and open it again when the other program is done; press Add only then."),
                  forms::vbExclamation, QStringLiteral("Vorlan"));
}

}  // namespace returns
