#pragma once
// central, "Central sales Act": the Central Sales Tax law, held in three documents embedded in the window
// (the Act's contents, the forms' contents, the rules), one shown at a time by the toolbar. A click on a
// page opens it in full, where its links lead to the documents it lists. It touches no database.
#include <QLabel>
#include <QString>
#include <QWidget>

#include "platform/forms/image_list.h"

namespace documents {
class OleContainer;
}
namespace forms {
class Toolbar;
class TreeView;
}  // namespace forms

namespace library {

class central : public QWidget {
    Q_OBJECT
public:
    explicit central(QWidget* parent = nullptr);

    // ---- controls -----------------------------------------------------------------------------------
    forms::TreeView* Tvw = nullptr;
    forms::Toolbar* Toolbar2 = nullptr;
    documents::OleContainer *OLE1 = nullptr, *OLE2 = nullptr, *OLE3 = nullptr;
    QLabel* Label3 = nullptr;
    QLabel* img1 = nullptr;
    QLabel* Picture1 = nullptr;
    forms::ImageList ImageList1;  // the two node pictures: 1 closed, 2 selected
    forms::ImageList ImageList2;  // the thirteen toolbar pictures

    // ---- window events ------------------------------------------------------------------------------
    void Form_Load();
    void Form_Resize();
    void Form_MouseDown();
    void Form_MouseMove();
    void Toolbar2_ButtonClick(const QString& key);
    void OLE1_Click();
    void OLE2_Click();
    void OLE3_Click();
    void Tvw_DblClick();
    void Tvw_KeyDown(int KeyCode, int Shift);
    void Tvw_MouseDown();
    void Tvw_MouseMove();
    void img1_MouseMove();

    // Hides the window and drops what it showed: the next showing loads it afresh.
    void Unload();

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildControls();
    bool loaded_ = false;
};

}  // namespace library
