#include "platform/forms/text_editor_window.h"

#include "platform/forms/msgbox.h"

#include <QCloseEvent>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSaveFile>
#include <QShortcut>
#include <QVBoxLayout>

namespace forms {

TextEditorWindow::TextEditorWindow(QWidget* parent) : QWidget(parent, Qt::Window), Text1(new QPlainTextEdit(this)) {
    auto* buttons = new QHBoxLayout;
    const std::pair<const char*, void (TextEditorWindow::*)()> actions[] = {
        {"&Open...", &TextEditorWindow::open}, {"&Save", &TextEditorWindow::save}, {"Save &As...", &TextEditorWindow::saveAs}};
    for (const auto& [caption, slot] : actions) {
        auto* b = new QPushButton(QString::fromLatin1(caption), this);
        connect(b, &QPushButton::clicked, this, slot);
        buttons->addWidget(b);
    }
    buttons->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(buttons);
    layout->addWidget(Text1);
    new QShortcut(QKeySequence::Open, this, this, &TextEditorWindow::open);
    new QShortcut(QKeySequence::Save, this, this, &TextEditorWindow::save);
    connect(Text1->document(), &QTextDocument::modificationChanged, this, &TextEditorWindow::showTitle);
    askOpenName = [this] { return QFileDialog::getOpenFileName(this, QStringLiteral("Open"), QString(), QStringLiteral("Text files (*.txt);;All files (*)")); };
    askSaveName = [this] { return QFileDialog::getSaveFileName(this, QStringLiteral("Save As"), fileName_, QStringLiteral("Text files (*.txt);;All files (*)")); };
    resize(720, 520);
    showTitle();
}

bool TextEditorWindow::openFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    Text1->setPlainText(QString::fromUtf8(file.readAll()));
    fileName_ = path;
    showTitle();
    return true;
}

bool TextEditorWindow::saveTo(const QString& path) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(Text1->toPlainText().toUtf8()) < 0 || !file.commit()) return false;
    fileName_ = path;
    Text1->document()->setModified(false);
    showTitle();
    return true;
}

void TextEditorWindow::open() {
    const QString path = askOpenName();
    if (!path.isEmpty() && !openFile(path))
        MsgBox(QStringLiteral("The file cannot be read:\n") + path, vbExclamation, QStringLiteral("Notepad"));
}

void TextEditorWindow::save() {
    if (fileName_.isEmpty()) return saveAs();
    if (!saveTo(fileName_))
        MsgBox(QStringLiteral("The file cannot be written:\n") + fileName_, vbExclamation, QStringLiteral("Notepad"));
}

void TextEditorWindow::saveAs() {
    const QString path = askSaveName();
    if (!path.isEmpty() && !saveTo(path))
        MsgBox(QStringLiteral("The file cannot be written:\n") + path, vbExclamation, QStringLiteral("Notepad"));
}

void TextEditorWindow::closeEvent(QCloseEvent* event) {
    if (Text1->document()->isModified()) {
        const int answer = MsgBox(QStringLiteral("Save the changes?"), vbYesNoCancel + vbQuestion, QStringLiteral("Notepad"));
        if (answer == vbCancel) return event->ignore();
        if (answer == vbYes) {
            save();
            if (Text1->document()->isModified()) return event->ignore();   // not saved: stay open
        }
    }
    event->accept();
}

void TextEditorWindow::showTitle() {
    const QString name = fileName_.isEmpty() ? QStringLiteral("Untitled") : QFileInfo(fileName_).fileName();
    setWindowTitle((Text1->document()->isModified() ? QStringLiteral("*") : QString()) + name + QStringLiteral(" - Notepad"));
}

}  // namespace forms
