#include "platform/store/filter.h"

#include "platform/store/errors.h"
#include "platform/store/sql_translation.h"

namespace store {

namespace {

class FilterParser {
public:
    FilterParser(const QString& text, const std::function<int(const QString&)>& columnOf)
        : s_(text), columnOf_(columnOf) {}

    std::vector<FilterTerm> run() {
        std::vector<FilterTerm> terms;
        skipBlanks();
        while (true) {
            terms.push_back(term());
            skipBlanks();
            if (p_ >= s_.size()) return terms;
            if (!keyword(u"AND")) fail();
        }
    }

private:
    [[noreturn]] void fail() { throw storeError(kBadArguments); }

    void skipBlanks() {
        while (p_ < s_.size() && s_[p_].isSpace()) ++p_;
    }

    bool keyword(QStringView word) {
        const qsizetype end = p_ + word.size();
        if (end > s_.size() || QStringView(s_).mid(p_, word.size()).compare(word, Qt::CaseInsensitive) != 0)
            return false;
        if (end < s_.size() && !s_[end].isSpace() && s_[end] != u'\'' && s_[end] != u'#') return false;
        p_ = end;
        skipBlanks();
        return true;
    }

    bool likeAt(qsizetype i) const {
        return i > 0 && s_[i - 1].isSpace() && i + 4 <= s_.size() &&
               QStringView(s_).mid(i, 4).compare(u"LIKE", Qt::CaseInsensitive) == 0 &&
               (i + 4 == s_.size() || s_[i + 4].isSpace() || s_[i + 4] == u'\'');
    }

    FilterTerm term() {
        FilterTerm t;
        QString name;
        if (p_ < s_.size() && s_[p_] == u'[') {
            const qsizetype close = s_.indexOf(u']', p_);
            if (close < 0) fail();
            name = s_.mid(p_ + 1, close - p_ - 1);
            p_ = close + 1;
            skipBlanks();
        } else {
            const qsizetype start = p_;
            while (p_ < s_.size() && s_[p_] != u'=' && s_[p_] != u'<' && s_[p_] != u'>' && !likeAt(p_)) ++p_;
            name = s_.mid(start, p_ - start).trimmed();
        }
        t.column = columnOf_(name);
        if (name.isEmpty() || t.column < 0) fail();

        if (keyword(u"LIKE")) t.op = FilterTerm::Like;
        else if (symbol(u"<=")) t.op = FilterTerm::LessEqual;
        else if (symbol(u">=")) t.op = FilterTerm::GreaterEqual;
        else if (symbol(u"<>")) t.op = FilterTerm::NotEqual;
        else if (symbol(u"<")) t.op = FilterTerm::Less;
        else if (symbol(u">")) t.op = FilterTerm::Greater;
        else if (symbol(u"=")) t.op = FilterTerm::Equal;
        else fail();

        t.value = value();
        if (t.op == FilterTerm::Like) {
            if (t.value.type() != basic::Variant::Text) fail();
            setPattern(t, t.value.text());
        }
        return t;
    }

    bool symbol(QStringView op) {
        if (QStringView(s_).mid(p_).startsWith(op)) {
            p_ += op.size();
            skipBlanks();
            return true;
        }
        return false;
    }

    basic::Variant value() {
        if (p_ >= s_.size()) fail();
        if (s_[p_] == u'\'') {
            QString text;
            for (++p_;; ++p_) {
                if (p_ >= s_.size()) fail();
                if (s_[p_] == u'\'') {
                    if (p_ + 1 < s_.size() && s_[p_ + 1] == u'\'') {
                        text += u'\'';
                        ++p_;
                        continue;
                    }
                    ++p_;
                    return text;
                }
                text += s_[p_];
            }
        }
        if (s_[p_] == u'#') {
            const qsizetype close = s_.indexOf(u'#', p_ + 1);
            if (close < 0) fail();
            const QDate d = dateLiteral(s_.mid(p_ + 1, close - p_ - 1));
            if (!d.isValid()) fail();
            p_ = close + 1;
            return d;
        }
        const qsizetype start = p_;
        while (p_ < s_.size() && !s_[p_].isSpace()) ++p_;
        const QString word = s_.mid(start, p_ - start);
        // The boolean words compare as the booleans they name, as "Flag =true" does in the platform.
        if (word.compare(u"true", Qt::CaseInsensitive) == 0) return true;
        if (word.compare(u"false", Qt::CaseInsensitive) == 0) return false;
        bool ok = false;
        const double number = word.toDouble(&ok);
        if (!ok) fail();
        return number;
    }

    static void setPattern(FilterTerm& t, const QString& pattern) {
        auto wild = [](QChar c) { return c == u'*' || c == u'%'; };
        qsizetype b = 0, e = pattern.size();
        while (b < e && wild(pattern[b])) ++b;
        const bool leading = b > 0;
        while (e > b && wild(pattern[e - 1])) --e;
        const bool trailing = e < pattern.size();
        t.pattern = pattern.mid(b, e - b).toLower();
        if (t.pattern.isEmpty() && (leading || trailing)) t.anchor = FilterTerm::Anything;
        else if (leading && trailing) t.anchor = FilterTerm::Contains;
        else if (leading) t.anchor = FilterTerm::Suffix;
        else if (trailing) t.anchor = FilterTerm::Prefix;
        else t.anchor = FilterTerm::Exact;
    }

    const QString& s_;
    const std::function<int(const QString&)>& columnOf_;
    qsizetype p_ = 0;
};

// -1, 0, 1; or 2 when the two cannot be compared (the row then does not match).
int compare(const basic::Variant& field, const basic::Variant& literal) {
    auto sign = [](auto a, auto b) { return a < b ? -1 : (b < a ? 1 : 0); };
    if (literal.type() == basic::Variant::Date) {
        if (field.type() == basic::Variant::Date) return sign(field.date(), literal.date());
        if (field.type() == basic::Variant::Text && basic::IsDate(field))
            return sign(basic::CDate(field), literal.date());
        return 2;
    }
    if (literal.isNumber()) {
        if (field.isNumber()) return sign(field.number(), literal.number());
        if (field.type() == basic::Variant::Text && basic::IsNumeric(field))
            return sign(basic::CDbl(field), literal.number());
        return 2;
    }
    if (field.type() == basic::Variant::Bytes) return 2;
    const int c = basic::CStr(field).compare(literal.text(), Qt::CaseInsensitive);
    return sign(c, 0);
}

}  // namespace

std::vector<FilterTerm> parseFilter(const QString& filter, const std::function<int(const QString&)>& columnOf) {
    return FilterParser(filter, columnOf).run();
}

bool compareMatches(const FilterTerm& t, const basic::Variant& value) {
    if (value.isNull() || value.isEmpty()) return false;
    const int c = compare(value, t.value);
    if (c == 2) return false;
    switch (t.op) {
    case FilterTerm::Equal: return c == 0;
    case FilterTerm::NotEqual: return c != 0;
    case FilterTerm::Less: return c < 0;
    case FilterTerm::LessEqual: return c <= 0;
    case FilterTerm::Greater: return c > 0;
    default: return c >= 0;
    }
}

}  // namespace store
