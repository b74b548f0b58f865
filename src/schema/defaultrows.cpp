#include "schema/tables.h"

namespace schema {
namespace {

using namespace Qt::Literals::StringLiterals;

class PositionalRow {
public:
    explicit PositionalRow(const QString& first) : values_(first) {}
    PositionalRow& captions(const QString& caption, int count) {
        for (int i = 1; i <= count; ++i) values_ += u"'%1 %2'"_s.arg(caption).arg(i);
        return *this;
    }
    PositionalRow& flagsOff(int count) {
        for (int i = 0; i < count; ++i) values_ += u"0"_s;
        return *this;
    }
    PositionalRow& emptyText() {
        values_ += u"''"_s;
        return *this;
    }
    QString insertInto(const QString& table) const {
        return u"INSERT into %1 VALUES (%2)"_s.arg(table, values_.join(u','));
    }

private:
    QStringList values_;
};

QString customFieldsRow() {
    return PositionalRow(u"1"_s)
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
        .flagsOff(4)
        .insertInto(u"CustomFields"_s);
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
