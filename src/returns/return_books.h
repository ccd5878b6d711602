#pragma once
// The books of a practice on the disk: <user's data folder>/returns/<TIN>/<2025-26>/, each with its
// nwForm10DB.mdb, Form10Data.mdb and TAXDATA.mdb; the book "Dealer not named" under "unnamed". Opening
// a book takes it for this program, points the return files at its folder and names its dealer in
// every row the return window writes.
#include "returns/dealer_register.h"
#include "returns/return_book.h"

#include <QString>

namespace returns {

inline const QString kDealerNotNamed = QStringLiteral("Dealer not named");

QString BooksFolder();                                     // <user's data folder>/returns
QString BookFolder(const BookKey& key);
// Where the books of removed dealers go: they are moved there, never deleted.
QString RemovedFolder();

ReturnBook BookOf(const Dealer& dealer, int firstYear);    // "Dealer not named" for the empty TIN
ReturnBook BookOf(const DealerRegister& reg, const BookKey& key);
BookKey KeyOf(const ReturnBook& book);

// "Malabar Agencies 2025-26": how a book is named to the user.
QString BookName(const ReturnBook& book);
// What a second program hears of a book the first one has open.
QString OpenElsewhereText(const ReturnBook& book);

// A text of the register as the return window's statements may carry it: they are built by
// concatenation, without escaping, so an apostrophe is written as ’. The register keeps the text as typed.
QString ForStatements(const QString& text);

// Makes the book's folder and its three files, whole or not at all, and lists it in the register. A
// folder a stopped attempt left complete is taken as it is. Raises with a message naming the book.
void MakeBook(DealerRegister& reg, const ReturnBook& book);

// Opens the book for this program: refused (with the message, which names the dealer and year) when
// another Vorlan has it open, when its folder cannot be read or a file of it is damaged; the book
// open before stays open then. On success the return files are the book's, DealerCode and DealerTIN
// are its TIN, DealerName its name, DealerCST its CST number, and the book is remembered as the
// last one used. An empty text means it opened.
QString OpenBook(const ReturnBook& book);
// True when another program has the book open.
bool OpenElsewhere(const ReturnBook& book);
// Lets the open book go; the return files are the user's folder's again.
void CloseBook();
bool BookIsOpen();

// The book last opened, from the settings; nullopt when there is none or it is no longer listed.
std::optional<BookKey> LastBook(const DealerRegister& reg);

// Gives the book "Dealer not named" of the year to the dealer: its rows take the dealer's TIN and
// name in one transaction, so its months read back under the dealer, and it becomes the dealer's
// book of that year. Refused when the dealer has a book of that year already.
void NameBook(DealerRegister& reg, int firstYear, const Dealer& dealer);
// Finishes a naming that a stopped program left half done; nothing when there is none.
void FinishNamings(DealerRegister& reg);

// Removes the dealer from the register and moves their books to RemovedFolder(). Returns the folder
// they went to, empty when the dealer had none.
QString RemoveDealer(DealerRegister& reg, const QString& tin);

// The register of the user's data folder, opened on first use; reset() for tests that change folders.
DealerRegister& Register();
void ResetRegister();
bool RegisterIsOpen();

}  // namespace returns
