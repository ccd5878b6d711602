#pragma once
// The words of every document of the library, in a full-text table of the first library file, written by
// tools/vorlan-library and read by the search window. A library built before the table existed has none.
#include <QString>
#include <QStringList>

#include "platform/store/full_text.h"

namespace library {

inline const QString kTextTable = QStringLiteral("LibraryText");

// The table's columns in their order. The key is "<table>:<rowid>" of the document's row, which is what
// the document window needs to show it; the date is yyyy-mm-dd or empty.
enum TextColumn { textKey, textTitle, textKind, textDate, textBody };
inline const QStringList kTextColumns = {QStringLiteral("key"), QStringLiteral("title"), QStringLiteral("kind"),
                                         QStringLiteral("date"), QStringLiteral("body")};

// Every document is one of these.
inline const QStringList kTextKinds = {QStringLiteral("Act"),          QStringLiteral("Rules"),
                                       QStringLiteral("Circular"),     QStringLiteral("Notification"),
                                       QStringLiteral("Schedule"),     QStringLiteral("Judgement"),
                                       QStringLiteral("Form")};

// Only the title and the body are searched; a word of the title counts ten times one of the body.
inline QString textTableStatement() {
    return QStringLiteral("CREATE VIRTUAL TABLE %1 USING fts4(key, title, kind, date, body, notindexed=key, "
                          "notindexed=kind, notindexed=date, tokenize=%2)")
        .arg(kTextTable, QString::fromLatin1(store::kWordTokenizer));
}
inline const QList<double> kTextWeights = {0, 10, 0, 0, 1};

}  // namespace library
