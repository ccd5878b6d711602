#pragma once
// keralaforms: the one window in which a library document is read. Callers point its data control at a
// row (connect string, SQL, Refresh), bind OLE1 to "fname" and show it; the window holds no query of its
// own. A hint slides to and fro above the document; Back, Esc and the close box all hide the window.
#include <QWidget>

#include "platform/documents/data_control.h"
#include "platform/documents/ole_container.h"
#include "platform/forms/timer.h"

class QLabel;
class QPushButton;
class QToolButton;

namespace library {

class keralaforms : public QWidget {
    Q_OBJECT
public:
    keralaforms();

    documents::DataControl* MSRDC1;     // object name "MSRDC1": the shell points it at the stand-by row
    documents::OleContainer* OLE1;      // object name "OLE1"
    QLabel* Label1;
    QToolButton* Picture4;
    QPushButton* cmdCancelNonVisible;
    forms::Timer* Timer1;
    forms::Timer* Timer2;

    void Form_Load();
    void Form_Resize() { ArrangeDocumentView(); }
    void ArrangeDocumentView();
    void Timer1_Timer();
    void Timer2_Timer();
    void OLE1_Click();
    void Picture4_Click();
    void cmdCancelNonVisible_Click() { Picture4_Click(); }
    void Form_QueryUnload(bool& cancel, int unloadMode);

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

// "Global Display Window": the same shape, opened by no code of the system; kept for its few handlers.
class GlobalDisplay : public QWidget {
    Q_OBJECT
public:
    GlobalDisplay();

    documents::DataControl* MSRDC1;
    documents::OleContainer* OLE1;
    QLabel* Label1;
    QToolButton* Picture4;
    QWidget* opener = nullptr;          // the window that Back shows again, left here by the opener

    void Form_Load();
    void OLE1_Click();
    void Picture4_Click();
    // The hint's two steps, as in keralaforms, tied to no timer.
    void Timer1_Timer();
    void Timer2_Timer();
};

}  // namespace library
