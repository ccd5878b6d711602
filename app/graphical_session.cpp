#include "graphical_session.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QtGlobal>
#include <cstdio>
#include <cstdlib>

namespace app {

namespace {

struct Held {
    QtMsgType type;
    QByteArray category;
    QString text;
};

QtMessageHandler passedOn = nullptr;
QList<Held>* held = nullptr;

// Where the window system should have been, in the user's terms.
QByteArray missing() {
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM"), x = qgetenv("DISPLAY"), wayland = qgetenv("WAYLAND_DISPLAY");
    if (!platform.isEmpty()) return "the window system \"" + platform + "\" cannot be started";
    if (x.isEmpty() && wayland.isEmpty()) return "no display was found (DISPLAY and WAYLAND_DISPLAY are not set)";
    return "the display \"" + (x.isEmpty() ? wayland : x) + "\" cannot be opened";
}

void hold(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (type == QtFatalMsg) {
        std::fprintf(stderr,
                     "Vorlan needs a graphical session: %s.\n"
                     "Start it from the desktop's menu, or from a terminal of the desktop.\n",
                     missing().constData());
        std::fflush(stderr);
        std::_Exit(1);
    }
    held->append({type, QByteArray(context.category), text});
}

}  // namespace

GraphicalSessionCheck::GraphicalSessionCheck() {
    held = new QList<Held>;
    passedOn = qInstallMessageHandler(hold);
}

GraphicalSessionCheck::~GraphicalSessionCheck() {
    qInstallMessageHandler(passedOn);
    for (const Held& h : *held) {
        const QMessageLogContext context(nullptr, 0, nullptr, h.category.constData());
        qt_message_output(h.type, context, h.text);
    }
    delete held;
    held = nullptr;
}

}  // namespace app
