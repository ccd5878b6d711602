// XLSX: the workbook's parts found through their relationships, the chosen sheet streamed row by row
// until the row limit, then only the shared strings those rows use.
#include "platform/sheets/number_format.h"
#include "platform/sheets/reader_parts.h"
#include "platform/sheets/sheet_cells.h"

#include <QDir>
#include <QHash>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <unordered_map>

namespace sheets {

namespace {

// Past this many bytes left after the row limit, the merged cells are looked for in the bytes.
constexpr qint64 kRawScanFrom = 4 << 20;

// A shared string's stand-in until the table is read (not empty, so the row keeps its place).
const QString kPending = QString(QChar(0xFFFF));

struct Part {
    QString name;
    QString path;
    bool hidden = false;
};

struct Workbook {
    std::vector<Part> sheets;
    QString styles;
    QString sharedStrings;
    bool date1904 = false;
};

void checkXml(const QXmlStreamReader& x, const ZipArchive& zip, const QString& part) {
    if (x.hasError() && x.error() != QXmlStreamReader::PrematureEndOfDocumentError)
        throw ReadError(zip.path(), QStringLiteral("is damaged: its part %1 is not well-formed (line %2: %3).")
                                        .arg(part).arg(x.lineNumber()).arg(x.errorString()));
    if (x.hasError())
        throw ReadError(zip.path(), QStringLiteral("is damaged: its part %1 breaks off (%2).")
                                        .arg(part, x.device() ? x.device()->errorString() : QString()));
}

std::unique_ptr<ZipEntry> openPart(const ZipArchive& zip, const QString& part) {
    auto device = zip.open(part);
    if (!device) throw ReadError(zip.path(), QStringLiteral("is damaged: its part %1 is missing.").arg(part));
    return device;
}

// A relationship's target, from the folder of the part that names it.
QString resolve(const QString& folder, const QString& target) {
    if (target.startsWith(u'/')) return target.mid(1);
    return QDir::cleanPath(folder.isEmpty() ? target : folder + u'/' + target);
}

// Id -> (type's last word, target) of a part's relationships.
QHash<QString, std::pair<QString, QString>> relationships(const ZipArchive& zip, const QString& part) {
    const qsizetype slash = part.lastIndexOf(u'/');
    const QString folder = slash < 0 ? QString() : part.left(slash);
    const QString rels = (folder.isEmpty() ? QString() : folder + u'/') + QStringLiteral("_rels/") + part.mid(slash + 1) + QStringLiteral(".rels");
    QHash<QString, std::pair<QString, QString>> out;
    const auto device = zip.open(rels);
    if (!device) return out;
    QXmlStreamReader x(device.get());
    while (!x.atEnd() && !x.hasError()) {
        if (x.readNext() == QXmlStreamReader::StartElement && x.name() == u"Relationship") {
            const auto a = x.attributes();
            const QString type = Attribute(a, u"Type").toString();
            out.insert(Attribute(a, u"Id").toString(), {type.mid(type.lastIndexOf(u'/') + 1), resolve(folder, Attribute(a, u"Target").toString())});
        }
    }
    checkXml(x, zip, rels);
    return out;
}

Workbook readWorkbook(const ZipArchive& zip) {
    QString main = QStringLiteral("xl/workbook.xml");
    for (const auto& [type, target] : relationships(zip, QString()))
        if (type == u"officeDocument") main = target;
    const auto rels = relationships(zip, main);
    Workbook book;
    for (const auto& [type, target] : rels) {
        if (type == u"styles") book.styles = target;
        if (type == u"sharedStrings") book.sharedStrings = target;
    }
    const auto device = openPart(zip, main);
    QXmlStreamReader x(device.get());
    while (!x.atEnd() && !x.hasError()) {
        if (x.readNext() != QXmlStreamReader::StartElement) continue;
        const auto a = x.attributes();
        if (x.name() == u"workbookPr") {
            const auto v = Attribute(a, u"date1904");
            book.date1904 = v == u"1" || v == u"true";
        } else if (x.name() == u"sheet") {
            const auto rel = rels.value(Attribute(a, u"id").toString());   // r:id, whatever the prefix
            if (rel.first == u"worksheet")
                book.sheets.push_back({Attribute(a, u"name").toString(), rel.second, Attribute(a, u"state") != u"visible" && !Attribute(a, u"state").isEmpty()});
        }
    }
    checkXml(x, zip, main);
    if (book.sheets.empty()) throw ReadError(zip.path(), QStringLiteral("has no worksheet."));
    return book;
}

// The pattern of each cell format (the s attribute of a cell), from the styles part.
std::vector<NumberPattern> readStyles(const ZipArchive& zip, const QString& part) {
    std::vector<NumberPattern> out;
    if (part.isEmpty()) return out;
    const auto device = zip.open(part);
    if (!device) return out;
    QHash<int, QString> custom;
    QXmlStreamReader x(device.get());
    bool inCellXfs = false;
    while (!x.atEnd() && !x.hasError()) {
        const auto token = x.readNext();
        if (token == QXmlStreamReader::EndElement && x.name() == u"cellXfs") inCellXfs = false;
        if (token != QXmlStreamReader::StartElement) continue;
        const auto a = x.attributes();
        if (x.name() == u"numFmt") custom.insert(Attribute(a, u"numFmtId").toInt(), Attribute(a, u"formatCode").toString());
        else if (x.name() == u"cellXfs") inCellXfs = true;
        else if (inCellXfs && x.name() == u"xf") {
            const int id = Attribute(a, u"numFmtId").toInt();
            out.push_back(custom.contains(id) ? ParseNumberFormat(custom.value(id)) : BuiltInNumberFormat(id));
        }
    }
    checkXml(x, zip, part);
    return out;
}

// "BC12" -> column 54, row 11 (from 0); -1 where the reference has none.
void parseReference(QStringView ref, int& column, int& row) {
    qsizetype i = 0;
    int c = 0;
    for (; i < ref.size() && ref[i].isLetter(); ++i) c = std::min(c * 26 + (ref[i].toUpper().unicode() - 'A' + 1), 1 << 20);
    column = c - 1;
    bool ok = false;
    const int r = ref.mid(i).toInt(&ok);
    row = ok ? r - 1 : -1;
}

// The text of the <t> runs in an <si> or <is> element, the phonetic runs left out.
QString readRuns(QXmlStreamReader& x) {
    QString text;
    int phonetic = 0;
    const QString end = x.name().toString();
    while (!x.atEnd()) {
        const auto token = x.readNext();
        if (token == QXmlStreamReader::StartElement) {
            if (x.name() == u"rPh") ++phonetic;
            else if (x.name() == u"t" && phonetic == 0) text += x.readElementText(QXmlStreamReader::IncludeChildElements);
        } else if (token == QXmlStreamReader::EndElement) {
            if (x.name() == u"rPh") --phonetic;
            else if (x.name() == end) break;
        } else if (token == QXmlStreamReader::Invalid) {
            break;
        }
    }
    return UnescapeXlsx(text);
}

struct Pending {
    int row;
    int column;
    qsizetype index;   // into the shared strings
};

class SheetReader {
public:
    SheetReader(const ZipArchive& zip, const Workbook& book, std::vector<NumberPattern> styles, SheetContents& out, int maxRows)
        : zip_(zip), book_(book), styles_(std::move(styles)), out_(out), sink_(out, maxRows) {}

