#include "library/document_view_tools.h"

#include "library/keralaforms.h"
#include "library/library_text.h"
#include "platform/basic/log.h"
#include "platform/documents/view_tools.h"
#include "platform/store/recordset.h"
#include "shell/my_mod.h"

#include <QRegularExpression>

namespace library {

namespace {

// The kind of a document by the table it lies in, where the row's own words do not tell it.
QString kindOfTable(const QString& table) {
    if (table.startsWith(QLatin1String("Globalvat"), Qt::CaseInsensitive)) return QStringLiteral("Judgement");
    if (table.compare(QLatin1String("Allshedule"), Qt::CaseInsensitive) == 0) return QStringLiteral("Schedule");
    if (table.compare(QLatin1String("CAPractice"), Qt::CaseInsensitive) == 0) return QStringLiteral("Form");
    return {};
}

// The value of a column the row has, as text; empty when it has none of that name.
QString columnText(const store::Recordset& row, const char* name) {
    for (int i = 0; i < row.FieldCount(); ++i)
        if (row.Fields(i).Name().compare(QLatin1String(name), Qt::CaseInsensitive) == 0)
            return basic::CStr(row.Fields(i).Value()).trimmed();
    return {};
}

store::Recordset firstRow(const store::Connection& cn, const QString& sql) {
    store::Recordset rs;
    rs.setActiveConnection(cn);
    rs.Open(sql);
    return rs;
}

}  // namespace

documents::PrintHead headOfRow(const documents::DataControl& source) {
    static const QRegularExpression statement(QStringLiteral(R"(^\s*select\s+.+?\s+from\s+\[?(\w+)\]?(.*)$)"),
                                              QRegularExpression::CaseInsensitiveOption |
                                                  QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch m = statement.match(source.SQL());
    if (!m.hasMatch() || source.Connect().isEmpty()) return {};
    const QString table = m.captured(1), rest = m.captured(2);
    documents::PrintHead head;
    basic::ignore(lcDocuments(), [&] {
        store::Connection cn;
        cn.setConnectionString(source.Connect());
        cn.setMode(store::Connection::adModeRead);
        cn.Open();
        store::Recordset row = firstRow(cn, QStringLiteral("select rowid, * from ") + table + rest);
        if (row.Eof()) return;
        const QString key = table + u':' + basic::CStr(row.Fields(0).Value());
        store::Recordset entry = firstRow(shell::GetFirstLibraryConnection(),
                                          QStringLiteral("select title, kind from ") + kTextTable +
                                              QStringLiteral(" where key = '") + key + u'\'');
        if (!entry.Eof()) {
            head = {basic::CStr(entry.Fields(0).Value()), basic::CStr(entry.Fields(1).Value())};
            return;
        }
        head.title = columnText(row, "name");
        if (head.title.isEmpty()) head.title = columnText(row, "Schname");
        head.kind = kindOfTable(table);
        if (head.kind.isEmpty()) head.kind = columnText(row, "type");
    });
    return head;
}

void attachViewTools(keralaforms* window) {
    documents::DataControl* source = window->MSRDC1;
    documents::OleContainer* view = window->OLE1;
    auto head = [source, view] {
        documents::PrintHead h = headOfRow(*source);
        if (h.title.isEmpty()) h = documents::headOf(*view);
        // The same document opened in full prints under the same head.
        documents::nameDocument(view->document(), h);
        return h;
    };
    documents::ViewTools::attach(view, head);
    QObject::connect(view, &documents::OleContainer::Click, window, [head] { head(); });
}

}  // namespace library
