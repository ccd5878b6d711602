#pragma once
// What the reader adds to a document view, in one call: print and save as PDF (Ctrl+P, Ctrl+Shift+S), zoom
// (Ctrl++, Ctrl+-, Ctrl+0, Ctrl and the wheel), light on dark (Ctrl+Shift+L), and the same on the right
// button's menu. The keys work anywhere in the view's window.
#include "platform/documents/document_printer.h"

#include <QObject>
#include <functional>

namespace documents {

class DocumentView;
class ViewDarkness;
class ViewZoom;

class ViewTools : public QObject {
    Q_OBJECT
public:
    // `head` tells what the shown document is called when it is printed; without one, headOf(view).
    static ViewTools* attach(DocumentView* view, std::function<PrintHead()> head = {});

    DocumentPrinter* printer;
    ViewZoom* zoom;
    ViewDarkness* darkness;

private:
    ViewTools(DocumentView* view, std::function<PrintHead()> head);
    void showMenu(QWidget* over, const QPoint& at);
    DocumentView* view_;
};

}  // namespace documents
