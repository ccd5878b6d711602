#pragma once
// PDF files made in memory for tests and benchmarks: one line a page, or a text printed as Qt prints it.
#include <QBuffer>
#include <QFont>
#include <QPainter>
#include <QPdfWriter>
#include <QStringList>
#include <QTextDocument>

// A PDF of A4 pages with one line of text each, an inch from the page's left and top.
inline QByteArray pdfOfLines(const QStringList& lines) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(72);
    QPainter painter(&writer);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(14);
    painter.setFont(font);
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (i > 0) writer.newPage();
        painter.drawText(QPointF(72, 72), lines[i]);
    }
    painter.end();
    return buffer.data();
}

// The text as a PDF with a text layer, paged as a printed QTextDocument.
inline QByteArray pdfOfText(const QString& text) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    QTextDocument document;
    document.setPlainText(text);
    document.print(&writer);
    return bytes;
}
