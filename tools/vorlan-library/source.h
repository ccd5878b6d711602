#pragma once
// Reads the library source folder: one tab-separated file per table (<table>.tsv) and the
// documents under documents/. The format is described in data/library/README.md.
#include "rows.h"

namespace libbuilder {

// Every table of the library, read and converted to its declared types; throws BuildError.
std::vector<TableRows> readSource(const QString& sourceDir);

}  // namespace libbuilder
