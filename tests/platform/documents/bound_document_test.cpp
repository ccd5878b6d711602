// A document reaches the screen as the law library asks for it, through a data control and the container
// bound to "fname": what a failed lookup leaves, and the open verb.
#include "platform/basic/runtime_error.h"
#include "platform/documents/data_control.h"
#include "platform/documents/full_viewer.h"
#include "platform/documents/ole_container.h"
#include "platform/store/connection.h"

#include "support/printers.h"

#include <QTest>

#include <gtest/gtest.h>

namespace documents {

class BoundDocument : public ::testing::Test {
protected:
    void SetUp() override {
        const QString connect = QStringLiteral("Driver={Microsoft Access Driver (*.mdb)};Dbq=") + dir.path() +
                                QStringLiteral("\\0909214SD01.mdb;Uid=admin;Pwd=lantern;");
        store::Connection connection;
        connection.Create(connect);
        connection.Execute(QStringLiteral("CREATE TABLE Globalvat (name TEXT COLLATE NOCASE, fname LONGBINARY)"));
        connection.Execute(QStringLiteral("INSERT INTO Globalvat VALUES ('default', CAST('{\\rtf1 Document not {\\b available}}' "
                                          "AS BLOB)), ('circular 12', CAST('<html><body>Circular No. 12/2008</body></html>' "
                                          "AS BLOB)), ('nothing', NULL)"));
        MSRDC1.setConnect(connect);
        OLE1.setDataSource(&MSRDC1);
    }
    // Looks a row up as the law library does, binding fname when asked.
    void lookUp(const char* name, bool bind = false) {
        MSRDC1.setSQL(QStringLiteral("select fname from Globalvat where name='%1'").arg(QLatin1String(name)));
        MSRDC1.Refresh();
        if (bind) OLE1.setDataField(QStringLiteral("fname"));
    }

    QTemporaryDir dir;
    DataControl MSRDC1;
    OleContainer OLE1;
};

TEST_F(BoundDocument, FailuresReachTheCaller) {
    lookUp("default");
    const basic::RuntimeError unknownField = basic::resume([&] { OLE1.setDataField(QStringLiteral("fnam")); });
    EXPECT_EQ(unknownField.number(), 3265);
    EXPECT_EQ(OLE1.kind(), Kind::None);

    OLE1.setDataField(QStringLiteral("FNAME"));
    EXPECT_EQ(OLE1.kind(), Kind::Rtf);
    MSRDC1.setSQL(QStringLiteral("select fname from NoTable"));
    EXPECT_NE(basic::resume([&] { MSRDC1.Refresh(); }).number(), 0);
    EXPECT_TRUE(MSRDC1.Eof());
    EXPECT_EQ(OLE1.kind(), Kind::Rtf) << "a failed refresh leaves the shown document";
}

TEST_F(BoundDocument, OpenVerbShowsTheDocumentInFull) {
    lookUp("circular 12", true);
    OLE1.DoVerb(OleContainer::vbOLEOpen);
    FullViewer* viewer = FullViewer::existing();
    ASSERT_NE(viewer, nullptr);
    EXPECT_TRUE(viewer->isVisible() && viewer->isWindow() && (viewer->windowState() & Qt::WindowMaximized));
    EXPECT_EQ(viewer->view()->plainText(), QLatin1String("Circular No. 12/2008"));
    QTest::keyClick(viewer, Qt::Key_Escape);

    OLE1.DoVerb(OleContainer::vbOLEShow);
    EXPECT_FALSE(viewer->isVisible());
    lookUp("default");
    OLE1.DoVerb(2);  // an object's own verb opens it too, in the same viewer
    EXPECT_TRUE(viewer->isVisible());
    EXPECT_EQ(FullViewer::existing(), viewer);
    EXPECT_EQ(viewer->view()->plainText(), QLatin1String("Document not available"));
    viewer->hide();

    lookUp("nothing");
    OLE1.DoVerb(OleContainer::vbOLEOpen);
    EXPECT_FALSE(viewer->isVisible()) << "an empty container has nothing to open";
}

}  // namespace documents