    void read(const QString& part) {
        const auto device = openPart(zip_, part);
        QXmlStreamReader x(device.get());
        int nextRow = 0;
        while (!x.atEnd() && !x.hasError()) {
            const auto token = x.readNext();
            if (token != QXmlStreamReader::StartElement) continue;
            if (sink_.stopped() && device->size() - device->consumed() > kRawScanFrom) {
                scanMerges(*device);
                break;
            }
            if (x.name() == u"row" && !sink_.stopped()) {
                bool ok = false;
                const int r = Attribute(x.attributes(), u"r").toInt(&ok) - 1;
                const int index = ok && r >= nextRow ? r : nextRow;
                readRow(x, index);
                nextRow = index + 1;
            } else if (x.name() == u"mergeCell") {
                merged(Attribute(x.attributes(), u"ref"));
            }
        }
        checkXml(x, zip_, part);
        fillSharedStrings();
    }

private:
    void readRow(QXmlStreamReader& x, int index) {
        QStringList cells;
        std::vector<Pending> pending;
        int nextColumn = 0;
        while (!x.atEnd()) {
            const auto token = x.readNext();
            if (token == QXmlStreamReader::EndElement && x.name() == u"row") break;
            if (token == QXmlStreamReader::Invalid) return;
            if (token != QXmlStreamReader::StartElement || x.name() != u"c") continue;
            const auto a = x.attributes();
            int column = -1, row = -1;
            parseReference(Attribute(a, u"r"), column, row);
            if (column < nextColumn) column = nextColumn;
            nextColumn = column + 1;
            const QString value = readCell(x, a, index, column);
            if (column > kMaxColumns || value.isEmpty()) continue;   // one past the limit tells the sink to cut
            if (cells.size() <= column) cells.resize(column + 1);
            cells[column] = value;
            if (shared_ && column < kMaxColumns) pending.push_back({index, column, sharedIndex_});
        }
        if (sink_.add(index, cells)) pending_.insert(pending_.end(), pending.begin(), pending.end());
    }

