// A bar over a piece of work that may last, with a stop button where the work can be broken off.
#pragma once

#include <QElapsedTimer>
#include <QWidget>
#include <functional>
#include <memory>

class QDialog;
class QLabel;
class QProgressBar;

namespace core {

inline const QString workProgressName = QString::fromUtf8("WorkProgress");

// Shows itself when the work lasts; until then it hands no event out, afterwards only to its own window, since it is
// modal to the whole program: nothing can be started or closed under the work. Shows the hourglass meanwhile.
class WorkProgress {
public:
    enum class Stop { Offered, None };

    static constexpr int patienceMs = 250;  // a window for less would only flicker

    WorkProgress(QWidget* parent, const QString& caption, Stop stop = Stop::Offered, int patience = patienceMs);
    ~WorkProgress();
    Q_DISABLE_COPY_MOVE(WorkProgress)

    // Yields to the window every few milliseconds. False once the stop button was pressed. Without a total the bar only
    // shows that something goes on.
    bool step(qint64 done, qint64 total);
    void say(const QString& what);  // in the place of the caption's line

private:
    void show();

    QWidget* parent_;
    QString caption_;
    Stop stop_;
    int patience_;
    QElapsedTimer sinceStart_, sinceYield_;
    std::unique_ptr<QDialog> window_;
    QLabel* label_ = nullptr;
    QProgressBar* bar_ = nullptr;
    QString what_;
    bool stopped_ = false;
    bool hourglass_ = true;
};

// Tells from the background what is being done and how far it is, -1 when nobody knows.
using Tell = std::function<void(const QString& what, int percent)>;

// Runs `work`, which touches no widget, in a thread of its own and waits for it behind a WorkProgress that can't be
// stopped. What `work` throws comes out here.
void inBackground(QWidget* parent, const QString& caption, const std::function<void(const Tell&)>& work);

}  // namespace core
