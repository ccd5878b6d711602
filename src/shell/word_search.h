#pragma once
// The word search of the state browser's list page: the words typed become one LIKE pattern on the
// list's column, and the list is filled anew from the rows that match.
#include <QString>

namespace forms {
class ListBox;
}

namespace shell {

// The statement of a word search. A blank at the start or end of the text ties the first or last word
// to a word boundary; the words must stand in the column in the order typed, anything between them.
// Apostrophes are doubled and brackets and braces become '%', so no text breaks the statement.
QString WordSearchQuery(const QString& table, const QString& column, const QString& searchText,
                        const QString& sortText);

// Runs the word search on rsWordSearch and fills the list with the column's values (cut by
// ListEntryText), each entry's ItemData the row's id. An empty table or column name does nothing;
// an error shows "WS Err " and leaves the list as far as it was filled.
void WordSearchToList(forms::ListBox* list, const QString& table, const QString& column, const QString& searchText,
                      const QString& sortText);

// What a list shows of a stored "label-name" entry: the text before its last hyphen, unless the first
// hyphen is its first character, or there is none; then the whole text.
QString ListEntryText(const QString& value);

}  // namespace shell
