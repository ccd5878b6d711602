#include "platform/documents/document_printer.h"

#include "platform/basic/clock.h"
#include "platform/documents/document_view.h"
#include "platform/basic/settings.h"
#include "platform/forms/msgbox.h"

#include <QAbstractTextDocumentLayout>
#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QPainter>
#include <QList>
#include <QPdfDocument>
#include <QPdfSelection>
#include <QPdfView>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPrinterInfo>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTextBrowser>
#include <QTextCursor>
#include <QTextDocument>
#include <QToolBar>

#include <algorithm>
#include <memory>

namespace documents {

namespace {

const QString kFolderKey = QStringLiteral("reader/pdfFolder");
constexpr int kPdfPageDpi = 300;  // a PDF page is drawn as a picture: sharp on paper, small in memory

// The bands above and below the text of each page, and the page between them, in device pixels.
struct PageFrame {
    QRectF head, body, foot;
    QFont font;
};

PageFrame frameOf(QPrinter& printer) {
    PageFrame f;
    const QRectF page(QPointF(0, 0), printer.pageLayout().paintRectPixels(printer.resolution()).size());
    f.font = QFont(QStringLiteral("DejaVu Sans"));
    f.font.setPointSizeF(8.5);
    const double line = QFontMetricsF(f.font, &printer).height();
    const double gap = line * 0.8;
    f.head = QRectF(page.left(), page.top(), page.width(), line);
    f.foot = QRectF(page.left(), page.bottom() - line, page.width(), line);
    f.body = QRectF(page.left(), f.head.bottom() + gap, page.width(), f.foot.top() - gap - f.head.bottom() - gap);
    return f;
}

void drawBands(QPainter& painter, const PageFrame& f, const PrintHead& head, int page, int pages, const QDate& printed) {
    painter.save();
    painter.setFont(f.font);
    painter.setPen(QColor(0x33, 0x33, 0x33));
    const QFontMetricsF metrics(f.font, painter.device());
    const double kindWidth = head.kind.isEmpty() ? 0 : metrics.horizontalAdvance(head.kind) + metrics.height();
    const QString title = metrics.elidedText(head.title, Qt::ElideRight, f.head.width() - kindWidth);
    painter.drawText(f.head, Qt::AlignLeft | Qt::AlignVCenter, title);
    painter.drawText(f.head, Qt::AlignRight | Qt::AlignVCenter, head.kind);
    painter.drawText(f.foot, Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("Printed on ") + printed.toString(QStringLiteral("dd-MM-yyyy")));
    painter.drawText(f.foot, Qt::AlignRight | Qt::AlignVCenter, QStringLiteral("Page %1 of %2").arg(page).arg(pages));
    QPen rule(QColor(0x99, 0x99, 0x99));
    rule.setWidthF(painter.device()->logicalDpiY() / 150.0);
    painter.setPen(rule);
    const double below = f.head.bottom() + (f.body.top() - f.head.bottom()) / 2;
    const double above = f.body.bottom() + (f.foot.top() - f.body.bottom()) / 2;
    painter.drawLine(QPointF(f.head.left(), below), QPointF(f.head.right(), below));
    painter.drawLine(QPointF(f.foot.left(), above), QPointF(f.foot.right(), above));
    painter.restore();
}

// The document laid out for the paper: a copy, cut to the selection when only that is printed.
std::unique_ptr<QTextDocument> paperCopy(const QTextBrowser& text, bool selectionOnly) {
    std::unique_ptr<QTextDocument> copy(text.document()->clone());
    if (selectionOnly) {
        const QTextCursor selected = text.textCursor();
        QTextCursor cut(copy.get());
        cut.setPosition(selected.selectionEnd());
        cut.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
        cut.removeSelectedText();
        cut.setPosition(0);
        cut.setPosition(selected.selectionStart(), QTextCursor::KeepAnchor);
        cut.removeSelectedText();
    }
    return copy;
}

int printText(const DocumentView& view, QPrinter& printer, QPainter& painter, const PrintHead& head, bool selectionOnly,
              const QDate& printed) {
    const PageFrame f = frameOf(printer);
    std::unique_ptr<QTextDocument> copy = paperCopy(*view.textBrowser(), selectionOnly);
    copy->documentLayout()->setPaintDevice(&printer);
    copy->setDocumentMargin(0);
    copy->setPageSize(f.body.size());
    const int pages = std::max(1, copy->pageCount());
    QAbstractTextDocumentLayout::PaintContext context;
    // Ink on paper, whatever the desktop's palette.
    context.palette.setColor(QPalette::Text, Qt::black);
    for (int page = 1; page <= pages; ++page) {
        if (page > 1) printer.newPage();
        drawBands(painter, f, head, page, pages, printed);
        painter.save();
        painter.translate(f.body.topLeft());
        painter.setClipRect(QRectF(QPointF(0, 0), f.body.size()));
        painter.translate(0, -(page - 1) * f.body.height());
        context.clip = QRectF(0, (page - 1) * f.body.height(), f.body.width(), f.body.height());
        copy->documentLayout()->draw(&painter, context);
        painter.restore();
    }
    return pages;
}

int printPdf(const DocumentView& view, QPrinter& printer, QPainter& painter, const PrintHead& head, const QDate& printed) {
    const PageFrame f = frameOf(printer);
    QPdfDocument* pdf = view.pdfView()->document();
    const int pages = pdf ? pdf->pageCount() : 0;
    for (int page = 0; page < std::max(1, pages); ++page) {
        if (page > 0) printer.newPage();
        drawBands(painter, f, head, page + 1, std::max(1, pages), printed);
        if (page >= pages) break;
        const QSizeF points = pdf->pagePointSize(page);
        const double scale = std::min(f.body.width() / points.width(), f.body.height() / points.height());
        const QSizeF drawn = points * scale;
        const QRectF target(f.body.left() + (f.body.width() - drawn.width()) / 2, f.body.top(), drawn.width(), drawn.height());
        const double pixels = std::min(1.0, double(kPdfPageDpi) / printer.resolution());
        painter.drawImage(target, pdf->render(page, (drawn * pixels).toSize()));
    }
    return std::max(1, pages);
}

struct Named {
    QByteArray bytes;
    PrintHead head;
};
QList<Named>& named() {
    static QList<Named> all;
    return all;
}
constexpr int kNamedKept = 20;

QString firstLine(const QString& text) {
    for (const QString& line : text.split(QRegularExpression(QStringLiteral("[\\n\\r\\x{2029}]"))))
        if (!line.trimmed().isEmpty()) return line.simplified().left(120);
    return {};
}

}  // namespace

void nameDocument(const QByteArray& bytes, const PrintHead& head) {
    QList<Named>& all = named();
    all.removeIf([&](const Named& n) { return n.bytes == bytes; });
    all.prepend({bytes, head});
    if (all.size() > kNamedKept) all.removeLast();
}

PrintHead headOf(const DocumentView& view) {
    for (const Named& n : named())
        if (n.bytes == view.document()) return n.head;
    static const char* const kinds[] = {"", "RTF document", "HTML document", "PDF document", "Text document"};
    static_assert(int(Kind::Text) == 4);
    PrintHead head{{}, QString::fromLatin1(kinds[int(view.kind())])};
    if (view.kind() != Kind::Pdf) {
        head.title = firstLine(view.plainText());
    } else if (QPdfDocument* pdf = view.pdfView()->document(); pdf && pdf->pageCount() > 0) {
        head.title = pdf->metaData(QPdfDocument::MetaDataField::Title).toString().simplified();
        if (head.title.isEmpty()) head.title = firstLine(pdf->getAllText(0).text());
    }
    return head;
}

bool hasReaderSelection(const DocumentView& view) {
    if (view.kind() == Kind::Pdf || view.kind() == Kind::None) return false;
    const QTextBrowser* text = view.textBrowser();
    const QTextCursor cursor = text->textCursor();
    if (!cursor.hasSelection()) return false;
    for (const QTextEdit::ExtraSelection& mark : text->extraSelections())
        if (mark.cursor.selectionStart() == cursor.selectionStart() && mark.cursor.selectionEnd() == cursor.selectionEnd())
            return false;
    return true;
}

void preparePrinter(QPrinter& printer, const PrintHead& head) {
    printer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(20, 15, 20, 15),
                                      QPageLayout::Millimeter));
    printer.setDocName(head.title);
    printer.setCreator(QStringLiteral("Vorlan"));
}

