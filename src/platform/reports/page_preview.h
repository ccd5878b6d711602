#pragma once
// A print preview window: a toolbar over the pages as they will print. The register's window and the
// return's each fill the toolbar with their own buttons and paint their own pages.
#include <QPrinter>
#include <QWidget>

class QAction;
class QPrintPreviewWidget;
class QToolBar;

namespace reports {

class PagePreview : public QWidget {
    Q_OBJECT
public:
    QPrintPreviewWidget* view = nullptr;
    QToolBar* toolBar = nullptr;

    // The first page, from its top.
    void showTop();

protected:
    PagePreview(const QString& title, QWidget* parent);
    // Paints every page on the printer the preview asks with.
    virtual void paintPages(QPrinter* printer) = 0;
    // Zoom in, Zoom out, Page width, and Whole page when asked.
    void addZoomActions(bool wholePage);
    QAction* addCloseAction(const QString& text);

    QPrinter printer_;
};

}  // namespace reports
