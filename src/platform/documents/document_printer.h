#pragma once
// Printing a shown document, or saving it as a PDF file: A4, the document's title and kind at the head of
// every page, the page's number and the date printed at its foot. A passage the reader has selected prints
// alone. A text document is laid out afresh for the paper, so the view's zoom and light on dark never reach
// the print; a PDF's pages are drawn as pictures, each on a page of its own. With no printer installed the
// preview still shows and the PDF is still written.
#include <QDate>
#include <QObject>
#include <QString>
#include <functional>

class QAction;
class QPrinter;
class QPrintPreviewDialog;
class QWidget;

namespace documents {

class DocumentView;

// What stands at the head of each printed page.
struct PrintHead {
    QString title, kind;
};

// A passage the reader selected in a text document; a hit lit by a search or by the find bar is none.
bool hasReaderSelection(const DocumentView& view);

// A4, portrait, margins of 20 mm at the sides and 15 mm above and below, the title as the job's name.
void preparePrinter(QPrinter& printer, const PrintHead& head);

// Draws the view's document, or only the reader's selection, on a prepared printer; the number of pages.
int printDocument(const DocumentView& view, QPrinter& printer, const PrintHead& head, bool selectionOnly,
                  const QDate& printed);

// Writes the PDF file; false, with the reason in `fault`, when it cannot be written.
bool saveAsPdf(const DocumentView& view, const QString& path, const PrintHead& head, bool selectionOnly,
               const QDate& printed, QString* fault = nullptr);

// A file name for the document's PDF, from its title: characters a file name cannot hold left out.
QString pdfFileName(const PrintHead& head);

// The heads of the documents shown lately, by their bytes: the window that shows a document of the library
// names it, and the same document opened in full prints under the same head. A document never named prints
// under its first line and the kind of its file.
void nameDocument(const QByteArray& bytes, const PrintHead& head);
PrintHead headOf(const DocumentView& view);

// Ctrl+P, the preview, from which the reader prints; Ctrl+Shift+S, saving as PDF into a file the reader
// names. `head` tells, at the time of printing, what the shown document is.
class DocumentPrinter : public QObject {
    Q_OBJECT
public:
    static DocumentPrinter* attach(DocumentView* view, std::function<PrintHead()> head);
    QAction *print, *savePdf;

    void preview();
    void saveToPdf();

    // Where the preview runs and the file is asked for; tests answer without a dialog.
    static std::function<void(QPrintPreviewDialog&)> runPreview;
    static std::function<QString(QWidget* parent, const QString& suggested)> askPdfFile;

private:
    DocumentPrinter(DocumentView* view, std::function<PrintHead()> head);
    void saveToPdf(bool selectionOnly);
    DocumentView* view_;
    std::function<PrintHead()> head_;
};

}  // namespace documents
