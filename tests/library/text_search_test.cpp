// The search of the library's words, on a small library that the builder makes here: what each kind of
// query finds, the ranking, Enter opening the document at its hit, and a library built without the index.
#include "library/frm_text_search.h"
#include "library_window_fixture.h"
#include "platform/documents/find_bar.h"
#include "source.h"
#include "writer.h"

#include <QComboBox>
#include <QSignalSpy>
#include <QScrollBar>
#include <QTextBrowser>

namespace {

const QString kLong = QStringLiteral("The officer reads the accounts of the year. ").repeated(60);

// Kerala rows: id, name, type, document file, document text.
const char* const kDocuments[][5] = {
    {"1", "Circular 4/2010", "Circular", "c1.rtf", "{\\rtf1\\ansi Capital goods.\\par %1\\par Credit on plant and "
                                                   "machinery bought for manufacture.\\par %1\\par Plant and "
                                                   "machinery used for exempt goods earn no credit.\\par}"},
    {"2", "Input tax credit", "Rules", "r1.txt", "Who may claim and when."},
    {"3", "Circular 9/2011", "Circular", "c2.txt", "Stock sent to branches. %1 The input tax credit is reduced."},
    {"4", "SRO 5/2012", "Notification", "n1.html", "<html><body><p>Natural rubber and latex.</p></body></html>"},
    {"5", "സർക്കുലർ 2/2013", "Circular", "ml.txt", "ചെറുകിട വ്യാപാരികൾ നികുതി അടയ്ക്കണം."},
};

// The small library's source folder, built into a program folder with or without its text index.
QString builtLibrary(bool withText) {
    static QTemporaryDir work;
    const QString out = work.filePath(withText ? "indexed" : "older");
    if (QFile::exists(out + "/0909214SD01.mdb")) return out;
    const QDir source(work.filePath("source"));
    source.mkpath("documents");
    auto write = [](const QString& path, const QString& text) {
        QFile f(path);
        f.open(QIODevice::WriteOnly);
        f.write(text.toUtf8());
    };
    QString kerala = "id\tname\ttype\tChapterNo\tfname\n";
    for (const auto& d : kDocuments) {
        kerala += QStringLiteral("%1\t%2\t%3\t0\t%4\n").arg(d[0], QString::fromUtf8(d[1]), d[2], d[3]);
        const QString text = QString::fromUtf8(d[4]);
        write(source.filePath("documents/") + d[3], text.contains("%1") ? text.arg(kLong) : text);
    }
    write(source.filePath("Kerala.tsv"), kerala);
    for (const auto& [table, header] : {std::pair{"Keralafields", "ID"}, {"Globalvat", "name\ttype\tfname"},
                                        {"Globalvatse", "name\ttype\tfname"}, {"Allshedule", "ID\tSchname\tStid\tfname"},
                                        {"CAPractice", "ID\tname\tType\tWeight\tfname"}})
        write(source.filePath(table + QStringLiteral(".tsv")), header + QStringLiteral("\n"));
    libbuilder::writeLibrary(libbuilder::readSource(source.path()), out, withText);
    return out;
}

class TextSearch : public LibraryWindows {
protected:
    void open(bool withText) {
        basic::SetAppPath(builtLibrary(withText));
        shell::InitLibraryStore();
        forms::define(QStringLiteral("frmTextSearch"), [] { return new library::frmTextSearch; });
        window = forms::get<library::frmTextSearch>(QStringLiteral("frmTextSearch"));
    }
    // The ids of the rows found, best first.
    QString search(const QString& typed, const QString& kind = QString()) {
        QSignalSpy searched(window, &library::frmTextSearch::Searched);
        window->txtQuery->setText(typed);
        window->cboKind->setCurrentIndex(std::max(0, window->cboKind->findText(kind)));
        window->Search();
        EXPECT_TRUE(searched.wait(5000)) << typed.toStdString();
        return window->resultKeys().join(u' ').remove(QStringLiteral("Kerala:"));
    }
    library::frmTextSearch* window = nullptr;
};

TEST_F(TextSearch, EachKindOfQueryFindsItsDocuments) {
    open(true);
    const struct { const char* typed, *kind, *ids; } cases[] = {
        {"input tax credit", "", "2 3"},  // the title holding the words above the body that says them once
        {"\"plant and machinery\"", "", "1"}, {"\"machinery and plant\"", "", ""}, {"rubber OR branches", "", "3 4"},
        {"credit NOT stock", "", "2 1"}, {"credit -\"sent to branches\"", "", "2 1"}, {"machin*", "", "1"},
        {"നികുതി", "", "5"}, {"input credit", "Circular", "3"}, {"NOT credit", "", ""},
    };
    for (const auto& c : cases) {
        QStringList ids = search(QString::fromUtf8(c.typed), c.kind).split(u' ', Qt::SkipEmptyParts);
        if (QByteArray(c.typed).contains(" OR ")) ids.sort();  // either term may rank first
        EXPECT_EQ(ids.join(u' '), c.ids) << c.typed;
    }
    EXPECT_TRUE(window->lblStatus->text().startsWith("Give a word")) << window->lblStatus->text().toStdString();
}

TEST_F(TextSearch, EnterOpensTheCircularAtItsHitAndCtrlFFindsTheNext) {
    open(true);
    window->show();
    QSignalSpy searched(window, &library::frmTextSearch::Searched);
    QTest::keyClicks(window->txtQuery, QStringLiteral("\"plant and machinery\""));
    QTest::keyClick(window->txtQuery, Qt::Key_Return);  // before the pause ends: opens what is found
    ASSERT_TRUE(searched.wait(5000));
    auto* kf = forms::get<library::keralaforms>(QStringLiteral("keralaforms"));
    ASSERT_TRUE(kf->isVisible());
    ASSERT_TRUE(QTest::qWaitForWindowActive(kf));
    QTextBrowser* text = kf->OLE1->textBrowser();
    EXPECT_EQ(text->textCursor().selectedText(), "plant and machinery");
    EXPECT_EQ(text->extraSelections().size(), 2);
    EXPECT_TRUE(text->viewport()->rect().contains(text->cursorRect()));
    EXPECT_GT(text->verticalScrollBar()->value(), 0);  // the hit lies below the first screen

    QTest::keyClick(text, Qt::Key_F, Qt::ControlModifier);
    auto* bar = kf->OLE1->findChild<documents::FindBar*>();
    ASSERT_TRUE(bar && bar->isVisible());
    EXPECT_EQ(bar->count->text(), "1 of 2");   // the search's words, stepped through as any find is
}

TEST_F(TextSearch, ResultsFollowTheTypingAndANewerQueryWins) {
    open(true);
    QSignalSpy searched(window, &library::frmTextSearch::Searched);
    QTest::keyClicks(window->txtQuery, QStringLiteral("rubber"));  // no Enter: the pause starts the search
    ASSERT_TRUE(searched.wait(5000));
    EXPECT_EQ(window->resultKeys(), QStringList{"Kerala:4"});
    window->txtQuery->setText("machin*");
    window->Search();
    window->txtQuery->setText("stock");
    window->Search();
    while (window->resultKeys() != QStringList{"Kerala:3"} && searched.wait(2000)) {}
    EXPECT_EQ(window->resultKeys(), QStringList{"Kerala:3"});
    EXPECT_FALSE(searched.wait(500)) << "the older search came back after the newer one";
}

TEST_F(TextSearch, ALibraryBuiltWithoutTheIndexOpensAndSaysSo) {
    open(false);
    EXPECT_EQ(search("credit"), "");
    EXPECT_TRUE(window->lblStatus->text().contains("no text index")) << window->lblStatus->text().toStdString();
}

}  // namespace
