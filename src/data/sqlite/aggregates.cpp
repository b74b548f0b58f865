#include <new>

#include "data/error.h"
#include "data/sqlite/functionparts.h"

using namespace Qt::Literals::StringLiterals;

namespace data::sqlite {

namespace {

// The value kept so far and, for the extremes, its fold. SQLite hands out the memory zeroed.
struct Kept {
    sqlite3_value* value;
    QByteArray* key;

    void take(sqlite3_value* better) {
        sqlite3_value_free(value);
        value = sqlite3_value_dup(better);
    }
};

Kept* keptOf(Context context) {
    return static_cast<Kept*>(sqlite3_aggregate_context(context, sizeof(Kept)));
}

void finish(Context context) {
    auto* kept = static_cast<Kept*>(sqlite3_aggregate_context(context, 0));
    if (!kept || !kept->value) return sqlite3_result_null(context);
    sqlite3_result_value(context, kept->value);
    sqlite3_value_free(kept->value);
    delete kept->key;
}

void stepFirst(Context context, int, Values values) {
    Kept* kept = keptOf(context);
    if (kept && !kept->value) kept->take(values[0]);
}

void stepLast(Context context, int, Values values) {
    if (Kept* kept = keptOf(context)) kept->take(values[0]);
}

// The least or greatest text by its fold; of equal ones, by their bytes, so that the order of rows doesn't matter.
template <bool greatest>
void stepExtreme(Context context, int, Values values) {
    Kept* kept = keptOf(context);
    if (!kept || isNull(values[0])) return;
    const Folded folded(values[0]);
    const QByteArrayView key(folded.data(), folded.size());
    if (kept->value) {
        int order = key.compare(*kept->key);
        if (order == 0) {
            const Utf8 now = utf8(values[0]);
            const Utf8 before = utf8(kept->value);
            order = QByteArrayView(now.data, now.size).compare(QByteArrayView(before.data, before.size));
        }
        if (greatest ? order <= 0 : order >= 0) return;
    }
    try {
        if (!kept->key) kept->key = new QByteArray;
        *kept->key = key.toByteArray();
        kept->take(values[0]);
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    }
}

}  // namespace

void registerAggregates(sqlite3* database) {
    struct Aggregate {
        const char* name;
        void (*step)(Context, int, Values);
    };
    static constexpr Aggregate aggregates[] = {{"jet_first", stepFirst},
                                               {"jet_last", stepLast},
                                               {"jet_min", stepExtreme<false>},
                                               {"jet_max", stepExtreme<true>}};
    for (const Aggregate& aggregate : aggregates) {
        const int code = sqlite3_create_function_v2(database, aggregate.name, 1,
                                                    SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS, nullptr,
                                                    nullptr, aggregate.step, finish, nullptr);
        if (code != SQLITE_OK)
            throw Error(ErrorCategory::Other,
                        u"Η βάση δεν δέχεται τη συνάρτηση %1"_s.arg(QString::fromUtf8(aggregate.name)), {}, code);
    }
}

}  // namespace data::sqlite
