#pragma once
// A small plain-text editor of the program's own, for a machine with no desktop editor: open a text
// file, edit it, save it. Closing with unsaved changes asks first.
#include <QPlainTextEdit>
#include <QString>
#include <QWidget>
#include <functional>

namespace forms {

class TextEditorWindow : public QWidget {
    Q_OBJECT
public:
    explicit TextEditorWindow(QWidget* parent = nullptr);

    QPlainTextEdit* Text1;
    QString FileName() const { return fileName_; }

    // Reads a file into the editor; false, with the editor as it was, when it cannot be read.
    bool openFile(const QString& path);
    // Writes the text to the file and makes it the editor's file; false when it cannot be written.
    bool saveTo(const QString& path);

    // Asks for a file to open or to save to; the empty text when the user cancels. Tests replace them.
    std::function<QString()> askOpenName;
    std::function<QString()> askSaveName;

public slots:
    void open();
    void save();
    void saveAs();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void showTitle();
    QString fileName_;
};

}  // namespace forms
