#pragma once
// `main`: the first window, with the tree of states, the general toolbar, the banner and the
// shut-down and backup pictures. It sends the user into the state browser.
#include "platform/forms/image_list.h"
#include "platform/forms/timer.h"
#include "platform/forms/toolbar.h"
#include "platform/forms/tree_view.h"

#include <QFrame>
#include <QLabel>
#include <QWidget>
#include <cstdint>
#include <functional>

namespace shell {

class main : public QWidget {
    Q_OBJECT
public:
    main();

    QFrame* Frame1;
    QLabel* ShockwaveFlash1;  // the banner: an animated image where one can be read, else blank
    forms::TreeView* Tvw;
    forms::Toolbar* Toolbar2;
    QLabel* Picture6;  // shut down
    QLabel* Picture2;  // backup and restore
    QLabel *Picture3, *Picture4, *Picture5;
    forms::Timer Timer1;
    forms::ImageList ImageList1, ImageList2, ImageList3;

    void Form_Load();
    void Form_Activate();
    void Form_Resize();
    void Form_Unload() {}
    void Tvw_Click();
    void Tvw_DblClick() { Tvw_Click(); }
    // Enter and Space on a node do what a click does.
    void Tvw_KeyDown(int KeyCode, int Shift);
    void Toolbar2_ButtonClick(const QString& key);
    void Picture2_Click();
    void Picture6_Click();
    void procFrmFlgSetZero() { writeFrmFlg(0); }
    void procFrmFlgSetOne() { writeFrmFlg(1); }

    // What "Exit" does after the flag is written: ends the program at once. Tests replace it.
    std::function<void()> endProgram;
    std::int16_t frameTop() const { return frameTop_; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void writeFrmFlg(int value);
    void startNotepad();
    std::int16_t frameTop_ = 0;
};

}  // namespace shell
