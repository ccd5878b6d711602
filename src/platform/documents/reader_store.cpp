#include "platform/documents/reader_store.h"

#include "platform/basic/runtime_error.h"
#include "platform/store/full_text.h"
#include "platform/store/sqlite_file.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace documents {

namespace {

using Statement = store::SqliteFile::Statement;

QStringList schema() {
    return {
        // `seq` orders the visits: two may fall within one tick of the clock.
        QStringLiteral("CREATE TABLE IF NOT EXISTS visits (doc TEXT PRIMARY KEY, title TEXT, kind TEXT, at TEXT, seq INTEGER)"),
        QStringLiteral("CREATE INDEX IF NOT EXISTS visits_seq ON visits (seq)"),
        QStringLiteral("CREATE TABLE IF NOT EXISTS places (doc TEXT PRIMARY KEY, place TEXT)"),
        QStringLiteral("CREATE TABLE IF NOT EXISTS folders (name TEXT PRIMARY KEY)"),
        QStringLiteral("CREATE TABLE IF NOT EXISTS bookmarks (id INTEGER PRIMARY KEY, doc TEXT UNIQUE, title TEXT, "
                       "kind TEXT, folder TEXT NOT NULL DEFAULT '', added TEXT)"),
        QStringLiteral("CREATE TABLE IF NOT EXISTS notes (id INTEGER PRIMARY KEY, doc TEXT, title TEXT, kind TEXT, "
                       "start INTEGER, finish INTEGER, quote TEXT, body TEXT, changed TEXT)"),
        QStringLiteral("CREATE INDEX IF NOT EXISTS notes_doc ON notes (doc)"),
        QStringLiteral("CREATE VIRTUAL TABLE IF NOT EXISTS %1 USING fts4(key, title, kind, date, body, "
                       "notindexed=key, notindexed=kind, notindexed=date, tokenize=%2)")
            .arg(kNoteTextTable, QString::fromLatin1(store::kWordTokenizer)),
    };
}

QString stamp(const QDateTime& when) { return when.toString(Qt::ISODate); }
QDateTime fromStamp(const QString& text) { return QDateTime::fromString(text, Qt::ISODate); }

Bookmark bookmarkAt(const Statement& q) {
    return {q.number(0), {q.text(1), q.text(2), q.text(3)}, q.text(4), fromStamp(q.text(5))};
}

Note noteAt(const Statement& q) {
    Note n;
    n.id = q.number(0);
    n.document = {q.text(1), q.text(2), q.text(3)};
    n.start = q.isNull(4) ? -1 : int(q.number(4));
    n.end = q.isNull(5) ? -1 : int(q.number(5));
    n.quote = q.text(6);
    n.text = q.text(7);
    n.changed = fromStamp(q.text(8));
    return n;
}

const QString kNoteColumns = QStringLiteral("id, doc, title, kind, start, finish, quote, body, changed");
const char kListMark[] = "vorlan-reading-list";

}  // namespace

ReaderStore::ReaderStore(const QString& path) : file_(std::make_unique<store::SqliteFile>(path, schema())) {}
ReaderStore::~ReaderStore() = default;

QString ReaderStore::keptAside() const { return file_->aside(); }
bool ReaderStore::madeNow() const { return file_->madeNow(); }
QString ReaderStore::connectionString() const { return file_->connectionString(); }

void ReaderStore::visited(const DocumentName& d, const QDateTime& when) {
    file_->transaction([&] {
        file_->prepare(QStringLiteral("INSERT OR REPLACE INTO visits (doc, title, kind, at, seq) VALUES (?1, ?2, ?3, ?4, "
                                      "(SELECT coalesce(max(seq), 0) + 1 FROM visits))"))
            .bind(1, d.key).bind(2, d.title).bind(3, d.kind).bind(4, stamp(when)).run();
        // Ten times what the list shows: enough, and the table never grows without end.
        file_->prepare(QStringLiteral("DELETE FROM visits WHERE doc NOT IN "
                                      "(SELECT doc FROM visits ORDER BY seq DESC LIMIT ?1)"))
            .bind(1, qint64(10 * kRecentShown)).run();
    });
}

std::vector<Visit> ReaderStore::recent(int count) const {
    std::vector<Visit> visits;
    Statement q = file_->prepare(QStringLiteral("SELECT doc, title, kind, at FROM visits ORDER BY seq DESC LIMIT ?1"));
    q.bind(1, qint64(count));
    while (q.next()) visits.push_back({{q.text(0), q.text(1), q.text(2)}, fromStamp(q.text(3))});
    return visits;
}

