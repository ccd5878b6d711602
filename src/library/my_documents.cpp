#include "library/my_documents.h"

#include "library/document_guess.h"
#include "library/library_text.h"
#include "platform/basic/app_path.h"
#include "platform/basic/runtime_error.h"
#include "platform/documents/document_kind.h"
#include "platform/documents/plain_text.h"
#include "platform/forms/msgbox.h"
#include "platform/store/sqlite_file.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QLocale>

namespace library {

namespace {

using Statement = store::SqliteFile::Statement;

QStringList schema() {
    QString text = textTableStatement();
    text.replace(QStringLiteral("CREATE VIRTUAL TABLE "), QStringLiteral("CREATE VIRTUAL TABLE IF NOT EXISTS "));
    return {QStringLiteral("CREATE TABLE IF NOT EXISTS %1 (id INTEGER PRIMARY KEY, kind TEXT, title TEXT, number TEXT, "
                           "date TEXT, file TEXT, added TEXT, size INTEGER, digest TEXT UNIQUE, fname BLOB)")
                .arg(kMyDocumentsTable),
            text};
}

const QString kColumns = QStringLiteral("id, kind, title, number, date, file, added, size");

MyDocument documentAt(const Statement& q) {
    return {q.number(0), q.text(1), q.text(2), q.text(3), q.text(4), q.text(5),
            QDateTime::fromString(q.text(6), Qt::ISODate), q.number(7)};
}

QString megabytes(qint64 bytes) { return QLocale::c().toString(double(bytes) / (1024 * 1024), 'f', 0) + " MB"; }

}  // namespace

MyDocuments::MyDocuments(const QString& path) : file_(std::make_unique<store::SqliteFile>(path, schema())) {}
MyDocuments::~MyDocuments() = default;

QString MyDocuments::connectionString() const { return file_->connectionString(); }
QString MyDocuments::keptAside() const { return file_->aside(); }

AddedFile MyDocuments::add(const QString& path) {
    const QFileInfo info(path);
    if (info.size() > kLargest)
        return {path, 0, QStringLiteral("%1 is larger than the %2 a document may have").arg(megabytes(info.size()), megabytes(kLargest))};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {path, 0, QStringLiteral("cannot be read: ") + file.errorString()};
    AddedFile added = addBytes(file.readAll(), info.fileName());
    added.path = path;
    return added;
}

AddedFile MyDocuments::addBytes(const QByteArray& bytes, const QString& fileName) {
    if (bytes.isEmpty()) return {fileName, 0, QStringLiteral("is empty")};
    const documents::PlainText plain = documents::plainTextOf(bytes);
    if (!plain.fault.isEmpty()) return {fileName, 0, QStringLiteral("is not a document that can be read: ") + plain.fault};
    const QString digest = QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex());
    Statement same = file_->prepare(QStringLiteral("SELECT title FROM %1 WHERE digest = ?1").arg(kMyDocumentsTable));
    same.bind(1, digest);
    if (same.next()) return {fileName, 0, QStringLiteral("holds the same bytes as \"%1\", already added").arg(same.text(0))};

    const DocumentGuess guess = guessDocument(plain.text, fileName);
    qint64 id = 0;
    file_->transaction([&] {
        file_->prepare(QStringLiteral("INSERT INTO %1 (kind, title, number, date, file, added, size, digest, fname) "
                                      "VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9)").arg(kMyDocumentsTable))
            .bind(1, guess.kind).bind(2, guess.title).bind(3, guess.number).bind(4, guess.date).bind(5, fileName)
            .bind(6, QDateTime::currentDateTime().toString(Qt::ISODate)).bind(7, qint64(bytes.size()))
            .bind(8, digest).bind(9, bytes).run();
        id = file_->lastId();
        file_->prepare(QStringLiteral("INSERT INTO %1 (docid, key, title, kind, date, body) VALUES (?1, ?2, ?3, ?4, ?5, ?6)")
                           .arg(kTextTable))
            .bind(1, id).bind(2, kMyDocumentsTable + u':' + QString::number(id)).bind(3, guess.title)
            .bind(4, guess.kind).bind(5, guess.date).bind(6, plain.text).run();
    });
    return {fileName, id, {}};
}

