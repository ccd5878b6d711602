// The reader's windows at sizes beyond a practice's use:
//   OpenBookmarks_Store     the bookmarks window with 10,000 bookmarks in 100 folders, shown: read from the
//                           reader's file, listed by folder, filtered, painted. Each iteration hides and shows it.
//   ReadBookmarks_Sqlite    the same 10,000 rows read straight from SQLite: the floor.
//   AltLeft_Store           Alt+Left, then Alt+Right, in the document window between two circulars of 100 KB
//                           of RTF: each step reads the row, shows the document, lights its notes and puts it
//                           at the place left. One iteration is one step.
//   ShowDocument_Documents  the same two documents set by turns into a document view: the floor of a step.
#include "support/reader_windows.h"
#include "zipf_texts.h"

#include "library/keralaforms.h"
#include "library/reader.h"
#include "library/reader_bookmarks.h"
#include "library/reader_documents.h"
#include "platform/basic/app_path.h"
#include "platform/documents/document_view.h"
#include "platform/documents/reader_store.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/window_registry.h"
#include "shell/my_mod.h"
#include "source.h"
#include "writer.h"

#include <QApplication>
#include <QDir>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>
#include <benchmark/benchmark.h>
#include <sqlite3.h>

namespace {

constexpr int kBookmarks = 10000, kFolders = 100;

// A program folder with a library of two long circulars, and a user's folder of its own.
struct Program {
    QTemporaryDir work;
    QString program = work.filePath("program"), user = work.filePath("user");
    QByteArray circulars[2];
    forms::MsgBoxRecorder boxes;
    Program() {
        QDir source(work.filePath("source"));
        source.mkpath("documents");
        QDir().mkpath(user);
        ZipfTexts texts(100 * 1000);
        for (int i = 0; i < 2; ++i) {
            circulars[i] = "{\\rtf1\\ansi Circular No. " + QByteArray::number(i + 1) + "/2025\\par " + texts.next().replace("\n", "\\par\n") + "}";
            QFile f(source.filePath(QStringLiteral("documents/c%1.rtf").arg(i)));
            f.open(QIODevice::WriteOnly);
            f.write(circulars[i]);
        }
        const auto table = [&](const char* name, const QByteArray& rows) {
            QFile f(source.filePath(QString::fromLatin1(name) + ".tsv"));
            f.open(QIODevice::WriteOnly);
            f.write(rows);
        };
        table("Kerala", "id\tname\ttype\tChapterNo\tfname\n1\tCircular 1/2025\tCircular\t0\tc0.rtf\n2\tCircular 2/2025\tCircular\t0\tc1.rtf\n");
        table("Keralafields", "ID\n");
        table("Globalvat", "name\ttype\tfname\n");
        table("Globalvatse", "name\ttype\tfname\n");
        table("Allshedule", "ID\tSchname\tStid\tfname\n");
        table("CAPractice", "ID\tname\tType\tWeight\tfname\n");
        libbuilder::writeLibrary(libbuilder::readSource(source.path()), program, true);
        basic::SetFolders(program, user);
        shell::InitLibraryStore();
        defineReaderWindows();
        documents::ReaderStore& store = library::readerStore();
        for (int i = 0; i < kBookmarks; ++i)
            store.addBookmark({QStringLiteral("Kerala:%1").arg(1000 + i), QStringLiteral("Circular %1/2020 on the tax on goods").arg(i),
                               QStringLiteral("Circular")},
                              QStringLiteral("Folder %1").arg(i % kFolders));
    }
};

Program& program() {
    static Program p;
    return p;
}

void BM_OpenBookmarks_Store(benchmark::State& state) {
    (void)program();
    QWidget* marks = forms::get(QStringLiteral("BookmarksWindow"));
    for (auto _ : state) {
        marks->show();
        QCoreApplication::processEvents();   // painted
        state.PauseTiming();
        marks->hide();
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
    state.counters["bookmarks"] = double(library::readerStore().bookmarks().size());
}

void BM_ReadBookmarks_Sqlite(benchmark::State& state) {
    (void)program();
    sqlite3* db = nullptr;
    sqlite3_open_v2(QFile::encodeName(QDir(program().user).filePath(library::kReaderFile)).constData(), &db, SQLITE_OPEN_READONLY, nullptr);
    long rows = 0;
    for (auto _ : state) {
        sqlite3_stmt* st = nullptr;
        sqlite3_prepare_v2(db, "SELECT id, doc, title, kind, folder, added FROM bookmarks ORDER BY folder, title", -1, &st, nullptr);
        rows = 0;
        while (sqlite3_step(st) == SQLITE_ROW) {
            for (int c = 0; c < 6; ++c) benchmark::DoNotOptimize(sqlite3_column_text(st, c));
            ++rows;
        }
        sqlite3_finalize(st);
    }
    sqlite3_close(db);
    state.counters["bookmarks"] = double(rows);
}

void BM_AltLeft_Store(benchmark::State& state) {
    (void)program();
    auto* kf = forms::get<library::keralaforms>(QStringLiteral("keralaforms"));
    library::openDocument(QStringLiteral("Kerala:1"));
    QScrollBar* bar = kf->OLE1->textBrowser()->verticalScrollBar();
    bar->setValue(bar->maximum() / 3);
    library::openDocument(QStringLiteral("Kerala:2"));
    bar->setValue(bar->maximum() / 2);
    kf->activateWindow();
    if (!QTest::qWaitForWindowActive(kf)) state.SkipWithError("the document window did not take the keyboard");
    bool back = true;
    for (auto _ : state) {
        QTest::keyClick(kf, back ? Qt::Key_Left : Qt::Key_Right, Qt::AltModifier);
        back = !back;
    }
    state.counters["shown_scrolled"] = bar->value() > 0;
}

void BM_ShowDocument_Documents(benchmark::State& state) {
    documents::DocumentView view;
    view.resize(683, 540);
    view.show();
    int i = 0;
    for (auto _ : state) view.setDocument(program().circulars[++i % 2]);
}

BENCHMARK(BM_OpenBookmarks_Store)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly(true);
BENCHMARK(BM_ReadBookmarks_Sqlite)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly(true);
BENCHMARK(BM_AltLeft_Store)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly(true);
BENCHMARK(BM_ShowDocument_Documents)->Unit(benchmark::kMillisecond)->Repetitions(5)->ReportAggregatesOnly(true);

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    forms::reset();   // the windows go before the application object
    return 0;
}
