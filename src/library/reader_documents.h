#pragma once
// The documents of the reader's lists, named by key: "<table>:<rowid>" of a library row (as the search's
// text index names them) or "MyDocuments:<id>" of the user's own. A key leads back to its document in
// the document window in any later run, whatever way it was first opened.
#include <QString>

#include "platform/documents/reader_store.h"

namespace library {

class keralaforms;

// The document that the data control's statement selects: its key, title and kind. No key for the
// stand-by page or a statement that selects no row.
documents::DocumentName documentOf(const QString& connect, const QString& sql);
// The document that the document window shows, from its data control.
documents::DocumentName shownDocument(const keralaforms* window);

// Shows the document of the key in the document window, as a search result is shown. A key whose
// document is no longer there says so in a box and returns false.
bool openDocument(const QString& key);

// What a citation names: the title, kind and number that the library holds for the document and the
// date its text gives (the user's own: as the user set them). `text` is the document's text.
struct DocumentFacts {
    QString title, kind, number, date;   // date yyyy-mm-dd or ""
};
DocumentFacts factsOf(const documents::DocumentName& document, const QString& text);

}  // namespace library
