#include "platform/documents/ole_container.h"

#include "platform/documents/data_control.h"
#include "platform/documents/full_viewer.h"

#include "platform/basic/app_path.h"
#include "platform/basic/runtime_error.h"

#include <QFile>
#include <QFileInfo>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPdfView>
#include <QTextBrowser>

namespace documents {

OleContainer::OleContainer(QWidget* parent) : DocumentView(parent) {
    // The viewers take the mouse; watch their viewports so a click on the text reaches the window.
    textBrowser()->viewport()->installEventFilter(this);
    pdfView()->viewport()->installEventFilter(this);
    // From the keyboard, Enter on the shown document is the click, and Tab passes over its links: they
    // work in the full view that the click opens.
    textBrowser()->setTextInteractionFlags(textBrowser()->textInteractionFlags() & ~Qt::LinksAccessibleByKeyboard);
    textBrowser()->installEventFilter(this);
    pdfView()->installEventFilter(this);
}

void OleContainer::setDataSource(DataControl* source) {
    if (source_) disconnect(source_, nullptr, this, nullptr);
    source_ = source;
    if (source_) connect(source_, &DataControl::refreshed, this, &OleContainer::showBound);
    showBound();
}

void OleContainer::setDataField(const QString& fieldName) {
    field_ = fieldName;
    if (!field_.isEmpty()) sourceDoc_.clear();
    if (source_ && !field_.isEmpty()) source_->value(field_);  // raises 3265 for a column the row lacks
    showBound();
}

void OleContainer::CreateEmbed(const QString& sourceDoc) {
    QFile file(basic::NativePath(sourceDoc));
    if (!file.open(QIODevice::ReadOnly)) throw basic::RuntimeError(75, QStringLiteral("Path/File access error"));
    setDocument(file.readAll());
    sourceDoc_ = file.fileName();
    field_.clear();
}

void OleContainer::Refresh() { showBound(); }

// Shows the bound column; with no source, no field or no such column the container stands empty, unless
// it holds an embedded document.
void OleContainer::showBound() {
    if (!sourceDoc_.isEmpty()) return;
    if (!source_ || field_.isEmpty() || !source_->hasField(field_)) {
        clear();
        return;
    }
    const QByteArray bytes = source_->bytes(field_);
    if (bytes != document()) setDocument(bytes);  // the same document keeps its scroll place
}

void OleContainer::DoVerb(int verb) {
    if (document().isEmpty()) return;
    if (verb != vbOLEOpen && verb < 0) return;
    openInFull(document(), sourceDoc_.isEmpty() ? QString() : QFileInfo(sourceDoc_).absolutePath());
}

bool OleContainer::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton)
        emit Click();
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            emit Click();
            return true;
        }
    }
    return DocumentView::eventFilter(watched, event);
}

}  // namespace documents
