#pragma once
// Copy with citation: a passage followed by its source, as a practitioner quotes it in a letter:
//   "— Circular No. 12/2006 dated 14-03-2006, Kerala VAT"
// built from the title, number and date the library holds for the document (the user's own documents:
// as the user set them).
#include <QString>

#include "library/reader_documents.h"

namespace documents {
class DocumentView;
}

namespace library {

// The line that names the source, "— " and all.
QString citationOf(const DocumentFacts& facts);

struct CitedPassage {
    QString plain, html;
};
// The view's selection (all of its text when nothing is selected is not taken: the citation alone),
// followed by the citation, as plain text and as HTML.
CitedPassage citedPassage(const documents::DocumentView* view, const DocumentFacts& facts);

// Puts the cited passage of the view on the clipboard, in both forms.
void copyWithCitation(const documents::DocumentView* view, const documents::DocumentName& document);

}  // namespace library
