// ODS: content.xml streamed; the data styles (decimals, percent, dates) from styles.xml and from
// content.xml's own automatic styles, which come before the tables.
#include "platform/sheets/number_format.h"
#include "platform/sheets/reader_parts.h"
#include "platform/sheets/sheet_cells.h"

#include <QHash>
#include <QXmlStreamReader>

namespace sheets {

namespace {

void checkXml(const QXmlStreamReader& x, const ZipArchive& zip, const QString& part) {
    if (!x.hasError()) return;
    if (x.error() == QXmlStreamReader::PrematureEndOfDocumentError)
        throw ReadError(zip.path(), QStringLiteral("is damaged: its part %1 breaks off (%2).")
                                        .arg(part, x.device() ? x.device()->errorString() : QString()));
    throw ReadError(zip.path(), QStringLiteral("is damaged: its part %1 is not well-formed (line %2: %3).")
                                    .arg(part).arg(x.lineNumber()).arg(x.errorString()));
}

// Data styles by name, and each cell style's data style (its own or its parent's).
struct Styles {
    QHash<QString, NumberPattern> data;
    QHash<QString, std::pair<QString, QString>> cells;   // name -> (data style, parent)

    NumberPattern of(const QString& cellStyle) const {
        QString name = cellStyle;
        for (int depth = 0; depth < 8 && !name.isEmpty(); ++depth) {
            const auto [dataStyle, parent] = cells.value(name);
            if (!dataStyle.isEmpty()) return data.value(dataStyle);
            name = parent;
        }
        return NumberPattern();
    }

