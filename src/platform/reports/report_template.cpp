#include "platform/reports/report_template.h"

#include "platform/basic/runtime_error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>

namespace reports {

namespace {

basic::RuntimeError malformed(const QString& file, int line, const QString& what) {
    return basic::RuntimeError(75, QStringLiteral("The report template %1 cannot be read: line %2: %3")
                                       .arg(QDir::toNativeSeparators(file))
                                       .arg(line)
                                       .arg(what));
}

QStringList cells(const QString& value) {
    QStringList out = value.split(u'|');
    for (QString& c : out) c = c.trimmed();
    return out;
}

}  // namespace

QPageLayout ReportTemplate::pageLayout() const {
    return QPageLayout(QPageSize(pageSize), orientation, marginsMm, QPageLayout::Millimeter);
}

ReportTemplate parseTemplate(const QString& text, const QString& file) {
    ReportTemplate t;
    t.file = file;
    static const QHash<QString, QPageSize::PageSizeId> sizes = {
        {"a4", QPageSize::A4}, {"a3", QPageSize::A3}, {"letter", QPageSize::Letter}, {"legal", QPageSize::Legal}};
    QString section;
    const QStringList lines = text.split(u'\n');
    for (int n = 0; n < lines.size(); ++n) {
        const int lineNo = n + 1;
        const QString line = lines[n].trimmed();
        if (line.isEmpty() || line.startsWith(u'#')) continue;
        if (line.startsWith(u'[')) {
            if (!line.endsWith(u']')) throw malformed(file, lineNo, QStringLiteral("a section name ends with ]"));
            section = line.mid(1, line.size() - 2).trimmed().toLower();
            if (section != u"page" && section != u"heading" && section != u"bills" && section != u"summary")
                throw malformed(file, lineNo, QStringLiteral("unknown section [%1]").arg(section));
            continue;
        }
        const qsizetype eq = line.indexOf(u'=');
        if (eq < 0) throw malformed(file, lineNo, QStringLiteral("expected key = value"));
        if (section.isEmpty()) throw malformed(file, lineNo, QStringLiteral("a setting before the first section"));
        const QString key = line.left(eq).trimmed().toLower();
        const QString value = line.mid(eq + 1).trimmed();
        const auto bad = [&] { return malformed(file, lineNo, QStringLiteral("unknown setting \"%1\" in [%2]").arg(key, section)); };
        const auto number = [&](const QString& s) {
            bool ok = false;
            const double v = s.toDouble(&ok);
            if (!ok || v < 0) throw malformed(file, lineNo, QStringLiteral("\"%1\" is not a number").arg(s));
            return v;
        };

        if (section == u"page") {
            if (key == u"size") {
                if (!sizes.contains(value.toLower())) throw malformed(file, lineNo, QStringLiteral("unknown page size ") + value);
                t.pageSize = sizes.value(value.toLower());
            } else if (key == u"orientation") {
                if (value.toLower() == u"portrait") t.orientation = QPageLayout::Portrait;
                else if (value.toLower() == u"landscape") t.orientation = QPageLayout::Landscape;
                else throw malformed(file, lineNo, QStringLiteral("orientation is portrait or landscape"));
            } else if (key == u"margins") {
                const QStringList m = value.split(u' ', Qt::SkipEmptyParts);
                if (m.size() != 4) throw malformed(file, lineNo, QStringLiteral("margins are four numbers: left top right bottom"));
                t.marginsMm = QMarginsF(number(m[0]), number(m[1]), number(m[2]), number(m[3]));
            } else if (key == u"font") {
                t.fontFamily = value;
            } else if (key == u"font-size") {
                t.fontSize = number(value);
                if (t.fontSize < 4) throw malformed(file, lineNo, QStringLiteral("font-size is at least 4"));
            } else if (key == u"footer") {
                t.footer = value;
            } else {
                throw bad();
            }
        } else if (section == u"heading") {
            if (key == u"source") t.headingSource = value;
            else if (key == u"title") t.title = value;
            else if (key == u"line") {
                const QStringList parts = cells(value);
                if (parts.size() > 2) throw malformed(file, lineNo, QStringLiteral("a heading line has a left and a right part"));
                t.headingLines.push_back(parts);
            } else throw bad();
        } else if (section == u"bills") {
            if (key == u"source") t.billSource = value;
            else if (key == u"order") {
                const QStringList o = value.split(u' ', Qt::SkipEmptyParts);
                if (o.isEmpty() || o.size() > 2 || (o.size() == 2 && o[1] != u"dd-mm-yy"))
                    throw malformed(file, lineNo, QStringLiteral("order is a column, optionally followed by dd-mm-yy"));
                t.orderField = o[0];
                t.orderShape = o.value(1);
            } else if (key == u"column") {
                const QStringList c = cells(value);
                if (c.size() != 4) throw malformed(file, lineNo, QStringLiteral("a column is heading | field | width | kind"));
                BillColumn col{c[0], c[1], number(c[2]), BillColumn::Text};
                if (col.width <= 0) throw malformed(file, lineNo, QStringLiteral("a column's width is above 0"));
                if (c[3] == u"text") col.kind = BillColumn::Text;
                else if (c[3] == u"trim") col.kind = BillColumn::Trim;
                else if (c[3] == u"amount") col.kind = BillColumn::Amount;
                else throw malformed(file, lineNo, QStringLiteral("a column's kind is text, trim or amount"));
                t.columns.push_back(col);
            } else throw bad();
        } else {
            if (key == u"source") t.summarySource = value;
            else if (key == u"caption") t.summaryCaption = value;
            else if (key == u"columns") t.summaryHeadings = cells(value);
            else if (key == u"row" || key == u"total") {
                const QStringList c = cells(value);
                if (t.summaryHeadings.isEmpty()) throw malformed(file, lineNo, QStringLiteral("columns come before the rows"));
                if (c.size() != t.summaryHeadings.size())
                    throw malformed(file, lineNo, QStringLiteral("a row has %1 cells, the columns are %2").arg(c.size()).arg(t.summaryHeadings.size()));
                t.summaryRows.push_back({c[0], c.mid(1), key == u"total"});
            } else throw bad();
        }
    }
    if (t.billSource.isEmpty()) throw malformed(file, int(lines.size()), QStringLiteral("[bills] names no source"));
    if (t.columns.empty()) throw malformed(file, int(lines.size()), QStringLiteral("[bills] has no column"));
    if (!t.summaryRows.empty() && t.summarySource.isEmpty())
        throw malformed(file, int(lines.size()), QStringLiteral("[summary] names no source"));
    return t;
}

ReportTemplate readTemplate(const QString& path) {
    const QString shown = QDir::toNativeSeparators(path);
    if (!QFileInfo::exists(path))
        throw basic::RuntimeError(53, QStringLiteral("The report template %1 is not there.").arg(shown));
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        throw basic::RuntimeError(75, QStringLiteral("The report template %1 cannot be read: %2").arg(shown, f.errorString()));
    const QByteArray bytes = f.readAll();
    if (bytes.contains('\0'))
        throw basic::RuntimeError(75, QStringLiteral("The report template %1 cannot be read: it is not a text file.").arg(shown));
    return parseTemplate(QString::fromUtf8(bytes), path);
}

}  // namespace reports
