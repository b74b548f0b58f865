// Saves rows one after the other and says so after each Update, until it is killed.
#include <cstdio>

#include "data/recordset.h"

using namespace Qt::Literals::StringLiterals;

int main(int, char** arguments) {
    try {
        data::Connection connection;
        connection.open(u"data source="_s + QString::fromLocal8Bit(arguments[1]));
        data::Recordset rows(connection, u"select * from Saves"_s);
        std::puts("ready");
        std::fflush(stdout);
        for (qint64 value = QByteArray(arguments[2]).toLongLong();; ++value) {
            if (value % 3 == 0 || rows.isEmpty())
                rows.addNew();
            else
                rows.setAbsolutePosition(1 + value % rows.recordCount());
            rows[u"a"].setValue(value);
            rows[u"notes"].setValue(QString(3000, QChar(u'a' + int(value % 26))));
            rows[u"b"].setValue(value);
            rows.update();
            std::printf("%lld %lld\n", static_cast<long long>(rows[u"code"].toLong()), static_cast<long long>(value));
            std::fflush(stdout);
        }
    } catch (const data::Error& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
