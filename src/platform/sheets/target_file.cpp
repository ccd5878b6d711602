#include "platform/sheets/target_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace sheets {

namespace {

QByteArray native(const QString& path) { return QFile::encodeName(path); }

QString shown(const QString& path) { return QDir::toNativeSeparators(path); }

// A disk with less than this free is taken as full when the failing call left no reason.
constexpr unsigned long long kFullBelow = 64 * 1024;

bool diskFull(const QString& folder) {
    struct statvfs s {};
    if (::statvfs(native(folder).constData(), &s) != 0) return false;
    return static_cast<unsigned long long>(s.f_bavail) * s.f_frsize < kFullBelow;
}

}  // namespace

basic::RuntimeError WriteError(const QString& path, int error) {
    const QString head = QStringLiteral("The file %1 cannot be written: ").arg(shown(path));
    switch (error) {
    case ENOSPC: case EDQUOT: case EFBIG:
        return basic::RuntimeError(61, head + QStringLiteral("the disk is full."));
    case EACCES: case EPERM: case EROFS:
        return basic::RuntimeError(70, head + QStringLiteral("its folder may not be written to."));
    case ENOENT: case ENOTDIR:
        return basic::RuntimeError(76, head + QStringLiteral("its folder is not there."));
    case 0:
        if (diskFull(QFileInfo(path).absolutePath())) return WriteError(path, ENOSPC);
        return basic::RuntimeError(75, head + QStringLiteral("the write failed."));
    default:
        return basic::RuntimeError(75, head + QString::fromLocal8Bit(std::strerror(error)) + u'.');
    }
}

int LibraryWriteErrno() {
    const int e = errno;
    switch (e) {
    case ENOSPC: case EDQUOT: case EFBIG: case EACCES: case EPERM: case EROFS: case EIO: return e;
    default: return 0;
    }
}

basic::RuntimeError SheetError(const QString& path, const QString& why) {
    return basic::RuntimeError(75, QStringLiteral("The file %1 cannot be written: %2").arg(shown(path), why));
}

TargetFile::TargetFile(const QString& path) : path_(QFileInfo(path).absoluteFilePath()) {
    const QFileInfo target(path_);
    if (target.isDir()) throw SheetError(path_, QStringLiteral("a folder of that name is there."));
    for (int attempt = 0;; ++attempt) {
        // Hidden, beside the target, so that the rename stays on one disk.
        const QString candidate = target.absolutePath() + QStringLiteral("/.%1.%2.part")
            .arg(target.fileName()).arg(QRandomGenerator::global()->generate(), 8, 16, QLatin1Char('0'));
        const int fd = ::open(native(candidate).constData(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0666);
        if (fd >= 0) {
            ::close(fd);
            temporary_ = candidate;
            return;
        }
        if (errno != EEXIST || attempt > 20) throw WriteError(path_, errno);
    }
}

TargetFile::~TargetFile() {
    if (!committed_ && !temporary_.isEmpty()) ::unlink(native(temporary_).constData());
}

void TargetFile::commit() {
    const int fd = ::open(native(temporary_).constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) fail(errno);
    if (::fsync(fd) != 0) {
        const int error = errno;
        ::close(fd);
        fail(error);
    }
    ::close(fd);
    if (::rename(native(temporary_).constData(), native(path_).constData()) != 0) fail(errno);
    committed_ = true;
    // The rename itself reaches the disk with the folder.
    const int dir = ::open(native(QFileInfo(path_).absolutePath()).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (dir >= 0) {
        ::fsync(dir);
        ::close(dir);
    }
}

void TargetFile::fail(int error) const { throw WriteError(path_, error); }

}  // namespace sheets
