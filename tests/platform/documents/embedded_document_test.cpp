// A document embedded in a window from a file: it shows with no data source, survives a refresh, and
// opens in full with links that lead to the files beside it.
#include "platform/basic/runtime_error.h"
#include "platform/documents/full_viewer.h"
#include "platform/documents/ole_container.h"

#include "support/printers.h"

#include <QScrollBar>
#include <QTemporaryDir>
#include <QTextBrowser>

#include <gtest/gtest.h>

namespace documents {
namespace {

// Links followed one after the other in the viewer, from the embedded contents page.
TEST(EmbeddedDocument, LinksOfTheOpenedDocumentLeadToFilesBesideIt) {
    QTemporaryDir dir;
    const std::pair<const char*, QByteArray> files[] = {
        {"contents.rtf", "{\\rtf1 Contents: {\\field{\\*\\fldinst{HYPERLINK \"forms/FORMC.rtf\"}}{\\fldrslt Form C}}}"},
        {"ACT.rtf", "{\\rtf1 THE ACT\\par " + QByteArray("preamble\\par ").repeated(300) + "{\\*\\bkmkstart a10}Section 8}"},
        {"forms/FORMC.rtf", "{\\rtf1 FORM C {\\field{\\*\\fldinst{HYPERLINK \"../ACT.rtf\" \\\\l \"a10\"}}{\\fldrslt sec 8}}}"}};
    for (const auto& [name, bytes] : files) {
        QDir().mkpath(QFileInfo(dir.filePath(name)).absolutePath());
        QFile f(dir.filePath(name));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size());
    }
    OleContainer OLE1;
    OLE1.CreateEmbed(dir.filePath(QStringLiteral("contents.rtf")));
    EXPECT_EQ(basic::resume([&] { OLE1.CreateEmbed(dir.filePath(QStringLiteral("none.rtf"))); }).number(), 75);
    OLE1.Refresh();  // neither the failed embedding nor a refresh drops the document
    OLE1.DoVerb(2);
    FullViewer* viewer = FullViewer::existing();
    ASSERT_TRUE(viewer && viewer->isVisible());
    const struct { const char* link; const char* startsWith; bool scrolled; } steps[] = {
        {"http://example.in/x.rtf", "Contents", false},
        {"missing.rtf", "Contents", false},
        {"/etc/hostname", "Contents", false},
        {"forms/FORMC.rtf", "FORM C", false},
        {"../ACT.rtf#a10", "THE ACT", true},  // resolved beside FORM C, where the viewer now stands
    };
    for (const auto& s : steps) {
        viewer->followLink(QLatin1String(s.link));
        EXPECT_TRUE(viewer->view()->plainText().startsWith(QLatin1String(s.startsWith))) << s.link;
        EXPECT_EQ(viewer->view()->textBrowser()->verticalScrollBar()->value() > 0, s.scrolled) << s.link;
    }

    // A document opened without a folder, as a stored one is, has no file links.
    openInFull("{\\rtf1 stored}");
    viewer->followLink(QStringLiteral("forms/FORMC.rtf"));
    EXPECT_EQ(viewer->view()->plainText(), QLatin1String("stored"));
    viewer->hide();
}

}  // namespace
}  // namespace documents
