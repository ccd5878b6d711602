#include "platform/documents/hit_marks.h"

#include "platform/basic/words.h"
#include "platform/documents/document_view.h"
#include "platform/documents/pdf_marks.h"

#include <QScrollBar>
#include <QTextBrowser>

#include <algorithm>

namespace documents {

void showHits(QTextEdit* text, const std::vector<TextRange>& hits, int current, int coveredBelow) {
    QList<QTextEdit::ExtraSelection> marks;
    QTextCharFormat lit, strong;
    lit.setBackground(QColor(0xff, 0xe8, 0x6e));
    strong.setBackground(QColor(0xff, 0x96, 0x32));
    const int count = int(std::min<size_t>(hits.size(), kMostMarked));
    marks.reserve(count + 1);
    for (int i = 0; i < count; ++i) {
        QTextCursor c(text->document());
        c.setPosition(hits[i].start);
        c.setPosition(hits[i].end, QTextCursor::KeepAnchor);
        marks.append({c, i == current ? strong : lit});
    }
    if (current >= count && current < int(hits.size())) {
        QTextCursor c(text->document());
        c.setPosition(hits[current].start);
        c.setPosition(hits[current].end, QTextCursor::KeepAnchor);
        marks.append({c, strong});
    }
    text->setExtraSelections(marks);
    if (current < 0 || current >= int(hits.size())) return;
    QTextCursor at(text->document());
    at.setPosition(hits[current].start);
    at.setPosition(hits[current].end, QTextCursor::KeepAnchor);
    text->setTextCursor(at);
    text->ensureCursorVisible();
    const QRect place = text->cursorRect(at);
    const int clearance = text->viewport()->height() - coveredBelow;
    if (place.bottom() > clearance)
        text->verticalScrollBar()->setValue(text->verticalScrollBar()->value() + place.bottom() - clearance +
                                            place.height());
}

std::vector<TextRange> findTerms(const QString& plainText, const std::vector<store::TextTerm>& terms) {
    const std::vector<basic::Word> words = basic::splitWords(plainText);
    std::vector<TextRange> hits;
    for (const store::TextTerm& term : terms) {
        const qsizetype n = term.words.size();
        for (size_t i = 0; n > 0 && i + size_t(n) <= words.size(); ++i) {
            bool same = true;
            for (qsizetype k = 0; same && k < n; ++k) {
                const QString& w = words[i + size_t(k)].folded;
                same = (term.prefix && k == n - 1) ? w.startsWith(term.words[k]) : w == term.words[k];
            }
            if (!same) continue;
            const basic::Word& last = words[i + size_t(n) - 1];
            hits.push_back({int(words[i].position), int(last.position + last.length)});
        }
    }
    std::sort(hits.begin(), hits.end(), [](const TextRange& a, const TextRange& b) { return a.start < b.start; });
    // Two terms may hit the same words ("tax" and "tax credit"): they are lit, and counted, once.
    std::vector<TextRange> apart;
    for (const TextRange& h : hits)
        if (apart.empty() || h.start >= apart.back().end) apart.push_back(h);
    return apart;
}

QString searchableText(DocumentView* view) {
    return view->kind() == Kind::Pdf ? PdfMarks::of(view)->text() : view->plainText();
}

void showHitsIn(DocumentView* view, const std::vector<TextRange>& hits, int current, int coveredBelow) {
    if (view->kind() == Kind::Pdf) PdfMarks::of(view)->show(hits, current, coveredBelow);
    else showHits(view->textBrowser(), hits, current, coveredBelow);
}

int markSearchHits(DocumentView* view, const store::TextQuery& query) {
    if (view->kind() == Kind::None) return 0;
    const std::vector<TextRange> hits = findTerms(searchableText(view), query.sought());
    showHitsIn(view, hits, hits.empty() ? -1 : 0);
    return int(hits.size());
}

}  // namespace documents
