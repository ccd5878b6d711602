#pragma once
// Writes the three encrypted library files into a folder. Each file is built under a temporary
// name and all three are renamed into place only when every one is complete, so a failed build
// leaves the folder as it was.
#include "rows.h"

namespace libbuilder {

// With `withText`, the first file also gets the text index of every document (text_index.h); a library
// without it is what an older builder made. Throws BuildError; then no temporary file remains and no
// library file has changed.
void writeLibrary(const std::vector<TableRows>& tables, const QString& outDir, bool withText = true);

}  // namespace libbuilder