    // One style element the reader stands on (number:*-style or style:style); reads it to its end.
    void read(QXmlStreamReader& x) {
        const auto a = x.attributes();
        const QString name = Attribute(a, u"name").toString();
        if (x.name() == u"style") {
            if (Attribute(a, u"family") == u"table-cell")
                cells.insert(name, {Attribute(a, u"data-style-name").toString(), Attribute(a, u"parent-style-name").toString()});
            x.skipCurrentElement();
            return;
        }
        NumberPattern p;
        using K = NumberPattern::Kind;
        if (x.name() == u"number-style" || x.name() == u"currency-style") p.kind = K::Number;
        else if (x.name() == u"percentage-style") p.kind = K::Percent;
        else if (x.name() == u"date-style") p.kind = K::Date;
        else if (x.name() == u"time-style") p.kind = K::Time;
        else return x.skipCurrentElement();
        const QString element = x.name().toString();
        bool hasTime = false;
        while (!x.atEnd()) {
            const auto token = x.readNext();
            if (token == QXmlStreamReader::EndElement && x.name() == element) break;
            if (token == QXmlStreamReader::Invalid) break;
            if (token != QXmlStreamReader::StartElement) continue;
            const auto b = x.attributes();
            if (x.name() == u"number") {
                p.decimals = Attribute(b, u"decimal-places").toInt();
                p.integerDigits = !Attribute(b, u"min-integer-digits").isEmpty() ? Attribute(b, u"min-integer-digits").toInt() : 1;
                p.grouping = Attribute(b, u"grouping") == u"true";
            } else if (x.name() == u"scientific-number" || x.name() == u"fraction") {
                p.kind = K::General;
            } else if (x.name() == u"hours" || x.name() == u"seconds") {
                hasTime = true;
            }
        }
        if (p.kind == K::Date && hasTime) p.kind = K::DateTime;
        data.insert(name, p);
    }
};

void readStyleParts(QXmlStreamReader& x, Styles& styles, const QString& end) {
    while (!x.atEnd()) {
        const auto token = x.readNext();
        if (token == QXmlStreamReader::EndElement && x.name() == end) return;
        if (token == QXmlStreamReader::Invalid) return;
        if (token == QXmlStreamReader::StartElement) styles.read(x);
    }
}

void readStylesPart(const ZipArchive& zip, Styles& styles) {
    const auto device = zip.open(QStringLiteral("styles.xml"));
    if (!device) return;
    QXmlStreamReader x(device.get());
    while (!x.atEnd() && !x.hasError())
        if (x.readNext() == QXmlStreamReader::StartElement &&
            (x.name() == u"styles" || x.name() == u"automatic-styles"))
            readStyleParts(x, styles, x.name().toString());
    checkXml(x, zip, QStringLiteral("styles.xml"));
}

// A cell's paragraphs with white space as the format has it: runs of blanks in the character data
// collapse to one, blanks at a paragraph's ends go, and text:s, text:tab and text:line-break stand for
// themselves.
class Paragraphs {
public:
    QString read(QXmlStreamReader& x) {
        QStringList paragraphs;
        while (!x.atEnd()) {
            const auto token = x.readNext();
            if (token == QXmlStreamReader::EndElement && (x.name() == u"table-cell" || x.name() == u"covered-table-cell")) break;
            if (token == QXmlStreamReader::Invalid) break;
            if (token != QXmlStreamReader::StartElement) continue;
            if (x.name() == u"p" || x.name() == u"h") {
                text_.clear();
                afterSpace_ = true;
                collapsed_ = false;
                inline_(x, x.name().toString());
                if (collapsed_) text_.chop(1);
                paragraphs << text_;
            } else {
                x.skipCurrentElement();   // notes, comments, pictures
            }
        }
        return paragraphs.join(u'\n');
    }

private:
    void inline_(QXmlStreamReader& x, const QString& end) {
        while (!x.atEnd()) {
            const auto token = x.readNext();
            if (token == QXmlStreamReader::EndElement && x.name() == end) return;
            if (token == QXmlStreamReader::Invalid) return;
            if (token == QXmlStreamReader::Characters) {
                for (QChar c : x.text()) {
                    if (c == u' ' || c == u'\t' || c == u'\n' || c == u'\r') {
                        if (afterSpace_) continue;
                        text_ += u' ';
                        afterSpace_ = collapsed_ = true;
                    } else {
                        text_ += c;
                        afterSpace_ = collapsed_ = false;
                    }
                }
            } else if (token == QXmlStreamReader::StartElement) {
                const QStringView name = x.name();
                if (name == u"s" || name == u"tab" || name == u"line-break") {
                    const int count = name == u"s" && !Attribute(x.attributes(), u"c").isEmpty() ? Attribute(x.attributes(), u"c").toInt() : 1;
                    text_ += QString(std::clamp(count, 1, 32767), name == u"s" ? u' ' : name == u"tab" ? u'\t' : u'\n');
                    afterSpace_ = collapsed_ = false;
                    x.skipCurrentElement();
                } else if (name == u"note" || name == u"annotation" || name == u"frame") {
                    x.skipCurrentElement();
                } else {
                    inline_(x, name.toString());   // span, a, and the like: their text counts
                }
            }
        }
    }
    QString text_;
    bool afterSpace_ = true;
    bool collapsed_ = false;
};

QString timeOf(QStringView duration) {
    // PT10H30M00S, PT10H30M00.5S
    int h = 0, m = 0;
    double s = 0;
    QString number;
    for (QChar c : duration.mid(duration.indexOf(u'T') + 1)) {
        if (c.isDigit() || c == u'.') { number += c; continue; }
        if (c == u'H') h = number.toInt();
        else if (c == u'M') m = number.toInt();
        else if (c == u'S') s = number.toDouble();
        number.clear();
    }
    const int secs = int(std::lround(s));
    return QStringLiteral("%1:%2:%3").arg(h, 2, 10, QLatin1Char('0')).arg(m, 2, 10, QLatin1Char('0')).arg(secs, 2, 10, QLatin1Char('0'));
}

// Past this many bytes left after the row limit, the other tables' names are looked for in the bytes.
constexpr qint64 kRawScanFrom = 4 << 20;

// The names of the tables in the rest of a long content.xml, found in its bytes: many times faster than
// reading the XML of rows that are not wanted. The file's own prefix "table:" is taken for granted here.
QStringList tableNames(QIODevice& device) {
    static const QByteArray open("<table:table"), attribute("table:name=\"");
    QStringList names;
    QByteArray buffer;
    for (;;) {
        const QByteArray more = device.read(1 << 20);
        if (more.isEmpty()) break;
        buffer += more;
        qsizetype keepFrom = std::max<qsizetype>(0, buffer.size() - open.size());
        for (qsizetype at = buffer.indexOf(open); at >= 0; at = buffer.indexOf(open, at + 1)) {
            const qsizetype close = buffer.indexOf('>', at);
            if (close < 0) {   // the tag goes on in the next chunk
                keepFrom = at;
                break;
            }
            if (!QChar(QLatin1Char(buffer[at + open.size()])).isSpace()) continue;   // table:table-row and the like
            const qsizetype value = QByteArrayView(buffer).sliced(at, close - at).indexOf(attribute);
            if (value < 0) continue;
            const qsizetype begin = at + value + attribute.size();
            const QString escaped = QString::fromUtf8(buffer.mid(begin, buffer.indexOf('"', begin) - begin));
            QXmlStreamReader unescape(QStringLiteral("<n a=\"%1\"/>").arg(escaped));
            unescape.readNextStartElement();
            names << Attribute(unescape.attributes(), u"a").toString();
        }
        buffer.remove(0, keepFrom);
    }
    return names;
}

class TableReader {
public:
    TableReader(const Styles& styles, SheetContents& out, int maxRows) : styles_(styles), sink_(out, maxRows) {}

