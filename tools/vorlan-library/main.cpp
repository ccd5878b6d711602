#include "cli.h"

#include <cstdio>

int main(int argc, char* argv[])
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    QTextStream err(stderr);
    return libbuilder::run(arguments, err);
}
