#include "sheet_files.h"

#include "platform/basic/runtime_error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <sys/wait.h>
#include <unistd.h>

ChildReport runInChild(const std::function<void()>& prepare, const std::function<void()>& write, const QString& target) {
    int fds[2];
    if (::pipe(fds) != 0) return {};
    const pid_t pid = ::fork();
    if (pid == 0) {
        ::close(fds[0]);
        prepare();
        const basic::RuntimeError e = basic::resume(write);
        QFile file(target);
        const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.read(1 << 20) : QByteArray();
        const QString folder = QFileInfo(target).absolutePath();
        QJsonObject o{{"number", e.number()}, {"description", e.description()},
                      {"left", QJsonArray::fromStringList(QDir(folder).entryList(QDir::Files | QDir::Hidden))},
                      {"target", QString::fromLatin1(bytes.toBase64())}};
        const QByteArray json = QJsonDocument(o).toJson(QJsonDocument::Compact);
        if (::write(fds[1], json.constData(), size_t(json.size())) < 0) ::_exit(2);
        ::_exit(0);
    }
    ::close(fds[1]);
    QByteArray bytes;
    char buffer[4096];
    for (ssize_t n; (n = ::read(fds[0], buffer, sizeof buffer)) > 0;) bytes.append(buffer, n);
    ::close(fds[0]);
    int status = 0;
    ::waitpid(pid, &status, 0);
    const QJsonObject o = QJsonDocument::fromJson(bytes).object();
    ChildReport r;
    r.number = o.value("number").toInt(-1);
    r.description = o.value("description").toString();
    for (const auto& v : o.value("left").toArray()) r.left << v.toString();
    r.target = QByteArray::fromBase64(o.value("target").toString().toLatin1());
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        r.description = QStringLiteral("the child ended with status %1").arg(status);
    return r;
}