    QString readCell(QXmlStreamReader& x, const QXmlStreamAttributes& a, int row, int column) {
        const QStringView type = Attribute(a, u"t");
        shared_ = false;
        QString v, inlineText;
        bool formula = false, hasInline = false;
        while (!x.atEnd()) {
            const auto token = x.readNext();
            if (token == QXmlStreamReader::EndElement && x.name() == u"c") break;
            if (token == QXmlStreamReader::Invalid) return QString();
            if (token != QXmlStreamReader::StartElement) continue;
            if (x.name() == u"v") v = x.readElementText(QXmlStreamReader::IncludeChildElements);
            else if (x.name() == u"f") formula = true, x.skipCurrentElement();
            else if (x.name() == u"is") hasInline = true, inlineText = readRuns(x);
        }
        const QString where = CellName(row, column);
        if (type == u"inlineStr" || (hasInline && v.isEmpty())) return inlineText;
        if (v.isEmpty()) {
            if (formula) sink_.problem(row, column, QStringLiteral("Cell %1 has a formula whose value was never saved; open the file in the spreadsheet program and save it again.").arg(where));
            return QString();
        }
        if (type == u"s") {
            bool ok = false;
            const qsizetype index = v.toLongLong(&ok);
            if (!ok || index < 0) return QString();
            sharedIndex_ = index;
            shared_ = true;
            return kPending;
        }
        if (type == u"str") return UnescapeXlsx(v);
        if (type == u"b") return v == u"1" || v == u"true" ? QStringLiteral("TRUE") : QStringLiteral("FALSE");
        if (type == u"e") {
            sink_.problem(row, column, QStringLiteral("Cell %1 shows the error %2.").arg(where, v));
            return v;
        }
        if (type == u"d") return v.endsWith(u"T00:00:00") || v.endsWith(u"T00:00:00Z") ? v.left(10) : v;
        bool ok = false;
        const double number = v.toDouble(&ok);
        if (!ok) return v;
        const int style = Attribute(a, u"s").toInt();
        const NumberPattern pattern = style >= 0 && size_t(style) < styles_.size() ? styles_[size_t(style)] : NumberPattern();
        if (pattern.isDate()) {
            const QString iso = IsoOfSerial(number, book_.date1904, pattern.kind != NumberPattern::Kind::Time,
                                            pattern.kind != NumberPattern::Kind::Date);
            if (!iso.isEmpty()) return iso;
        }
        return ShowNumber(number, pattern);
    }

