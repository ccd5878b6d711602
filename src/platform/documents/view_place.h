#pragma once
// Where a reader stands in a shown document, as a short text to keep between runs: for RTF, HTML and
// text the first character at the top of the view (so a wider or narrower window finds the same words),
// for PDF the share of the way down. The top of a document is "".
#include <QString>

namespace documents {

class DocumentView;

QString placeOf(const DocumentView* view);
// Brings the place into view; a place beyond the end goes to the end, one of another kind does nothing.
void goToPlace(DocumentView* view, const QString& place);

}  // namespace documents
