#include "library/frm_text_search.h"

#include "library/keralaforms.h"
#include "library/library_text.h"
#include "library/reader.h"
#include "library/text_sources.h"
#include "platform/documents/hit_marks.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/window_registry.h"

#include <QComboBox>
#include <QDate>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QThread>
#include <QTimer>
#include <QVBoxLayout>

namespace library {

namespace {

constexpr int kPauseMs = 250;
constexpr int kCancelled = 287;  // TextIndex::search cut short by a newer query

// The text with the given ranges in bold, all of it escaped for rich text.
QString boldRanges(const QString& text, const std::vector<documents::TextRange>& ranges) {
    QString html;
    int at = 0;
    for (const documents::TextRange& r : ranges) {
        html += text.mid(at, r.start - at).toHtmlEscaped() + QStringLiteral("<b>") +
                text.mid(r.start, r.end - r.start).toHtmlEscaped() +
                QStringLiteral("</b>");
        at = r.end;
    }
    return html + text.mid(at).toHtmlEscaped();
}

// A snippet's hit marks as bold, the rest escaped; line breaks of the document become blanks.
QString snippetHtml(QString snippet) {
    snippet.replace(u'\n', u' ');
    std::vector<documents::TextRange> ranges;
    QString plain;
    int start = -1;
    for (const QChar c : snippet) {
        if (c == store::kHitStart) start = int(plain.size());
        else if (c == store::kHitEnd && start >= 0) ranges.push_back({std::exchange(start, -1), int(plain.size())});
        else plain += c;
    }
    return boldRanges(plain, ranges);
}

QString shownDate(const QString& iso) {
    const QDate date = QDate::fromString(iso, Qt::ISODate);
    return date.isValid() ? date.toString(QStringLiteral("dd-MM-yyyy")) : QString();
}

}  // namespace

struct frmTextSearch::Worker {
    QThread thread;
    QObject context;  // lives on the thread: the searches are posted to it
    TextSearcher searcher;
};

frmTextSearch::frmTextSearch()
    : txtQuery(new QLineEdit(this)),
      cboKind(new QComboBox(this)),
      lblStatus(new QLabel(this)),
      lstResults(new QListWidget(this)),
      lblHelp(new QLabel(this)),
      tmrPause(new QTimer(this)),
      worker_(std::make_unique<Worker>()) {
    setObjectName(QStringLiteral("frmTextSearch"));
    setWindowTitle(QStringLiteral("Search the library"));
    resize(980, 660);
    txtQuery->setPlaceholderText(QStringLiteral("Words of any document of the library"));
    txtQuery->setClearButtonEnabled(true);
    cboKind->addItem(QStringLiteral("All kinds"));
    cboKind->addItems(kTextKinds);
    lblHelp->setText(QStringLiteral("input credit: both words      \"input tax credit\": the phrase      "
                                    "rubber OR latex      NOT cess      cred*: words that begin so"));
    lblHelp->setStyleSheet(QStringLiteral("color:#555;"));
    lstResults->setAlternatingRowColors(true);
    lstResults->setSpacing(1);
    lstResults->setWordWrap(true);
    lstResults->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    // A light mark for the chosen result, so that its words stay as readable as the others'.
    lstResults->setStyleSheet(QStringLiteral("QListWidget::item:selected { background: #d7e6f5; "
                                             "border-left: 3px solid #1f4e79; }"));

    auto* top = new QHBoxLayout;
    top->addWidget(new QLabel(QStringLiteral("Search:"), this));
    top->addWidget(txtQuery, 1);
    top->addWidget(cboKind);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(lblHelp);
    layout->addWidget(lblStatus);
    layout->addWidget(lstResults, 1);

    tmrPause->setSingleShot(true);
    tmrPause->setInterval(kPauseMs);
    connect(tmrPause, &QTimer::timeout, this, [this] { Search(); });
    connect(txtQuery, &QLineEdit::textEdited, this, [this] { txtQuery_Change(); });
    connect(cboKind, &QComboBox::activated, this, [this] { cboKind_Click(); });
    connect(lstResults, &QListWidget::itemActivated, this, [this] { lstResults_DblClick(); });
    txtQuery->installEventFilter(this);
    lstResults->viewport()->installEventFilter(this);

    worker_->context.moveToThread(&worker_->thread);
    worker_->thread.start();
    showResults(0, {}, {}, true);
}

frmTextSearch::~frmTextSearch() {
    ++latest_;
    worker_->searcher.interrupt();
    worker_->thread.quit();
    worker_->thread.wait();
}

QStringList frmTextSearch::resultKeys() const {
    QStringList keys;
    for (const store::TextHit& h : hits_) keys << h.values[0];
    return keys;
}

void frmTextSearch::txtQuery_Change() {
    tmrPause->start();
}

void frmTextSearch::txtQuery_KeyPress(int key) {
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        // Enter before the pause ended opens the best result of what is typed now.
        if (tmrPause->isActive() || latest_ != int(shownGeneration_)) {
            openWhenFound_ = true;
            if (tmrPause->isActive()) Search();
        } else {
            OpenResult();
        }
    } else if (key == Qt::Key_Down || key == Qt::Key_Up) {
        const int row = lstResults->currentRow() + (key == Qt::Key_Down ? 1 : -1);
        if (row >= 0 && row < lstResults->count()) lstResults->setCurrentRow(row);
    }
}

