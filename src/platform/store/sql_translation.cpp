#include "platform/store/sql_translation.h"

#include "platform/basic/date_text.h"

#include <QDate>
#include <QRegularExpression>
#include <QSet>
#include <vector>

namespace store {

using namespace Qt::StringLiterals;

namespace {

struct Token {
    enum Kind { Word, Ident, String, Number, Date, Symbol, End };
    Kind kind;
    QString text;   // Word, Symbol, Number as written; Ident and String unquoted; Date the literal's inside
};

// Splits a statement into tokens. Unknown characters become one-character symbols, so nothing is lost.
std::vector<Token> tokenize(const QString& s) {
    std::vector<Token> out;
    const qsizetype n = s.size();
    qsizetype i = 0;
    auto quoted = [&](QChar close, bool doubled) {
        QString text;
        ++i;
        while (i < n) {
            if (s[i] == close) {
                if (doubled && i + 1 < n && s[i + 1] == close) {
                    text += close;
                    i += 2;
                    continue;
                }
                ++i;
                break;
            }
            text += s[i++];
        }
        return text;
    };
    while (i < n) {
        const QChar c = s[i];
        if (c.isSpace()) {
            ++i;
        } else if (c == u'\'') {
            out.push_back({Token::String, quoted(u'\'', true)});
        } else if (c == u'"') {
            out.push_back({Token::String, quoted(u'"', true)});
        } else if (c == u'[') {
            out.push_back({Token::Ident, quoted(u']', false)});
        } else if (c == u'`') {
            out.push_back({Token::Ident, quoted(u'`', false)});
        } else if (c == u'#' && s.indexOf(u'#', i + 1) > i) {
            out.push_back({Token::Date, quoted(u'#', false)});
        } else if (c.isDigit() || (c == u'.' && i + 1 < n && s[i + 1].isDigit())) {
            const qsizetype start = i;
            while (i < n && (s[i].isDigit() || s[i] == u'.')) ++i;
            if (i < n && (s[i] == u'e' || s[i] == u'E')) {
                qsizetype j = i + 1;
                if (j < n && (s[j] == u'+' || s[j] == u'-')) ++j;
                if (j < n && s[j].isDigit()) {
                    i = j;
                    while (i < n && s[i].isDigit()) ++i;
                }
            }
            out.push_back({Token::Number, s.mid(start, i - start)});
        } else if (c.isLetter() || c == u'_') {
            const qsizetype start = i;
            while (i < n && (s[i].isLetterOrNumber() || s[i] == u'_' || s[i] == u'$')) ++i;
            out.push_back({Token::Word, s.mid(start, i - start)});
        } else {
            QString op(c);
            if (i + 1 < n) {
                const QString two = s.mid(i, 2);
                if (two == u"<>"_s || two == u"<="_s || two == u">="_s || two == u"!="_s || two == u"||"_s) op = two;
            }
            i += op.size();
            out.push_back({Token::Symbol, op});
        }
    }
    out.push_back({Token::End, QString()});
    return out;
}

bool isKeyword(const QString& word) {
    static const QSet<QString> words = {
        u"SELECT"_s, u"FROM"_s, u"WHERE"_s, u"AND"_s, u"OR"_s, u"NOT"_s, u"AS"_s, u"ORDER"_s,
        u"BY"_s, u"GROUP"_s, u"HAVING"_s, u"ASC"_s, u"DESC"_s, u"IN"_s, u"IS"_s, u"LIKE"_s,
        u"BETWEEN"_s, u"INSERT"_s, u"INTO"_s, u"VALUES"_s, u"UPDATE"_s, u"SET"_s, u"DELETE"_s,
        u"DISTINCT"_s, u"DISTINCTROW"_s, u"ON"_s, u"JOIN"_s, u"INNER"_s, u"LEFT"_s, u"RIGHT"_s,
        u"OUTER"_s, u"CROSS"_s, u"UNION"_s, u"ALL"_s, u"EXISTS"_s, u"CASE"_s, u"WHEN"_s,
        u"THEN"_s, u"ELSE"_s, u"END"_s, u"LIMIT"_s, u"CREATE"_s, u"TABLE"_s, u"DROP"_s,
        u"ALTER"_s, u"INDEX"_s, u"PRIMARY"_s, u"KEY"_s, u"DEFAULT"_s, u"COLLATE"_s, u"ESCAPE"_s};
    return words.contains(word.toUpper());
}

QString quoteIdent(const QString& name) {
    return u'"' + QString(name).replace(u'"', u"\"\""_s) + u'"';
}
QString quoteString(const QString& text) {
    return u'\'' + QString(text).replace(u'\'', u"''"_s) + u'\'';
}

// Functions that become our own SQL functions; LTrim, RTrim and Trim of SQLite trim blanks only, as wanted.
QString functionName(const QString& name) {
    static const QSet<QString> ours = {u"LCASE"_s, u"UCASE"_s, u"INSTR"_s, u"LEN"_s,
                                       u"LEFT"_s,  u"RIGHT"_s, u"MID"_s};
    const QString upper = name.toUpper();
    return ours.contains(upper) ? u"vorlan_"_s + upper.toLower() : name;
}

class Rewriter {
public:
    explicit Rewriter(std::vector<Token> tokens) : t_(std::move(tokens)) {}

