#include "library_files.h"

#include "cli.h"
#include "support/qt_app.h"

#include <QDirIterator>

namespace libtest {

int build(const QStringList& arguments, QString* err)
{
    ensureApp();  // the builder lays documents out to read their text
    QString messages;
    QTextStream stream(&messages);
    const int code = libbuilder::run(arguments, stream);
    stream.flush();
    if (err)
        *err = messages;
    return code;
}

QString sampleLibrary()
{
    static QTemporaryDir dir;
    QString err;
    if (!QFile::exists(dir.filePath(kFile1.file)) && build({"--source", kSource, "--out", dir.path()}, &err) != 0)
        ADD_FAILURE() << err.toStdString();
    return dir.path();
}

void copyTree(const QString& from, const QString& to)
{
    for (QDirIterator it(from, QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
        const QString source = it.next(), target = to + source.mid(from.size());
        QDir().mkpath(QFileInfo(target).path());
        if (!QFile::copy(source, target))
            ADD_FAILURE() << target.toStdString();
    }
}

}  // namespace libtest
