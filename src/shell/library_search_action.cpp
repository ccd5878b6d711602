#include "shell/library_search_action.h"

#include "platform/forms/runtime_errors.h"
#include "platform/forms/window_registry.h"

#include <QAction>
#include <QPainter>
#include <QPainterPath>
#include <QToolBar>

namespace shell {

QIcon magnifierIcon() {
    QIcon icon;
    for (const int size : {16, 24, 32, 48}) {
        QPixmap picture(size, size);
        picture.fill(Qt::transparent);
        QPainter p(&picture);
        p.setRenderHint(QPainter::Antialiasing);
        const qreal s = size / 32.0;
        // A page of text behind the glass: the library's documents.
        p.setPen(QPen(QColor(0x7a, 0x86, 0x94), 1.2 * s));
        p.setBrush(QColor(0xfb, 0xfa, 0xf5));
        p.drawRoundedRect(QRectF(2 * s, 1.5 * s, 19 * s, 24 * s), 2 * s, 2 * s);
        p.setPen(QPen(QColor(0xa9, 0xb3, 0xbd), 1.5 * s));
        for (int line = 0; line < 4; ++line) p.drawLine(QPointF(5 * s, (6 + 4 * line) * s), QPointF(17 * s, (6 + 4 * line) * s));
        // The handle, then the glass over the page.
        p.setPen(QPen(QColor(0x5b, 0x3a, 0x1e), 4.2 * s, Qt::SolidLine, Qt::RoundCap));
        p.drawLine(QPointF(21.5 * s, 21.5 * s), QPointF(29 * s, 29 * s));
        p.setPen(QPen(QColor(0x1f, 0x4e, 0x79), 2.6 * s));
        p.setBrush(QColor(0xcf, 0xe4, 0xf7, 200));
        p.drawEllipse(QPointF(15.5 * s, 15.5 * s), 8 * s, 8 * s);
        p.setPen(QPen(QColor(255, 255, 255, 220), 1.6 * s, Qt::SolidLine, Qt::RoundCap));
        p.drawArc(QRectF(10.5 * s, 10.5 * s, 10 * s, 10 * s), 100 * 16, 70 * 16);
        p.end();
        icon.addPixmap(picture);
    }
    return icon;
}

QAction* addLibrarySearch(QToolBar* toolbar) {
    auto* search = new QAction(magnifierIcon(), QStringLiteral("Search"), toolbar);
    search->setToolTip(QStringLiteral("Search the words of every document of the library (Ctrl+Shift+F)"));
    search->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F));
    search->setShortcutContext(Qt::WindowShortcut);
    QObject::connect(search, &QAction::triggered, toolbar, [] {
        forms::guard([] {
            QWidget* window = forms::get(QStringLiteral("frmTextSearch"));
            window->show();
            window->raise();
            window->activateWindow();
        });
    });
    toolbar->addSeparator();
    toolbar->addAction(search);
    return search;
}

}  // namespace shell
