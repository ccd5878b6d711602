// The user's own documents, at sizes beyond a practice's shelf:
//   AddFolder_Store      1,000 files, 100 MB (RTF and text, and PDF with a text layer, about 100 KB each), added
//                        as "Add a folder…" adds them: read, their text taken out, kind, title, number and date
//                        guessed, stored whole with their words, one transaction per file, the progress asked
//                        after each.
//   AddFolder_Sqlite     the same bytes and the same texts (taken out beforehand) written straight into SQLite:
//                        a row and a full-text row per file, one transaction each: the floor.
//   Search_LibraryAndMine_Store   "input credit" as the search window asks it, over the library's 20,000
//                        documents (100 MB of text) and the user's 5,000 together, best 50 with snippets.
//   Search_LibraryAlone_Store     the same over the library alone: what the user's documents add to a query.
// With VORLAN_READER_BENCH_DIR the files are made once into that folder and read by later runs.
#include "circular_titles.h"
#include "qt_bench_main.h"
#include "support/made_pdfs.h"
#include "zipf_texts.h"

#include "library/library_text.h"
#include "library/my_documents.h"
#include "library/text_sources.h"
#include "platform/documents/plain_text.h"
#include "platform/store/full_text.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <QTextDocument>
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdio>

namespace {

constexpr int kFiles = 1000, kFileBytes = 100 * 1000, kPdfEvery = 20;
constexpr int kLibrary = 20000, kMine = 5000, kSmallBytes = 5000;

QString workFolder() {
    static QTemporaryDir temporary;
    const QString kept = qEnvironmentVariable("VORLAN_READER_BENCH_DIR");
    return kept.isEmpty() ? temporary.path() : kept;
}

// The folder of 1,000 documents, made once.
struct Folder {
    QString dir = workFolder() + QStringLiteral("/folder");
    QStringList files;
    double megabytes = 0;
    Folder() {
        QDir().mkpath(dir);
        ZipfTexts texts(kFileBytes);
        for (int i = 0; i < kFiles; ++i) {
            const QString name = QStringLiteral("%1/doc-%2.%3").arg(dir).arg(i, 4, 10, QLatin1Char('0'))
                                     .arg(i % kPdfEvery == 0 ? "pdf" : i % 2 ? "rtf" : "txt");
            if (!QFile::exists(name)) {
                QByteArray text = "Circular No. " + QByteArray::number(i) + "/2025\nDated 14-03-2025\n" + texts.next();
                if (name.endsWith("rtf")) text = "{\\rtf1\\ansi " + text.replace("\n", "\\par\n") + "}";
                if (name.endsWith("pdf")) text = pdfOfText(QString::fromUtf8(text));
                QFile f(name);
                f.open(QIODevice::WriteOnly);
                f.write(text);
            }
            files << name;
            megabytes += double(QFileInfo(name).size()) / 1e6;
        }
    }
};

Folder& folder() {
    static Folder f;
    return f;
}

void BM_AddFolder_Store(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        const QString path = workFolder() + QStringLiteral("/added.db");
        for (const char* tail : {"", "-wal", "-shm"}) QFile::remove(path + tail);
        auto mine = std::make_unique<library::MyDocuments>(path);
        int asked = 0;
        state.ResumeTiming();
        const auto outcome = library::addFiles(*mine, folder().files, [&](int, int) { return ++asked > 0; });
        state.counters["added"] = double(std::count_if(outcome.begin(), outcome.end(), [](const auto& f) { return f.id != 0; }));
        state.counters["progress_asked"] = asked;
    }
    state.counters["MB"] = folder().megabytes;
}

void BM_AddFolder_Sqlite(benchmark::State& state) {
    std::vector<std::pair<QByteArray, QByteArray>> bytesAndText;
    for (const QString& name : folder().files) {
        QFile f(name);
        f.open(QIODevice::ReadOnly);
        const QByteArray bytes = f.readAll();
        bytesAndText.emplace_back(bytes, documents::plainTextOf(bytes).text.toUtf8());
    }
    for (auto _ : state) {
        state.PauseTiming();
        const QByteArray path = (workFolder() + QStringLiteral("/plain.db")).toUtf8();
        QFile::remove(QString::fromUtf8(path));
        sqlite3* db = nullptr;
        sqlite3_open(path.constData(), &db);
        sqlite3_exec(db, "PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL; CREATE TABLE d (id INTEGER PRIMARY KEY, "
                         "bytes BLOB); CREATE VIRTUAL TABLE t USING fts4(body)", nullptr, nullptr, nullptr);
        state.ResumeTiming();
        sqlite3_stmt *row = nullptr, *text = nullptr;
        sqlite3_prepare_v2(db, "INSERT INTO d (bytes) VALUES (?)", -1, &row, nullptr);
        sqlite3_prepare_v2(db, "INSERT INTO t (docid, body) VALUES (last_insert_rowid(), ?)", -1, &text, nullptr);
        for (const auto& [bytes, body] : bytesAndText) {
            sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr);
            sqlite3_bind_blob(row, 1, bytes.constData(), int(bytes.size()), SQLITE_STATIC);
            sqlite3_step(row);
            sqlite3_reset(row);
            sqlite3_bind_text(text, 1, body.constData(), int(body.size()), SQLITE_STATIC);
            sqlite3_step(text);
            sqlite3_reset(text);
            sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
        }
        sqlite3_finalize(row);
        sqlite3_finalize(text);
        sqlite3_close(db);
    }
    state.counters["MB"] = folder().megabytes;
}

