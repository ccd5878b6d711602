#include "platform/documents/find_bar.h"

#include "platform/documents/document_view.h"
#include "platform/documents/pdf_marks.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPdfView>
#include <QShortcut>
#include <QTextBrowser>
#include <QToolButton>

namespace documents {

namespace {

QToolButton* barButton(QWidget* parent, const QString& text, const QString& tip) {
    auto* b = new QToolButton(parent);
    b->setText(text);
    b->setToolTip(tip);
    b->setAutoRaise(true);
    b->setFocusPolicy(Qt::NoFocus);
    return b;
}

}  // namespace

FindBar* FindBar::attach(DocumentView* view) {
    auto* bar = new FindBar(view);
    auto key = [view](const QKeySequence& keys, auto action) {
        auto* shortcut = new QShortcut(keys, view);
        shortcut->setContext(Qt::WindowShortcut);
        QObject::connect(shortcut, &QShortcut::activated, view, action);
    };
    key(QKeySequence::Find, [bar] { bar->open(); });
    key(QKeySequence(Qt::Key_F3), [bar] { bar->findNext(); });
    key(QKeySequence(Qt::SHIFT | Qt::Key_F3), [bar] { bar->findPrevious(); });
    return bar;
}

FindBar::FindBar(DocumentView* view)
    : QFrame(view),
      field(new QLineEdit(this)),
      count(new QLabel(this)),
      previous(barButton(this, QStringLiteral("▲"), QStringLiteral("Previous (Shift+Enter, Shift+F3)"))),
      next(barButton(this, QStringLiteral("▼"), QStringLiteral("Next (Enter, F3)"))),
      closer(barButton(this, QStringLiteral("✕"), QStringLiteral("Close (Esc)"))),
      view_(view) {
    setObjectName(QStringLiteral("FindBar"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(6, 3, 6, 3);
    row->addWidget(new QLabel(QStringLiteral("Find:"), this));
    field->setMinimumWidth(240);
    field->setClearButtonEnabled(true);
    row->addWidget(field);
    row->addWidget(previous);
    row->addWidget(next);
    count->setMinimumWidth(90);
    row->addWidget(count);
    row->addStretch(1);
    row->addWidget(closer);
    hide();
    connect(field, &QLineEdit::textChanged, this, [this] { find(); });
    connect(previous, &QToolButton::clicked, this, [this] { findPrevious(); });
    connect(next, &QToolButton::clicked, this, [this] { findNext(); });
    connect(closer, &QToolButton::clicked, this, [this] { close(); });
    // Another document in the view: its hits, not the last one's.
    connect(view, &DocumentView::shown, this, [this] {
        if (isVisible()) find();
    });
    field->installEventFilter(this);
    view->installEventFilter(this);
}

void FindBar::open() {
    QTextBrowser* text = view_->textBrowser();
    const QTextCursor selected = text->textCursor();
    if (!isVisible() && view_->kind() == Kind::Pdf) {
        from_ = PdfMarks::of(view_)->firstVisiblePosition();
    } else if (!isVisible()) {
        from_ = text->cursorForPosition(QPoint(0, 0)).position();
        // A word or phrase already selected (a hit of a library search) is what the user wants found.
        const QString words = selected.selectedText();
        if (!words.isEmpty() && words.size() <= 100 && !words.contains(QChar::ParagraphSeparator)) {
            from_ = selected.selectionStart();
            field->setText(words);
        }
    }
    QFrame::show();
    place();
    field->setFocus();
    field->selectAll();
    find();
}

void FindBar::close() {
    hide();
    hits_.clear();
    current_ = -1;
    showHitsIn(view_, hits_, -1);
    if (view_->kind() == Kind::Pdf) view_->pdfView()->setFocus();
    else view_->textBrowser()->setFocus();
}

void FindBar::findNext() { go(1); }
void FindBar::findPrevious() { go(-1); }

void FindBar::collect() {
    hits_.clear();
    const QString needle = field->text();
    if (needle.isEmpty() || view_->kind() == Kind::None) return;
    const QString text = searchableText(view_);
    for (qsizetype at = text.indexOf(needle, 0, Qt::CaseInsensitive); at >= 0;
         at = text.indexOf(needle, at + needle.size(), Qt::CaseInsensitive))
        hits_.push_back({int(at), int(at + needle.size())});
}

// The first hit at or after `from`, or round the end to the first of all.
int FindBar::firstFrom(int from) const {
    int i = 0;
    while (i < int(hits_.size()) && hits_[i].start < from) ++i;
    return i < int(hits_.size()) ? i : 0;
}

void FindBar::find() {
    collect();
    show(hits_.empty() ? -1 : firstFrom(from_));
}

void FindBar::go(int step) {
    if (!isVisible()) return open();
    // Found afresh: the window may show another document since the last key.
    collect();
    const int n = int(hits_.size());
    if (n == 0) return show(-1);
    int i = firstFrom(from_);
    if (step < 0) --i;
    else if (hits_[i].start == from_) ++i;
    show((i + n) % n);
}

void FindBar::show(int current) {
    current_ = current;
    if (current >= 0) from_ = hits_[current].start;
    showHitsIn(view_, hits_, current, isVisible() ? height() : 0);
    if (field->text().isEmpty()) count->clear();
    else if (hits_.empty()) count->setText(QStringLiteral("Not found"));
    else count->setText(QStringLiteral("%1 of %2").arg(current + 1).arg(hits_.size()));
}

void FindBar::place() {
    const int h = sizeHint().height();
    setGeometry(0, view_->height() - h, view_->width(), h);
    raise();
}

bool FindBar::eventFilter(QObject* watched, QEvent* event) {
    if (watched == view_ && event->type() == QEvent::Resize && isVisible()) place();
    if (watched == field && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Escape) {
            close();
            return true;  // not the window's Esc, which would close the document
        }
        if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
            go(key->modifiers() & Qt::ShiftModifier ? -1 : 1);
            return true;
        }
    }
    return QFrame::eventFilter(watched, event);
}

}  // namespace documents
