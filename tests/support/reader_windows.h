#pragma once
// The document window with the reader's keys, the reader's windows and the search, registered as app/
// registers them, for the tests and benchmarks of the reader; the state browser stands as a bare window.
#include "library/frm_text_search.h"
#include "library/keralaforms.h"
#include "library/my_documents_window.h"
#include "library/reader.h"
#include "library/reader_bookmarks.h"
#include "platform/forms/window_registry.h"

inline void defineReaderWindows() {
    forms::define(QStringLiteral("keralaforms"), [] {
        auto* w = new library::keralaforms;
        library::attachReader(w);
        return w;
    });
    forms::define(QStringLiteral("frmkerala"), [] { return new QWidget; });
    forms::define(QStringLiteral("BookmarksWindow"), [] { return new library::BookmarksWindow; });
    forms::define(QStringLiteral("MyDocumentsWindow"), [] { return new library::MyDocumentsWindow; });
    forms::define(QStringLiteral("frmTextSearch"), [] { return new library::frmTextSearch; });
}
