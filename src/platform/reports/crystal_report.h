#pragma once
// The report control of the return window: the window names a data file and a template, the window
// state of the report window, and sets Action to 1 to run the report. Running reads the template and
// the data file and shows the register in the report window.
#include <QObject>
#include <QString>
#include <QStringList>
#include <memory>

namespace reports {

class PreviewWindow;

class CrystalReport : public QObject {
    Q_OBJECT
public:
    explicit CrystalReport(QObject* parent = nullptr);
    ~CrystalReport() override;

    // Paths as the system writes them, "\" between folders.
    QString DataFiles(int index) const;
    void setDataFiles(int index, const QString& path);
    QString ReportFileName() const;
    void setReportFileName(const QString& path);
    // 0 normal, 1 minimised, 2 maximised.
    int WindowState() const { return windowState_; }
    void setWindowState(int state) { windowState_ = state; }
    // 1 runs the report. A template or data file that is missing or unreadable raises a run-time
    // error (53 or 75) whose description names the file; the report window is then left as it was.
    void setAction(int action);

    // The report window, made on the first run.
    PreviewWindow* window() const { return window_.get(); }

private:
    QStringList dataFiles_;
    QString reportFileName_;
    int windowState_ = 0;
    // A window of its own, owned here: the report window goes with the control.
    std::unique_ptr<PreviewWindow> window_;
};

}  // namespace reports
