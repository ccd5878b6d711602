#include "cli.h"

#include <QGuiApplication>
#include <cstdio>

int main(int argc, char* argv[])
{
    // Reading a document's text lays it out as the program would, which wants a GUI application; the
    // builder runs where there is no display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    QTextStream err(stderr);
    return libbuilder::run(arguments, err);
}
