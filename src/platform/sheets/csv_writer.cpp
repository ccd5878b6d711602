// CSV: one sheet, UTF-8 with a byte-order mark, CR LF, fields quoted only where they must be.
#include "platform/sheets/number_format.h"
#include "platform/sheets/sheet_cells.h"
#include "platform/sheets/target_file.h"

#include <QFile>

#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <unistd.h>

namespace sheets {

namespace {

// Buffered writes to a file descriptor; the first failure throws the target's error.
class Output {
public:
    explicit Output(TargetFile& target) : target_(target) {
        fd_ = ::open(QFile::encodeName(target.temporaryPath()).constData(), O_WRONLY | O_TRUNC | O_CLOEXEC);
        if (fd_ < 0) target.fail(errno);
        buffer_.reserve(kChunk * 2);
    }
    ~Output() { if (fd_ >= 0) ::close(fd_); }
    void put(const QByteArray& bytes) {
        buffer_ += bytes;
        if (buffer_.size() >= kChunk) flush();
    }
    void close() {
        flush();
        const int fd = fd_;
        fd_ = -1;
        if (::close(fd) != 0) target_.fail(errno);
    }

private:
    static constexpr qsizetype kChunk = 1 << 16;
    void flush() {
        const char* p = buffer_.constData();
        qsizetype left = buffer_.size();
        while (left > 0) {
            const ssize_t n = ::write(fd_, p, size_t(left));
            if (n < 0 && errno == EINTR) continue;
            if (n <= 0) target_.fail(n < 0 ? errno : ENOSPC);
            p += n;
            left -= n;
        }
        buffer_.clear();
    }
    TargetFile& target_;
    int fd_ = -1;
    QByteArray buffer_;
};

QString fieldOf(const Cell& cell, QChar separator) {
    QString text;
    switch (cell.kind) {
    case Cell::Kind::Empty: return QString();
    case Cell::Kind::Number: return ShowNumber(cell.number, ParseNumberFormat(cell.numberFormat));
    case Cell::Kind::Date: return cell.date.toString(QStringLiteral("dd-MM-yyyy"));
    case Cell::Kind::Text: text = cell.text; break;
    }
    if (text.contains(separator) || text.contains(u'"') || text.contains(u'\n') || text.contains(u'\r')) {
        text.replace(QStringLiteral("\""), QStringLiteral("\"\""));
        return u'"' + text + u'"';
    }
    return text;
}

}  // namespace

void WriteCsv(const QString& path, const Sheet& sheet, QChar separator) {
    if (separator == u'"' || separator == u'\n' || separator == u'\r')
        throw SheetError(path, QStringLiteral("a quote or a line break cannot separate fields."));
    CheckCells(path, sheet, INT_MAX, INT_MAX);
    TargetFile target(path);
    Output out(target);
    out.put(QByteArrayLiteral("\xEF\xBB\xBF"));
    for (const auto& row : sheet.rows) {
        QString line;
        for (size_t c = 0; c < row.size(); ++c) {
            if (c > 0) line += separator;
            line += fieldOf(row[c], separator);
        }
        line += QStringLiteral("\r\n");
        out.put(line.toUtf8());
    }
    out.close();
    target.commit();
}

}  // namespace sheets
