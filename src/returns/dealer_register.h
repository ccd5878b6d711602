#pragma once
// DealerRegister: the dealers of a practice and their return books, kept in one small SQLite file of
// the user's data folder. A dealer is known by the TIN: one TIN, one dealer. A book is a dealer's
// financial year; the book "Dealer not named" has the empty TIN.
#include "platform/store/connection.h"

#include <QList>
#include <QString>
#include <optional>
#include <vector>

namespace returns {

struct Dealer {
    QString tin;       // 11 digits; Kerala's begin with 32
    QString name;
    QString cst;       // the CST registration number, free text
    QString address;
    QString place;     // where returns are signed: the return's Place starts with it
    QString phone;     // optional
    QString email;     // optional
    bool operator==(const Dealer&) const = default;
};

struct BookKey {
    QString tin;       // empty for "Dealer not named"
    int firstYear = 0;
    bool operator==(const BookKey&) const = default;
};

// What the register says to a dealer about to be added or changed: a refusal stops it, a warning is
// the user's to accept.
struct DealerCheck {
    QString refusal;
    QString warning;
};

// The source of the errors the register raises for a dealer it refuses; the text is for the user.
inline const QString kRegisterSource = QStringLiteral("Dealer register");

class DealerRegister {
public:
    static QString FileName();   // "dealers.db"

    // Opens the register of the folder, making it when missing (whole or not at all). Read only, the
    // register must be there, and nothing is written to it (a backup on a stick that may be read-only).
    explicit DealerRegister(const QString& folder, bool readOnly = false);

    QString folder() const { return folder_; }
    QString file() const;

    std::vector<Dealer> Dealers() const;                 // by name, without regard to case
    std::optional<Dealer> Find(const QString& tin) const;
    std::vector<BookKey> Books() const;                  // by TIN, then year
    QList<int> YearsOf(const QString& tin) const;        // first years, oldest first

    // The rules: a name; a TIN of 11 digits, another state's with a warning; no TIN twice. `editing`
    // is the TIN of the dealer being changed, empty for a new one.
    DealerCheck Check(const Dealer& dealer, const QString& editing = QString()) const;

    // Each raises the refusal of Check as a RuntimeError of kRegisterSource; nothing is stored then.
    void Add(const Dealer& dealer);
    // A dealer with books keeps the TIN: it is the key of every row of their books.
    void Update(const QString& tin, const Dealer& dealer);
    // The dealer as a register of a backup has them: added, or their details replaced.
    void Put(const Dealer& dealer);
    // The dealer and the list of their books; the books' folders are the caller's.
    void Remove(const QString& tin);

    void AddBook(const BookKey& book);

    // A book of "Dealer not named" being given to a dealer, recorded before the work begins so that a
    // start after a stop in the middle can finish it.
    std::vector<BookKey> Namings() const;                // the dealer's TIN and the year
    void BeginNaming(const BookKey& named);
    // The book's row moves from the empty TIN to the dealer's and the naming is done, in one transaction.
    void EndNaming(const BookKey& named);

    QString Setting(const QString& name) const;
    void SetSetting(const QString& name, const QString& value);

    store::Connection& connection() { return cn_; }

private:
    QString folder_;
    store::Connection cn_;
};

// The text of a TIN's refusal, which says what a TIN looks like.
QString TinRule();

}  // namespace returns
