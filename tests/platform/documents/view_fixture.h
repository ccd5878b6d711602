#pragma once
// A document view in a window of its own with its view tools, its remembered settings in a folder of
// the test's own, the zoom at 100 and light on dark off.
#include "platform/basic/settings.h"
#include "platform/documents/document_view.h"
#include "platform/documents/find_bar.h"
#include "platform/documents/light_on_dark.h"
#include "platform/documents/view_tools.h"
#include "platform/documents/zoom.h"

#include "support/made_pdfs.h"
#include "support/printers.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfView>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace documents {

// Paragraphs of words, long enough to fill pages.
inline QByteArray longRtf(int paragraphs) {
    QByteArray rtf = "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 DejaVu Serif;}}\\f0\\fs22 ";
    for (int i = 1; i <= paragraphs; ++i)
        rtf += "Paragraph " + QByteArray::number(i) + ": every dealer shall keep the accounts of his purchases "
               "and sales at his place of business.\\par ";
    return rtf + "}";
}

class ViewFixture : public ::testing::Test {
protected:
    void SetUp() override {
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settingsDir.path());
        Zoom::shared().setPercent(100);
        LightOnDark::shared().setOn(false);
        view = new DocumentView(&window);
        (new QVBoxLayout(&window))->addWidget(view);
        window.layout()->setContentsMargins(0, 0, 0, 0);
        bar = FindBar::attach(view);
        tools = ViewTools::attach(view, [] { return PrintHead{QStringLiteral("Circular 18/2009"), QStringLiteral("Circular")}; });
        window.resize(800, 600);
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    void TearDown() override {
        Zoom::shared().setPercent(100);
        LightOnDark::shared().setOn(false);
    }
    // Shows the document; a PDF's pages are drawn on threads of their own, so its ink is waited for.
    void show(const QByteArray& bytes) {
        view->setDocument(bytes);
        QApplication::processEvents();
        if (view->kind() != Kind::Pdf) return;
        EXPECT_TRUE(QTest::qWaitFor([this] {
            const QImage pages = view->pdfView()->viewport()->grab().toImage();
            for (int y = 0; y < pages.height(); ++y)
                for (int x = 0; x < pages.width(); ++x)
                    if (qGray(pages.pixel(x, y)) < 60) return true;
            return false;
        }, 3000));
    }
    QVariant stored(const QString& key) const {
        return basic::Settings().value(key);
    }
    QTemporaryDir settingsDir;
    QWidget window;
    DocumentView* view = nullptr;
    FindBar* bar = nullptr;
    ViewTools* tools = nullptr;
};

}  // namespace documents