// The library's text table alone, in an encrypted file as the builder writes it, and the user's own library.
struct Libraries {
    QString libraryFile = workFolder() + QStringLiteral("/0909214SD01.mdb");
    QString mineFile = workFolder() + QStringLiteral("/MyDocuments.db");
    Libraries() {
        if (!QFile::exists(libraryFile)) {
            sqlite3* db = nullptr;
            sqlite3_open(QFile::encodeName(libraryFile).constData(), &db);
            sqlite3_exec(db, "PRAGMA key = 'bergamot'", nullptr, nullptr, nullptr);
            store::registerFullText(db);
            sqlite3_exec(db, library::textTableStatement().toUtf8().constData(), nullptr, nullptr, nullptr);
            sqlite3_stmt* insert = nullptr;
            sqlite3_prepare_v2(db, "INSERT INTO LibraryText (key, title, kind, date, body) VALUES (?, ?, 'Circular', '', ?)", -1,
                               &insert, nullptr);
            ZipfTexts texts(kSmallBytes);
            CircularTitles titles;
            sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr);
            for (int i = 1; i <= kLibrary; ++i) {
                const QByteArray key = "Kerala:" + QByteArray::number(i), title = titles.next().first.toUtf8(), body = texts.next();
                sqlite3_bind_text(insert, 1, key.constData(), -1, SQLITE_TRANSIENT);
                sqlite3_bind_text(insert, 2, title.constData(), -1, SQLITE_TRANSIENT);
                sqlite3_bind_text(insert, 3, body.constData(), -1, SQLITE_TRANSIENT);
                sqlite3_step(insert);
                sqlite3_reset(insert);
            }
            sqlite3_finalize(insert);
            sqlite3_exec(db, "INSERT INTO LibraryText(LibraryText) VALUES('optimize'); COMMIT", nullptr, nullptr, nullptr);
            sqlite3_close(db);
        }
        if (!QFile::exists(mineFile)) {
            library::MyDocuments mine(mineFile);
            ZipfTexts texts(kSmallBytes);
            texts.rng.seed(2025);
            for (int i = 0; i < kMine; ++i) mine.addBytes("Circular No. " + QByteArray::number(i) + "/2025\n" + texts.next(), "c.txt");
        }
    }
    std::vector<library::TextSource> sources(bool withMine) const {
        std::vector<library::TextSource> s{
            {QStringLiteral("Driver={Microsoft Access Driver (*.mdb)};Dbq=%1;Uid=admin;Pwd=bergamot;").arg(libraryFile),
             library::kTextTable, QString()}};
        if (withMine)
            s.push_back({QStringLiteral("Driver={Microsoft Access Driver (*.mdb)};Dbq=%1;").arg(mineFile), library::kTextTable,
                         library::kMineMark});
        return s;
    }
};

Libraries& libraries() {
    static Libraries l;
    return l;
}

void search(benchmark::State& state, bool withMine) {
    library::TextSearcher searcher;
    const auto sources = libraries().sources(withMine);
    const store::TextQuery query = store::parseTextQuery(QStringLiteral("input credit"));
    size_t hits = 0, mine = 0;
    for (auto _ : state) {
        const auto found = searcher.search(sources, query, QString());
        hits = found.size();
        mine = size_t(std::count_if(found.begin(), found.end(), [](const store::TextHit& h) { return !h.values.value(library::kMarkValue).isEmpty(); }));
    }
    state.counters["results"] = double(hits);
    state.counters["of_mine"] = double(mine);
    // The library's titles carry the words, so its rows rank first; a word of the user's titles alone
    // shows that their table is searched all the same.
    state.counters["mine_for_2025"] =
        double(searcher.search(sources, store::parseTextQuery(QStringLiteral("2025 input")), QString()).size());
}
void BM_Search_LibraryAndMine_Store(benchmark::State& state) { search(state, true); }
void BM_Search_LibraryAlone_Store(benchmark::State& state) { search(state, false); }

BENCHMARK(BM_AddFolder_Store)->Unit(benchmark::kSecond)->Iterations(1)->UseRealTime();
BENCHMARK(BM_AddFolder_Sqlite)->Unit(benchmark::kSecond)->Iterations(1)->UseRealTime();
BENCHMARK(BM_Search_LibraryAndMine_Store)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly(true);
BENCHMARK(BM_Search_LibraryAlone_Store)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly(true);

}  // namespace

int main(int argc, char** argv) { return runOffscreen<QGuiApplication>(argc, argv); }