void ReaderStore::setPlace(const QString& key, const QString& place) {
    if (place.isEmpty())
        file_->prepare(QStringLiteral("DELETE FROM places WHERE doc = ?1")).bind(1, key).run();
    else
        file_->prepare(QStringLiteral("INSERT OR REPLACE INTO places (doc, place) VALUES (?1, ?2)")).bind(1, key).bind(2, place).run();
}

QString ReaderStore::place(const QString& key) const {
    Statement q = file_->prepare(QStringLiteral("SELECT place FROM places WHERE doc = ?1"));
    q.bind(1, key);
    return q.next() ? q.text(0) : QString();
}

Bookmark ReaderStore::addBookmark(const DocumentName& d, const QString& folder) {
    if (std::optional<Bookmark> marked = bookmarkOf(d.key)) return *marked;
    file_->transaction([&] {
        if (!folder.isEmpty()) addFolder(folder);
        file_->prepare(QStringLiteral("INSERT INTO bookmarks (doc, title, kind, folder, added) VALUES (?1, ?2, ?3, ?4, ?5)"))
            .bind(1, d.key).bind(2, d.title).bind(3, d.kind).bind(4, folder.isNull() ? QStringLiteral("") : folder)
            .bind(5, stamp(QDateTime::currentDateTime())).run();
    });
    return *bookmarkOf(d.key);
}

std::optional<Bookmark> ReaderStore::bookmarkOf(const QString& key) const {
    Statement q = file_->prepare(QStringLiteral("SELECT id, doc, title, kind, folder, added FROM bookmarks WHERE doc = ?1"));
    q.bind(1, key);
    if (!q.next()) return std::nullopt;
    return bookmarkAt(q);
}

std::vector<Bookmark> ReaderStore::bookmarks() const {
    std::vector<Bookmark> all;
    Statement q = file_->prepare(QStringLiteral("SELECT id, doc, title, kind, folder, added FROM bookmarks "
                                                "ORDER BY folder COLLATE NOCASE, title COLLATE NOCASE, id"));
    while (q.next()) all.push_back(bookmarkAt(q));
    return all;
}

void ReaderStore::removeBookmark(qint64 id) {
    file_->prepare(QStringLiteral("DELETE FROM bookmarks WHERE id = ?1")).bind(1, id).run();
}

void ReaderStore::moveBookmark(qint64 id, const QString& folder) {
    file_->transaction([&] {
        if (!folder.isEmpty()) addFolder(folder);
        file_->prepare(QStringLiteral("UPDATE bookmarks SET folder = ?2 WHERE id = ?1"))
            .bind(1, id).bind(2, folder.isNull() ? QStringLiteral("") : folder).run();
    });
}

QStringList ReaderStore::folders() const {
    QStringList names;
    Statement q = file_->prepare(QStringLiteral("SELECT name FROM folders UNION SELECT folder FROM bookmarks "
                                                "WHERE folder <> '' ORDER BY 1 COLLATE NOCASE"));
    while (q.next()) names << q.text(0);
    return names;
}

void ReaderStore::addFolder(const QString& folder) {
    if (folder.trimmed().isEmpty()) return;
    file_->prepare(QStringLiteral("INSERT OR IGNORE INTO folders (name) VALUES (?1)")).bind(1, folder).run();
}

void ReaderStore::removeFolder(const QString& folder) {
    file_->transaction([&] {
        file_->prepare(QStringLiteral("UPDATE bookmarks SET folder = '' WHERE folder = ?1")).bind(1, folder).run();
        file_->prepare(QStringLiteral("DELETE FROM folders WHERE name = ?1")).bind(1, folder).run();
    });
}

QByteArray ReaderStore::exportBookmarks() const {
    QJsonArray marks;
    for (const Bookmark& b : bookmarks())
        marks.append(QJsonObject{{"document", b.document.key}, {"title", b.document.title}, {"kind", b.document.kind},
                                 {"folder", b.folder}, {"added", stamp(b.added)}});
    return QJsonDocument(QJsonObject{{kListMark, 1},
                                     {"folders", QJsonArray::fromStringList(folders())},
                                     {"bookmarks", marks}})
        .toJson();
}

