#include "synthetic.h"

#include <algorithm>

namespace libbuilder {

namespace {

QByteArray smallDocument(const QString& title)
{
    return QStringLiteral("{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Times New Roman;}}\\f0\\fs24 {\\b %1}\\par "
                          "A generated sample document of a few lines, standing in for a real text.\\par }")
        .arg(title)
        .toUtf8();
}

QString number(int i)
{
    return QString::number(i).rightJustified(6, '0');
}

Row row(const QString& origin, std::vector<Value> values)
{
    return Row{origin, std::move(values), {}};
}

}  // namespace

std::vector<TableRows> syntheticLibrary(int rows)
{
    TableRows kerala{"Kerala", {"name", "SecDesc", "type", "ChapterNo", "fname"}, {}};
    TableRows fields{"Keralafields",
                     {"ActSection", "VatJudgmentSection", "VatJudgmentCitation", "VatJudgmentSubject",
                      "RJudjmentSection", "RJudgmentCitation", "RJudgmentSubject", "CircularNumber",
                      "CircularSection", "CircularSubject", "NotificationNumber", "NotifcaionSection",
                      "NotificationSubject"},
                     {}};
    TableRows globalvat{"Globalvat", {"name", "type", "fname"}, {}};
    TableRows globalvatse{"Globalvatse", {"name", "type", "fname"}, {}};
    TableRows schedules{"Allshedule", {"Schname", "Stid", "fname"}, {}};
    TableRows practice{"CAPractice", {"name", "Type", "Weight", "fname"}, {}};

    // The rows the program asks for by name, so that every road works on a generated library too.
    const QStringList named = {"THE KERALA GENERAL SALES TAX ACT", "Section index KGST",
                               "1stDiscussion PaperGST", "Report On GST Of Task Force"};
    for (const QString& name : named)
        kerala.rows.push_back(row("named", {name, QString(), QString("Act"), qint64(0), smallDocument(name)}));
    kerala.rows.push_back(row("named", {QString("KERALA GENERAL SALES TAX RULES"), QString(), QString("Rules"),
                                        qint64(0), smallDocument("Rules")}));
    const QStringList allied = {"THE KERALA TAX ON LUXURIES ACTS 1976", "THE KERALA MONEY-LENDERS ACT 1958 ",
                                "THE KERALA AGRICULTURAL INCOME TAX ACT", "THE KERALA TAX ON LUXURIES RULES 1976",
                                "THE KERALA AGRICULTURAL INCOME TAX RULES", "MANGALYA NIDHI CESS RULES",
                                "KERALA LUXURY TAX NOTIFICATIONS"};
    for (const QString& name : allied)
        kerala.rows.push_back(row("named", {name, QString(), QString("Allied"), qint64(0), smallDocument(name)}));
    kerala.rows.push_back(row("named", {QString("xxxx Currently No items"), {}, {}, qint64(0), {}}));
    globalvat.rows.push_back(row("stand-by", {QString("default"), QString("default"),
                                              smallDocument("No document is stored for this entry")}));

    // Documents come in blocks of four: an act section, a rule, a circular, a notification.
    static const char* const kinds[] = {"Act", "Rules", "Circular", "Notification"};
    static const char* const titles[] = {"Section", "Rule", "Circular", "Notification"};
    for (int i = 0; i < rows; ++i) {
        const QString name = QString("%1 %2").arg(titles[i % 4], number(i));
        kerala.rows.push_back(row("generated document " + QString::number(i),
                                  {name, "Description of " + name, QString(kinds[i % 4]),
                                   qint64(i % 4 < 2 ? 1 + (i / 4) % 40 : 0), smallDocument(name)}));
        const QString judgment = "Judgment " + number(i);
        (i % 2 ? globalvatse : globalvat)
            .rows.push_back(row("generated judgment " + QString::number(i),
                                {judgment, QString("Judgment"), smallDocument(judgment)}));
    }
    for (int i = 0; i < rows; ++i) {
        const int block = i - i % 4;
        const QString section = "Section " + number(block);
        const QString circular = "Circular " + number(block + 2 < rows ? block + 2 : 0);
        const QString notification = "Notification " + number(block + 3 < rows ? block + 3 : 0);
        const QString judgment = "Judgment " + number(i);
        const QString n = number(i);
        fields.rows.push_back(row("generated index row " + QString::number(i),
                                  {section + '-' + section, "S" + n + '-' + judgment, "C" + n + '-' + judgment,
                                   "T" + n + '-' + judgment, "S" + n + '-' + judgment, "C" + n + '-' + judgment,
                                   "T" + n + '-' + judgment, "N" + n + '-' + circular, "S" + n + '-' + circular,
                                   "T" + n + '-' + circular, "N" + n + '-' + notification,
                                   "S" + n + '-' + notification, "T" + n + '-' + notification}));
    }
    const int small = std::max(10, rows / 100);
    for (int i = 0; i < small; ++i) {
        const QString name = "Schedule " + number(i);
        schedules.rows.push_back(row("generated schedule", {name, QString(i % 3 ? "k" : "tn"), smallDocument(name)}));
        const QString item = "Practice item " + number(i);
        practice.rows.push_back(row("generated item", {item, QString("Note"), double(small - i), smallDocument(item)}));
    }
    return {kerala, fields, globalvat, globalvatse, schedules, practice};
}

}  // namespace libbuilder
