#pragma once
// A small library of long documents of each kind, built here once, with the index entries that number
// them; the document window with the reader's keys, the reader's windows and the search registered as
// app/ registers them; the user's folder and settings of each test's own.
#include "library/reader.h"
#include "library/reader_bookmarks.h"
#include "library/reader_documents.h"
#include "library/text_sources.h"
#include "platform/basic/app_path.h"
#include "platform/documents/reader_store.h"
#include "platform/forms/msgbox.h"
#include "platform/forms/window_registry.h"
#include "shell/my_mod.h"
#include "source.h"
#include "support/printers.h"
#include "support/reader_windows.h"
#include "writer.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSettings>
#include <QTextDocumentFragment>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace reader_test {

inline QString paragraphs(const char* line, int count, const char* end = "\n") {
    QString text;
    for (int i = 1; i <= count; ++i) text += QStringLiteral("%1 %2.%3").arg(QString::fromLatin1(line)).arg(i).arg(QString::fromLatin1(end));
    return text;
}

inline void writeFile(const QString& path, const QByteArray& bytes) {
    QFile f(path);
    f.open(QIODevice::WriteOnly);
    f.write(bytes);
}

// The program folder of the reader's tests: built on first use, read by every test.
inline QString readerLibrary() {
    static QTemporaryDir work;
    const QString out = work.filePath("program");
    if (QFile::exists(out + "/0909214SD01.mdb")) return out;
    const QDir source(work.filePath("source"));
    source.mkpath("documents");
    const auto doc = [&](const char* name, const QString& text) { writeFile(source.filePath(QStringLiteral("documents/") + name), text.toUtf8()); };
    doc("section-6.rtf", "{\\rtf1\\ansi Section 6. Levy of tax\\par " + paragraphs("Every dealer shall pay tax on his taxable turnover, paragraph", 80, "\\par ") + "}");
    doc("rule-9.txt", "Rule 9. Returns\n" + paragraphs("A return shall be filed by the tenth of the month, line", 80));
    doc("circular-12.rtf", "{\\rtf1\\ansi Circular No. 12/2006\\par Dated 14-03-2006\\par Input tax credit on plant and machinery.\\par " +
                               paragraphs("Credit is given in equal parts over the year, paragraph", 80, "\\par ") + "}");
    doc("sro-82.html", "<html><body><p>SRO 82/2006</p><p>Dated 1st April 2006</p><p>Natural rubber bears tax at four per cent.</p></body></html>");
    doc("circular-3.txt", "Circular 3/2007\nReturns may be sent by post.\n");
    doc("coconut.rtf", "{\\rtf1\\ansi State v. Coconut Traders\\par Judgment dated 12-06-2006\\par Copra is an agricultural produce.\\par}");
    doc("schedule.txt", "First Schedule\nExempted goods: paddy, rice, wheat.\n");
    doc("default.txt", "No document is stored for this entry.\n");
    const auto table = [&](const char* name, const QString& rows) { writeFile(source.filePath(QString::fromLatin1(name) + ".tsv"), rows.toUtf8()); };
    table("Kerala", "id\tname\tSecDesc\ttype\tChapterNo\tfname\n"
                    "1\t6\tLevy of tax\tAct\t2\tsection-6.rtf\n"
                    "2\tRule 9\tReturns\tRules\t2\trule-9.txt\n"
                    "3\tCircular 12/2006\tInput tax credit on capital goods\tCircular\t0\tcircular-12.rtf\n"
                    "4\tSRO 82/2006\tRate of tax on rubber\tNotification\t0\tsro-82.html\n"
                    "5\tCircular 3/2007\tReturns by post\tCircular\t0\tcircular-3.txt\n");
    table("Keralafields", "ID\tCircularNumber\tNotificationNumber\tVatJudgmentCitation\n"
                          "1\t12/2006-Circular 12/2006\tSRO 82/2006-SRO 82/2006\t[2006] 4 KTR 12-State v. Coconut Traders (2006)\n");
    table("Globalvat", "name\ttype\tfname\ndefault\tdefault\tdefault.txt\nState v. Coconut Traders (2006)\tJudgment\tcoconut.rtf\n");
    table("Globalvatse", "name\ttype\tfname\n");
    table("Allshedule", "ID\tSchname\tStid\tfname\n1\tFirst Schedule - Exempted goods\tk\tschedule.txt\n");
    table("CAPractice", "ID\tname\tType\tWeight\tfname\n");
    libbuilder::writeLibrary(libbuilder::readSource(source.path()), out, true);
    return out;
}

inline const QString kSection6 = QStringLiteral("Kerala:1"), kRule9 = QStringLiteral("Kerala:2"),
                     kCircular12 = QStringLiteral("Kerala:3"), kSro82 = QStringLiteral("Kerala:4"),
                     kCircular3 = QStringLiteral("Kerala:5"), kCoconut = QStringLiteral("Globalvat:2"),
                     kSchedule = QStringLiteral("Allshedule:1");

class ReaderFixture {
protected:
    ReaderFixture() {
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, user.path());
        basic::SetFolders(readerLibrary(), user.path());
        shell::InitLibraryStore();
        defineReaderWindows();
    }
    ~ReaderFixture() {
        forms::reset();
        shell::cnLibrary1 = shell::cnLibrary2 = shell::cnLibrary3 = store::Connection();
        basic::SetAppPath(QString());
    }
    library::keralaforms* kf() { return forms::get<library::keralaforms>(QStringLiteral("keralaforms")); }
    // Opens a document as the Recent list and the bookmarks do, with the keyboard in the window.
    void open(const QString& key) {
        ASSERT_TRUE(library::openDocument(key)) << key.toStdString();
        kf()->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(kf()));
    }
    QString shownKey() { return library::shownDocument(kf()).key; }
    void press(QWidget* w, Qt::Key key, Qt::KeyboardModifiers modifiers) { QTest::keyClick(w, key, modifiers); }
    // What the search window finds for the words, best first: each result's key, after "Note|" or
    // "My document|" where the result is marked so.
    QStringList searched(const QString& words) {
        auto* search = forms::get<library::frmTextSearch>(QStringLiteral("frmTextSearch"));
        QSignalSpy done(search, &library::frmTextSearch::Searched);
        search->txtQuery->setText(words);
        search->Search();
        EXPECT_TRUE(done.wait(5000)) << words.toStdString();
        QStringList found;
        const QStringList keys = search->resultKeys();
        for (int i = 0; i < keys.size(); ++i) {
            auto* label = qobject_cast<QLabel*>(search->lstResults->itemWidget(search->lstResults->item(i)));
            const QString shown = label ? QTextDocumentFragment::fromHtml(label->text()).toPlainText().simplified() : QString();
            QString mark;
            for (const QString& m : {library::kNoteMark, library::kMineMark})
                if (shown.contains(m + QStringLiteral(" · "))) mark = m + u'|';
            found << mark + keys[i];
        }
        return found;
    }

    QTemporaryDir user;
    forms::MsgBoxRecorder boxes;
};

}  // namespace reader_test
