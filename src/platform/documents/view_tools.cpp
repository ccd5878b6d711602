#include "platform/documents/view_tools.h"

#include "platform/documents/document_view.h"
#include "platform/documents/light_on_dark.h"
#include "platform/documents/zoom.h"

#include <QMenu>
#include <QPdfView>
#include <QTextBrowser>

#include <memory>

namespace documents {

ViewTools* ViewTools::attach(DocumentView* view, std::function<PrintHead()> head) {
    if (!head) head = [view] { return headOf(*view); };
    return new ViewTools(view, std::move(head));
}

ViewTools::ViewTools(DocumentView* view, std::function<PrintHead()> head)
    : QObject(view),
      printer(DocumentPrinter::attach(view, std::move(head))),
      zoom(ViewZoom::attach(view)),
      darkness(ViewDarkness::attach(view)),
      view_(view) {
    for (QAbstractScrollArea* area : {static_cast<QAbstractScrollArea*>(view->textBrowser()),
                                      static_cast<QAbstractScrollArea*>(view->pdfView())}) {
        area->setContextMenuPolicy(Qt::CustomContextMenu);
        // A scroll area tells the place in its viewport.
        connect(area, &QWidget::customContextMenuRequested, this,
                [this, area](const QPoint& at) { showMenu(area->viewport(), at); });
    }
}

// The text's own entries (Copy, Select All) first, then every action the view has been given.
void ViewTools::showMenu(QWidget* over, const QPoint& at) {
    std::unique_ptr<QMenu> menu(over->parent() == view_->textBrowser()
                                    ? view_->textBrowser()->createStandardContextMenu(at)
                                    : new QMenu);
    if (!menu->isEmpty()) menu->addSeparator();
    menu->addActions(view_->actions());
    menu->exec(over->mapToGlobal(at));
}

}  // namespace documents
