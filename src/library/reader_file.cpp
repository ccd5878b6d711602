// The reader's file of the run: opened on first use, and what the user is told when it cannot be kept.
#include "library/reader.h"

#include "platform/basic/app_path.h"
#include "platform/basic/log.h"
#include "platform/documents/reader_store.h"
#include "platform/forms/msgbox.h"
#include "platform/basic/settings.h"

#include <QDir>
#include <QFileInfo>

VORLAN_LOGGING_CATEGORY(lcReader, "vorlan.library.reader")

namespace library {

namespace {

const QString kMadeSetting = QStringLiteral("Reader/fileMade");

std::unique_ptr<documents::ReaderStore> openReader(const QString& path) {
    std::unique_ptr<documents::ReaderStore> store;
    const bool wasMade = basic::Settings().value(kMadeSetting).toBool();
    const bool missing = !QFileInfo::exists(path);
    const basic::RuntimeError failed = basic::resume([&] { store = std::make_unique<documents::ReaderStore>(path); });
    if (failed.number() != 0) {
        qCWarning(lcReader) << "the reader's file cannot be made:" << failed.description();
        store = std::make_unique<documents::ReaderStore>(QString());
        forms::MsgBox(QStringLiteral("Vorlan cannot keep its reader's file\n%1\n\n%2\n\nBookmarks, notes and history "
                                     "work until the program ends, and are not kept.")
                          .arg(QDir::toNativeSeparators(path), failed.description()),
                      forms::vbExclamation, QStringLiteral("Bookmarks and notes"));
        return store;
    }
    basic::Settings().setValue(kMadeSetting, true);
    if (!store->keptAside().isEmpty())
        forms::MsgBox(QStringLiteral("The file of your bookmarks, notes and history was damaged and has been kept aside as\n%1\n\n"
                                     "Vorlan starts without bookmarks.")
                          .arg(QDir::toNativeSeparators(store->keptAside())),
                      forms::vbExclamation, QStringLiteral("Bookmarks and notes"));
    else if (missing && wasMade)
        forms::MsgBox(QStringLiteral("The file of your bookmarks, notes and history is missing:\n%1\n\nVorlan starts "
                                     "without bookmarks.")
                          .arg(QDir::toNativeSeparators(path)),
                      forms::vbExclamation, QStringLiteral("Bookmarks and notes"));
    return store;
}

}  // namespace

documents::ReaderStore& readerStore() {
    static std::unique_ptr<documents::ReaderStore> open;
    static QString openAt;
    const QString path = QDir(basic::UserPath()).filePath(kReaderFile);
    if (!open || openAt != path) {
        open.reset();
        open = openReader(path);
        openAt = path;
    }
    return *open;
}

void startReader() { readerStore(); }

}  // namespace library
