// Which folder the shipped files and the user's files are taken from, by where the program lies.
#include "platform/basic/folders.h"
#include "support/case_name.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

// Where the program and the user's files are taken from, by the shipped files beside the program and
// whether its folder may be written.
enum class Chosen { Bin, Shared, Data };
struct FoldersCase {
    const char* name;
    QStringList beside;   // shipped files lying beside the program
    bool writable;
    Chosen program, user;
};

const FoldersCase kFolders[] = {
    {"BuildFolder", {"a.mdb", "b.mdb"}, true, Chosen::Bin, Chosen::Bin},
    {"CopyOnAReadOnlyMedium", {"a.mdb", "b.mdb"}, false, Chosen::Bin, Chosen::Data},
    {"InstalledStartedByRoot", {}, true, Chosen::Shared, Chosen::Data},
    {"Installed", {}, false, Chosen::Shared, Chosen::Data},
    {"HalfALibraryWritable", {"a.mdb"}, true, Chosen::Bin, Chosen::Bin},   // the other half is missing here
    {"HalfALibraryReadOnly", {"b.mdb"}, false, Chosen::Bin, Chosen::Data},
};

class ChooseFolders : public ::testing::TestWithParam<FoldersCase> {};

TEST_P(ChooseFolders, BesideTheProgramWhenItHoldsShippedFilesAndCanBeWritten) {
    QTemporaryDir root;
    const QString bin = root.filePath("usr/bin"), data = root.filePath("home/.local/share/Vorlan");
    const QString shared = root.filePath("usr/share/vorlan");
    const QString chosen[] = {bin, shared, data};
    QDir().mkpath(bin);
    for (const QString& f : GetParam().beside) QFile(bin + "/" + f).open(QIODevice::WriteOnly);
    EXPECT_EQ(basic::ChooseFolders(bin, {"a.mdb", "b.mdb"}, data, GetParam().writable),
              (basic::Folders{chosen[int(GetParam().program)], chosen[int(GetParam().user)]}));
}

INSTANTIATE_TEST_SUITE_P(Places, ChooseFolders, ::testing::ValuesIn(kFolders), CaseName());
