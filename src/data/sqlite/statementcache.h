// Prepared statements of one SQLite connection, kept for their next use.
#pragma once

#include <QByteArray>
#include <QHash>
#include <list>

struct sqlite3;
struct sqlite3_stmt;

namespace data::sqlite {

class StatementCache {
public:
    static constexpr int capacity = 96;

    StatementCache() = default;
    ~StatementCache() { clear(); }
    StatementCache(const StatementCache&) = delete;
    StatementCache& operator=(const StatementCache&) = delete;

    void setDatabase(sqlite3* database) { database_ = database; }
    void clear();  // finalizes; no lease may be out

    // A statement for one run; giving it back resets it and drops its bindings. While one of a text is
    // out, a second is prepared for that run alone.
    class Lease {
    public:
        Lease(StatementCache& cache, const QByteArray& sql);
        ~Lease();
        Lease(const Lease&) = delete;
        Lease& operator=(const Lease&) = delete;
        sqlite3_stmt* get() const { return statement_; }

    private:
        StatementCache& cache_;
        QByteArray sql_;
        sqlite3_stmt* statement_ = nullptr;
        bool cached_ = false;
    };

    int size() const { return int(entries_.size()); }

private:
    struct Entry {
        QByteArray sql;
        sqlite3_stmt* statement;
        bool inUse;
    };

    sqlite3_stmt* prepare(const QByteArray& sql);
    void evict();

    sqlite3* database_ = nullptr;
    std::list<Entry> entries_;  // the most recently used first
    QHash<QByteArray, std::list<Entry>::iterator> byText_;
};

}  // namespace data::sqlite
