#pragma once
// The floor of a file writer: the same bytes written straight to the path and flushed to the disk, as the
// writers flush theirs before the rename.
#include <QByteArray>
#include <fcntl.h>
#include <unistd.h>

inline void writeStraight(const QByteArray& path, const QByteArray& bytes) {
    const int fd = ::open(path.constData(), O_CREAT | O_TRUNC | O_WRONLY, 0644);
    [[maybe_unused]] const ssize_t written = ::write(fd, bytes.constData(), size_t(bytes.size()));
    ::fsync(fd);
    ::close(fd);
}
