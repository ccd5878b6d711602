#pragma once
// A whole practice copied for the backup window: every book and the register into a backup folder laid
// out as the user's data folder, and back, all of it or one dealer's. The three return files that lie
// loose in a backup folder (the open book's, as the backup window has always copied them) are put
// back into the book they were taken from.
#include "returns/dealer_register.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

namespace returns {

// Called after each book with the books done and all there are; false stops before the next.
using PracticeProgress = std::function<bool(int done, int total)>;

// What a backup folder holds.
struct BackupContents {
    bool practice = false;                 // a register and its books, made by this version
    std::vector<Dealer> dealers;
    std::vector<BookKey> books;
    bool looseFromBook = false;            // the loose files were taken from a book...
    BookKey looseBook;                     // ...this one; else from the user's folder
};
BackupContents ReadBackup(const QString& backupFolder);

// True when this program keeps a practice: a register in the user's data folder.
bool HasPractice();

// Before anything is copied into the backup folder: what a stopped backup left there is cleared, the
// copy is written down as under way (a stop before BackUpPractice ends it is cleared up at the next
// start), and the book the loose files are taken from (the open one) is written down, so that the
// register copied after them tells a restore where they belong.
void BackupBegins(const QString& backupFolder);

// Every book of the register, whole, and the register into the backup folder. Returns a line for each
// book that could not be copied; the rest is copied.
QStringList BackUpPractice(const QString& backupFolder, const PracticeProgress& progress = {});

// The books of the backup, of every dealer or of the one with `onlyTin`, into the user's data folder,
// and their dealers into the register (a dealer there already takes the backup's details). A book
// open in another Vorlan is not restored. Returns a line for each book not restored.
QStringList RestorePractice(const QString& backupFolder, const QString& onlyTin = QString(),
                            const PracticeProgress& progress = {});

// Where the loose files of the backup go back to: the program's current folder while this program
// keeps no practice; else the book they came from (made when missing), or the user's folder when they
// came from no book. A backup of the version before holds loose files only: they belong to the book
// "Dealer not named" of the year of their last date. nullopt when onlyTin leaves their book out.
std::optional<QString> LooseFilesTarget(const QString& backupFolder, const QString& onlyTin = QString());

}  // namespace returns
