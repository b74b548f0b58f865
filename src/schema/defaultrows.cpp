#include "data/sql.h"
#include "schema/tables.h"

namespace schema {
namespace {

using namespace Qt::Literals::StringLiterals;
using data::Sql;

class PositionalRow {
public:
    explicit PositionalRow(qint64 first) : values_{first} {}
    PositionalRow& captions(const QString& caption, int count) {
        for (int i = 1; i <= count; ++i) values_ += u"%1 %2"_s.arg(caption).arg(i);
        return *this;
    }
    PositionalRow& flagsOff(int count) {
        for (int i = 0; i < count; ++i) values_ += false;
        return *this;
    }
    PositionalRow& emptyText() {
        values_ += QString();
        return *this;
    }
    const QVector<Sql::Value>& values() const { return values_; }

private:
    QVector<Sql::Value> values_;
};

QString customFieldsRow() {
    const PositionalRow row = PositionalRow(1)
                                  .captions(u"Αλφαριθμητικό"_s, 10)
                                  .captions(u"Αριθμητικό"_s, 6)
                                  .captions(u"Ημερομηνία"_s, 4)
                                  .emptyText()
                                  .flagsOff(20)
                                  .captions(u"Αλφαριθμητικό"_s, 2)
                                  .flagsOff(2)
                                  .captions(u"Αριθμητικό"_s, 4)
                                  .flagsOff(4)
                                  .captions(u"Κείμενο"_s, 6)
                                  .captions(u"Επιλεκτικό"_s, 8)
                                  .flagsOff(8)
                                  .captions(u"Λίστα"_s, 4)
                                  .flagsOff(4);
    return Sql(u"INSERT into CustomFields VALUES (?)"_s, Sql::list(row.values()));
}

}  // namespace

QStringList defaultRows(Database database) {
    if (database == Database::Main)
        return {u"INSERT into CardKategory   VALUES ( '1','ΕΠΑΦΕΣ',1)"_s, customFieldsRow(),
                u"INSERT into Options VALUES (1)"_s};
    // The numbers carry the rights: 1 everything, 3 the restricted user.
    return {u"INSERT into Groups VALUES (1,'Διαχειριστές')"_s, u"INSERT into Groups VALUES (2,'Χρήστες')"_s,
            u"INSERT into Groups VALUES (3,'Περιορισμένοι χρήστες')"_s};
}

}  // namespace schema
