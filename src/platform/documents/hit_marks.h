#pragma once
// Marks on the text of a shown document: every hit lit, the current one stronger and scrolled into view.
// The marks lie over the text (extra selections); the document itself is never changed.
#include "platform/store/text_query.h"

#include <vector>

class QTextEdit;

namespace documents {

class DocumentView;

struct TextRange {
    int start = 0, end = 0;  // positions in the document's plain text
};

// Beyond this many, further hits are counted but not lit: painting that many would slow every scroll.
inline constexpr int kMostMarked = 10000;

// Lights `hits`; `current` (an index of hits, or -1) is selected and brought into view, clear of
// `coveredBelow` pixels at the foot of the view. No hits clears the marks.
void showHits(QTextEdit* text, const std::vector<TextRange>& hits, int current, int coveredBelow = 0);

// The text that hits are counted in: what the view shows of an RTF, HTML or text document, or the text of
// a PDF's pages.
QString searchableText(DocumentView* view);
// showHits on the document the view shows, its text or its PDF pages.
void showHitsIn(DocumentView* view, const std::vector<TextRange>& hits, int current, int coveredBelow = 0);

// Where the words of a full-text search stand in the shown document: each sought term, whole words
// compared as the index compares them, the last word of a prefix term by its beginning. In text order.
std::vector<TextRange> findTerms(const QString& plainText, const std::vector<store::TextTerm>& terms);

// Lights the hits of the search's terms in the shown document and brings the first into view; returns
// their number.
int markSearchHits(DocumentView* view, const store::TextQuery& query);

}  // namespace documents
