#include "library/citation.h"

#include "platform/documents/document_view.h"
#include "platform/documents/plain_text.h"

#include <QApplication>
#include <QClipboard>
#include <QDate>
#include <QMimeData>
#include <QRegularExpression>
#include <QTextBrowser>
#include <QTextDocumentFragment>

namespace library {

namespace {

const QString kSource = QStringLiteral("Kerala VAT");

QString shownDate(const QString& iso) {
    const QDate date = QDate::fromString(iso, Qt::ISODate);
    return date.isValid() ? date.toString(QStringLiteral("dd-MM-yyyy")) : QString();
}

// "12/2006" reads "No. 12/2006"; "SRO 82/2006" reads "SRO No. 82/2006", as the Gazette numbers them.
QString numbered(const QString& number) {
    static const QRegularExpression series(QStringLiteral(R"(^([A-Za-z][A-Za-z.]*)\s+(\d.*)$)"));
    const QRegularExpressionMatch m = series.match(number);
    return m.hasMatch() ? m.captured(1) + QStringLiteral(" No. ") + m.captured(2) : QStringLiteral("No. ") + number;
}

// An act's section is its number alone ("6", "6A", "1-2"); a rule names itself ("Rule 9").
bool sectionNumber(const QString& name) {
    static const QRegularExpression section(QStringLiteral(R"(^\d+[A-Z]{0,2}(?:-\d+)?$)"));
    return section.match(name).hasMatch();
}

}  // namespace

QString citationOf(const DocumentFacts& f) {
    const QString date = shownDate(f.date);
    const QString dated = date.isEmpty() ? QString() : QStringLiteral(" dated ") + date;
    QString source;
    if (f.kind == QLatin1String("Circular") || f.kind == QLatin1String("Notification")) {
        source = f.number.isEmpty() ? f.kind + QStringLiteral(" \"") + f.title + u'"' : f.kind + u' ' + numbered(f.number);
        source += dated;
    } else if (f.kind == QLatin1String("Judgement")) {
        source = f.title + (f.number.isEmpty() ? QString() : QStringLiteral(", ") + f.number) + dated;
    } else if (f.kind == QLatin1String("Act") && sectionNumber(f.title)) {
        source = QStringLiteral("Section ") + f.title + QStringLiteral(", ") + kSource + QStringLiteral(" Act");
        return QStringLiteral("— ") + source;
    } else if (f.kind == QLatin1String("Rules") && f.title.startsWith(QLatin1String("Rule "), Qt::CaseInsensitive)) {
        source = f.title + QStringLiteral(", ") + kSource + QStringLiteral(" Rules");
        return QStringLiteral("— ") + source;
    } else {
        source = f.title + (f.number.isEmpty() ? QString() : QStringLiteral(" (") + numbered(f.number) + u')') + dated;
    }
    return QStringLiteral("— ") + source + QStringLiteral(", ") + kSource;
}

CitedPassage citedPassage(const documents::DocumentView* view, const DocumentFacts& facts) {
    const QString citation = citationOf(facts);
    const QTextCursor selection = view->kind() == documents::Kind::Pdf ? QTextCursor() : view->textBrowser()->textCursor();
    if (!selection.hasSelection()) return {citation, QStringLiteral("<p>") + citation.toHtmlEscaped() + QStringLiteral("</p>")};
    QString quoted = selection.selectedText();
    quoted.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
    QString html = selection.selection().toHtml();
    // The fragment comes as a whole page; its body is what is pasted.
    const qsizetype bodyStart = html.indexOf(QLatin1String("<!--StartFragment-->"));
    const qsizetype bodyEnd = html.indexOf(QLatin1String("<!--EndFragment-->"));
    if (bodyStart >= 0 && bodyEnd > bodyStart) html = html.mid(bodyStart + 20, bodyEnd - bodyStart - 20);
    return {quoted.trimmed() + u'\n' + citation,
            QStringLiteral("<blockquote>") + html + QStringLiteral("</blockquote><p>") + citation.toHtmlEscaped() +
                QStringLiteral("</p>")};
}

void copyWithCitation(const documents::DocumentView* view, const documents::DocumentName& document) {
    const QString text = view->kind() == documents::Kind::Pdf ? documents::plainTextOf(view->document()).text : view->plainText();
    const CitedPassage passage = citedPassage(view, factsOf(document, text));
    auto* data = new QMimeData;
    data->setText(passage.plain);
    data->setHtml(passage.html);
    QApplication::clipboard()->setMimeData(data);
}

}  // namespace library
