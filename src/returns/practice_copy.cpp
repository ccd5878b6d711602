#include "returns/practice_copy.h"

#include "platform/basic/app_path.h"
#include "platform/store/database_file.h"
#include "returns/practice_start.h"
#include "returns/return_books.h"

#include <QDir>
#include <QFileInfo>
#include <map>

namespace returns {

namespace {

const QString kLooseFiles = QStringLiteral("loose files");
const char* const kReturnFiles[] = {"nwForm10DB.mdb", "Form10Data.mdb", "TAXDATA.mdb"};

// A book's folder relative to the data folder: the same place under a backup folder.
QString relativeFolder(const BookKey& key) { return QDir(basic::UserPath()).relativeFilePath(BookFolder(key)); }

bool wanted(const QString& tin, const QString& onlyTin) { return onlyTin.isEmpty() || tin == onlyTin; }

// The copies of the books' files, one line per book that failed, naming it.
QStringList copyBooks(const std::vector<BookKey>& books, const std::vector<store::DatabaseCopy>& copies,
                      const std::vector<int>& bookOfCopy, const std::function<QString(const BookKey&)>& nameOf,
                      const PracticeProgress& progress) {
    const int total = int(books.size());
    const auto failures = store::CopyDatabaseFiles(copies, [&](int done) {
        // Progress goes by books: a book is done with its last file.
        const bool last = done == int(copies.size()) || bookOfCopy[size_t(done)] != bookOfCopy[size_t(done - 1)];
        return !progress || !last || progress(bookOfCopy[size_t(done - 1)] + 1, total);
    });
    QStringList lines;
    int lastBook = -1;
    for (const store::DatabaseCopyFailure& f : failures) {
        const int book = bookOfCopy[size_t(f.index)];
        if (book == lastBook) continue;
        lastBook = book;
        lines << nameOf(books[size_t(book)]) + QStringLiteral(": ") + QFileInfo(copies[size_t(f.index)].from).fileName() +
                     QStringLiteral(", ") + f.error.description();
    }
    return lines;
}

}  // namespace

bool HasPractice() {
    return RegisterIsOpen() || QFileInfo::exists(QDir(basic::UserPath()).filePath(DealerRegister::FileName()));
}

BackupContents ReadBackup(const QString& backupFolder) {
    BackupContents c;
    if (QFileInfo::exists(QDir(backupFolder).filePath(DealerRegister::FileName()))) {
        const DealerRegister saved(backupFolder, true);
        c.practice = true;
        c.dealers = saved.Dealers();
        c.books = saved.Books();
        const QString loose = saved.Setting(kLooseFiles);
        if (loose.contains(u'/')) {
            c.looseFromBook = true;
            c.looseBook = {loose.section(u'/', 0, 0), loose.section(u'/', 1).toInt()};
        }
    } else if (QFileInfo::exists(QDir(backupFolder).filePath(QStringLiteral("nwForm10DB.mdb")))) {
        // A backup of the version before: one dealer's months, whose dealer was never named.
        c.looseFromBook = true;
        c.looseBook = {QString(), LastFinancialYear(QDir(backupFolder).filePath(QStringLiteral("nwForm10DB.mdb")))};
    }
    return c;
}

void BackupBegins(const QString& backupFolder) {
    if (HasPractice()) CopyBegins(Register(), backupFolder);
    ClearLeftovers(backupFolder);
    if (!HasPractice()) return;
    const ReturnBook& book = CurrentBook();
    Register().SetSetting(kLooseFiles, BookIsOpen() ? book.tin + QLatin1Char('/') + QString::number(book.firstYear)
                                                    : QStringLiteral("none"));
}

QStringList BackUpPractice(const QString& backupFolder, const PracticeProgress& progress) {
    if (!HasPractice()) return {};
    DealerRegister& reg = Register();
    store::CopyDatabaseFile(reg.file(), QDir(backupFolder).filePath(DealerRegister::FileName()));
    const std::vector<BookKey> books = reg.Books();
    std::vector<store::DatabaseCopy> copies;
    std::vector<int> bookOfCopy;
    for (int b = 0; b < int(books.size()); ++b) {
        const QString from = BookFolder(books[size_t(b)]), to = QDir(backupFolder).filePath(relativeFolder(books[size_t(b)]));
        QDir().mkpath(to);
        for (const char* file : kReturnFiles) {
            copies.push_back({from + QLatin1Char('/') + QLatin1String(file), to + QLatin1Char('/') + QLatin1String(file)});
            bookOfCopy.push_back(b);
        }
    }
    const QStringList failed = copyBooks(books, copies, bookOfCopy, [&](const BookKey& k) { return BookName(BookOf(reg, k)); },
                                         progress);
    CopyEnds(reg);
    return failed;
}

QStringList RestorePractice(const QString& backupFolder, const QString& onlyTin, const PracticeProgress& progress) {
    const BackupContents saved = ReadBackup(backupFolder);
    if (!saved.practice) return {};
    DealerRegister& reg = Register();
    std::map<QString, Dealer> dealers;
    for (const Dealer& d : saved.dealers) dealers[d.tin] = d;
    const auto nameOf = [&](const BookKey& k) { return BookName(BookOf(dealers.count(k.tin) ? dealers[k.tin] : Dealer{k.tin, k.tin, {}, {}, {}, {}, {}}, k.firstYear)); };

    CopyBegins(reg, BooksFolder());
    for (const Dealer& d : saved.dealers)
        if (wanted(d.tin, onlyTin)) reg.Put(d);
    QStringList failed;
    std::vector<BookKey> books;
    std::vector<store::DatabaseCopy> copies;
    std::vector<int> bookOfCopy;
    for (const BookKey& key : saved.books) {
        if (!wanted(key.tin, onlyTin)) continue;
        const ReturnBook book = BookOf(dealers.count(key.tin) ? dealers[key.tin] : Dealer{}, key.firstYear);
        if (OpenElsewhere(book)) {
            failed << OpenElsewhereText(book) + QStringLiteral("; it was not restored");
            continue;
        }
        QDir().mkpath(book.folder);
        const QString from = QDir(backupFolder).filePath(relativeFolder(key));
        for (const char* file : kReturnFiles) {
            copies.push_back({from + QLatin1Char('/') + QLatin1String(file), book.folder + QLatin1Char('/') + QLatin1String(file)});
            bookOfCopy.push_back(int(books.size()));
        }
        books.push_back(key);
        reg.AddBook(key);
    }
    failed += copyBooks(books, copies, bookOfCopy, nameOf, progress);
    CopyEnds(reg);
    return failed;
}

std::optional<QString> LooseFilesTarget(const QString& backupFolder, const QString& onlyTin) {
    if (!HasPractice()) return basic::CurDir();
    const BackupContents saved = ReadBackup(backupFolder);
    if (!saved.looseFromBook) {
        if (!onlyTin.isEmpty()) return std::nullopt;
        return basic::UserPath();
    }
    if (!wanted(saved.looseBook.tin, onlyTin)) return std::nullopt;
    DealerRegister& reg = Register();
    ReturnBook book = BookOf(reg, saved.looseBook);
    if (OpenElsewhere(book)) throw basic::RuntimeError(5, OpenElsewhereText(book) + QLatin1Char('.'));
    if (!QFileInfo(book.folder).isDir() || !reg.YearsOf(saved.looseBook.tin).contains(saved.looseBook.firstYear))
        MakeBook(reg, book);
    return book.folder;
}

}  // namespace returns
