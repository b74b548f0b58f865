#include "data/sqlite/functions.h"

#include <exception>

#include "data/error.h"
#include "data/sqlite/functionparts.h"

using namespace Qt::Literals::StringLiterals;

namespace data::sqlite {

// What SQLite calls: keeps Nulls and exceptions away from the functions' own code.
static void runGuarded(Context context, int count, Values values) {
    const auto* function = static_cast<const SqlFunction*>(sqlite3_user_data(context));
    if (!function->takesNull)
        for (int i = 0; i < count; ++i)
            if (isNull(values[i])) return sqlite3_result_null(context);
    try {
        function->run(context, count, values);
    } catch (const Error& error) {
        const QByteArray why = error.text().toUtf8();
        sqlite3_result_error(context, why.constData(), int(why.size()));
        sqlite3_result_error_code(context,
                                  error.category() == ErrorCategory::Constraint ? SQLITE_CONSTRAINT : SQLITE_MISMATCH);
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(context);
    } catch (const std::exception& error) {
        sqlite3_result_error(context, error.what(), -1);
    }
}

static void registerAll(sqlite3* database, const std::vector<SqlFunction>& functions) {
    for (const SqlFunction& function : functions) {
        const int flags = SQLITE_UTF8 | SQLITE_INNOCUOUS | (function.pure ? SQLITE_DETERMINISTIC : 0);
        const int code =
            sqlite3_create_function_v2(database, function.name, function.arguments, flags,
                                       const_cast<SqlFunction*>(&function), runGuarded, nullptr, nullptr, nullptr);
        if (code != SQLITE_OK)
            throw Error(ErrorCategory::Other,
                        u"Η βάση δεν δέχεται τη συνάρτηση %1"_s.arg(QString::fromUtf8(function.name)), {}, code);
    }
}

void registerFunctions(sqlite3* database) {
    registerAll(database, textFunctions());
    registerAll(database, dateFunctions());
    registerAll(database, numberFunctions());
    registerAll(database, conversionFunctions());
    registerAggregates(database);
}

}  // namespace data::sqlite
