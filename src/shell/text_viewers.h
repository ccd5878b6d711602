#pragma once
// The small maximised windows that each show one fixed text document, with a Print and a Back picture.
#include "platform/documents/rich_text_box.h"

#include <QLabel>
#include <QTextBrowser>
#include <QWidget>
#include <functional>

class QPrinter;

namespace shell {

class TextViewer : public QWidget {
    Q_OBJECT
public:
    documents::RichTextBox* RichTextBox1;
    QLabel* Picture1;  // "Print"
    QLabel* Picture4;  // "Back"

    void Form_Resize();
    virtual void Picture1_Click();
    virtual void Picture4_Click();

    // Where a print goes; the real one asks through the print dialog. Tests print to a PDF file.
    static std::function<bool(QPrinter&)> choosePrinter;

protected:
    explicit TextViewer(const QString& caption);
    // Loads a document, leaving the box empty when it cannot be read.
    void loadQuietly(const QString& path);
    // Print only when a folder of the box's file name exists, as the system has it: for a file, never.
    void printIfFolder();
    void printNow();
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    // From the keyboard: Esc is Back, Ctrl+P is Print.
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    virtual void Form_Load() {}
    bool loaded_ = false;
};

// The window the main toolbar's documents open in.
class help : public TextViewer {
    Q_OBJECT
public:
    help();
    void Picture1_Click() override { printIfFolder(); }

public slots:
    // 1 help, 3 acknowledgement, 5 dealers, 7 other products; any other number keeps the document.
    void SHOW_DOCUMENT(int number);

protected:
    void Form_Load() override;

private:
    QString folder_;
    bool firstLoaded_ = false;
};

class ack : public TextViewer {
    Q_OBJECT
public:
    ack() : TextViewer(QStringLiteral("Acknowledgement")) {}
    void Picture1_Click() override { printIfFolder(); }

protected:
    void Form_Load() override;
};

class Dealers : public TextViewer {
    Q_OBJECT
public:
    Dealers() : TextViewer(QStringLiteral("Dealers")) {}
    void Picture1_Click() override { printIfFolder(); }

protected:
    void Form_Load() override;
};

class frmca : public TextViewer {
    Q_OBJECT
public:
    frmca() : TextViewer(QString()) {}
    void Picture1_Click() override { printNow(); }
    void Picture4_Click() override { hide(); }

protected:
    void Form_Load() override;
};

// Windows of the same family that nothing opens yet, each with its document area and pictures as
// designed and no document. Those built maximised maximise themselves when first shown.
class SpareViewer : public QWidget {
    Q_OBJECT
protected:
    SpareViewer(const QString& caption, bool maximised);
    QLabel* picture(const QString& text, int left);
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    virtual void pictureClicked(QLabel*) {}

private:
    bool maximised_;
    bool loaded_ = false;
};

class release : public SpareViewer {
    Q_OBJECT
public:
    release();
    QLabel *Picture1, *Picture2;  // no handlers
};

// "Tam ALieds": its Print prints from, and its Back shows, a window reference that nothing sets.
class frmalied : public SpareViewer {
    Q_OBJECT
public:
    frmalied();
    QTextBrowser* WebBrowser1;
    QLabel* Picture1;  // "Print"
    QLabel* Picture4;  // "Back"
    void Picture1_Click();
    void Picture4_Click();

protected:
    void pictureClicked(QLabel* picture) override;
};

class formsform : public SpareViewer {
    Q_OBJECT
public:
    formsform();
    QTextBrowser* WebBrowser1;
};

class frmaliedcommon : public SpareViewer {
    Q_OBJECT
public:
    frmaliedcommon() : SpareViewer(QStringLiteral("Form1"), false) {}
};

}  // namespace shell
