// How an engine would run a statement of the dialect, by its own account.
#pragma once

#include "data/connection.h"
#include "demo/demo.h"
#include "support/rowtexts.h"
#include "support/testengine.h"

namespace support {

inline QString planOf(data::Connection& connection, const QString& sql) {
    const QByteArray explain = testengine::isPostgres() ? "EXPLAIN " : "EXPLAIN QUERY PLAN ";
    return rowTexts(connection.engine(), explain + connection.translate(sql)->sql).join(u'\n');
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