    // The rest of a long sheet after the row limit: its merged cells, found in the bytes, which is
    // many times faster than reading the XML of rows that are not wanted. The reader's buffer lies far
    // before the merged cells, which come after the last row.
    void scanMerges(QIODevice& device) {
        static const QByteArray start("mergeCells");
        QByteArray carry, section;
        for (;;) {   // a sequential device knows no end before a read comes back empty
            const QByteArray chunk = carry + device.read(1 << 20);
            if (chunk.size() == carry.size()) break;
            if (section.isEmpty()) {
                const qsizetype at = chunk.indexOf(start);
                if (at >= 0) section = chunk.mid(at);
                else carry = chunk.right(start.size());
            } else {
                section += chunk.mid(carry.size());
            }
            if (!section.isEmpty()) carry.clear();
            if (section.size() > (8 << 20)) break;
        }
        static const QRegularExpression ref(QStringLiteral("mergeCell\\s[^>]*?ref=\"([A-Za-z]+[0-9]+:[A-Za-z]+[0-9]+)\""));
        const QString text = QString::fromLatin1(section);
        for (auto it = ref.globalMatch(text); it.hasNext();) merged(it.next().capturedView(1));
    }

    void merged(QStringView ref) {
        const qsizetype colon = ref.indexOf(u':');
        if (colon < 0) return;
        int c1, r1, c2, r2;
        parseReference(ref.left(colon), c1, r1);
        parseReference(ref.mid(colon + 1), c2, r2);
        if (r1 < 0 || c1 < 0 || size_t(r1) >= out_.rows.size()) return;
        sink_.problem(r1, c1, QStringLiteral("Cells %1 are merged; the value is read in %2 only.")
                                  .arg(ref.toString(), CellName(r1, c1)),
                      std::max(1, r2 - r1 + 1));
    }

    // The shared strings the kept rows use, read in one pass; the others are not kept.
    void fillSharedStrings() {
        if (pending_.empty()) return;
        std::unordered_map<qsizetype, QString> wanted;
        qsizetype last = 0;
        for (const Pending& p : pending_) {
            wanted.emplace(p.index, QString());
            last = std::max(last, p.index);
        }
        if (!book_.sharedStrings.isEmpty()) {
            const auto device = openPart(zip_, book_.sharedStrings);
            QXmlStreamReader x(device.get());
            qsizetype index = 0;
            while (!x.atEnd() && !x.hasError() && index <= last) {
                if (x.readNext() != QXmlStreamReader::StartElement || x.name() != u"si") continue;
                auto it = wanted.find(index++);
                if (it == wanted.end()) x.skipCurrentElement();
                else it->second = readRuns(x).left(32767);
            }
            checkXml(x, zip_, book_.sharedStrings);
        }
        for (const Pending& p : pending_) {
            QStringList& cells = out_.rows[size_t(p.row)];
            cells[p.column] = wanted[p.index];
            while (!cells.isEmpty() && cells.constLast().isEmpty()) cells.removeLast();
        }
    }

    const ZipArchive& zip_;
    const Workbook& book_;
    std::vector<NumberPattern> styles_;
    SheetContents& out_;
    RowSink sink_;
    qsizetype sharedIndex_ = 0;   // the last cell's shared string, when shared_
    bool shared_ = false;
    std::vector<Pending> pending_;
};

}  // namespace

SheetContents ReadXlsx(const ZipArchive& zip, const QString& sheetName, int maxRows) {
    const Workbook book = readWorkbook(zip);
    SheetContents out;
    const Part* chosen = nullptr;
    for (const Part& p : book.sheets) {
        out.sheetNames << p.name;
        if (sheetName.isEmpty() ? (!chosen && !p.hidden) : p.name == sheetName) chosen = &p;
    }
    if (!chosen && sheetName.isEmpty()) chosen = &book.sheets.front();
    for (const Part& p : book.sheets)
        if (!chosen && p.name.compare(sheetName, Qt::CaseInsensitive) == 0) chosen = &p;
    if (!chosen)
        throw ReadError(zip.path(), QStringLiteral("has no sheet named \"%1\"; its sheets are %2.")
                                        .arg(sheetName, out.sheetNames.join(QStringLiteral(", "))));
    out.sheetName = chosen->name;
    SheetReader(zip, book, readStyles(zip, book.styles), out, maxRows).read(chosen->path);
    return out;
}

}  // namespace sheets
