#include "platform/system/file_system.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include "platform/basic/app_path.h"
#include "platform/basic/runtime_error.h"

namespace sys {

namespace {
basic::RuntimeError fileNotFound() { return basic::RuntimeError(53, QStringLiteral("File not found")); }
basic::RuntimeError fileExists() { return basic::RuntimeError(58, QStringLiteral("File already exists")); }
basic::RuntimeError permissionDenied() { return basic::RuntimeError(70, QStringLiteral("Permission denied")); }
basic::RuntimeError pathNotFound() { return basic::RuntimeError(76, QStringLiteral("Path not found")); }
}  // namespace

void copyAllBytes(QIODevice& from, QIODevice& to) {
    char buffer[64 * 1024];
    for (;;) {
        const qint64 got = from.read(buffer, sizeof buffer);
        if (got < 0) throw basic::RuntimeError(57, QStringLiteral("Device I/O error"));
        if (got == 0) return;
        if (to.write(buffer, got) != got) {
            auto* file = qobject_cast<QFileDevice*>(&to);
            if (file && file->error() == QFileDevice::ResourceError)
                throw basic::RuntimeError(61, QStringLiteral("Disk full"));
            throw basic::RuntimeError(57, QStringLiteral("Device I/O error"));
        }
    }
}

FileSystemObject::FileSystemObject(ByteCopy copy) : copy_(std::move(copy)) {}

QString FileSystemObject::resolve(const QString& path) {
    QString native = path;
    native.replace('\\', '/');
    return QDir::cleanPath(QDir(basic::CurDir()).filePath(native));
}

bool FileSystemObject::FolderExists(const QString& folder) const { return QFileInfo(resolve(folder)).isDir(); }

void FileSystemObject::CreateFolder(const QString& folder) const {
    const QFileInfo info(resolve(folder));
    if (info.exists()) throw fileExists();
    if (!info.dir().exists()) throw pathNotFound();
    if (!info.dir().mkdir(info.fileName())) throw permissionDenied();
}

void FileSystemObject::CopyFile(const QString& source, const QString& destination, bool overwrite) const {
    const QString from = resolve(source), to = resolve(destination);
    if (!QFileInfo(from).isFile()) throw fileNotFound();
    if (!QFileInfo(to).dir().exists()) throw pathNotFound();
    if (QFileInfo::exists(to) && !overwrite) throw fileExists();
    QFile in(from);
    if (!in.open(QIODevice::ReadOnly)) throw permissionDenied();
    // QSaveFile writes beside the destination and renames on commit; dropped unfinished, it removes
    // its own file and the destination is never touched.
    QSaveFile out(to);
    if (!out.open(QIODevice::WriteOnly)) throw permissionDenied();
    copy_(in, out);
    if (!out.commit()) throw permissionDenied();
}

}  // namespace sys