    Translation run() {
        Translation r;
        const QString first = t_[0].kind == Token::Word ? t_[0].text.toUpper() : QString();
        if (first == u"SELECT"_s) r.kind = Translation::Select;
        else if (first == u"INSERT"_s) r.kind = Translation::Insert;
        else if (first == u"UPDATE"_s) r.kind = Translation::Update;
        else if (first == u"DELETE"_s) r.kind = Translation::Delete;
        kind_ = r.kind;
        r.sql = sequence(0, t_.size() - 1, true);
        r.table = table_;
        r.rowidAt = table_.isEmpty() ? -1 : rowidAt_;
        return r;
    }

private:
    const Token& at(size_t i) const { return t_[i]; }
    bool symbol(size_t i, const char* s) const {
        return t_[i].kind == Token::Symbol && t_[i].text == QLatin1String(s);
    }
    bool word(size_t i, const char* w) const {
        return t_[i].kind == Token::Word && t_[i].text.compare(QLatin1String(w), Qt::CaseInsensitive) == 0;
    }

    size_t closing(size_t open, size_t end) const {
        int depth = 0;
        for (size_t i = open; i < end; ++i) {
            if (symbol(i, "(")) ++depth;
            else if (symbol(i, ")") && --depth == 0) return i;
        }
        return end;
    }

    bool startsOperand(size_t i, size_t end) const {
        const Token& k = at(i);
        switch (k.kind) {
        case Token::Ident:
        case Token::String:
        case Token::Number:
        case Token::Date: return true;
        case Token::Word:
            if (!isKeyword(k.text)) return true;
            return (word(i, "LEFT") || word(i, "RIGHT")) && i + 1 < end && symbol(i + 1, "(");
        case Token::Symbol: return k.text == u"("_s || k.text == u"-"_s || k.text == u"+"_s;
        default: return false;
        }
    }

    // Tokens [i, end): expressions are rewritten, everything between them is copied.
    QString sequence(size_t i, size_t end, bool top = false) {
        QString out;
        bool firstFrom = true;
        while (i < end) {
            QString piece;
            if (top && i == 1 && kind_ == Translation::Delete) {
                // DELETE * FROM t and DELETE t.* FROM t: SQLite takes no column list.
                size_t j = i;
                while (j < end && !word(j, "FROM")) ++j;
                if (j < end && j > i) {
                    i = j;
                    continue;
                }
            }
            if (startsOperand(i, end)) {
                piece = expression(i, end, 0);
            } else {
                if (top && kind_ == Translation::Select && firstFrom && word(i, "FROM")) {
                    firstFrom = false;
                    noteSingleTable(i, end);
                    rowidAt_ = int(out.size());
                }
                piece = render(at(i));
                ++i;
            }
            if (!out.isEmpty() && !piece.isEmpty()) out += u' ';
            out += piece;
        }
        return out;
    }

    // A plain "SELECT <list> FROM <table> [WHERE ...] [ORDER BY ...]" can write its rows back.
    void noteSingleTable(size_t from, size_t end) {
        for (size_t j = 1; j < from; ++j)
            if (word(j, "DISTINCT") || word(j, "DISTINCTROW")) return;
        const size_t name = from + 1;
        if (name >= end || (at(name).kind != Token::Word && at(name).kind != Token::Ident)) return;
        if (at(name).kind == Token::Word && isKeyword(at(name).text)) return;
        const size_t next = name + 1;
        if (!(next >= end || word(next, "WHERE") || word(next, "ORDER") || symbol(next, ";"))) return;
        for (size_t j = next; j < end; ++j)
            if (word(j, "GROUP") || word(j, "UNION") || word(j, "JOIN")) return;
        table_ = at(name).text;
    }

