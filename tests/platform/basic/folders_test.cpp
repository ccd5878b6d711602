// Which folder the shipped files and the user's files are taken from, by where the program lies.
#include "platform/basic/folders.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

TEST(ChooseFolders, BesideTheProgramWhenItHoldsShippedFilesAndCanBeWritten) {
    QTemporaryDir root;
    const QString bin = root.filePath("usr/bin"), data = root.filePath("home/.local/share/Vorlan");
    const QString shared = root.filePath("usr/share/vorlan");
    QDir().mkpath(bin);
    const QStringList shipped{"a.mdb", "b.mdb"};
    const struct {
        QStringList beside;   // shipped files lying beside the program
        bool writable;
        QString program, user;
    } cases[] = {
        {{"a.mdb", "b.mdb"}, true, bin, bin},          // a build folder
        {{"a.mdb", "b.mdb"}, false, bin, data},        // a copy on a read-only medium
        {{}, true, shared, data},                      // installed, started by root
        {{}, false, shared, data},                     // installed
        {{"a.mdb"}, true, bin, bin},                   // half a library: the other half is missing here
        {{"b.mdb"}, false, bin, data},
    };
    for (const auto& c : cases) {
        for (const QString& f : shipped) QFile::remove(bin + "/" + f);
        for (const QString& f : c.beside) QFile(bin + "/" + f).open(QIODevice::WriteOnly);
        EXPECT_EQ(basic::ChooseFolders(bin, shipped, data, c.writable), (basic::Folders{c.program, c.user}))
            << c.beside.join(',').toStdString() << c.writable;
    }
}
