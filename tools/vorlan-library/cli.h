#pragma once
// The command line of vorlan-library:
//   vorlan-library --source <data/library> --out <folder>
//   vorlan-library --synthetic <rows> --out <folder>
#include <QStringList>
#include <QTextStream>

namespace libbuilder {

// Returns the exit code: 0 built, 1 bad source or failed write, 2 bad arguments. Messages go to err.
int run(const QStringList& arguments, QTextStream& err);

}  // namespace libbuilder
