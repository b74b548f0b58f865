#include "data/sqlite/statementcache.h"

#include <sqlite3.h>

#include "data/sqlite/sqliteerror.h"

using namespace Qt::Literals::StringLiterals;

namespace data::sqlite {

void StatementCache::clear() {
    for (const Entry& entry : entries_) sqlite3_finalize(entry.statement);
    entries_.clear();
    byText_.clear();
}

sqlite3_stmt* StatementCache::prepare(const QByteArray& sql) {
    sqlite3_stmt* statement = nullptr;
    const char* tail = nullptr;
    if (sql.size() >= INT_MAX) throw sqliteError(nullptr, SQLITE_TOOBIG);
    const int code =
        sqlite3_prepare_v3(database_, sql.constData(), int(sql.size()), SQLITE_PREPARE_PERSISTENT, &statement, &tail);
    if (code != SQLITE_OK) throw sqliteError(database_, code, sql, true);
    const QByteArray rest = sql.mid(tail - sql.constData()).trimmed();
    if (!statement || !(rest.isEmpty() || rest == ";")) {
        sqlite3_finalize(statement);
        throw Error(ErrorCategory::Syntax, u"Χρειάζεται ακριβώς μία εντολή."_s, QString::fromUtf8(sql));
    }
    return statement;
}

// Drops the statements used longest ago that nobody holds.
void StatementCache::evict() {
    for (auto it = entries_.end(); int(entries_.size()) > capacity && it != entries_.begin();) {
        --it;
        if (it->inUse) continue;
        sqlite3_finalize(it->statement);
        byText_.remove(it->sql);
        it = entries_.erase(it);
    }
}

StatementCache::Lease::Lease(StatementCache& cache, const QByteArray& sql) : cache_(cache), sql_(sql) {
    const auto found = cache.byText_.constFind(sql);
    if (found == cache.byText_.constEnd()) {
        statement_ = cache.prepare(sql);
        cache.entries_.push_front({sql, statement_, true});
        cache.byText_.insert(sql, cache.entries_.begin());
        cached_ = true;
        cache.evict();
    } else if ((*found)->inUse) {
        statement_ = cache.prepare(sql);
    } else {
        cache.entries_.splice(cache.entries_.begin(), cache.entries_, *found);
        statement_ = (*found)->statement;
        (*found)->inUse = true;
        cached_ = true;
    }
}

StatementCache::Lease::~Lease() {
    if (!cached_) {
        sqlite3_finalize(statement_);
        return;
    }
    sqlite3_reset(statement_);
    sqlite3_clear_bindings(statement_);
    cache_.byText_.value(sql_)->inUse = false;
}

}  // namespace data::sqlite
