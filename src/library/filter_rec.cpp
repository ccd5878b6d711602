// FilterRec: the text of txtSearch as a filter on the grid's record set, at every keystroke. The kind of
// filter follows the type of the searched field; half-typed booleans and dates wait without a box.
#include <QLineEdit>

#include "library/frm_global_sections.h"
#include "platform/forms/msgbox.h"
#include "shell/my_mod.h"

namespace library {

namespace {

enum class FieldClass { Number, Currency, Text, Boolean, Date, Other };

FieldClass classOf(int adoType) {
    switch (adoType) {
    case 2: case 3: case 4: case 5: case 14: case 16: case 17: case 18: case 19: case 20: case 21: case 131:
        return FieldClass::Number;
    case 6:
        return FieldClass::Currency;
    case 8: case 129: case 130: case 200: case 201: case 202: case 203:
        return FieldClass::Text;
    case 11:
        return FieldClass::Boolean;
    case 133: case 134: case 135:
        return FieldClass::Date;
    default:
        return FieldClass::Other;
    }
}

}  // namespace

void frmGlobalSections::FilterRec() {
    try {
        if (searchColumnIndex_ < 0) return;
        const QString c = DataGrid1->ColumnCaption(searchColumnIndex_);
        QString t = txtSearch->text();
        // A bracket becomes a percent sign here: a wild card to the word search, a literal to the filter.
        t = basic::Trim(basic::Replace(basic::Trim(t), "'", "''"));
        for (const char* bracket : {"[", "]", "{", "}"}) t = basic::Trim(basic::Replace(t, bracket, "%"));

        auto refuse = [&](const QString& first, const QString& second) {
            forms::MsgBox(first + QStringLiteral("\n") + second);
            txtSearch->setSelection(0, txtSearch->text().size());
            shell::SafeSetFocus(txtSearch);
        };

        QString f;
        const FieldClass kind = classOf(recSet_.Fields(searchColumnIndex_).Type());
        if (!t.isEmpty()) {
            switch (kind) {
            case FieldClass::Number:
                if (!basic::IsNumeric(t))
                    return refuse(QStringLiteral("Not a valid numeric."), QStringLiteral("Please enter a numeric value."));
                f = c + QStringLiteral(" =") + t;
                break;
            case FieldClass::Currency:
                if (!basic::IsNumeric(t))
                    return refuse(QStringLiteral("Not a valid Currency."), QStringLiteral("Please enter a numeric value."));
                f = c + QStringLiteral(" =") + t;
                break;
            case FieldClass::Text: {
                while (t.contains(QStringLiteral("  "))) t = basic::Replace(basic::Trim(t), "  ", " ");
                for (const QString& piece : t.split(u' ')) {
                    if (basic::Trim(piece).isEmpty()) continue;
                    if (!f.isEmpty()) f += QStringLiteral(" AND ");
                    f += c + QStringLiteral(" LIKE '*") + piece + QStringLiteral("*'");
                }
                break;
            }
            case FieldClass::Boolean: {
                const QString lower = basic::LCase(t);
                if (lower == u"true" || lower == u"false" || basic::IsNumeric(t)) {
                    f = c + QStringLiteral(" =") + t;
                    break;
                }
                static const QStringList partial = {"t", "tr", "tru", "f", "fa", "fal", "fals"};
                if (partial.contains(lower)) return;
                return refuse(QStringLiteral("Not a valid boolean."),
                              QStringLiteral("Please enter ('True' or 'False' or a numeric value)."));
            }
            case FieldClass::Date: {
                if (!basic::IsDate(t)) {
                    if (t.size() <= 9) return;
                    return refuse(QStringLiteral("Not a valid date."),
                                  QStringLiteral("Please enter a valid date. Eg. 18-Dec-1982"));
                }
                const QDate d = basic::CDate(t);
                f = c + QStringLiteral(">=#") + basic::Format(d, QStringLiteral("dd/MMM/yyyy")) + QStringLiteral("# AND ") +
                    c + QStringLiteral("<#") + basic::Format(d.addDays(1), QStringLiteral("dd/MMM/yyyy")) +
                    QStringLiteral("# ");
                break;
            }
            case FieldClass::Other:
                break;
            }
        }

        if (!f.isEmpty()) {
            recSet_.setFilter(f);
            DataGrid1->Refresh();
        } else {
            recSet_.setFilter(0);
            LoadGridData();
        }
        ChangeSelection();
    } catch (const basic::RuntimeError& e) {
        if (shell::ShowErrorDetail())
            forms::MsgBox(QStringLiteral("FilterRecErr ") + e.description() + e.detail());
        else forms::MsgBox(QStringLiteral("Grid exceptional case 4"), forms::vbOKOnly, QStringLiteral("Vorlan"));
    }
}

}  // namespace library
