// Vorlan starts here: open the library store, then show the main window. Nothing comes between them.
#include "platform/basic/app_path.h"
#include "platform/basic/folders.h"
#include "platform/basic/log.h"
#include "platform/basic/runtime_error.h"
#include "platform/forms/colour_scheme.h"
#include "platform/forms/fonts.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/window_registry.h"
#include "platform/store/connection.h"
#include "library/reader.h"
#include "returns/practice_start.h"
#include "returns/return_schema.h"
#include "shell/library_start.h"
#include "shell/my_mod.h"
#include "graphical_session.h"
#include "windows.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <cstdio>
#include <cstring>
#include <functional>
#include <memory>

namespace {

const char kHelp[] =
    "Usage: vorlan [option]\n"
    "Vorlan: the VAT laws of Kerala, and the monthly VAT return registers beside them.\n"
    "\n"
    "  -h, --help           show this text and end\n"
    "  -v, --version        show the version and end\n"
    "  --log FILE           also write what the program logs to FILE (added to its end): every error\n"
    "                       it passes over and every fault of the store, with time and place\n"
    "  --quit-when-shown    end as soon as the first window has shown itself (for tests and timing)\n"
    "\n"
    "The library, the register templates and the reference documents are read from the program's\n"
    "folder (/usr/share/vorlan when installed); the return files are kept in the user's data folder\n"
    "(~/.local/share/Vorlan). A program folder that holds the library and can be written keeps both.\n"
    "\n"
    "Logging is off unless asked for: --log FILE, or QT_LOGGING_RULES=\"vorlan.*=true\" for the\n"
    "standard error (\"vorlan.returns.debug=true\" for one part: basic, store, forms, documents,\n"
    "reports, system, shell, library, returns, housekeeping).\n";

struct StartOptions {
    bool help = false, version = false, quitWhenShown = false;
    const char* logFile = nullptr;
    const char* wrong = nullptr;   // an option given without what it needs
};

// Read before the application object exists, so that --help and --version need no display.
// Everything else is left to Qt.
StartOptions readOptions(int argc, char** argv) {
    StartOptions o;
    for (int i = 1; i < argc; ++i) {
        const char* a = argv[i];
        if (!std::strcmp(a, "-h") || !std::strcmp(a, "--help")) o.help = true;
        if (!std::strcmp(a, "-v") || !std::strcmp(a, "--version")) o.version = true;
        if (!std::strcmp(a, "--quit-when-shown")) o.quitWhenShown = true;
        if (!std::strncmp(a, "--log=", 6)) o.logFile = a + 6;
        if (!std::strcmp(a, "--log")) {
            if (i + 1 < argc && argv[i + 1][0] != '-') o.logFile = argv[++i];
            else o.wrong = a;
        }
    }
    return o;
}

// Calls back once, when the window has first painted itself: the moment the user sees it.
class FirstPaint : public QObject {
public:
    FirstPaint(QWidget* window, std::function<void()> painted) : painted_(std::move(painted)) {
        window->installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            watched->removeEventFilter(this);
            painted_();
        }
        return false;
    }

private:
    std::function<void()> painted_;
};

}  // namespace

int main(int argc, char** argv) {
    QElapsedTimer started;
    started.start();
    const StartOptions options = readOptions(argc, argv);
    if (options.help || options.version) {
        std::fputs(options.help ? kHelp : "vorlan " VORLAN_VERSION "\n", stdout);
        return 0;
    }
    if (options.wrong || (options.logFile && !*options.logFile)) {
        std::fprintf(stderr, "vorlan: --log needs the name of a file: vorlan --log FILE\n");
        return 2;
    }
    if (options.logFile) {
        const QString reason = basic::logToFile(QString::fromLocal8Bit(options.logFile));
        if (!reason.isEmpty()) {
            std::fprintf(stderr, "vorlan: cannot write the log file %s: %s\n", options.logFile, qPrintable(reason));
            return 2;
        }
    }
    QCoreApplication::setApplicationName(QStringLiteral("Vorlan"));
    basic::UseFolders(shell::LibraryFileNames());
    // The library files' keys are derived on threads while Qt starts; InitLibraryStore finds them open.
    shell::OpenLibraryAhead();
    auto sessionCheck = std::make_unique<app::GraphicalSessionCheck>();
    QApplication application(argc, argv);
    sessionCheck.reset();
    forms::FollowDesktopScheme();

    const bool timing = qEnvironmentVariableIsSet("VORLAN_TIMING");
    if (timing) std::fprintf(stderr, "application made after %lld ms\n", started.elapsed());
    forms::LoadFonts();   // while the keys are derived
    try {
        shell::InitLibraryStore();
    } catch (const basic::RuntimeError& e) {
        // Without its library the program cannot work: say which file and where, and stop, touching nothing.
        const QString text = shell::LibraryStartFault(basic::AppPath(), e.description());
        std::fprintf(stderr, "%s\n", qPrintable(text));
        forms::MsgBox(text, forms::vbCritical, QStringLiteral("Vorlan"));
        return 1;
    }
    if (timing) std::fprintf(stderr, "library open after %lld ms\n", started.elapsed());
    // The books first: at the first start of this version, the return files of the version before are
    // taken in as they are, before anything is made beside them.
    if (!returns::PracticeReady()) return 1;
    if (!returns::ReturnStoresReady(basic::UserPath())) return 1;
    if (timing) std::fprintf(stderr, "return files ready after %lld ms\n", started.elapsed());

    app::defineWindows();
    library::startReader();   // a damaged reader's file is told now, once
    QWidget* first = forms::get(QStringLiteral("main"));
    FirstPaint shown(first, [&] {
        if (timing) std::fprintf(stderr, "first window shown after %lld ms\n", started.elapsed());
        if (options.quitWhenShown) QMetaObject::invokeMethod(&application, &QCoreApplication::quit, Qt::QueuedConnection);
    });
    first->show();
    return QApplication::exec();
}
