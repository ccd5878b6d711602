// The pick list as the user types at 100,000 index rows: one key in txtSearch refilters the list and redraws
// the window; and a document of 1 MB opened in the document window. Beside them, the same filter on SQLite.
#include "qt_bench_main.h"
#include "library/frm_global_sections.h"
#include "library/keralaforms.h"
#include "platform/documents/rtf_reader.h"
#include "platform/store/connection.h"
#include "platform/store/recordset.h"
#include "circular_titles.h"

#include <QApplication>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTextDocument>
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <random>

namespace {

constexpr int kRows = 100000;

struct Library {
    QTemporaryDir dir;
    QString cnString;
    store::Connection cn;

    Library() {
        cnString = QStringLiteral("Driver={Microsoft Access Driver (*.mdb)};Dbq=%1/0909214SD01.mdb;Uid=admin;")
                       .arg(dir.path());
        cn.Create(cnString);
        cn.Execute(QStringLiteral("CREATE TABLE Keralafields (ID INTEGER PRIMARY KEY, CircularNumber TEXT COLLATE NOCASE)"));
        cn.Execute(QStringLiteral("CREATE TABLE Kerala (id INTEGER PRIMARY KEY, name TEXT COLLATE NOCASE, fname LONGBINARY)"));
        CircularTitles titles;
        cn.BeginTrans();
        for (int i = 0; i < kRows; ++i) {
            const auto [name, label] = titles.next();
            cn.Execute(QStringLiteral("INSERT INTO Keralafields (CircularNumber) VALUES ('%1-%2')").arg(label, name.trimmed()));
        }
        // A document of 1 MB: an RTF of many formatted paragraphs.
        QString rtf = QStringLiteral("{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}}\\f0\\fs20 ");
        while (rtf.size() < 1024 * 1024)
            rtf += QStringLiteral("{\\b Section %1.} Every dealer shall {\\i pay} the tax \\u8377? on the taxable "
                                  "turnover\\tat the rates of the {\\ul Schedule}.\\par ").arg(rtf.size());
        rtf += u'}';
        store::Recordset docs;
        docs.setCursorType(store::Recordset::adOpenStatic);
        docs.setCursorLocation(store::Recordset::adUseClient);
        docs.setLockType(store::Recordset::adLockOptimistic);
        docs.Open(QStringLiteral("SELECT * FROM Kerala"), cn);
        docs.AddNew();
        docs.Fields(QStringLiteral("name")) = basic::Variant(QStringLiteral("big"));
        docs.Fields(QStringLiteral("fname")) = basic::Variant(rtf.toUtf8());
        docs.Update();
        docs.Close();
        cn.CommitTrans();
    }
};

Library& library() {
    static Library lib;
    return lib;
}

// One key: the text grows by a letter or loses it, alternately, so each run refilters the whole list.
void BM_TypeALetterInTxtSearch(benchmark::State& state) {
    Library& lib = library();
    library::frmGlobalSections w;
    w.setRecSet([&] {
        store::Recordset rs;
        rs.setCursorType(store::Recordset::adOpenStatic);
        rs.setCursorLocation(store::Recordset::adUseClient);
        rs.setLockType(store::Recordset::adLockOptimistic);
        rs.Open(QStringLiteral("SELECT CircularNumber AS Search, CircularNumber AS [CIRCULAR NUMBER], ID FROM "
                               "Keralafields ORDER BY CircularNumber"), lib.cn);
        return rs;
    }());
    w.setSearchColumnIndex(1);
    w.setDetailIndex(1);
    w.setHiddenIDIndex(2);
    w.setAutoSizeColumnIndex(1);
    w.LoadGridData();
    w.resize(1280, 800);
    w.show();
    QApplication::processEvents();
    // 0: one letter and back, over all the rows. 1: "input credit" typed letter by letter, then cleared,
    // as a user types. 2: every key a two-word text not seen before, so nothing typed earlier helps.
    QStringList texts;
    if (state.range(0) == 0) texts = {QStringLiteral("c"), QString()};
    if (state.range(0) == 1) {
        const QString phrase = QStringLiteral("input credit");
        for (int n = 1; n <= phrase.size(); ++n) texts << phrase.left(n);
        texts << QString();
    }
    long shown = 0;
    int i = 0;
    for (auto _ : state) {
        if (state.range(0) == 2) {
            static const char* first[] = {"input", "tax", "sale", "rate", "goods", "works", "return"};
            const int k = i++;
            w.txtSearch->setText(QStringLiteral("%1 %2%3").arg(QString::fromUtf8(first[k % 7])).arg(u'a' + k % 26).arg(k));
        } else {
            w.txtSearch->setText(texts[i++ % texts.size()]);
        }
        w.repaint();
        shown += w.DataGrid1->RowCount();
    }
    state.counters["rows shown"] = double(shown) / double(state.iterations());
}
BENCHMARK(BM_TypeALetterInTxtSearch)->Arg(0)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

// The same two-word filter straight on SQLite, as the floor.
void BM_SqliteFilterFloor(benchmark::State& state) {
    Library& lib = library();
    sqlite3* db = nullptr;
    sqlite3_open_v2(lib.cn.FilePath().toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr);
    for (auto _ : state) {
        sqlite3_stmt* st = nullptr;
        sqlite3_prepare_v2(db, "SELECT CircularNumber FROM Keralafields WHERE CircularNumber LIKE '%input%' AND "
                               "CircularNumber LIKE '%credit%' ORDER BY CircularNumber", -1, &st, nullptr);
        long n = 0;
        while (sqlite3_step(st) == SQLITE_ROW) ++n;
        sqlite3_finalize(st);
        benchmark::DoNotOptimize(n);
    }
    sqlite3_close(db);
}
BENCHMARK(BM_SqliteFilterFloor)->Unit(benchmark::kMillisecond);

// A Go: the data control reads the row, the container shows its 1 MB document.
void BM_OpenOneMegabyteDocument(benchmark::State& state) {
    Library& lib = library();
    library::keralaforms kf;
    kf.show();
    for (auto _ : state) {
        kf.OLE1->clear();
        kf.MSRDC1->setConnect(lib.cnString);
        kf.MSRDC1->setSQL(QStringLiteral("select fname from Kerala where name='big' "));
        kf.MSRDC1->Refresh();
        if (state.range(0) > 0) kf.OLE1->setDataField(QStringLiteral("fname"));
        if (state.range(0) > 1) kf.repaint();
    }
    state.counters["bytes"] = double(kf.OLE1->document().size());
}
// The RTF reader alone on the same document, into a document that is never laid out.
void BM_ReadOneMegabyteRtf(benchmark::State& state) {
    Library& lib = library();
    documents::DataControl control;
    control.setConnect(lib.cnString);
    control.setSQL(QStringLiteral("select fname from Kerala where name='big' "));
    control.Refresh();
    const QByteArray bytes = control.bytes(QStringLiteral("fname"));
    for (auto _ : state) {
        QTextDocument document;
        documents::readRtf(bytes, document);
        benchmark::DoNotOptimize(document.blockCount());
    }
}
BENCHMARK(BM_ReadOneMegabyteRtf)->Unit(benchmark::kMillisecond);

BENCHMARK(BM_OpenOneMegabyteDocument)->Arg(0)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) { return runOffscreen<QApplication>(argc, argv); }
