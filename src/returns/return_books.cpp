#include "returns/return_books.h"

#include "platform/basic/app_path.h"
#include "platform/basic/clock.h"
#include "platform/basic/runtime_error.h"
#include "platform/store/connection.h"
#include "platform/store/errors.h"
#include "platform/store/recordset.h"
#include "platform/store/transaction.h"
#include "platform/basic/settings.h"
#include "returns/log.h"
#include "returns/module2.h"
#include "returns/return_schema.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLockFile>
#include <memory>

namespace returns {

namespace {

struct OpenState {
    ReturnBook book;
    std::unique_ptr<QLockFile> lock;
};

OpenState& open() {
    static OpenState state;
    return state;
}

std::unique_ptr<DealerRegister>& registerSlot() {
    static std::unique_ptr<DealerRegister> reg;
    return reg;
}

// The lock file of a book: held by the program that has the book open, for as long as it has it.
QString lockFile(const QString& folder) { return QDir(folder).filePath(QStringLiteral("open.lock")); }



QString why(const basic::RuntimeError& e) {
    if (store::isDiskFull(e)) return QStringLiteral("the disk is full");
    if (store::isDamaged(e)) return QStringLiteral("a file of it is damaged (%1)").arg(e.description());
    return e.description();
}

// Every row of the book's return file that has no dealer takes the dealer, in one transaction. The
// row of tblMPage2 that the main window keeps its flag in has an empty key throughout and stays so.
void rowsTakeDealer(const QString& folder, const Dealer& dealer) {
    store::Connection cn;
    cn.Open(QStringLiteral("Driver={Microsoft Access Driver (*.mdb)};Dbq=") + folder + QStringLiteral("\\nwForm10DB.mdb"));
    const auto text = [](const QString& t) { return QLatin1Char('\'') + QString(t).replace(QStringLiteral("'"), QStringLiteral("''")) + QLatin1Char('\''); };
    store::inTransaction(cn, [&] {
        for (const ReturnTable& table : ReturnSchema()) {
            bool address = false, page = false;
            for (const ReturnColumn& c : table.columns) {
                address = address || c.name == QLatin1String("cAddress");
                page = page || c.name == QLatin1String("cYear");
            }
            cn.Execute(QStringLiteral("UPDATE ") + table.name + QStringLiteral(" SET cCode = ") + text(dealer.tin) +
                       (address ? QStringLiteral(", cAddress = ") + text(ForStatements(dealer.name)) : QString()) +
                       QStringLiteral(" WHERE (cCode = '' OR cCode IS NULL)") +
                       (page ? QStringLiteral(" AND cYear <> ''") : QString()));
        }
        // Tables the return side keeps beside the schema's (the form's typed boxes) are keyed by the
        // dealer too: left on the empty key, they would no longer be found under the named dealer.
        QStringList schema;
        for (const ReturnTable& table : ReturnSchema()) schema << table.name;
        for (const QString& name : cn.TableNames()) {
            if (schema.contains(name, Qt::CaseInsensitive)) continue;
            store::Recordset rs;
            rs.Open(QStringLiteral("SELECT * FROM ") + name + QStringLiteral(" WHERE 1 = 0"), cn);
            bool keyed = false;
            for (int f = 0; f < rs.FieldCount(); ++f) keyed = keyed || rs.Fields(f).Name().compare(QLatin1String("cCode"), Qt::CaseInsensitive) == 0;
            rs.Close();
            if (keyed)
                cn.Execute(QStringLiteral("UPDATE ") + name + QStringLiteral(" SET cCode = ") + text(dealer.tin) +
                           QStringLiteral(" WHERE (cCode = '' OR cCode IS NULL)"));
        }
    });
    cn.Close();
}

void finishNaming(DealerRegister& reg, const BookKey& named) {
    const QString from = BookFolder({QString(), named.firstYear}), to = BookFolder(named);
    const std::optional<Dealer> dealer = reg.Find(named.tin);
    if (!dealer) throw basic::RuntimeError(5, QStringLiteral("The dealer with the TIN %1 is not in the register.").arg(named.tin));
    if (QFileInfo(from).isDir()) {
        if (QFileInfo::exists(to))
            throw basic::RuntimeError(58, QStringLiteral("%1 has a book of %2 already.").arg(dealer->name, YearText(named.firstYear)));
        rowsTakeDealer(from, *dealer);
        QDir().mkpath(QFileInfo(to).path());
        if (!QDir().rename(from, to))
            throw basic::RuntimeError(70, QStringLiteral("The folder %1 could not be moved to %2.").arg(from, to));
    } else if (QFileInfo(to).isDir()) {
        rowsTakeDealer(to, *dealer);   // moved before a stop: its rows may still wait for the dealer
    }
    reg.EndNaming(named);
}

}  // namespace

QString ForStatements(const QString& text) { return QString(text).replace(u'\'', u'\u2019'); }

QString BooksFolder() { return QDir(basic::UserPath()).filePath(QStringLiteral("returns")); }

QString BookFolder(const BookKey& key) {
    return BooksFolder() + QLatin1Char('/') + (key.tin.isEmpty() ? QStringLiteral("unnamed") : key.tin) +
           QLatin1Char('/') + YearText(key.firstYear);
}

QString RemovedFolder() { return BooksFolder() + QStringLiteral("/removed"); }

ReturnBook BookOf(const Dealer& dealer, int firstYear) {
    ReturnBook b;
    b.tin = dealer.tin;
    b.dealerName = dealer.tin.isEmpty() ? kDealerNotNamed : dealer.name;
    b.cst = dealer.cst;
    b.address = dealer.address;
    b.place = dealer.place;
    b.firstYear = firstYear;
    b.folder = BookFolder({dealer.tin, firstYear});
    return b;
}

ReturnBook BookOf(const DealerRegister& reg, const BookKey& key) {
    if (key.tin.isEmpty()) return BookOf(Dealer{}, key.firstYear);
    const std::optional<Dealer> d = reg.Find(key.tin);
    return BookOf(d ? *d : Dealer{key.tin, key.tin, {}, {}, {}, {}, {}}, key.firstYear);
}

BookKey KeyOf(const ReturnBook& book) { return {book.tin, book.firstYear}; }

QString BookName(const ReturnBook& book) { return book.dealerName + QLatin1Char(' ') + book.yearText(); }

QString OpenElsewhereText(const ReturnBook& book) {
    return BookName(book) + QStringLiteral(" is open in another Vorlan window");
}

void MakeBook(DealerRegister& reg, const ReturnBook& book) {
    const QString made = QStringLiteral("The book %1 could not be made: ").arg(BookName(book));
    if (!QFileInfo(book.folder).isDir()) {
        // Made beside its place and renamed into it when whole: a stop or a full disk leaves no book
        // that is half there, only the temporary folder, which the next attempt removes.
        const QString parent = QFileInfo(book.folder).path();
        const QString temporary = parent + QStringLiteral("/.") + book.yearText() + QStringLiteral(".new");
        const basic::RuntimeError e = basic::resume([&] {
            QDir(temporary).removeRecursively();
            if (!QDir().mkpath(temporary))
                throw basic::RuntimeError(70, QStringLiteral("Vorlan may not write in %1").arg(QDir::toNativeSeparators(parent)));
            CreateReturnStores(temporary);
            if (!QDir().rename(temporary, book.folder))
                throw basic::RuntimeError(70, QStringLiteral("its folder could not be put in place"));
        });
        if (e.number() != 0) {
            QDir(temporary).removeRecursively();
            QDir().rmdir(parent);   // only when empty: the dealer's other books stay
            throw basic::RuntimeError(e.number(), made + why(e) + QStringLiteral(". Nothing of it was kept."));
        }
    } else {
        const basic::RuntimeError e = basic::resume([&] { CreateReturnStores(book.folder); });
        if (e.number() != 0) throw basic::RuntimeError(e.number(), made + why(e) + QLatin1Char('.'));
    }
    reg.AddBook(KeyOf(book));
}

QString OpenBook(const ReturnBook& book) {
    OpenState& state = open();
    if (state.lock && state.book.folder == book.folder) {
        state.book = book;   // the dealer's details may have changed
    } else {
        const QString cannot = QStringLiteral("%1 cannot be opened: ").arg(BookName(book));
        if (!QFileInfo(book.folder).isDir() || !QFileInfo(book.folder).isReadable())
            return cannot + QStringLiteral("its folder %1 cannot be read.").arg(QDir::toNativeSeparators(book.folder));
        auto lock = std::make_unique<QLockFile>(lockFile(book.folder));
        lock->setStaleLockTime(0);   // held for as long as the book is open; a dead holder is found by its process
        if (!lock->tryLock(0)) {
            if (lock->error() == QLockFile::LockFailedError) return OpenElsewhereText(book) + QLatin1Char('.');
            return cannot + QStringLiteral("Vorlan may not write in its folder %1.").arg(QDir::toNativeSeparators(book.folder));
        }
        const basic::RuntimeError e = basic::resume([&] { CreateReturnStores(book.folder); });
        if (e.number() != 0) {
            if (store::isLocked(e)) return OpenElsewhereText(book) + QLatin1Char('.');
            return cannot + why(e) + QLatin1Char('.');
        }
        ReleaseReturnStores();
        state.lock = std::move(lock);
        state.book = book;
    }
    basic::ChDir(book.folder);
    DealerCode = book.tin;
    DealerTIN = book.tin;
    DealerName = ForStatements(book.dealerName);
    DealerCST = book.cst;
    basic::Settings().setValue(QStringLiteral("returns/lastBook"), book.tin + QLatin1Char('/') + QString::number(book.firstYear));
    return QString();
}

bool OpenElsewhere(const ReturnBook& book) {
    if (BookIsOpen() && CurrentBook().folder == book.folder) return false;
    QLockFile probe(lockFile(book.folder));
    probe.setStaleLockTime(0);
    return !probe.tryLock(0) && probe.error() == QLockFile::LockFailedError;
}

void CloseBook() {
    OpenState& state = open();
    if (!state.lock) return;
    ReleaseReturnStores();
    state.lock.reset();
    state.book = ReturnBook();
    basic::ChDir(QString());
    DealerCode.clear();
    DealerTIN.clear();
    DealerName.clear();
    DealerCST.clear();
}

bool BookIsOpen() { return bool(open().lock); }

const ReturnBook& CurrentBook() {
    if (open().lock) return open().book;
    // No book is open: the return files of the program's current folder, in the year of today.
    static ReturnBook none;
    none = ReturnBook();
    const QDate today = basic::Clock::today();
    none.firstYear = FinancialYearOf(today.year(), today.month());
    none.folder = basic::CurDir();
    return none;
}

std::optional<BookKey> LastBook(const DealerRegister& reg) {
    const QString last = basic::Settings().value(QStringLiteral("returns/lastBook")).toString();
    if (!last.contains(u'/')) return std::nullopt;
    const BookKey key{last.section(u'/', 0, 0), last.section(u'/', 1).toInt()};
    if (!reg.YearsOf(key.tin).contains(key.firstYear)) return std::nullopt;
    return key;
}

void NameBook(DealerRegister& reg, int firstYear, const Dealer& dealer) {
    const BookKey named{dealer.tin, firstYear};
    if (reg.YearsOf(dealer.tin).contains(firstYear))
        throw basic::RuntimeError(58, QStringLiteral("%1 has a book of %2 already; a book of \"%3\" cannot become it.")
                                          .arg(dealer.name, YearText(firstYear), kDealerNotNamed));
    const ReturnBook unnamed = BookOf(Dealer{}, firstYear);
    const bool wasOpen = BookIsOpen() && CurrentBook().folder == unnamed.folder;
    if (OpenElsewhere(unnamed)) throw basic::RuntimeError(5, OpenElsewhereText(unnamed) + QLatin1Char('.'));
    if (wasOpen) CloseBook();
    reg.BeginNaming(named);
    finishNaming(reg, named);
    if (wasOpen) {
        const QString failed = OpenBook(BookOf(dealer, firstYear));
        if (!failed.isEmpty()) qCWarning(lcReturns) << failed;
    }
}

void FinishNamings(DealerRegister& reg) {
    for (const BookKey& named : reg.Namings())
        ignore([&] { finishNaming(reg, named); });
}

QString RemoveDealer(DealerRegister& reg, const QString& tin) {
    const QString folder = BooksFolder() + QLatin1Char('/') + tin;
    for (int year : reg.YearsOf(tin)) {
        const ReturnBook book = BookOf(reg, {tin, year});
        if (BookIsOpen() && CurrentBook().folder == book.folder) {
            CloseBook();
            continue;
        }
        if (OpenElsewhere(book))
            throw basic::RuntimeError(5, OpenElsewhereText(book) + QStringLiteral(". Nothing was removed."));
    }
    reg.Remove(tin);
    if (!QFileInfo(folder).isDir()) return QString();
    QDir().mkpath(RemovedFolder());
    const QString target = RemovedFolder() + QLatin1Char('/') + tin + QStringLiteral(" removed ") +
                           QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd hh-mm-ss"));
    if (!QDir().rename(folder, target))
        throw basic::RuntimeError(70, QStringLiteral("The dealer was removed, but their books could not be moved to %1; "
                                                     "they stay in %2.")
                                          .arg(QDir::toNativeSeparators(RemovedFolder()), QDir::toNativeSeparators(folder)));
    return target;
}

DealerRegister& Register() {
    if (!registerSlot()) registerSlot() = std::make_unique<DealerRegister>(basic::UserPath());
    return *registerSlot();
}

void ResetRegister() {
    CloseBook();
    registerSlot().reset();
}

bool RegisterIsOpen() { return bool(registerSlot()); }

}  // namespace returns
