#pragma once
// What the head of a document's text says of it: its kind, title, number and date, as a first guess
// that the user may change. Read from the first lines only, where a circular, notification or judgement
// names itself.
#include <QString>

namespace library {

struct DocumentGuess {
    QString kind;     // one of kTextKinds, or "Other"
    QString title;
    QString number;   // "12/2006", "SRO 82/2006", "(2004) 135 STC 1"; "" when none is read
    QString date;     // yyyy-mm-dd; "" when none is read
};

inline const QString kOtherKind = QStringLiteral("Other");

// `fileName` stands in for a title when the text has no line to give one.
DocumentGuess guessDocument(const QString& text, const QString& fileName = QString());

// The date of a line "Dated 14-03-2006" (or "Date: 14.03.2006", "dated 14th March 2006") near the head.
QString guessDate(const QString& text);
// The number a title or a heading gives: "Circular No. 12/2006" gives "12/2006", "S.R.O. No. 82/2006"
// gives "SRO 82/2006".
QString guessNumber(const QString& text);

}  // namespace library
