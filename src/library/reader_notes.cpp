#include "library/reader_notes.h"

#include "library/reader.h"
#include "platform/documents/document_view.h"
#include "platform/forms/msgbox.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBrowser>
#include <QToolButton>
#include <QVBoxLayout>

namespace library {

namespace {

const QColor kLit(0xff, 0xec, 0x8b);

QString normalised(QString text) {
    return text.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
}

QString elided(const QString& text, int most) {
    const QString one = text.simplified();
    return one.size() > most ? one.left(most - 1) + QStringLiteral("…") : one;
}

// The note's passage in the shown text: where it was, or, when the text has moved, where its words stand.
QTextCursor passageOf(QTextDocument* document, const documents::Note& note) {
    if (!note.onPassage()) return {};
    QTextCursor at(document);
    if (note.end < document->characterCount()) {
        at.setPosition(note.start);
        at.setPosition(note.end, QTextCursor::KeepAnchor);
        if (normalised(at.selectedText()) == note.quote) return at;
    }
    return document->find(note.quote);
}

bool showsText(const documents::DocumentView* view) {
    return view->kind() != documents::Kind::Pdf && view->kind() != documents::Kind::None;
}

}  // namespace

NoteDialog::NoteDialog(QWidget* parent, const QString& quote, const QString& text)
    : QDialog(parent), passage(new QLabel(this)), note(new QPlainTextEdit(text, this)) {
    setObjectName(QStringLiteral("NoteDialog"));
    setWindowTitle(quote.isEmpty() ? QStringLiteral("A note on this document") : QStringLiteral("A note on the passage"));
    passage->setWordWrap(true);
    passage->setText(quote.isEmpty() ? QString() : QStringLiteral("“") + elided(quote, 400) + QStringLiteral("”"));
    passage->setVisible(!quote.isEmpty());
    passage->setStyleSheet(QStringLiteral("color:#555; font-style:italic; background:#fff6c4; padding:4px;"));
    note->setPlaceholderText(QStringLiteral("Your note"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Cancel, this);
    save = buttons->button(QDialogButtonBox::Save);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(passage);
    layout->addWidget(note, 1);
    layout->addWidget(new QLabel(QStringLiteral("Ctrl+Enter saves"), this));
    layout->addWidget(buttons);
    note->installEventFilter(this);
    resize(460, 260);
    note->setFocus();
}

bool NoteDialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched == note && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if ((key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) && key->modifiers() & Qt::ControlModifier) {
            accept();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

qint64 addNoteTo(QWidget* parent, documents::DocumentView* view, const documents::DocumentName& document) {
    if (document.key.isEmpty()) {
        forms::MsgBox(QStringLiteral("Notes are kept on the documents of the library and on your own documents."),
                      forms::vbInformation, QStringLiteral("Notes"));
        return 0;
    }
    documents::Note note;
    note.document = document;
    if (showsText(view)) {
        const QTextCursor selection = view->textBrowser()->textCursor();
        if (selection.hasSelection()) {
            note.start = selection.selectionStart();
            note.end = selection.selectionEnd();
            note.quote = normalised(selection.selectedText());
        }
    }
    NoteDialog dialog(parent, note.quote, QString());
    if (dialog.exec() != QDialog::Accepted) return 0;
    note.text = dialog.note->toPlainText().trimmed();
    if (note.text.isEmpty() && !note.onPassage()) return 0;
    const qint64 id = readerStore().addNote(note);
    note.id = id;
    lightNotes(view, {note});
    return id;
}

void lightNotes(documents::DocumentView* view, const std::vector<documents::Note>& notes) {
    if (!showsText(view)) return;
    QTextCharFormat lit;
    lit.setBackground(kLit);
    for (const documents::Note& note : notes) {
        QTextCursor passage = passageOf(view->textBrowser()->document(), note);
        if (!passage.isNull()) passage.mergeCharFormat(lit);
    }
}

void showPassage(documents::DocumentView* view, const documents::Note& note) {
    if (!showsText(view)) return;
    const QTextCursor passage = passageOf(view->textBrowser()->document(), note);
    if (passage.isNull()) return;
    view->textBrowser()->setTextCursor(passage);
    view->textBrowser()->ensureCursorVisible();
}

NotesPanel::NotesPanel(QWidget* window, documents::DocumentView* view)
    : QFrame(window), heading(new QLabel(QStringLiteral("Notes"), this)), closer(new QToolButton(this)), list(new QListWidget(this)),
      add(new QPushButton(QStringLiteral("Add…"), this)), edit(new QPushButton(QStringLiteral("Edit…"), this)),
      remove(new QPushButton(QStringLiteral("Remove"), this)), window_(window), view_(view) {
    setObjectName(QStringLiteral("NotesPanel"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    heading->setStyleSheet(QStringLiteral("font-weight:bold;"));
    list->setWordWrap(true);
    list->setAlternatingRowColors(true);
    list->setToolTip(QStringLiteral("Enter goes to the passage; Delete removes the note"));
    add->setToolTip(QStringLiteral("A note on the selected passage, or on the document (Ctrl+M)"));
    auto* buttons = new QHBoxLayout;
    for (QPushButton* b : {add, edit, remove}) {
        b->setAutoDefault(false);
        buttons->addWidget(b);
    }
    closer->setText(QStringLiteral("×"));
    closer->setAutoRaise(true);
    closer->setToolTip(QStringLiteral("Put the notes away for this document (Ctrl+Shift+M brings them back)"));
    auto* top = new QHBoxLayout;
    top->addWidget(heading, 1);
    top->addWidget(closer);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addLayout(top);
    layout->addWidget(list, 1);
    layout->addLayout(buttons);
    connect(closer, &QToolButton::clicked, this, [this] { toggle(); });
    connect(add, &QPushButton::clicked, this, [this] { addNote(); });
    connect(edit, &QPushButton::clicked, this, [this] { editNote(); });
    connect(remove, &QPushButton::clicked, this, [this] { removeNote(); });
    connect(list, &QListWidget::itemActivated, this, [this] { goToNote(); });
    list->installEventFilter(this);
    window_->installEventFilter(this);
    view_->installEventFilter(this);
    hide();
}

void NotesPanel::showNotes(const documents::DocumentName& document) {
    document_ = document;
    notes_ = document.key.isEmpty() ? std::vector<documents::Note>() : readerStore().notes(document.key);
    list->clear();
    for (const documents::Note& n : notes_) {
        QString text = n.onPassage() ? QStringLiteral("“") + elided(n.quote, 90) + QStringLiteral("”\n") : QString();
        text += n.text.isEmpty() ? QStringLiteral("(lit, no note)") : n.text;
        text += QStringLiteral("\n") + n.changed.toString(QStringLiteral("dd-MM-yyyy hh:mm"));
        auto* item = new QListWidgetItem(text, list);
        item->setToolTip(n.quote.isEmpty() ? n.text : n.quote + QStringLiteral("\n\n") + n.text);
    }
    heading->setText(notes_.size() == 1 ? QStringLiteral("1 note") : QStringLiteral("%1 notes").arg(notes_.size()));
    if (!notes_.empty()) list->setCurrentRow(0);
    if (putAway_ != document.key) putAway_.clear();
    setVisible(!notes_.empty() && putAway_.isEmpty());
    place();
    raise();
}

void NotesPanel::toggle() {
    if (notes_.empty()) return;
    putAway_ = isVisible() ? document_.key : QString();
    setVisible(putAway_.isEmpty());
    place();
}

void NotesPanel::addNote() {
    if (!addNoteTo(window_, view_, document_)) return;
    putAway_.clear();
    showNotes(document_);
}

void NotesPanel::editNote() {
    const int row = list->currentRow();
    if (row < 0 || row >= int(notes_.size())) return;
    const documents::Note note = notes_[size_t(row)];
    NoteDialog dialog(window_, note.quote, note.text);
    if (dialog.exec() != QDialog::Accepted) return;
    readerStore().changeNote(note.id, dialog.note->toPlainText().trimmed());
    showNotes(document_);
    list->setCurrentRow(row);
}

void NotesPanel::removeNote() {
    const int row = list->currentRow();
    if (row < 0 || row >= int(notes_.size())) return;
    const documents::Note note = notes_[size_t(row)];
    if (forms::MsgBox(QStringLiteral("Remove this note?"), forms::vbYesNo | forms::vbQuestion, QStringLiteral("Notes")) != forms::vbYes)
        return;
    readerStore().removeNote(note.id);
    if (showsText(view_)) {
        QTextCursor passage = passageOf(view_->textBrowser()->document(), note);
        QTextCharFormat plain;
        plain.setBackground(Qt::NoBrush);
        if (!passage.isNull()) passage.mergeCharFormat(plain);
    }
    showNotes(document_);
}

void NotesPanel::goToNote() {
    const int row = list->currentRow();
    if (row >= 0 && row < int(notes_.size())) showPassage(view_, notes_[size_t(row)]);
}

void NotesPanel::place() {
    constexpr int kWidth = 300, kGap = 10;
    const QRect shown(view_->mapTo(window_, QPoint(0, 0)), view_->size());
    int left = shown.right() + kGap;
    int width = std::min(kWidth, window_->width() - left - kGap);
    // No room beside the document: over the foot of its right edge, where a page's words are fewest,
    // as small as the notes allow.
    const bool over = width < 200;
    if (over) {
        width = kWidth;
        left = std::max(0, window_->width() - kWidth - kGap);
    }
    int listed = 2 * list->frameWidth() + 6;
    for (int row = 0; row < list->count(); ++row) listed += list->sizeHintForRow(row);
    const QMargins m = layout()->contentsMargins();
    const int chrome = m.top() + m.bottom() + std::max(heading->sizeHint().height(), closer->sizeHint().height()) +
                       add->sizeHint().height() + 2 * layout()->spacing();
    const int wanted = std::max(140, chrome + listed);
    const int tall = std::min(wanted, std::max(140, shown.height()));
    setGeometry(left, over ? std::max(shown.top(), shown.bottom() - tall - kGap) : shown.top(), width, tall);
}

bool NotesPanel::eventFilter(QObject* watched, QEvent* event) {
    if ((watched == window_ && event->type() == QEvent::Resize) ||
        (watched == view_ && (event->type() == QEvent::Move || event->type() == QEvent::Resize)))
        place();
    if (watched == list && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete) {
        removeNote();
        return true;
    }
    return QFrame::eventFilter(watched, event);
}

}  // namespace library
