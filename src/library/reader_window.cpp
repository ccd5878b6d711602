// The reader's keys and memory in the document window, and in the full viewer while it shows the same
// document: history, places, bookmarks, notes, citations.
#include "library/reader.h"

#include "library/citation.h"
#include "library/keralaforms.h"
#include "library/reader_bookmarks.h"
#include "library/reader_documents.h"
#include "library/reader_notes.h"
#include "platform/documents/full_viewer.h"
#include "platform/documents/view_place.h"
#include "platform/documents/view_trail.h"
#include "platform/forms/runtime_errors.h"
#include "platform/forms/window_registry.h"

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QListWidget>
#include <QPdfView>
#include <QPointer>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBrowser>
#include <QTimer>

namespace library {

namespace {

// What the reader keeps must never stop the reading: a fault of its file is logged and passed over.
template <class F>
void keep(F&& work) {
    const basic::RuntimeError e = basic::resume(std::forward<F>(work));
    if (e.number() != 0) qCWarning(lcReader) << "the reader's file:" << e.description() << e.detail();
}

void onKey(QWidget* window, QKeySequence keys, std::function<void()> act) {
    auto* shortcut = new QShortcut(keys, window);
    QObject::connect(shortcut, &QShortcut::activated, window, [act = std::move(act)] { forms::guard(act); });
}

// A tool of the reader as an entry of the view's right-button menu, beside the view's own; its keys work
// anywhere in the window that holds the view.
void onEntry(documents::DocumentView* view, const QString& text, QKeySequence keys, std::function<void()> act) {
    auto* entry = new QAction(text, view);
    entry->setShortcut(keys);
    entry->setShortcutContext(Qt::WindowShortcut);
    view->addAction(entry);
    QObject::connect(entry, &QAction::triggered, view, [act = std::move(act)] { forms::guard(act); });
}

// A view still at its top with nothing chosen: nobody else (a search's hit, the find bar) has placed it.
bool untouched(documents::DocumentView* view) {
    if (view->kind() == documents::Kind::Pdf) return view->pdfView()->verticalScrollBar()->value() == 0;
    return view->textBrowser()->verticalScrollBar()->value() == 0 && !view->textBrowser()->textCursor().hasSelection();
}

class DocumentReader : public QObject {
public:
    explicit DocumentReader(keralaforms* window)
        : QObject(window), window_(window), view_(window->OLE1), notes_(new NotesPanel(window, window->OLE1)) {
        setObjectName(QStringLiteral("DocumentReader"));
        connect(view_, &documents::DocumentView::leaving, this, [this] { leave(); });
        connect(view_, &documents::DocumentView::shown, this, [this] { forms::guard([this] { arrive(); }); });
        window_->installEventFilter(this);
        connect(qApp, &QCoreApplication::aboutToQuit, this, [this] { leave(); });
        onKey(window, QKeySequence(Qt::ALT | Qt::Key_Left), [this] { go(-1); });
        onKey(window, QKeySequence(Qt::ALT | Qt::Key_Right), [this] { go(1); });
        onEntry(view_, QStringLiteral("Copy with citation"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C), [this] { cite(view_); });
        onEntry(view_, QStringLiteral("Note…"), QKeySequence(Qt::CTRL | Qt::Key_M), [this] { notes_->addNote(); });
        onEntry(view_, QStringLiteral("Notes beside"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_M), [this] { notes_->toggle(); });
        onEntry(view_, QStringLiteral("Bookmark"), QKeySequence(Qt::CTRL | Qt::Key_D), [this] { bookmarkDocument(window_, current_); });
        onEntry(view_, QStringLiteral("Bookmarks…"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_B),
                [] { forms::showOverInput(QStringLiteral("BookmarksWindow")); });
        // The search of the toolbars, from the document being read.
        onEntry(view_, QStringLiteral("Search the library…"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F),
                [] { forms::showOverInput(QStringLiteral("frmTextSearch")); });
    }

    const documents::DocumentName& current() const { return current_; }
    NotesPanel* notes() const { return notes_; }
    // A note written elsewhere (in the full viewer) on the document shown here: lit and listed here too.
    void notesChanged() {
        std::vector<documents::Note> notes;
        keep([&] { notes = readerStore().notes(current_.key); });
        lightNotes(view_, notes);
        notes_->showNotes(current_);
    }

    void cite(const documents::DocumentView* view) {
        if (current_.key.isEmpty()) return;
        copyWithCitation(view, current_);
        flash(view->window(), QStringLiteral("Copied with its citation"));
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == window_ && event->type() == QEvent::Hide) leave();
        if (watched == window_ && event->type() == QEvent::Show && !pendingPlace_.isEmpty())
            QTimer::singleShot(0, this, [this] { restorePlace(); });
        return QObject::eventFilter(watched, event);
    }

private:
    // The place in the document that gives way, kept for its next opening.
    void leave() {
        if (current_.key.isEmpty() || view_->document().isEmpty()) return;
        const QString place = placeOf(view_);
        keep([&] { readerStore().setPlace(current_.key, place); });
    }