    // Reads the table the reader stands on, to its end or to the row limit.
    bool read(QXmlStreamReader& x) {
        int row = 0;
        while (!x.atEnd()) {
            const auto token = x.readNext();
            if (token == QXmlStreamReader::EndElement && x.name() == u"table") return true;
            if (token == QXmlStreamReader::Invalid) return true;
            if (token != QXmlStreamReader::StartElement) continue;
            if (x.name() != u"table-row") continue;
            if (sink_.stopped()) return false;   // the caller goes on to the names of the other tables
            const int repeat = std::max(1, Attribute(x.attributes(), u"number-rows-repeated").toInt());
            const QStringList cells = readRow(x, row);
            // A repeated row with text is as many rows; a repeated empty row only moves the count on.
            for (int r = 0; r < repeat && !cells.isEmpty() && sink_.add(row + r, cells); ++r) {}
            row = int(std::min<qint64>(qint64(row) + repeat, 1 << 30));
        }
        return true;
    }

private:
    QStringList readRow(QXmlStreamReader& x, int row) {
        QStringList cells;
        int column = 0;
        while (!x.atEnd()) {
            const auto token = x.readNext();
            if (token == QXmlStreamReader::EndElement && x.name() == u"table-row") break;
            if (token == QXmlStreamReader::Invalid) break;
            if (token != QXmlStreamReader::StartElement) continue;
            if (x.name() != u"table-cell" && x.name() != u"covered-table-cell") continue;
            const auto a = x.attributes();
            const int repeat = std::max(1, Attribute(a, u"number-columns-repeated").toInt());
            const QString value = x.name() == u"covered-table-cell" ? (x.skipCurrentElement(), QString()) : readCell(x, a, row, column);
            if (!value.isEmpty())
                for (int c = 0; c < repeat && column + c <= kMaxColumns; ++c) {
                    if (cells.size() <= column + c) cells.resize(column + c + 1);
                    cells[column + c] = value;
                }
            column = int(std::min<qint64>(qint64(column) + repeat, kMaxColumns + 1));
        }
        while (!cells.isEmpty() && cells.constLast().isEmpty()) cells.removeLast();
        return cells;
    }

