#include "platform/documents/rich_text_box.h"

#include "platform/basic/app_path.h"
#include "platform/basic/runtime_error.h"

#include <QFile>
#include <QPrinter>
#include <QTextBrowser>
#include <QTextDocument>
#include <QTextDocumentFragment>

namespace documents {

void RichTextBox::setFileName(const QString& path) {
    QFile file(basic::NativePath(path));
    if (!file.open(QIODevice::ReadOnly)) throw basic::RuntimeError(75, QStringLiteral("Path/File access error"));
    setDocument(file.readAll());
    fileName_ = path;
}

void RichTextBox::SelPrint(QPrinter& printer) const {
    QTextCursor selection = textBrowser()->textCursor();
    if (selection.hasSelection()) {
        QTextDocument part;
        QTextCursor(&part).insertFragment(selection.selection());
        part.print(&printer);
    } else {
        textBrowser()->document()->print(&printer);
    }
}

}  // namespace documents
