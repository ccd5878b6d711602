#pragma once
// Widget tests need one QApplication for the whole test program; whichever test comes first makes it.
#include <QApplication>

inline QApplication* ensureApp() {
    if (auto* app = qobject_cast<QApplication*>(QCoreApplication::instance())) return app;
    static int argc = 1;
    static char name[] = "vorlan-test";
    static char* argv[] = {name, nullptr};
    return new QApplication(argc, argv);
}
