#pragma once
// A generated library far larger than the real one, for benchmarks: `rows` index rows with every
// index column filled in label-hyphen-name shape, as many documents, each entry naming one of them.
#include "rows.h"

namespace libbuilder {

std::vector<TableRows> syntheticLibrary(int rows);

}  // namespace libbuilder