int ReaderStore::importBookmarks(const QByteArray& bytes) {
    const QJsonObject list = QJsonDocument::fromJson(bytes).object();
    const QJsonArray marks = list.value("bookmarks").toArray();
    bool sound = list.value(kListMark).toInt() == 1;
    for (const QJsonValue& m : marks) sound = sound && !m.toObject().value("document").toString().isEmpty();
    if (!sound) throw basic::RuntimeError(321, QStringLiteral("Invalid file format: not a reading list of bookmarks"));
    int added = 0;
    file_->transaction([&] {
        for (const QJsonValue& f : list.value("folders").toArray()) addFolder(f.toString());
        for (const QJsonValue& v : marks) {
            const QJsonObject m = v.toObject();
            const DocumentName d{m.value("document").toString(), m.value("title").toString(), m.value("kind").toString()};
            if (bookmarkOf(d.key)) continue;
            const QString folder = m.value("folder").toString();
            if (!folder.isEmpty()) addFolder(folder);
            const QDateTime when = fromStamp(m.value("added").toString());
            file_->prepare(QStringLiteral("INSERT INTO bookmarks (doc, title, kind, folder, added) VALUES (?1, ?2, ?3, ?4, ?5)"))
                .bind(1, d.key).bind(2, d.title).bind(3, d.kind).bind(4, folder.isNull() ? QStringLiteral("") : folder)
                .bind(5, stamp(when.isValid() ? when : QDateTime::currentDateTime())).run();
            ++added;
        }
    });
    return added;
}

qint64 ReaderStore::addNote(const Note& n) {
    qint64 id = 0;
    const QString now = stamp(QDateTime::currentDateTime());
    file_->transaction([&] {
        Statement insert = file_->prepare(QStringLiteral("INSERT INTO notes (doc, title, kind, start, finish, quote, body, changed) "
                                                         "VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8)"));
        insert.bind(1, n.document.key).bind(2, n.document.title).bind(3, n.document.kind).bind(6, n.quote)
            .bind(7, n.text).bind(8, now);
        if (n.onPassage()) insert.bind(4, qint64(n.start)).bind(5, qint64(n.end));
        insert.run();
        id = file_->lastId();
        file_->prepare(QStringLiteral("INSERT INTO %1 (docid, key, title, kind, date, body) VALUES (?1, ?2, ?3, ?4, ?5, ?6)")
                           .arg(kNoteTextTable))
            .bind(1, id).bind(2, QStringLiteral("note:%1").arg(id)).bind(3, n.document.title).bind(4, n.document.kind)
            .bind(5, now.left(10)).bind(6, n.text + u'\n' + n.quote).run();
    });
    return id;
}

void ReaderStore::changeNote(qint64 id, const QString& text) {
    const std::optional<Note> old = note(id);
    if (!old) return;
    const QString now = stamp(QDateTime::currentDateTime());
    file_->transaction([&] {
        file_->prepare(QStringLiteral("UPDATE notes SET body = ?2, changed = ?3 WHERE id = ?1")).bind(1, id).bind(2, text).bind(3, now).run();
        file_->prepare(QStringLiteral("UPDATE %1 SET body = ?2, date = ?3 WHERE docid = ?1").arg(kNoteTextTable))
            .bind(1, id).bind(2, text + u'\n' + old->quote).bind(3, now.left(10)).run();
    });
}

void ReaderStore::removeNote(qint64 id) {
    file_->transaction([&] {
        file_->prepare(QStringLiteral("DELETE FROM notes WHERE id = ?1")).bind(1, id).run();
        file_->prepare(QStringLiteral("DELETE FROM %1 WHERE docid = ?1").arg(kNoteTextTable)).bind(1, id).run();
    });
}

std::vector<Note> ReaderStore::notes(const QString& key) const {
    std::vector<Note> all;
    Statement q = file_->prepare(QStringLiteral("SELECT %1 FROM notes WHERE doc = ?1 ORDER BY coalesce(start, -1), id").arg(kNoteColumns));
    q.bind(1, key);
    while (q.next()) all.push_back(noteAt(q));
    return all;
}

std::optional<Note> ReaderStore::note(qint64 id) const {
    Statement q = file_->prepare(QStringLiteral("SELECT %1 FROM notes WHERE id = ?1").arg(kNoteColumns));
    q.bind(1, id);
    if (!q.next()) return std::nullopt;
    return noteAt(q);
}

}  // namespace documents
