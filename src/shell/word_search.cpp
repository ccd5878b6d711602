#include "shell/word_search.h"

#include "platform/basic/runtime_error.h"
#include "platform/basic/variant.h"
#include "platform/forms/errors.h"
#include "platform/forms/list_box.h"
#include "platform/forms/msgbox.h"
#include "shell/my_mod.h"

namespace shell {

using basic::Replace;
using basic::Trim;

QString WordSearchQuery(const QString& table, const QString& column, const QString& searchText,
                        const QString& sortText) {
    const QString opening = searchText.startsWith(u' ') ? QStringLiteral("'% ") : QStringLiteral("'%");
    const QString end = searchText.endsWith(u' ') ? QStringLiteral(" %'") : QStringLiteral("%'");

    QString words = searchText;
    words = Replace(Trim(words), QStringLiteral("'"), QStringLiteral("''"));
    for (const char* bracket : {"[", "]", "{", "}"})
        words = Replace(Trim(words), QString::fromLatin1(bracket), QStringLiteral("%"));
    while (words.contains(QStringLiteral("  "))) words = Replace(Trim(words), QStringLiteral("  "), QStringLiteral(" "));
    words = Replace(Trim(words), QStringLiteral(" "), QStringLiteral("% %"));

    QString pattern = basic::LCase(opening + words + end);
    // The order clause rides behind the pattern.
    if (!Trim(sortText).isEmpty()) pattern += QStringLiteral(" ORDER BY ") + sortText;
    return QStringLiteral("Select  * from ") + table + QStringLiteral(" where lcase(`") + Trim(column) +
           QStringLiteral("`) like ") + pattern;
}

QString ListEntryText(const QString& value) {
    if (basic::InStr(value, QStringLiteral("-")) > 1)
        return basic::Left(value, basic::InStrRev(value, QStringLiteral("-")) - 1);
    return value;
}

void WordSearchToList(forms::ListBox* list, const QString& table, const QString& column, const QString& searchText,
                      const QString& sortText) {
    try {
        if (Trim(table).isEmpty() || Trim(column).isEmpty()) return;
        const QString query = WordSearchQuery(table, column, searchText, sortText);

        if (rsWordSearch.isNothing()) rsWordSearch = store::Recordset();
        if (rsWordSearch.State() == 1) rsWordSearch.Close();
        rsWordSearch.Open(query, getConnectionForTable(table), store::Recordset::adOpenDynamic,
                          store::Recordset::adLockOptimistic);
        if (!list) throw forms::objectNotSet();
        list->Clear();
        while (!rsWordSearch.Eof()) {
            const basic::Variant value = rsWordSearch.Fields(column).Value();
            // A Null compares as neither equal nor unequal to "", so it adds nothing either.
            if (!value.isNull() && basic::CStr(value) != QString()) {
                list->AddItem(ListEntryText(basic::CStr(value)));
                list->setItemData(list->NewIndex(),
                                  static_cast<int>(basic::CLng(rsWordSearch.Fields(QStringLiteral("id")).Value())));
            }
            rsWordSearch.MoveNext();
        }
    } catch (const basic::RuntimeError& e) {
        forms::MsgBox(QStringLiteral("WS Err ") + e.description(), forms::vbExclamation, QStringLiteral("IN_DEBUG"));
    }
}

}  // namespace shell