    QString render(const Token& k) const {
        switch (k.kind) {
        case Token::Ident: return quoteIdent(k.text);
        case Token::String: return quoteString(k.text);
        case Token::Date: {
            const QDate d = dateLiteral(k.text);
            return quoteString(d.isValid() ? d.toString(u"yyyy-MM-dd"_s) : k.text);
        }
        default: return k.text;
        }
    }

    static int precedence(const Token& k) {
        if (k.kind != Token::Symbol) return -1;
        if (k.text == u"*"_s || k.text == u"/"_s) return 3;
        if (k.text == u"+"_s || k.text == u"-"_s) return 2;
        if (k.text == u"&"_s) return 1;
        return -1;
    }

    // Precedence climbing over + - * / &; the arithmetic binds tighter than &, as in the desktop engine.
    QString expression(size_t& i, size_t end, int minPrecedence) {
        QString left = unary(i, end);
        while (i < end) {
            const int p = precedence(at(i));
            if (p < 0 || p < minPrecedence) break;
            const QString op = at(i).text;
            ++i;
            if (i >= end) return left + u' ' + op;
            const QString right = expression(i, end, p + 1);
            if (op == u"+"_s) left = u"vorlan_plus("_s + left + u", "_s + right + u')';
            else if (op == u"&"_s) left = u"vorlan_join("_s + left + u", "_s + right + u')';
            else left = left + u' ' + op + u' ' + right;
        }
        return left;
    }

    QString unary(size_t& i, size_t end) {
        if (symbol(i, "-") || symbol(i, "+")) {
            const bool minus = symbol(i, "-");
            ++i;
            if (i >= end) return minus ? u"-"_s : QString();
            const QString operand = unary(i, end);
            return minus ? u"-"_s + operand : operand;
        }
        return primary(i, end);
    }

    QString primary(size_t& i, size_t end) {
        const Token& k = at(i);
        if (k.kind == Token::Symbol && k.text == u"("_s) {
            const size_t close = closing(i, end);
            const QString inner = sequence(i + 1, close);
            i = close < end ? close + 1 : end;
            return u"("_s + inner + u")"_s;
        }
        if (k.kind != Token::Word && k.kind != Token::Ident) {
            ++i;
            return render(k);
        }
        // A name, a dotted name (Kerala.name, [Kerala].[type], t.*) or a call.
        if (k.kind == Token::Word && i + 1 < end && symbol(i + 1, "(")) {
            const size_t close = closing(i + 1, end);
            std::vector<QString> args;
            size_t start = i + 2;
            int depth = 0;
            for (size_t j = start; j < close; ++j) {
                if (symbol(j, "(")) ++depth;
                else if (symbol(j, ")")) --depth;
                else if (depth == 0 && symbol(j, ",")) {
                    args.push_back(sequence(start, j));
                    start = j + 1;
                }
            }
            if (start < close || !args.empty()) args.push_back(sequence(start, close));
            const QString name = k.text;
            i = close < end ? close + 1 : end;
            if (name.compare(u"IIf"_s, Qt::CaseInsensitive) == 0 && args.size() == 3)
                return u"(CASE WHEN "_s + args[0] + u" THEN "_s + args[1] + u" ELSE "_s + args[2] + u" END)"_s;
            QString call = functionName(name) + u'(';
            for (size_t a = 0; a < args.size(); ++a) call += (a ? u", "_s : u""_s) + args[a];
            return call + u')';
        }
        QString name = render(k);
        ++i;
        while (i + 1 < end && symbol(i, ".")) {
            const Token& part = at(i + 1);
            if (part.kind == Token::Symbol && part.text == u"*"_s) name += u".*"_s;
            else if (part.kind == Token::Word || part.kind == Token::Ident) name += u'.' + render(part);
            else break;
            i += 2;
        }
        return name;
    }

    std::vector<Token> t_;
    Translation::Kind kind_ = Translation::Other;
    QString table_;
    int rowidAt_ = -1;
};

}  // namespace

QString Translation::sqlWithRowid() const {
    if (rowidAt < 0) return sql;
    return sql.left(rowidAt) + u", "_s + quoteIdent(table) + u".rowid "_s + sql.mid(rowidAt);
}

Translation translateSql(const QString& statement) {
    return Rewriter(tokenize(statement)).run();
}

QDate dateLiteral(const QString& text) {
    static const QRegularExpression iso(u"^\\s*(\\d{4})-(\\d{1,2})-(\\d{1,2})"_s);
    const auto m = iso.match(text);
    if (m.hasMatch()) return QDate(m.captured(1).toInt(), m.captured(2).toInt(), m.captured(3).toInt());
    return basic::parseDateText(QString(text).replace(u'/', u'-').trimmed());
}

}  // namespace store