    void arrive() {
        current_ = shownDocument(window_);
        pendingPlace_.clear();
        if (current_.key.isEmpty()) {
            notes_->showNotes({});
            return;
        }
        keep([&] { readerStore().visited(current_); });
        if (!stepping_) trail_.shown({current_.key, {}, {}, {}});
        std::vector<documents::Note> notes;
        keep([&] { notes = readerStore().notes(current_.key); });
        lightNotes(view_, notes);
        notes_->showNotes(current_);
        keep([&] { pendingPlace_ = readerStore().place(current_.key); });
        if (!pendingPlace_.isEmpty() && window_->isVisible()) QTimer::singleShot(0, this, [this] { restorePlace(); });
    }

    void restorePlace() {
        const QString place = std::exchange(pendingPlace_, QString());
        if (!place.isEmpty() && untouched(view_)) goToPlace(view_, place);
    }

    void go(int step) {
        const documents::TrailEntry* to = trail_.peek(step);
        if (!to) return;
        const QString key = to->key;
        stepping_ = true;
        const bool opened = openDocument(key);
        stepping_ = false;
        if (opened) trail_.move(step);
        // Shown at once rather than after the event loop: a step is one key, and the place is part of it.
        if (!pendingPlace_.isEmpty()) restorePlace();
    }

    keralaforms* window_;
    documents::DocumentView* view_;
    NotesPanel* notes_;
    documents::DocumentName current_;
    documents::Trail trail_;
    bool stepping_ = false;
    QString pendingPlace_;
};

QPointer<DocumentReader> theReader;

// The full viewer shows what the document window opened in full: the same keys work on it there.
void attachToFullViewer(documents::FullViewer* viewer) {
    documents::DocumentView* view = viewer->view();
    const auto sameDocument = [view]() -> documents::DocumentName {
        if (!theReader || view->document().isEmpty()) return {};
        auto* kf = static_cast<keralaforms*>(theReader->parent());
        return kf->OLE1->document() == view->document() ? theReader->current() : documents::DocumentName();
    };
    onEntry(view, QStringLiteral("Copy with citation"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C), [view, sameDocument] {
        const documents::DocumentName d = sameDocument();
        if (d.key.isEmpty()) flash(view->window(), QStringLiteral("This document has no citation: it is not one of the library's"));
        else {
            copyWithCitation(view, d);
            flash(view->window(), QStringLiteral("Copied with its citation"));
        }
    });
    onEntry(view, QStringLiteral("Bookmark"), QKeySequence(Qt::CTRL | Qt::Key_D), [viewer, sameDocument] { bookmarkDocument(viewer, sameDocument()); });
    onEntry(view, QStringLiteral("Bookmarks…"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_B),
            [] { forms::showOverInput(QStringLiteral("BookmarksWindow")); });
    onEntry(view, QStringLiteral("Search the library…"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F),
            [] { forms::showOverInput(QStringLiteral("frmTextSearch")); });
    onEntry(view, QStringLiteral("Note…"), QKeySequence(Qt::CTRL | Qt::Key_M), [viewer, view, sameDocument] {
        const documents::DocumentName d = sameDocument();
        if (addNoteTo(viewer, view, d) && theReader) theReader->notesChanged();
    });
    QObject::connect(view, &documents::DocumentView::shown, viewer, [view, sameDocument] {
        const documents::DocumentName d = sameDocument();
        if (!d.key.isEmpty()) keep([&] { lightNotes(view, readerStore().notes(d.key)); });
    });
}

}  // namespace

void attachReader(keralaforms* window) {
    theReader = new DocumentReader(window);
    static bool viewerHooked = false;
    if (!std::exchange(viewerHooked, true)) documents::FullViewer::whenMade(attachToFullViewer);
}

bool openTextResult(const QString& key) {
    if (!key.startsWith(QLatin1String("note:"))) return openDocument(key);
    std::optional<documents::Note> note;
    keep([&] { note = readerStore().note(key.mid(5).toLongLong()); });
    if (!note || !openDocument(note->document.key)) return false;
    auto* kf = forms::get<keralaforms>(QStringLiteral("keralaforms"));
    showPassage(kf->OLE1, *note);
    if (theReader) {
        const auto& shown = theReader->notes()->notes();
        for (size_t i = 0; i < shown.size(); ++i)
            if (shown[i].id == note->id) theReader->notes()->list->setCurrentRow(int(i));
    }
    return false;
}

}  // namespace library
