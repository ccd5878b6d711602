#pragma once
// Words of a text, as the full-text index and the hit marks of a shown document both see them: a run of
// letters and digits together with the vowel signs and other marks that belong to them, so that a word of
// an Indian script stays whole, and so does a word with an optional hyphen in it. Words compare in folded
// form: case folded, optional hyphens and joiners left out, and the two spellings of a Malayalam chillu
// (the atomic letter, or consonant, virama and zero-width joiner) made one.
#include <QString>
#include <QStringView>
#include <vector>

namespace basic {

struct Word {
    qsizetype position = 0;  // in UTF-16 units of the text
    qsizetype length = 0;
    QString folded;
};

std::vector<Word> splitWords(QStringView text);

// The folded form of one word.
QString foldWord(QStringView word);

}  // namespace basic
