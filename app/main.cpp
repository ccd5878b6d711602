// Vorlan starts here: open the library store, then show the main window. Nothing comes between them.
#include "platform/basic/app_path.h"
#include "platform/basic/runtime_error.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/window_registry.h"
#include "platform/store/connection.h"
#include "returns/return_schema.h"
#include "shell/my_mod.h"
#include "windows.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTimer>
#include <cstdio>

int main(int argc, char** argv) {
    QElapsedTimer started;
    started.start();
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Vorlan"));
    basic::SetAppPath(QCoreApplication::applicationDirPath());

    const bool timing = qEnvironmentVariableIsSet("VORLAN_TIMING");
    if (timing) std::fprintf(stderr, "application made after %lld ms\n", started.elapsed());
    try {
        shell::InitLibraryStore();
    } catch (const basic::RuntimeError& e) {
        // Without its library the program cannot work: say which file and stop, touching nothing.
        QString file;
        for (int i = 1; i <= 3 && file.isEmpty(); ++i) {
            const QString cs = shell::libraryConnectionString(basic::AppPath(), i);
            store::Connection probe;
            probe.setConnectionString(cs);
            if (basic::resume([&] { probe.Open(); }).number() != 0) file = store::databasePath(cs);
        }
        const QString text = QStringLiteral("Vorlan cannot open its library file\n") + file +
                             QStringLiteral("\n\n") + e.description() +
                             QStringLiteral("\n\nThe file is missing or is not a Vorlan library file. "
                                            "Reinstall the library beside the program and start again.");
        std::fprintf(stderr, "%s\n", qPrintable(text));
        forms::MsgBox(text, forms::vbCritical, QStringLiteral("Vorlan"));
        return 1;
    }
    if (timing) std::fprintf(stderr, "library open after %lld ms\n", started.elapsed());
    if (!returns::ReturnStoresReady(basic::AppPath())) return 1;
    if (timing) std::fprintf(stderr, "return files ready after %lld ms\n", started.elapsed());

    app::defineWindows();
    QWidget* first = forms::get(QStringLiteral("main"));
    first->show();
    if (timing)
        QTimer::singleShot(0, [&] { std::fprintf(stderr, "first window shown after %lld ms\n", started.elapsed()); });
    return QApplication::exec();
}