std::vector<MyDocument> MyDocuments::list() const {
    std::vector<MyDocument> all;
    Statement q = file_->prepare(QStringLiteral("SELECT %1 FROM %2 ORDER BY id DESC").arg(kColumns, kMyDocumentsTable));
    while (q.next()) all.push_back(documentAt(q));
    return all;
}

std::optional<MyDocument> MyDocuments::document(qint64 id) const {
    Statement q = file_->prepare(QStringLiteral("SELECT %1 FROM %2 WHERE id = ?1").arg(kColumns, kMyDocumentsTable));
    q.bind(1, id);
    if (!q.next()) return std::nullopt;
    return documentAt(q);
}

void MyDocuments::change(const MyDocument& d) {
    file_->transaction([&] {
        file_->prepare(QStringLiteral("UPDATE %1 SET kind = ?2, title = ?3, number = ?4, date = ?5 WHERE id = ?1").arg(kMyDocumentsTable))
            .bind(1, d.id).bind(2, d.kind).bind(3, d.title).bind(4, d.number).bind(5, d.date).run();
        file_->prepare(QStringLiteral("UPDATE %1 SET kind = ?2, title = ?3, date = ?4 WHERE docid = ?1").arg(kTextTable))
            .bind(1, d.id).bind(2, d.kind).bind(3, d.title).bind(4, d.date).run();
    });
}

void MyDocuments::remove(qint64 id) {
    file_->transaction([&] {
        file_->prepare(QStringLiteral("DELETE FROM %1 WHERE id = ?1").arg(kMyDocumentsTable)).bind(1, id).run();
        file_->prepare(QStringLiteral("DELETE FROM %1 WHERE docid = ?1").arg(kTextTable)).bind(1, id).run();
    });
}

MyDocuments& myDocuments() {
    static std::unique_ptr<MyDocuments> open;
    static QString openAt;
    const QString path = QDir(basic::UserPath()).filePath(kMyDocumentsFile);
    if (!open || openAt != path) {
        open.reset();
        open = std::make_unique<MyDocuments>(path);
        openAt = path;
        if (!open->keptAside().isEmpty())
            forms::MsgBox(QStringLiteral("The file of your own documents was damaged. It has been kept aside as\n%1\n\n"
                                         "Your documents start again empty; add them anew.")
                              .arg(QDir::toNativeSeparators(open->keptAside())),
                          forms::vbExclamation, QStringLiteral("My documents"));
    }
    return *open;
}

QStringList filesToAdd(const QStringList& chosen) {
    QStringList files;
    for (const QString& path : chosen) {
        if (!QFileInfo(path).isDir()) {
            files << path;
            continue;
        }
        QStringList found;
        QDirIterator walk(path, QDir::Files | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
        while (walk.hasNext()) found << walk.next();
        found.sort();
        files << found;
    }
    return files;
}

std::vector<AddedFile> addFiles(MyDocuments& documents, const QStringList& files,
                                const std::function<bool(int, int)>& progress) {
    std::vector<AddedFile> outcome;
    for (const QString& path : files) {
        try {
            outcome.push_back(documents.add(path));
        } catch (const basic::RuntimeError& e) {
            // A store fault takes this file only: its transaction is rolled back, the next one is tried.
            outcome.push_back({path, 0, QStringLiteral("could not be stored: ") + e.description()});
        }
        if (progress && !progress(int(outcome.size()), int(files.size()))) break;
    }
    return outcome;
}

QString addingReport(const std::vector<AddedFile>& outcome, bool cancelled) {
    constexpr int kListed = 30;
    int added = 0;
    QStringList refused;
    for (const AddedFile& f : outcome) {
        if (f.id) ++added;
        else refused << QFileInfo(f.path).fileName() + QStringLiteral(": ") + f.problem;
    }
    QString text = added == 1 ? QStringLiteral("1 document added.") : QStringLiteral("%1 documents added.").arg(added);
    if (cancelled) text += QStringLiteral(" Adding was cancelled; the files after these were not read.");
    if (!refused.isEmpty()) {
        text += QStringLiteral("\n\n%1 not added:\n").arg(refused.size() == 1 ? QStringLiteral("1 file was")
                                                                              : QStringLiteral("%1 files were").arg(refused.size()));
        text += QStringList(refused.mid(0, kListed)).join(u'\n');
        if (refused.size() > kListed) text += QStringLiteral("\n… and %1 more.").arg(refused.size() - kListed);
    }
    return text;
}

}  // namespace library
