// The system's wish that the program end: a log-off, a shutdown, a closed terminal, a "kill".
#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <memory>

namespace platform {

// While one of these lives, SIGTERM, SIGHUP and SIGINT come as an event. There is one per program. The second such
// signal ends the program at once, as it would have without this.
class EndRequests : public QObject {
    Q_OBJECT
public:
    EndRequests();
    ~EndRequests() override;
    Q_DISABLE_COPY_MOVE(EndRequests)

signals:
    void asked();

private:
    std::unique_ptr<QSocketNotifier> notifier_;
    int ends_[2] = {-1, -1};  // of a pipe: the handler of a signal may do no more than write
};

}  // namespace platform
