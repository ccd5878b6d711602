#pragma once
// The reader's tools on the document window: print, PDF, zoom and light on dark on its document, the
// printed pages headed by the title and kind the library's text index gives the shown row.
#include "platform/documents/document_printer.h"

namespace documents {
class DataControl;
}

namespace library {

class keralaforms;

void attachViewTools(keralaforms* window);

// The title and kind of the row a data control stands on: from the text index of the library when it has
// the row, else from the row's name and its table. Nothing for a statement that names no table.
documents::PrintHead headOfRow(const documents::DataControl& source);

}  // namespace library
