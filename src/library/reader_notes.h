#pragma once
// Notes of the reader: a note on a whole document, or a passage lit with a note on it. The notes of the
// shown document stand in a panel beside it; the passages are lit on the shown text (the document
// itself is never changed). The search window finds the words of notes too.
#include <QDialog>
#include <QFrame>
#include <vector>

#include "platform/documents/reader_store.h"

class QLabel;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QToolButton;

namespace documents {
class DocumentView;
}

namespace library {

// The box in which a note is written: the passage it is on, when there is one, above the note's text.
class NoteDialog : public QDialog {
    Q_OBJECT
public:
    NoteDialog(QWidget* parent, const QString& quote, const QString& text);
    QLabel* passage;
    QPlainTextEdit* note;
    QPushButton* save;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;   // Ctrl+Enter saves
};

// Asks for a note on the view's selection (on the whole document when nothing is selected) and keeps
// it; returns its id, 0 when the user cancels or writes nothing.
qint64 addNoteTo(QWidget* parent, documents::DocumentView* view, const documents::DocumentName& document);

// Lights the passages of the notes on the shown text.
void lightNotes(documents::DocumentView* view, const std::vector<documents::Note>& notes);
// Selects a note's passage in the view and brings it into view.
void showPassage(documents::DocumentView* view, const documents::Note& note);

// The panel beside the document in the document window.
class NotesPanel : public QFrame {
    Q_OBJECT
public:
    NotesPanel(QWidget* window, documents::DocumentView* view);

    QLabel* heading;
    QToolButton* closer;
    QListWidget* list;
    QPushButton *add, *edit, *remove;

    // The notes of the document, or none; the panel shows while there are notes, unless the reader put
    // it away for this document (its × or Ctrl+Shift+M, which brings it back).
    void showNotes(const documents::DocumentName& document);
    void toggle();
    const std::vector<documents::Note>& notes() const { return notes_; }
    void addNote();
    void editNote();
    void removeNote();    // asks once
    void goToNote();
    // Stands beside the view where the window leaves room, else over the view's right edge.
    void place();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* window_;
    documents::DocumentView* view_;
    documents::DocumentName document_;
    std::vector<documents::Note> notes_;
    QString putAway_;   // the key of the document whose notes the reader put away
};

}  // namespace library
