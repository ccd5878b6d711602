#include "platform/forms/msgbox.h"

#include <QMessageBox>
#include <QPushButton>
#include <utility>

namespace forms {

namespace {

MsgBoxRecorder* currentRecorder = nullptr;

// The buttons of each set, in the order shown, with their answers.
std::vector<std::pair<QMessageBox::StandardButton, int>> buttonsOf(int style) {
    switch (style & 7) {
    case vbOKCancel: return {{QMessageBox::Ok, vbOK}, {QMessageBox::Cancel, vbCancel}};
    case vbAbortRetryIgnore:
        return {{QMessageBox::Abort, vbAbort}, {QMessageBox::Retry, vbRetry}, {QMessageBox::Ignore, vbIgnore}};
    case vbYesNoCancel: return {{QMessageBox::Yes, vbYes}, {QMessageBox::No, vbNo}, {QMessageBox::Cancel, vbCancel}};
    case vbYesNo: return {{QMessageBox::Yes, vbYes}, {QMessageBox::No, vbNo}};
    case vbRetryCancel: return {{QMessageBox::Retry, vbRetry}, {QMessageBox::Cancel, vbCancel}};
    default: return {{QMessageBox::Ok, vbOK}};
    }
}

QMessageBox::Icon iconOf(int style) {
    switch (style & 112) {
    case vbCritical: return QMessageBox::Critical;
    case vbQuestion: return QMessageBox::Question;
    case vbExclamation: return QMessageBox::Warning;
    case vbInformation: return QMessageBox::Information;
    default: return QMessageBox::NoIcon;
    }
}

int showBox(const QString& text, int style, const QString& title) {
    QMessageBox box(iconOf(style), title, text);
    const auto buttons = buttonsOf(style);
    for (const auto& [button, answer] : buttons) box.addButton(button);
    const std::size_t defaultIndex = (style & vbDefaultButton3) ? 2 : (style & vbDefaultButton2) ? 1 : 0;
    if (defaultIndex < buttons.size()) box.setDefaultButton(buttons[defaultIndex].first);
    // Esc answers Cancel where the set has one, else the box's last button (No, OK).
    box.setEscapeButton(buttons.back().first);
    const auto pressed = static_cast<QMessageBox::StandardButton>(box.exec());
    for (const auto& [button, answer] : buttons)
        if (button == pressed) return answer;
    return buttons.back().second;
}

}  // namespace

int firstButtonAnswer(int style) { return buttonsOf(style).front().second; }

int MsgBox(const QString& text, int style, const QString& title) {
    if (currentRecorder) return currentRecorder->record(text, style, title);
    return showBox(text, style, title);
}

MsgBoxRecorder::MsgBoxRecorder(std::initializer_list<int> answers) : answers_(answers), outer_(currentRecorder) {
    currentRecorder = this;
}

MsgBoxRecorder::~MsgBoxRecorder() { currentRecorder = outer_; }

int MsgBoxRecorder::record(const QString& text, int style, const QString& title) {
    boxes_.push_back({text, style, title});
    if (meanwhile_) meanwhile_(boxes_.back());
    if (answers_.empty()) return firstButtonAnswer(style);
    const int answer = answers_.front();
    answers_.pop_front();
    return answer;
}

}  // namespace forms
