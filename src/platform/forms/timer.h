#pragma once
// The windows' timer: Tick every Interval milliseconds while Enabled and Interval > 0. It keeps
// ticking while its window is hidden. (The event is Tick: a member cannot share the class's name.)
#include <QObject>
#include <QTimer>

namespace forms {

class Timer : public QObject {
    Q_OBJECT
public:
    explicit Timer(QObject* parent = nullptr);

    int Interval() const { return interval_; }
    void setInterval(int milliseconds);     // restarts the count
    bool Enabled() const { return enabled_; }
    void setEnabled(bool enabled);          // restarts the count

signals:
    void Tick();

private:
    void apply();

    QTimer timer_;
    int interval_ = 0;
    bool enabled_ = true;
};

}  // namespace forms
