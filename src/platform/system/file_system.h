#pragma once
// The file-system object the windows copy the user's data with: CopyFile, CreateFolder, FolderExists,
// with the run-time errors the old one raised. Paths are written with "\" and mapped here; a path
// without a folder is taken in the program's current folder (basic::CurDir), where the return files
// in use lie.
#include <QIODevice>
#include <QString>
#include <functional>

namespace sys {

// Moves the whole of one open file into another; raises a basic::RuntimeError when it cannot.
// Tests put in one that stops half-way.
using ByteCopy = std::function<void(QIODevice& from, QIODevice& to)>;
void copyAllBytes(QIODevice& from, QIODevice& to);

class FileSystemObject {
public:
    explicit FileSystemObject(ByteCopy copy = copyAllBytes);

    // The path as the machine writes it: "\" read as "/", relative to the current folder.
    static QString resolve(const QString& path);

    bool FolderExists(const QString& folder) const;
    // 58 "File already exists" when it is there already, 76 "Path not found" when its parent is not.
    void CreateFolder(const QString& folder) const;
    // The bytes go to a new file beside the destination, which then takes the destination's name, so
    // that a copy that fails leaves the file that was there as it was. 53 "File not found" for a
    // missing source, 76 "Path not found" for a missing destination folder, 58 "File already exists"
    // when not overwriting, 70 "Permission denied" when a file cannot be opened or replaced.
    void CopyFile(const QString& source, const QString& destination, bool overwrite = true) const;

private:
    ByteCopy copy_;
};

}  // namespace sys
