// A bar and a stop button over a piece of work that may last.
#pragma once

#include <QElapsedTimer>
#include <QWidget>
#include <memory>

class QDialog;
class QProgressBar;

namespace core {

// Shows itself when the work lasts; until then it hands no event out, afterwards only to its own window, since it is
// modal to the whole program: nothing can be started or closed under the work. Shows the hourglass meanwhile.
class PrintProgress {
public:
    PrintProgress(QWidget* parent, const QString& caption);
    ~PrintProgress();
    Q_DISABLE_COPY_MOVE(PrintProgress)

    // Yields to the window every few milliseconds. False once the stop button was pressed.
    bool step(qint64 done, qint64 total);

private:
    void show();

    QWidget* parent_;
    QString caption_;
    QElapsedTimer sinceStart_, sinceYield_;
    std::unique_ptr<QDialog> window_;
    QProgressBar* bar_ = nullptr;
    bool stopped_ = false;
    bool hourglass_ = true;
};

}  // namespace core
