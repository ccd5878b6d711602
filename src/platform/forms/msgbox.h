#pragma once
// The language's message box: style numbers add a button set, an icon and a default button;
// the answer is the number of the button pressed.
#include <QString>
#include <deque>
#include <functional>
#include <initializer_list>
#include <utility>
#include <vector>

namespace forms {

// Button sets (style & 7).
constexpr int vbOKOnly = 0, vbOKCancel = 1, vbAbortRetryIgnore = 2, vbYesNoCancel = 3, vbYesNo = 4,
              vbRetryCancel = 5;
// Icons (style & 112).
constexpr int vbCritical = 16, vbQuestion = 32, vbExclamation = 48, vbInformation = 64;
// Default button (style & 768): the first unless one of these.
constexpr int vbDefaultButton2 = 256, vbDefaultButton3 = 512;
// Answers.
constexpr int vbOK = 1, vbCancel = 2, vbAbort = 3, vbRetry = 4, vbIgnore = 5, vbYes = 6, vbNo = 7;

inline const QString& standardTitle() {
    static const QString title = QStringLiteral("Vorlan");
    return title;
}

// Shows the box (or hands it to the recorder in force) and answers with the button's number.
int MsgBox(const QString& text, int style = vbOKOnly, const QString& title = standardTitle());

// The answer of the first button of the style's button set: 1 OK, 3 Abort, 6 Yes, 4 Retry.
int firstButtonAnswer(int style);

struct RecordedBox {
    QString text;
    int style = 0;
    QString title;
    bool operator==(const RecordedBox&) const = default;
};

// While alive, every MsgBox is recorded instead of shown and answered from the queue; when the queue
// is empty, with the first button's answer. Recorders nest: the latest made records.
class MsgBoxRecorder {
public:
    explicit MsgBoxRecorder(std::initializer_list<int> answers = {});
    ~MsgBoxRecorder();
    MsgBoxRecorder(const MsgBoxRecorder&) = delete;
    MsgBoxRecorder& operator=(const MsgBoxRecorder&) = delete;

    void queueAnswer(int answer) { answers_.push_back(answer); }
    // Runs while each box is open, before it is answered: what another program does meanwhile.
    void whileOpen(std::function<void(const RecordedBox&)> meanwhile) { meanwhile_ = std::move(meanwhile); }
    const std::vector<RecordedBox>& boxes() const { return boxes_; }
    void clear() { boxes_.clear(); }

private:
    friend int MsgBox(const QString&, int, const QString&);
    int record(const QString& text, int style, const QString& title);

    std::deque<int> answers_;
    std::vector<RecordedBox> boxes_;
    std::function<void(const RecordedBox&)> meanwhile_;
    MsgBoxRecorder* outer_ = nullptr;
};

}  // namespace forms
