// The reader's buttons on the main toolbars (Recent, Bookmarks, My documents) and the windows they show.
#include "library/reader.h"

#include "library/reader_documents.h"
#include "platform/documents/reader_store.h"
#include "platform/forms/drawn_icon.h"
#include "platform/forms/runtime_errors.h"
#include "platform/forms/window_registry.h"

#include <QMenu>
#include <QPainter>
#include <QStyle>
#include <QToolBar>
#include <QToolButton>

namespace library {

namespace {

QString when(const QDateTime& at) {
    const QDate today = QDate::currentDate();
    const QString time = at.toString(QStringLiteral("hh:mm"));
    if (at.date() == today) return QStringLiteral("today ") + time;
    if (at.date() == today.addDays(-1)) return QStringLiteral("yesterday ") + time;
    return at.toString(QStringLiteral("dd-MM-yyyy hh:mm"));
}

// A ribbon over a page: the bookmarks' button.
QIcon ribbonIcon() {
    return forms::drawnIcon([](QPainter& p, qreal s) {
        p.setPen(QPen(QColor(0x55, 0x55, 0x55), 1.5 * s));
        p.setBrush(QColor(0xfb, 0xfb, 0xf4));
        p.drawRect(QRectF(5 * s, 3 * s, 22 * s, 26 * s));
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(0xc0, 0x39, 0x2b));
        const QPointF ribbon[] = {{15 * s, 1 * s}, {24 * s, 1 * s}, {24 * s, 19 * s}, {19.5 * s, 15 * s}, {15 * s, 19 * s}};
        p.drawPolygon(ribbon, 5);
    });
}

void fillRecent(QMenu* menu) {
    menu->clear();
    std::vector<documents::Visit> visits;
    const basic::RuntimeError e = basic::resume([&] { visits = readerStore().recent(documents::kRecentShown); });
    if (e.number() != 0) qCWarning(lcReader) << "recent documents:" << e.description();
    if (visits.empty()) {
        menu->addAction(QStringLiteral("No document opened yet"))->setEnabled(false);
        return;
    }
    for (const documents::Visit& v : visits) {
        QString title = v.document.title;
        if (title.size() > 70) title = title.left(69) + QStringLiteral("…");
        title.replace(u'&', QStringLiteral("&&"));
        QAction* open = menu->addAction(title + u'\t' + v.document.kind + QStringLiteral("  ·  ") + when(v.when));
        open->setData(v.document.key);
        QObject::connect(open, &QAction::triggered, menu, [key = v.document.key] { forms::guard([&] { openDocument(key); }); });
    }
}

}  // namespace

void addReaderTools(QToolBar* toolbar) {
    toolbar->addSeparator();
    auto* recent = toolbar->addAction(toolbar->style()->standardIcon(QStyle::SP_FileDialogDetailedView), QStringLiteral("Recent"));
    recent->setObjectName(QStringLiteral("Recent"));
    recent->setToolTip(QStringLiteral("The last 50 documents opened, with when"));
    auto* menu = new QMenu(toolbar);
    menu->setObjectName(QStringLiteral("RecentMenu"));
    QObject::connect(menu, &QMenu::aboutToShow, menu, [menu] { fillRecent(menu); });
    recent->setMenu(menu);
    if (auto* button = qobject_cast<QToolButton*>(toolbar->widgetForAction(recent))) button->setPopupMode(QToolButton::InstantPopup);

    auto* marks = toolbar->addAction(ribbonIcon(), QStringLiteral("Bookmarks"));
    marks->setObjectName(QStringLiteral("Bookmarks"));
    marks->setToolTip(QStringLiteral("Your bookmarks, by folder (Ctrl+D in a document marks it)"));
    QObject::connect(marks, &QAction::triggered, toolbar, [] { forms::guard([] { forms::showOverInput(QStringLiteral("BookmarksWindow")); }); });

    auto* mine = toolbar->addAction(toolbar->style()->standardIcon(QStyle::SP_DirHomeIcon), QStringLiteral("My documents"));
    mine->setObjectName(QStringLiteral("MyDocuments"));
    mine->setToolTip(QStringLiteral("Documents you added to the library yourself; Add documents…"));
    QObject::connect(mine, &QAction::triggered, toolbar, [] { forms::guard([] { forms::showOverInput(QStringLiteral("MyDocumentsWindow")); }); });
}

}  // namespace library