    QString readCell(QXmlStreamReader& x, const QXmlStreamAttributes& a, int row, int column) {
        const QStringView type = Attribute(a, u"value-type");
        const int across = std::max(1, Attribute(a, u"number-columns-spanned").toInt());
        const int down = std::max(1, Attribute(a, u"number-rows-spanned").toInt());
        if (across > 1 || down > 1)
            sink_.problem(row, column, QStringLiteral("Cells %1:%2 are merged; the value is read in %1 only.")
                                           .arg(CellName(row, column), CellName(row + down - 1, column + across - 1)),
                          down);
        const QString text = paragraphs_.read(x);
        const NumberPattern pattern = styles_.of(Attribute(a, u"style-name").toString());
        bool ok = false;
        const double number = Attribute(a, u"value").toDouble(&ok);
        if (type == u"float" || type == u"currency") {
            if (!ok) return text;
            return pattern.kind == NumberPattern::Kind::Number ? ShowNumber(number, pattern) : GeneralNumber(number);
        }
        if (type == u"percentage") {
            if (!ok) return text;
            return pattern.kind == NumberPattern::Kind::Percent ? ShowNumber(number, pattern) : GeneralNumber(number * 100) + u'%';
        }
        if (type == u"date") {
            QString v = Attribute(a, u"date-value").toString();
            const qsizetype fraction = v.indexOf(u'.');
            if (fraction > 0) v.truncate(fraction);
            if (v.endsWith(QStringLiteral("T00:00:00"))) v.chop(9);
            return v;
        }
        if (type == u"time") return timeOf(Attribute(a, u"time-value"));
        if (type == u"boolean") return Attribute(a, u"boolean-value") == u"true" ? QStringLiteral("TRUE") : QStringLiteral("FALSE");
        if (type.isEmpty() && text.isEmpty() && !Attribute(a, u"formula").isEmpty())
            sink_.problem(row, column, QStringLiteral("Cell %1 has a formula whose value was never saved; open the file in the spreadsheet program and save it again.")
                                           .arg(CellName(row, column)));
        return text;
    }

    const Styles& styles_;
    RowSink sink_;
    Paragraphs paragraphs_;
};

}  // namespace

SheetContents ReadOds(const ZipArchive& zip, const QString& sheetName, int maxRows) {
    if (zip.head(QStringLiteral("META-INF/manifest.xml"), 1 << 20).contains("encryption-data"))
        throw ReadError(zip.path(), QStringLiteral("is protected by a password. Open it in the spreadsheet program, "
                                                   "save a copy without the password, and read that copy."));
    Styles styles;
    readStylesPart(zip, styles);
    const auto device = zip.open(QStringLiteral("content.xml"));
    if (!device) throw ReadError(zip.path(), QStringLiteral("is damaged: its part content.xml is missing."));
    SheetContents out;
    bool chosen = false;
    QXmlStreamReader x(device.get());
    while (!x.atEnd() && !x.hasError()) {
        if (x.readNext() != QXmlStreamReader::StartElement) continue;
        if (x.name() == u"automatic-styles") {
            readStyleParts(x, styles, QStringLiteral("automatic-styles"));
        } else if (x.name() == u"table" && x.namespaceUri().endsWith(u":table:1.0")) {
            const QString name = Attribute(x.attributes(), u"name").toString();
            out.sheetNames << name;
            if (!chosen && (sheetName.isEmpty() || name == sheetName)) {
                chosen = true;
                out.sheetName = name;
                if (!TableReader(styles, out, maxRows).read(x) && device->size() - device->consumed() > kRawScanFrom) {
                    out.sheetNames << tableNames(*device);
                    break;
                }
            } else {
                x.skipCurrentElement();
            }
        }
    }
    checkXml(x, zip, QStringLiteral("content.xml"));
    if (!chosen && !sheetName.isEmpty()) {
        for (const QString& name : out.sheetNames)
            if (name.compare(sheetName, Qt::CaseInsensitive) == 0) return ReadOds(zip, name, maxRows);
        throw ReadError(zip.path(), QStringLiteral("has no sheet named \"%1\"; its sheets are %2.")
                                        .arg(sheetName, out.sheetNames.join(QStringLiteral(", "))));
    }
    if (!chosen) throw ReadError(zip.path(), QStringLiteral("has no sheet."));
    return out;
}

}  // namespace sheets
