// The reader's tools on documents far longer than a circular: printing to a PDF file, beside Qt's own
// print of the same text and a plain write of the bytes it makes; and one zoom step, drawn, on a 1 MB and a
// 3 MB document and on a PDF of 300 pages, beside the same view drawn with no zoom step.
#include "qt_bench_main.h"
#include "platform/documents/document_printer.h"
#include "platform/documents/document_view.h"
#include "platform/documents/zoom.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QBuffer>
#include <QFile>
#include <QPainter>
#include <QPdfDocument>
#include <QPdfView>
#include <QPdfWriter>
#include <QPrinter>
#include <QScrollBar>
#include <QSettings>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QTextDocument>
#include <benchmark/benchmark.h>

namespace {

QTemporaryDir& scratch() {
    static QTemporaryDir dir;
    return dir;
}

// Paragraphs of a circular, `paragraphs` of them: 1,000 make 37 printed pages, 7,000 a megabyte.
QByteArray longRtf(int paragraphs) {
    QByteArray rtf = "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 DejaVu Serif;}}\\f0\\fs22 ";
    for (int i = 1; i <= paragraphs; ++i)
        rtf += "{\\b " + QByteArray::number(i) + ".} Every dealer shall keep the accounts of his purchases and sales "
               "at his place of business, and produce them when the assessing authority asks.\\par ";
    return rtf + "}";
}

QByteArray longPdf(int pages) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    QPainter painter(&writer);
    for (int page = 1; page <= pages; ++page) {
        if (page > 1) writer.newPage();
        for (int line = 0; line < 40; ++line)
            painter.drawText(300, 400 + line * 320, QStringLiteral("Page %1, line %2: the input tax credit of a dealer").arg(page).arg(line));
    }
    painter.end();
    return buffer.data();
}

const documents::PrintHead kHead{QStringLiteral("Circular 18/2009 — Input tax credit"), QStringLiteral("Circular")};

void BM_PrintTextToPdf(benchmark::State& state) {
    documents::DocumentView view;
    view.setDocument(longRtf(int(state.range(0))));
    const QString path = scratch().filePath(QStringLiteral("printed.pdf"));
    for (auto _ : state) documents::saveAsPdf(view, path, kHead, false, QDate(2026, 11, 24));
    state.counters["KB"] = QFile(path).size() / 1024.0;
    QPdfDocument printed;
    printed.load(path);
    state.counters["pages"] = printed.pageCount();
}
BENCHMARK(BM_PrintTextToPdf)->Arg(1000)->Arg(5000)->Unit(benchmark::kMillisecond);

// The floor: Qt's own print of the same text to a PDF file, with no head or foot.
void BM_QtPrintFloor(benchmark::State& state) {
    documents::DocumentView view;
    view.setDocument(longRtf(int(state.range(0))));
    const QString path = scratch().filePath(QStringLiteral("qt.pdf"));
    for (auto _ : state) {
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(path);
        view.textBrowser()->document()->print(&printer);
    }
}
BENCHMARK(BM_QtPrintFloor)->Arg(1000)->Arg(5000)->Unit(benchmark::kMillisecond);

// The floor of the disk: the bytes of the printed file written plainly.
void BM_FileWriteFloor(benchmark::State& state) {
    documents::DocumentView view;
    view.setDocument(longRtf(int(state.range(0))));
    const QString printed = scratch().filePath(QStringLiteral("floor.pdf"));
    documents::saveAsPdf(view, printed, kHead, false, QDate(2026, 11, 24));
    QFile source(printed);
    source.open(QIODevice::ReadOnly);
    const QByteArray bytes = source.readAll();
    for (auto _ : state) {
        QFile out(scratch().filePath(QStringLiteral("copy.pdf")));
        out.open(QIODevice::WriteOnly);
        out.write(bytes);
    }
}
BENCHMARK(BM_FileWriteFloor)->Arg(1000)->Arg(5000)->Unit(benchmark::kMillisecond);

void BM_PrintPdfToPdf(benchmark::State& state) {
    documents::DocumentView view;
    view.setDocument(longPdf(int(state.range(0))));
    const QString path = scratch().filePath(QStringLiteral("pages.pdf"));
    for (auto _ : state) documents::saveAsPdf(view, path, kHead, false, QDate(2026, 11, 24));
}
BENCHMARK(BM_PrintPdfToPdf)->Arg(20)->Unit(benchmark::kMillisecond);

// One zoom step and the view drawn again; `middle` reads the document half way down.
void zoomStep(benchmark::State& state, const QByteArray& bytes, bool middle, bool step) {
    documents::DocumentView view;
    documents::ViewZoom::attach(&view);
    view.resize(1000, 700);
    view.show();
    view.setDocument(bytes);
    QApplication::processEvents();
    QAbstractScrollArea* area = view.kind() == documents::Kind::Pdf ? static_cast<QAbstractScrollArea*>(view.pdfView())
                                                                    : view.textBrowser();
    if (middle) {
        // Read to the middle: everything above it laid out, as it is once the reader has scrolled there.
        if (view.kind() != documents::Kind::Pdf) view.textBrowser()->document()->documentLayout()->documentSize();
        QApplication::processEvents();
        area->verticalScrollBar()->setValue(area->verticalScrollBar()->maximum() / 2);
    }
    area->viewport()->repaint();
    bool in = true;
    for (auto _ : state) {
        if (step) documents::Zoom::shared().setPercent(in ? 110 : 100);
        in = !in;
        area->viewport()->repaint();
        // Between two key presses the program lays out the rest of the document in steps.
        state.PauseTiming();
        QApplication::processEvents();
        state.ResumeTiming();
    }
    documents::Zoom::shared().setPercent(100);
}

void BM_ZoomMegabyteTop(benchmark::State& state) { zoomStep(state, longRtf(7000), false, true); }
void BM_ZoomThreeMegabytesTop(benchmark::State& state) { zoomStep(state, longRtf(21000), false, true); }
void BM_ZoomMegabyteMiddle(benchmark::State& state) { zoomStep(state, longRtf(7000), true, true); }
void BM_ZoomPdf300Pages(benchmark::State& state) { zoomStep(state, longPdf(300), true, true); }
// The floor: the same views drawn again with no zoom step.
void BM_RepaintMegabyteFloor(benchmark::State& state) { zoomStep(state, longRtf(7000), false, false); }
void BM_RepaintPdfFloor(benchmark::State& state) { zoomStep(state, longPdf(300), true, false); }
BENCHMARK(BM_ZoomMegabyteTop)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ZoomThreeMegabytesTop)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ZoomMegabyteMiddle)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ZoomPdf300Pages)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RepaintMegabyteFloor)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RepaintPdfFloor)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    // The zoom is remembered; the bench's steps go to a folder of its own.
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, scratch().path());
    return runOffscreen<QApplication>(argc, argv);
}
