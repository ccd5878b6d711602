#pragma once
// The reader's additions to the law library, and the file they keep in the user's folder: where each is
// reached from. Each window of the system gets them by one call, made where app/ registers the window.
#include <QLoggingCategory>
#include <QString>

class QToolBar;

namespace documents {
class ReaderStore;
}

Q_DECLARE_LOGGING_CATEGORY(lcReader)   // vorlan.library.reader

namespace library {

class keralaforms;

inline const QString kReaderFile = QStringLiteral("Reader.db");

// The reader's file of this run ("Reader.db" in the user's folder), opened on first use. A damaged file
// is kept aside and a new one made; one that cannot be made at all leaves a reader that keeps nothing
// past the run. Either way a box says so, once.
documents::ReaderStore& readerStore();
// Opens it now, as the program starts, so that a damaged file is told before the first window is used.
void startReader();

// The document window: Alt+Left and Alt+Right, the place left in each document, Ctrl+D, notes beside
// the document (Ctrl+M), copy with citation (Ctrl+Shift+C), the bookmarks (Ctrl+Shift+B); and the
// same keys in the full viewer while it shows the document window's document.
void attachReader(keralaforms* window);
// Opens a result of the search window: a document by its key, or for "note:<id>" the note's document
// with the note's passage chosen. True when a document is shown whose hits the search may light.
bool openTextResult(const QString& key);

// A main toolbar: "Recent" (the last 50 documents, with when), "Bookmarks" and "My documents".
void addReaderTools(QToolBar* toolbar);

}  // namespace library
