// How an engine would run a statement of the dialect, by its own account.
#pragma once

#include "data/connection.h"
#include "demo/demo.h"
#include "support/testengine.h"

namespace support {

class PlanText : public data::RowSink {
public:
    QString plan;
    void beginRow() override { plan += QChar(u'\n'); }
    void null() override {}
    void integer(qint64) override {}
    void real(double) override {}
    void text(const char* utf8, qsizetype size) override { plan += QString::fromUtf8(utf8, size); }
    void blob(const char*, qsizetype) override {}
};

inline QString planOf(data::Connection& connection, const QString& sql) {
    PlanText sink;
    const QByteArray explain = testengine::isPostgres() ? "EXPLAIN " : "EXPLAIN QUERY PLAN ";
    connection.engine().query(explain + connection.translate(sql)->sql, {}, &sink);
    return sink.plan;
}

// A server's planner wants rows to plan for, and reads a small table whatever indexes there are.
inline void preparePlans(data::Connection& main, data::Connection& users) {
    if (!testengine::isPostgres()) return;
    demo::DemoOptions options;
    options.cards = 3000;
    options.referenceDate = QDate(2026, 11, 23);
    demo::fillDemo(main, users, options);
    main.engine().script("ANALYZE; SET enable_seqscan = off");
}

}  // namespace support
