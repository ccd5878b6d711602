#include "cli.h"

#include "source.h"
#include "synthetic.h"
#include "writer.h"

namespace libbuilder {

int run(const QStringList& arguments, QTextStream& err)
{
    QString source, out;
    int synthetic = -1;
    for (qsizetype i = 0; i + 1 < arguments.size(); i += 2) {
        const QString& option = arguments[i];
        const QString& value = arguments[i + 1];
        if (option == "--source") {
            source = value;
        } else if (option == "--out") {
            out = value;
        } else if (option == "--synthetic") {
            bool ok = false;
            synthetic = value.toInt(&ok);
            if (!ok || synthetic < 0)
                synthetic = -2;
        } else {
            source.clear();
            break;
        }
    }
    if (arguments.size() % 2 != 0 || out.isEmpty() || (source.isEmpty() == (synthetic == -1)) ||
        synthetic == -2) {
        err << "usage: vorlan-library --source <library source folder> --out <folder>\n"
               "       vorlan-library --synthetic <rows> --out <folder>\n";
        return 2;
    }
    try {
        writeLibrary(synthetic >= 0 ? syntheticLibrary(synthetic) : readSource(source), out);
    } catch (const BuildError& error) {
        err << "vorlan-library: " << error.message << "\n";
        return 1;
    }
    return 0;
}

}  // namespace libbuilder
