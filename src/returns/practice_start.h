#pragma once
// The practice at the start of the program: the register of the user's data folder is opened (made at
// the first start), what a stopped program left half done is finished or cleared, and at the first
// start of this version the return files of the version before become the book "Dealer not named".
#include "returns/dealer_register.h"

#include <QString>
#include <QStringList>

namespace returns {

// PracticeStarts on the user's data folder, the return files of the version before looked for there
// and beside the program. When the register cannot be made a box says why and the answer is false.
bool PracticeReady();

// The steps of PracticeReady on a register, with the folders to look in for old return files.
void PracticeStarts(DealerRegister& reg, const QStringList& oldFolders);

// The first folder of `folders` that holds a nwForm10DB.mdb becomes the book "Dealer not named" of the
// financial year of the last bill date it holds (of today when it holds none): its three files are
// copied, whole, and the originals are left where they are. Done once; the register remembers it, and
// the book becomes the last one used. Nothing when the book of that year is there already.
void TakeInOldFiles(DealerRegister& reg, const QStringList& folders);

// The financial year of the last bill date of a return file; of today when it holds none.
int LastFinancialYear(const QString& returnFile);

// Removes what a stopped copy left in the folder and beneath it: files "<name>.new" and their
// journals, and folders ".<name>.new" of books being made.
void ClearLeftovers(const QString& folder);

// A copy into `folder` that a stop could leave unfinished is written down before it begins and
// crossed out when it ends; the next start clears the leftovers of one that never ended.
void CopyBegins(DealerRegister& reg, const QString& folder);
void CopyEnds(DealerRegister& reg);

}  // namespace returns
