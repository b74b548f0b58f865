#include "data/postgres/pgwaiting.h"

#include <QDeadlineTimer>

#ifdef Q_OS_WIN
#include <winsock2.h>
#else
#include <poll.h>
#endif

#include <array>
#include <atomic>
#include <thread>

namespace data::postgres {
namespace {

constexpr int askEveryMs = 50;
constexpr int cancelMs = 2000;  // within which a server that lives has answered

// True when the socket is ready or broken, false after a while.
bool isReady(PGconn* connection, short events) {
    pollfd socket{};
    socket.fd = PQsocket(connection);
    socket.events = events;
#ifdef Q_OS_WIN
    return WSAPoll(&socket, 1, askEveryMs) > 0;
#else
    return poll(&socket, 1, askEveryMs) > 0;
#endif
}

bool isBusy(PGconn* connection) {
    return PQisBusy(connection) && PQstatus(connection) == CONNECTION_OK;
}

// The library's call connects anew, and of a server that is gone it hears nothing for minutes: it has a thread.
class Cancel {
public:
    explicit Cancel(PGconn* connection) {
        auto* request = PQgetCancel(connection);
        std::thread([request, done = done_] {
            std::array<char, 256> why{};
            PQcancel(request, why.data(), int(why.size()));
            PQfreeCancel(request);
            *done = true;
        }).detach();
    }
    bool isDone() const { return *done_; }

private:
    std::shared_ptr<std::atomic<bool>> done_ = std::make_shared<std::atomic<bool>>(false);
};

// Until the answer to a cancelled statement is there and no cancelling is on its way that would hit the next one.
bool cancelled(PGconn* connection) {
    const Cancel cancel(connection);
    const QDeadlineTimer patience(cancelMs);
    while (isBusy(connection) || !cancel.isDone()) {
        if (patience.hasExpired()) return false;
        if (isReady(connection, POLLIN)) PQconsumeInput(connection);
    }
    return true;
}

}  // namespace

PgResult pgAnswer(PGconn* connection, int sent, Wait& wait) {
    if (!sent) return PgResult(PQmakeEmptyPGresult(connection, PGRES_FATAL_ERROR));
    PgResult last;
    while (true) {
        while (wait.isHeard() && isBusy(connection)) {
            if (isReady(connection, POLLIN)) PQconsumeInput(connection);
            if (!wait.isStopped() && isBusy(connection) && !wait.goOn() && !cancelled(connection)) return {};
        }
        PgResult next(PQgetResult(connection));
        if (!next) return last;
        last = std::move(next);
        const ExecStatusType status = PQresultStatus(last.get());
        if (status == PGRES_COPY_IN || status == PGRES_COPY_OUT || PQstatus(connection) == CONNECTION_BAD) return last;
    }
}

PgResult pgExec(PGconn* connection, const QByteArray& sql, Wait& wait) {
    if (!wait.isHeard()) return PgResult(PQexec(connection, sql.constData()));
    return pgAnswer(connection, PQsendQuery(connection, sql.constData()), wait);
}

PGconn* pgConnect(const char* const* names, const char* const* values, int seconds, Wait& wait) {
    if (!wait.isHeard()) return PQconnectdbParams(names, values, 0);
    PGconn* const connection = PQconnectStartParams(names, values, 0);
    const QDeadlineTimer patience(seconds * 1000);
    PostgresPollingStatusType next = PGRES_POLLING_WRITING;
    while (PQstatus(connection) != CONNECTION_BAD && next != PGRES_POLLING_OK && next != PGRES_POLLING_FAILED) {
        if (patience.hasExpired()) break;
        if (isReady(connection, next == PGRES_POLLING_READING ? POLLIN : POLLOUT))
            next = PQconnectPoll(connection);
        else if (!wait.goOn())
            break;
    }
    return connection;
}

}  // namespace data::postgres
