// The floor of a start: a bare Qt window, maximised as the main window is, that ends once it has painted.
#include <QApplication>
#include <QWidget>

namespace {
class BareWindow : public QWidget {
protected:
    void paintEvent(QPaintEvent*) override {
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    }
};
}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    BareWindow window;
    window.showMaximized();
    return QApplication::exec();
}
