#pragma once
// The reader's own file in the user's folder: the documents visited and when, the place left in each,
// bookmarks in folders, and notes (on a whole document, or on a passage of it). A document is named by
// an opaque key that the caller gives and understands; titles and kinds are kept beside it so that lists
// show without the document. Notes are also written into a full-text table `NoteText` of the same
// columns as the library's (key "note:<id>", title, kind, date, body), so one search reads both.
#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <memory>
#include <optional>
#include <vector>

namespace store {
class SqliteFile;
}

namespace documents {

struct DocumentName {
    QString key, title, kind;
};

struct Visit {
    DocumentName document;
    QDateTime when;
};

struct Bookmark {
    qint64 id = 0;
    DocumentName document;
    QString folder;     // "" for none
    QDateTime added;
};

struct Note {
    qint64 id = 0;
    DocumentName document;
    int start = -1, end = -1;   // the passage, as positions of the document's plain text; -1 for a whole document
    QString quote;              // the passage's words, to find it again
    QString text;
    QDateTime changed;
    bool onPassage() const { return start >= 0 && end > start; }
};

inline constexpr int kRecentShown = 50;
inline const QString kNoteTextTable = QStringLiteral("NoteText");

class ReaderStore {
public:
    // Opens the file (see store::SqliteFile: a damaged one is kept aside and a new one made); an empty
    // path keeps everything in memory for this run only.
    explicit ReaderStore(const QString& path);
    ~ReaderStore();

    QString keptAside() const;
    bool madeNow() const;
    QString connectionString() const;

    // A visit moves the document to the head of the recent ones, with its title and kind as now given.
    void visited(const DocumentName& document, const QDateTime& when = QDateTime::currentDateTime());
    std::vector<Visit> recent(int count = kRecentShown) const;
    // Where the reader stood in the document, as the view describes it; "" to forget it.
    void setPlace(const QString& key, const QString& place);
    QString place(const QString& key) const;

    // Adds the document to the folder (made when new) and returns its bookmark. A document has one
    // bookmark: one already marked keeps the bookmark it has, in its folder.
    Bookmark addBookmark(const DocumentName& document, const QString& folder = QString());
    std::optional<Bookmark> bookmarkOf(const QString& key) const;
    std::vector<Bookmark> bookmarks() const;   // by folder, then title
    void removeBookmark(qint64 id);
    void moveBookmark(qint64 id, const QString& folder);
    QStringList folders() const;
    void addFolder(const QString& folder);
    // A folder's bookmarks go with it to the folder named, or to none.
    void removeFolder(const QString& folder);

    // A reading list of folders and bookmarks, as a file that another reader imports.
    QByteArray exportBookmarks() const;
    // Adds the folders and the bookmarks of documents not yet marked here; returns the number of
    // bookmarks added. A file that is not a reading list raises error 321 and adds nothing.
    int importBookmarks(const QByteArray& file);

    qint64 addNote(const Note& note);
    void changeNote(qint64 id, const QString& text);
    void removeNote(qint64 id);
    std::vector<Note> notes(const QString& key) const;   // in the order of the document, whole-document notes first
    std::optional<Note> note(qint64 id) const;

private:
    std::unique_ptr<store::SqliteFile> file_;
};

}  // namespace documents
