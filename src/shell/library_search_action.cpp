#include "shell/library_search_action.h"

#include "platform/forms/drawn_icon.h"
#include "platform/forms/runtime_errors.h"
#include "platform/forms/window_registry.h"

#include <QAction>
#include <QPainter>
#include <QToolBar>

namespace shell {

QIcon magnifierIcon() {
    return forms::drawnIcon([](QPainter& p, qreal s) {
        // A large lens over three lines of words: the words of the library, not a page of it.
        p.setPen(QPen(QColor(0xc0, 0x84, 0x1a), 5.5 * s, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(21 * s, 21 * s), QPointF(29 * s, 29 * s));
        p.setPen(QPen(QColor(0x1f, 0x4e, 0x79), 3 * s));
        p.setBrush(QColor(0xe4, 0xf0, 0xfb));
        p.drawEllipse(QPointF(13 * s, 13 * s), 10 * s, 10 * s);
        p.setPen(QPen(QColor(0x33, 0x33, 0x33), 2 * s, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(8 * s, 9.5 * s), QPointF(18 * s, 9.5 * s));
        p.drawLine(QPointF(7 * s, 13.5 * s), QPointF(19 * s, 13.5 * s));
        p.drawLine(QPointF(8 * s, 17.5 * s), QPointF(15 * s, 17.5 * s));
    });
}

QAction* addLibrarySearch(QToolBar* toolbar) {
    auto* search = new QAction(magnifierIcon(), QStringLiteral("Search"), toolbar);
    search->setToolTip(QStringLiteral("Search the words of every document of the library (Ctrl+Shift+F)"));
    search->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F));
    search->setShortcutContext(Qt::WindowShortcut);
    QObject::connect(search, &QAction::triggered, toolbar, [] {
        forms::guard([] { forms::showOverInput(QStringLiteral("frmTextSearch")); });
    });
    toolbar->addSeparator();
    toolbar->addAction(search);
    return search;
}

}  // namespace shell
