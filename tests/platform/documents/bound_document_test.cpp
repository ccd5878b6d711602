// A document reaches the screen as the law library asks for it, through a data control and the container
// bound to "fname": what a failed lookup leaves. Its open verb is driven from the document window.
#include "platform/basic/runtime_error.h"
#include "platform/documents/data_control.h"
#include "platform/documents/ole_container.h"
#include "platform/store/connection.h"

#include "support/printers.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace documents {

TEST(BoundDocument, FailuresReachTheCaller) {
    QTemporaryDir dir;
    const QString connect = QStringLiteral("Driver={Microsoft Access Driver (*.mdb)};Dbq=") + dir.path() +
                            QStringLiteral("\\0909214SD01.mdb;Uid=admin;Pwd=lantern;");
    store::Connection connection;
    connection.Create(connect);
    connection.Execute(QStringLiteral("CREATE TABLE Globalvat (name TEXT COLLATE NOCASE, fname LONGBINARY)"));
    connection.Execute(QStringLiteral("INSERT INTO Globalvat VALUES ('default', CAST('{\\rtf1 Document not available}' AS BLOB))"));
    DataControl MSRDC1;
    OleContainer OLE1;
    MSRDC1.setConnect(connect);
    OLE1.setDataSource(&MSRDC1);
    MSRDC1.setSQL(QStringLiteral("select fname from Globalvat where name='default'"));
    MSRDC1.Refresh();
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

}  // namespace documents
