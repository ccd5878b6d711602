#pragma once
// The record filter language, evaluated in memory on rows already read:
//   C =5   C <>'x'   C LIKE '*w*'   C>=#18/Dec/1982# AND C<#19/Dec/1982#
// Terms are joined by AND. A field name may stand bare (blanks and all) or in brackets. In LIKE, * and %
// are wild cards at the ends of the pattern; text compares without regard to case; '' is a quote.
#include "platform/basic/variant.h"

#include <QString>
#include <functional>
#include <vector>

namespace store {

struct FilterTerm {
    enum Op { Equal, NotEqual, Less, LessEqual, Greater, GreaterEqual, Like };
    enum Anchor { Exact, Prefix, Suffix, Contains, Anything };   // how a LIKE pattern is anchored
    int column = -1;
    Op op = Equal;
    basic::Variant value;
    QString pattern;                                             // LIKE: the text between wild cards, lower case
    Anchor anchor = Exact;
};

// Raises RuntimeError 3001 for text it cannot read or a field that columnOf does not know (-1).
std::vector<FilterTerm> parseFilter(const QString& filter, const std::function<int(const QString&)>& columnOf);

// A comparing term (not LIKE, which the record set matches on its lower-case copy of the column).
bool compareMatches(const FilterTerm& term, const basic::Variant& value);

}  // namespace store
