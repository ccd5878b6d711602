#include "returns/store_work.h"

#include "platform/store/errors.h"
#include "returns/frm_normal.h"
#include "returns/return_books.h"

#include <QDir>

namespace returns {

StoreFault faultOf(const basic::RuntimeError& error) {
    if (error.source() == kBillDateSource) return StoreFault::BillDate;
    if (store::isDiskFull(error)) return StoreFault::DiskFull;
    if (store::isLocked(error)) return StoreFault::Locked;
    if (store::isReadOnly(error)) return StoreFault::ReadOnly;
    if (store::isDamaged(error)) return StoreFault::Damaged;
    return StoreFault::Refused;
}

QString failureText(const StoreWords& words, const basic::RuntimeError& error, const QString& step, const QString& file) {
    const QString nothing = QStringLiteral("Nothing was ") + words.done + QStringLiteral(": ");
    const QString at = step.isEmpty() ? QString() : QStringLiteral(", while ") + step;
    const QString kept = QStringLiteral(".\nThe bills are still on the screen; ");
    const QString again = QStringLiteral(" and press ") + words.button + QStringLiteral(" again.");
    const QString where = QDir::toNativeSeparators(file);
    switch (faultOf(error)) {
    case StoreFault::BillDate:
        return nothing + error.description() + kept + QStringLiteral("correct the date") + again;
    case StoreFault::DiskFull:
        return nothing + QStringLiteral("the disk is full") + at + kept + QStringLiteral("free some space on the disk") + again;
    case StoreFault::Locked:
        if (BookIsOpen())
            return nothing + OpenElsewhereText(CurrentBook()) + at + kept +
                   QStringLiteral("close it there, or wait until its work is done,") + again;
        return nothing + QStringLiteral("another program is using the return file ") + where + at + kept +
               QStringLiteral("close the other program, or wait until it is done,") + again;
    case StoreFault::ReadOnly:
        return nothing + QStringLiteral("the return file ") + where + QStringLiteral(" may not be written (") +
               error.description() + QStringLiteral(")") + at + kept +
               QStringLiteral("ask for write access to the file and its folder") + again;
    case StoreFault::Damaged:
        return nothing + QStringLiteral("the return file ") + where + QStringLiteral(" is damaged (") + error.description() +
               QStringLiteral(")") + at + kept +
               QStringLiteral("close Vorlan, move the file out of its folder and start Vorlan again; then bring your "
                              "months back with BackUp / Restore.");
    case StoreFault::Refused:
        break;
    }
    return nothing + QStringLiteral("the store refused it (") + error.description() + QStringLiteral(")") + at + kept +
           QStringLiteral("correct them") + again;
}

}  // namespace returns
