// The list page of the state browser at 100,000 act sections: one key in the search box (the typing search
// over the whole list, and the document the chosen entry prepares), and one word search. Beside them, the
// same prefix scan in plain code and the same statements straight on SQLite.
#include "qt_bench_main.h"
#include "library/frm_kerala.h"
#include "library/keralaforms.h"
#include "platform/basic/app_path.h"
#include "platform/forms/list_box.h"
#include "platform/forms/window_registry.h"
#include "shell/my_mod.h"
#include "shell/word_search.h"
#include "synthetic.h"
#include "writer.h"

#include <QApplication>
#include <QLineEdit>
#include <QStringList>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <sqlite3.h>

namespace {

constexpr int kRows = 100000;

// A generated library of 100,000 rows a table, opened as the program opens its own.
struct Library {
    QTemporaryDir dir;
    Library() {
        libbuilder::writeLibrary(libbuilder::syntheticLibrary(kRows), dir.path());
        basic::SetAppPath(dir.path());
        shell::InitLibraryStore();
        forms::define(QStringLiteral("main"), [] { return new QWidget; });
        forms::define(QStringLiteral("keralaforms"), [] { return new library::keralaforms; });
        forms::define(QStringLiteral("frmkerala"), [] { return new library::frmkerala; });
    }
};

Library& lib() {
    static Library l;
    return l;
}

// The act's section list, filled as the dormant "Sectionwise" node fills it, under the toolbar key given.
library::frmkerala* actPage(const QString& key) {
    lib();
    auto* w = forms::get<library::frmkerala>(QStringLiteral("frmkerala"));
    w->setWindowState(Qt::WindowNoState);
    w->resize(1366, 768);
    w->show();
    w->CurrentToolbarKey = key;
    if (w->List1->ListCount() != kRows) w->FillSectionwiseList();
    QApplication::processEvents();
    return w;
}

// Texts that send the search to the list's last entry and past its end, so every key scans it whole.
const QString kTexts[] = {QStringLiteral("Section 099996"), QStringLiteral("Section 099996x")};

// One key in Text3: range(0) 0 the typing search alone (no toolbar key pressed yet, so the click
// prepares no document), 1 with the act section's document prepared ("Act"); range(1) 1 also redraws.
void BM_KeyInSearchBox(benchmark::State& state) {
    library::frmkerala* w = actPage(state.range(0) ? QStringLiteral("Act") : QString());
    int i = 0;
    for (auto _ : state) {
        w->Text3->setText(kTexts[i++ % 2]);
        if (state.range(1)) w->repaint();
    }
    state.counters["list rows"] = double(w->List1->ListCount());
}
BENCHMARK(BM_KeyInSearchBox)->Args({0, 0})->Args({1, 0})->Args({1, 1})->Unit(benchmark::kMillisecond);

// The floor of the typing search: the same prefix scan over the same texts held in a plain list.
void BM_PrefixScanFloor(benchmark::State& state) {
    library::frmkerala* w = actPage(QStringLiteral("Ali"));
    QStringList texts;
    for (int r = 0; r < w->List1->ListCount(); ++r) texts << w->List1->List(r);
    int i = 0;
    for (auto _ : state) {
        const QString& prefix = kTexts[i++ % 2];
        int found = -1;
        for (int r = 0; r < texts.size() && found < 0; ++r)
            if (texts[r].startsWith(prefix, Qt::CaseInsensitive)) found = r;
        benchmark::DoNotOptimize(found);
    }
}
BENCHMARK(BM_PrefixScanFloor)->Unit(benchmark::kMillisecond);

sqlite3* openFirstFile() {
    sqlite3* db = nullptr;
    sqlite3_open_v2((lib().dir.path() + QStringLiteral("/0909214SD01.mdb")).toUtf8().constData(), &db,
                    SQLITE_OPEN_READONLY, nullptr);
    sqlite3_exec(db, "PRAGMA key = 'bergamot'; PRAGMA cache_size = -65536", nullptr, nullptr, nullptr);
    return db;
}

long countRows(sqlite3* db, const char* sql) {
    sqlite3_stmt* st = nullptr;
    sqlite3_prepare_v2(db, sql, -1, &st, nullptr);
    long n = 0;
    while (sqlite3_step(st) == SQLITE_ROW) ++n;
    sqlite3_finalize(st);
    return n;
}

// The floor of the prepared document: the statement a click sends, straight on SQLite.
void BM_SectionDocumentFloor(benchmark::State& state) {
    sqlite3* db = openFirstFile();
    for (auto _ : state)
        benchmark::DoNotOptimize(
            countRows(db, "select fname from KERALA where name='Section 099996' and type='Act'"));
    sqlite3_close(db);
}
BENCHMARK(BM_SectionDocumentFloor)->Unit(benchmark::kMillisecond);

// The button "Words Search": two words over the whole index, the list filled anew.
void BM_WordSearch(benchmark::State& state) {
    library::frmkerala* w = actPage(QStringLiteral("Ali"));
    for (auto _ : state)
        shell::WordSearchToList(w->List1, QStringLiteral("Keralafields"), QStringLiteral("ActSection"),
                                QStringLiteral("section 0999"), QStringLiteral("ActSection"));
    state.counters["found"] = double(w->List1->ListCount());
    w->List1->Clear();
}
BENCHMARK(BM_WordSearch)->Unit(benchmark::kMillisecond);

void BM_WordSearchFloor(benchmark::State& state) {
    sqlite3* db = openFirstFile();
    for (auto _ : state)
        benchmark::DoNotOptimize(countRows(
            db, "Select  * from Keralafields where ActSection like '%section% %0999%' ORDER BY ActSection"));
    sqlite3_close(db);
}
BENCHMARK(BM_WordSearchFloor)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    const int code = runOffscreen<QApplication>(argc, argv);
    forms::reset();
    shell::cnLibrary1 = shell::cnLibrary2 = shell::cnLibrary3 = store::Connection();
    return code;
}
