#include "returns/practice_start.h"

#include "platform/basic/app_path.h"
#include "platform/basic/clock.h"
#include "platform/basic/variant.h"
#include "platform/forms/msgbox.h"
#include "platform/store/database_file.h"
#include "platform/store/errors.h"
#include "platform/store/recordset.h"
#include "platform/basic/settings.h"
#include "returns/log.h"
#include "returns/return_books.h"
#include "returns/return_schema.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <cstdio>

namespace returns {

namespace {

const QString kTakenIn = QStringLiteral("old files taken in");
const QString kCopyUnderWay = QStringLiteral("copy under way");
const char* const kReturnFiles[] = {"nwForm10DB.mdb", "Form10Data.mdb", "TAXDATA.mdb"};

void startBox(const QString& text) {
    std::fprintf(stderr, "%s\n", qPrintable(text));
    forms::MsgBox(text, forms::vbExclamation, QStringLiteral("Vorlan"));
}

}  // namespace

int LastFinancialYear(const QString& returnFile) {
    QDate last;
    store::Connection cn;
    cn.setMode(store::Connection::adModeRead);
    cn.Open(QStringLiteral("Driver={Microsoft Access Driver (*.mdb)};Dbq=") + returnFile);
    for (const char* table : {"tblPurchase1", "tblPurchaseInterState1", "tblSales"}) {
        ignore([&] {
            store::Recordset rs;
            rs.Open(QStringLiteral("SELECT Max(BillDate) FROM ") + QLatin1String(table), cn);
            const basic::Variant v = rs.Fields(0).Value();
            if (v.isNull()) return;
            const QDate d = QDate::fromString(basic::CStr(v).left(10), Qt::ISODate);
            if (d.isValid() && (!last.isValid() || d > last)) last = d;
        });
    }
    cn.Close();
    if (!last.isValid()) last = basic::Clock::today();
    return FinancialYearOf(last.year(), last.month());
}

void TakeInOldFiles(DealerRegister& reg, const QStringList& folders) {
    if (!reg.Setting(kTakenIn).isEmpty()) return;
    QString source;
    for (const QString& folder : folders)
        if (source.isEmpty() && QFileInfo(QDir(folder).filePath(QStringLiteral("nwForm10DB.mdb"))).isFile()) source = folder;
    if (!source.isEmpty()) {
        const BookKey key{QString(), LastFinancialYear(QDir(source).filePath(QStringLiteral("nwForm10DB.mdb")))};
        const ReturnBook book = BookOf(Dealer{}, key.firstYear);
        if (!QFileInfo(book.folder).isDir()) {
            // Copied into a folder beside the book's place and renamed into it when whole.
            const QString temporary = QFileInfo(book.folder).path() + QStringLiteral("/.") + book.yearText() + QStringLiteral(".new");
            QDir(temporary).removeRecursively();
            try {
                if (!QDir().mkpath(temporary)) throw basic::RuntimeError(70, QStringLiteral("Permission denied"));
                for (const char* file : kReturnFiles) {
                    const QString from = QDir(source).filePath(QLatin1String(file));
                    if (QFileInfo(from).isFile()) store::CopyDatabaseFile(from, QDir(temporary).filePath(QLatin1String(file)));
                }
                CreateReturnStores(temporary);
                if (!QDir().rename(temporary, book.folder)) throw basic::RuntimeError(70, QStringLiteral("Permission denied"));
            } catch (...) {
                QDir(temporary).removeRecursively();
                throw;
            }
        }
        reg.AddBook(key);
        basic::Settings().setValue(QStringLiteral("returns/lastBook"), QStringLiteral("/") + QString::number(key.firstYear));
    }
    reg.SetSetting(kTakenIn, source.isEmpty() ? QStringLiteral("none") : source);
}

void ClearLeftovers(const QString& folder) {
    if (!QFileInfo(folder).isDir()) return;
    QDirIterator it(folder, QDir::Files | QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    QStringList files, folders;
    while (it.hasNext()) {
        const QString path = it.next();
        const QString name = it.fileName();
        if (it.fileInfo().isDir()) {
            if (name.startsWith(u'.') && name.endsWith(QLatin1String(".new"))) folders << path;
        } else if (name.endsWith(QLatin1String(".new")) || name.endsWith(QLatin1String(".new-journal"))) {
            files << path;
        }
    }
    for (const QString& f : files) QFile::remove(f);
    for (const QString& f : folders) QDir(f).removeRecursively();
}

void CopyBegins(DealerRegister& reg, const QString& folder) { reg.SetSetting(kCopyUnderWay, folder); }

void CopyEnds(DealerRegister& reg) { reg.SetSetting(kCopyUnderWay, QString()); }

void PracticeStarts(DealerRegister& reg, const QStringList& oldFolders) {
    const QString unfinished = reg.Setting(kCopyUnderWay);
    if (!unfinished.isEmpty()) {
        ClearLeftovers(unfinished);
        CopyEnds(reg);
    }
    FinishNamings(reg);
    TakeInOldFiles(reg, oldFolders);
}

bool PracticeReady() {
    DealerRegister* reg = nullptr;
    const basic::RuntimeError made = basic::resume([&] { reg = &Register(); });
    if (made.number() != 0) {
        QString what = store::isDiskFull(made) ? QStringLiteral("The disk is full. Free some space on it and start Vorlan again.")
                                               : made.description();
        startBox(QStringLiteral("Vorlan cannot open its register of dealers in the folder\n") +
                 QDir::toNativeSeparators(basic::UserPath()) + QStringLiteral("\n\n") + what);
        return false;
    }
    QStringList oldFolders{basic::UserPath()};
    if (basic::AppPath() != basic::UserPath()) oldFolders << basic::AppPath();
    const basic::RuntimeError e = basic::resume([&] { PracticeStarts(*reg, oldFolders); });
    if (e.number() != 0)
        startBox(QStringLiteral("Vorlan could not take the months of its earlier version into the book \"") + kDealerNotNamed +
                 QStringLiteral("\" (") + e.description() +
                 QStringLiteral(").\n\nThe files are still where they were; Vorlan tries again at its next start."));
    return true;
}

}  // namespace returns
