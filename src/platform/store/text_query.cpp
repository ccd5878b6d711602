#include "platform/store/text_query.h"

#include "platform/basic/words.h"

namespace store {

namespace {

QStringList foldedWords(QStringView text) {
    QStringList words;
    for (const basic::Word& w : basic::splitWords(text)) words << w.folded;
    return words;
}

}  // namespace

bool TextQuery::searchable() const {
    for (const TextTerm& t : terms)
        if (!t.negated) return true;
    return false;
}

std::vector<TextTerm> TextQuery::sought() const {
    std::vector<TextTerm> result;
    for (const TextTerm& t : terms)
        if (!t.negated) result.push_back(t);
    return result;
}

namespace {

// Folded words hold no quote, so a quoted phrase needs no escaping.
QString phrase(const TextTerm& t) {
    return u'"' + t.words.join(u' ') + QLatin1String(t.prefix ? "*\"" : "\"");
}

}  // namespace

QString TextQuery::matchExpression() const {
    if (!searchable()) return {};
    QString expression;
    for (const TextTerm& t : terms) {
        if (t.negated) continue;
        if (!expression.isEmpty()) expression += u' ';
        expression += phrase(t);
        if (t.orNext) expression += QLatin1String(" OR");
    }
    return expression;
}

QString TextQuery::exclusionExpression() const {
    QStringList any;
    for (const TextTerm& t : terms)
        if (t.negated) any << phrase(t);
    return any.join(QLatin1String(" OR "));
}

TextQuery parseTextQuery(QStringView text) {
    TextQuery query;
    bool notPending = false, orPending = false;
    auto add = [&](QStringView raw, bool prefix, bool negated) {
        TextTerm term{foldedWords(raw), prefix, negated || notPending, false};
        if (term.words.isEmpty()) return;
        notPending = false;
        // OR stands only between two terms that must be found.
        if (orPending && !query.terms.empty() && !query.terms.back().negated && !term.negated)
            query.terms.back().orNext = true;
        orPending = false;
        query.terms.push_back(std::move(term));
    };
    qsizetype i = 0;
    while (i < text.size()) {
        if (text[i].isSpace()) {
            ++i;
        } else if (text[i] == u'"') {
            const qsizetype close = text.indexOf(u'"', i + 1);
            const qsizetype end = close < 0 ? text.size() : close;
            QStringView phrase = text.sliced(i + 1, end - i - 1).trimmed();
            bool prefix = phrase.endsWith(u'*');
            i = close < 0 ? end : end + 1;
            if (i < text.size() && text[i] == u'*') {
                prefix = true;
                ++i;
            }
            add(phrase, prefix, false);
        } else {
            qsizetype end = i;
            while (end < text.size() && !text[end].isSpace() && text[end] != u'"') ++end;
            QStringView raw = text.sliced(i, end - i);
            i = end;
            if (raw == QLatin1String("OR")) {
                orPending = true;
            } else if (raw == QLatin1String("NOT") || (raw == u"-" && i < text.size() && text[i] == u'"')) {
                notPending = true;
            } else {
                const bool negated = raw.startsWith(u'-');
                add(negated ? raw.sliced(1) : raw, raw.endsWith(u'*'), negated);
            }
        }
    }
    return query;
}

}  // namespace store