void frmTextSearch::cboKind_Click() {
    Search();
}

void frmTextSearch::lstResults_DblClick() {
    OpenResult();
}

void frmTextSearch::Search() {
    tmrPause->stop();
    const int generation = ++latest_;
    const store::TextQuery query = store::parseTextQuery(txtQuery->text());
    const QString kind = cboKind->currentIndex() > 0 ? cboKind->currentText() : QString();
    // The library's words, the user's own documents' and the notes'.
    const std::vector<TextSource> sources = textSources();
    // A search still running is for words no longer typed.
    worker_->searcher.interrupt();
    Worker* w = worker_.get();
    QMetaObject::invokeMethod(&w->context, [this, w, generation, query, kind, sources] {
        if (generation != latest_) return;
        std::vector<store::TextHit> hits;
        QString failure;
        bool indexed = true;
        try {
            hits = w->searcher.search(sources, query, kind);
            indexed = w->searcher.libraryIndexed();
        } catch (const basic::RuntimeError& e) {
            if (e.number() == kCancelled) return;
            failure = e.description();
        }
        QMetaObject::invokeMethod(this, [this, generation, hits, failure, indexed, query] {
            if (generation != latest_) return;
            shownQuery_ = query;
            showResults(generation, hits, failure, indexed);
        });
    });
}

void frmTextSearch::showResults(int generation, const std::vector<store::TextHit>& hits, const QString& failure,
                                bool indexed) {
    shownGeneration_ = generation;
    hits_ = hits;
    lstResults->clear();
    const std::vector<store::TextTerm> sought = shownQuery_.sought();
    for (const store::TextHit& hit : hits_) {
        const QString title = hit.values[textTitle];
        QString facts = hit.values[textKind];
        const QString mark = hit.values.value(kMarkValue);
        if (!mark.isEmpty()) facts = mark + QStringLiteral("  ·  ") + facts;
        const QString date = shownDate(hit.values[textDate]);
        if (!date.isEmpty()) facts += QStringLiteral("  ·  ") + date;
        auto* label = new QLabel(QStringLiteral("<span style='font-size:11pt'>%1</span>&nbsp;&nbsp;&nbsp;"
                                                "<span style='color:#5a6a7a'>%2</span><br>"
                                                "<span style='color:#333'>%3</span>")
                                     .arg(boldRanges(title, documents::findTerms(title, sought)),
                                          facts.toHtmlEscaped(), snippetHtml(hit.snippet)));
        label->setWordWrap(true);
        label->setTextFormat(Qt::RichText);
        label->setContentsMargins(6, 4, 6, 4);
        label->setAttribute(Qt::WA_TransparentForMouseEvents);
        lstResults->setItemWidget(new QListWidgetItem(lstResults), label);
    }
    fitResults();
    if (!hits_.empty()) lstResults->setCurrentRow(0);

    const QString typed = txtQuery->text().trimmed();
    if (!indexed)
        lblStatus->setText(QStringLiteral("This library has no text index: it was made by an older library builder. "
                                          "Build the library again to search the words of its documents."));
    else if (!failure.isEmpty())
        lblStatus->setText(QStringLiteral("The search failed: ") + failure);
    else if (typed.isEmpty())
        lblStatus->setText(QStringLiteral("Type words of any Act, Rule, Circular, Notification, Schedule, "
                                          "Judgement or Form."));
    else if (!shownQuery_.searchable())
        lblStatus->setText(QStringLiteral("Give a word that must be found: NOT only leaves documents out."));
    else if (hits_.empty())
        lblStatus->setText(QStringLiteral("No document holds these words."));
    else
        lblStatus->setText(hits_.size() == 1 ? QStringLiteral("1 document")
                                             : QStringLiteral("%1 documents, best first").arg(hits_.size()));
    if (std::exchange(openWhenFound_, false) && !hits_.empty()) OpenResult();
    emit Searched();
}

void frmTextSearch::OpenResult() {
    const int row = std::max(0, lstResults->currentRow());
    if (row >= int(hits_.size())) return;
    try {
        if (!openTextResult(hits_[size_t(row)].values[textKey])) return;
        documents::markSearchHits(forms::get<keralaforms>(QStringLiteral("keralaforms"))->OLE1, shownQuery_);
    } catch (const basic::RuntimeError& e) {
        forms::MsgBox(QStringLiteral("The document cannot be shown: ") + e.description(), forms::vbExclamation,
                      QStringLiteral("Search the library"));
    }
}

void frmTextSearch::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    txtQuery->setFocus();
    txtQuery->selectAll();
}

void frmTextSearch::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) {
        hide();
        return;
    }
    QWidget::keyPressEvent(event);
}

// Each result is as tall as its wrapped text at the list's present width.
void frmTextSearch::fitResults() {
    const int width = lstResults->viewport()->width() - 2 * lstResults->spacing();
    for (int i = 0; i < lstResults->count(); ++i) {
        QListWidgetItem* item = lstResults->item(i);
        item->setSizeHint(QSize(width, lstResults->itemWidget(item)->heightForWidth(width)));
    }
}

bool frmTextSearch::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lstResults->viewport() && event->type() == QEvent::Resize) fitResults();
    if (watched == txtQuery && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Down || key == Qt::Key_Up) {
            txtQuery_KeyPress(key);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace library