int printDocument(const DocumentView& view, QPrinter& printer, const PrintHead& head, bool selectionOnly,
                  const QDate& printed) {
    QPainter painter(&printer);
    if (!painter.isActive()) return 0;
    if (view.kind() == Kind::Pdf) return printPdf(view, printer, painter, head, printed);
    return printText(view, printer, painter, head, selectionOnly && hasReaderSelection(view), printed);
}

bool saveAsPdf(const DocumentView& view, const QString& path, const PrintHead& head, bool selectionOnly,
               const QDate& printed, QString* fault) {
    QPrinter printer(QPrinter::HighResolution);
    preparePrinter(printer, head);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    // QPrinter tells nothing of a file it could not make; ask the file itself first.
    QFile probe(path);
    const bool existed = probe.exists();
    if (!probe.open(QIODevice::WriteOnly | QIODevice::Append)) {
        if (fault) *fault = probe.errorString();
        return false;
    }
    probe.close();
    if (!existed) probe.remove();
    if (printDocument(view, printer, head, selectionOnly, printed) == 0) {
        if (fault) *fault = QStringLiteral("The file cannot be written.");
        return false;
    }
    return true;
}

QString pdfFileName(const PrintHead& head) {
    QString name = head.title.section(QStringLiteral(" — "), 0, 0).simplified();
    name.replace(QLatin1Char('/'), QLatin1Char('-'));
    name.remove(QRegularExpression(QStringLiteral(R"([\\:*?"<>|\x00-\x1f])")));
    if (name.size() > 80) name.truncate(80);
    return (name.trimmed().isEmpty() ? QStringLiteral("Document") : name.trimmed()) + QStringLiteral(".pdf");
}

std::function<void(QPrintPreviewDialog&)> DocumentPrinter::runPreview = [](QPrintPreviewDialog& dialog) {
    dialog.exec();
};

std::function<QString(QWidget*, const QString&)> DocumentPrinter::askPdfFile = [](QWidget* parent,
                                                                                 const QString& suggested) {
    return QFileDialog::getSaveFileName(parent, QStringLiteral("Save as PDF"), suggested,
                                        QStringLiteral("PDF files (*.pdf)"));
};

DocumentPrinter* DocumentPrinter::attach(DocumentView* view, std::function<PrintHead()> head) {
    return new DocumentPrinter(view, std::move(head));
}

DocumentPrinter::DocumentPrinter(DocumentView* view, std::function<PrintHead()> head)
    : QObject(view), print(new QAction(QStringLiteral("Print…"), view)),
      savePdf(new QAction(QStringLiteral("Save as PDF…"), view)), view_(view), head_(std::move(head)) {
    print->setShortcut(QKeySequence::Print);
    savePdf->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
    for (QAction* a : {print, savePdf}) {
        a->setShortcutContext(Qt::WindowShortcut);
        view->addAction(a);
    }
    connect(print, &QAction::triggered, this, &DocumentPrinter::preview);
    connect(savePdf, &QAction::triggered, this, [this] { saveToPdf(); });
}

void DocumentPrinter::preview() {
    if (view_->kind() == Kind::None) return;
    const PrintHead head = head_();
    QPrinter printer(QPrinter::HighResolution);
    // With no printer installed the preview's Print writes a PDF file.
    if (QPrinterInfo::availablePrinterNames().isEmpty()) printer.setOutputFormat(QPrinter::PdfFormat);
    preparePrinter(printer, head);
    QPrintPreviewDialog dialog(&printer, view_->window());
    dialog.setWindowTitle(QStringLiteral("Print: ") + head.title);
    bool selectionOnly = hasReaderSelection(*view_), thenSave = false;
    connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, [&](QPrinter* on) {
        printDocument(*view_, *on, head, selectionOnly, basic::Clock::today());
    });
    if (auto* bar = dialog.findChild<QToolBar*>()) {
        bar->addSeparator();
        if (selectionOnly) {
            QAction* only = bar->addAction(QStringLiteral("Selection only"));
            only->setCheckable(true);
            only->setChecked(true);
            only->setToolTip(QStringLiteral("Print the selected passage alone, or the whole document"));
            connect(only, &QAction::toggled, &dialog, [&](bool on) {
                selectionOnly = on;
                if (auto* pages = dialog.findChild<QPrintPreviewWidget*>()) pages->updatePreview();
            });
        }
        bar->addAction(QStringLiteral("Save as PDF…"), &dialog, [&] {
            thenSave = true;
            dialog.reject();
        });
    }
    runPreview(dialog);
    if (thenSave) saveToPdf(selectionOnly);
}

void DocumentPrinter::saveToPdf() { saveToPdf(hasReaderSelection(*view_)); }

void DocumentPrinter::saveToPdf(bool selectionOnly) {
    if (view_->kind() == Kind::None) return;
    const PrintHead head = head_();
    QSettings settings = basic::Settings();
    QString folder = settings.value(kFolderKey).toString();
    if (folder.isEmpty() || !QDir(folder).exists())
        folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (!QDir(folder).exists()) folder = QDir::homePath();
    const QString path = askPdfFile(view_->window(), QDir(folder).filePath(pdfFileName(head)));
    if (path.isEmpty()) return;
    QString fault;
    if (!saveAsPdf(*view_, path, head, selectionOnly, basic::Clock::today(), &fault)) {
        forms::MsgBox(QStringLiteral("The PDF was not saved:\n") + QDir::toNativeSeparators(path) + QStringLiteral("\n\n") + fault,
                      forms::vbExclamation);
        return;
    }
    settings.setValue(kFolderKey, QFileInfo(path).absolutePath());
}

}  // namespace documents
