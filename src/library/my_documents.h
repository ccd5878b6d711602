#pragma once
// The user's own library: documents the user adds (a circular issued last week, a judgement received by
// post) in one SQLite file of the user's folder, beside the library and never in it. Each is kept whole,
// with its kind, title, number and date, and its words in a full-text table of the same form and
// tokenizer as the library's, keyed "MyDocuments:<id>", so that the search window reads both alike.
#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace store {
class SqliteFile;
}

namespace library {

inline const QString kMyDocumentsTable = QStringLiteral("MyDocuments");
inline const QString kMyDocumentsFile = QStringLiteral("MyDocuments.db");

struct MyDocument {
    qint64 id = 0;
    QString kind, title, number, date;   // date yyyy-mm-dd, or ""
    QString file;                        // the name of the file it came from
    QDateTime added;
    qint64 size = 0;
};

// What became of one file: added under an id, or why not.
struct AddedFile {
    QString path;
    qint64 id = 0;
    QString problem;
};

class MyDocuments {
public:
    // Opens the file, made when missing; a damaged one is kept aside (see store::SqliteFile). "" keeps
    // the documents in memory.
    explicit MyDocuments(const QString& path);
    ~MyDocuments();

    // Larger files are not taken: no document of the law runs to this, and reading one would stall.
    static constexpr qint64 kLargest = 50LL * 1024 * 1024;

    QString connectionString() const;
    QString keptAside() const;

    // Reads the file and adds it, with its facts guessed from its text, in one transaction: all of it or
    // nothing. A file that is too large, cannot be read, is no document, or holds the same bytes as one
    // already added, is not added and says why.
    AddedFile add(const QString& path);
    AddedFile addBytes(const QByteArray& bytes, const QString& fileName);

    std::vector<MyDocument> list() const;   // the latest added first
    std::optional<MyDocument> document(qint64 id) const;
    // The kind, title, number and date as the user gives them; the search finds the new title.
    void change(const MyDocument& changed);
    void remove(qint64 id);

private:
    std::unique_ptr<store::SqliteFile> file_;
};

// The user's own library of this run, in the user's folder, opened on first use.
MyDocuments& myDocuments();

// The files a choice names: each file as it is, and the files of each folder and its subfolders, hidden
// ones passed over, in the order of their paths.
QStringList filesToAdd(const QStringList& chosen);

// Adds the files one by one; `progress(done, total)` is asked after each and stops the adding when it
// answers false (what was added stays). Returns each file's outcome.
std::vector<AddedFile> addFiles(MyDocuments& documents, const QStringList& files,
                                const std::function<bool(int done, int total)>& progress);

// The outcome as the user reads it: how many were added, and each file that was not, with why.
QString addingReport(const std::vector<AddedFile>& outcome, bool cancelled);

}  // namespace library
