#include "admin/command.h"
#include "admin/output.h"
#include "admin/seat.h"
#include "copies/upgradecopy.h"
#include "data/error.h"
#include "data/recordset.h"
#include "data/values/format.h"
#include "schema/office.h"

namespace admin {
namespace {

using namespace Qt::Literals::StringLiterals;

QString cell(const data::Field& field) {
    if (field.columnType() != data::ColumnType::LongBinary) return escaped(field.text());
    return field.isNull() ? QString() : u"(%1 bytes)"_s.arg(field.actualSize());
}

void printRows(data::Recordset& rows) {
    QStringList line;
    for (int i = 0; i < rows.fieldCount(); ++i) line += escaped(rows.field(i).name());
    out() << line.join(u'\t') << u'\n';
    for (; !rows.eof(); rows.moveNext()) {
        line.clear();
        for (int i = 0; i < rows.fieldCount(); ++i) line += cell(rows.field(i));
        out() << line.join(u'\t') << u'\n';
    }
    out() << Qt::flush;
}

ExitCode sql(const Arguments& arguments) {
    const QString folder = arguments.positional()[0], statement = arguments.positional()[1];
    const bool users = arguments.has(u"--users"_s), write = arguments.has(u"--write"_s);
    const QString string = users ? schema::connectionString(schema::Database::Users, schema::usersDatabasePath(folder))
                                 : schema::connectionString(schema::Database::Main, schema::mainDatabasePath(folder));
    const Seat seat(folder);
    data::Connection connection;
    if (write)
        copies::openUpgraded(connection, string);
    else
        schema::openToRead(connection, string);
    if (connection.translate(statement)->kind == data::dialect::StatementKind::Select) {
        data::Recordset rows(connection, statement);
        printRows(rows);
        return Fine;
    }
    if (!write)
        throw data::Error(data::ErrorCategory::ReadOnly,
                          u"Η εντολή αλλάζει τα δεδομένα· δώστε και --write για να εκτελεστεί."_s, statement);
    out() << u"Εγγραφές που άλλαξαν: %1"_s.arg(connection.execute(statement)) << Qt::endl;
    return Fine;
}

}  // namespace

Command sqlCommand() {
    return {u"sql"_s,
            u"ΦΑΚΕΛΟΣ \"ΕΝΤΟΛΗ\""_s,
            u"εκτελεί μία εντολή SQL"_s,
            u"Εκτελεί μία εντολή της διαλέκτου του προγράμματος. Οι γραμμές βγαίνουν με στηλοθέτες και επικεφαλίδα, οι "
            u"ημερομηνίες ως ηη/μμ/εεεε· στηλοθέτες και αλλαγές γραμμής μέσα στις τιμές γράφονται \\t, \\r, \\n. Χωρίς "
            u"--write μόνο διαβάζει."_s,
            2,
            2,
            {{u"--write"_s, {}, u"επιτρέπει INSERT, UPDATE και DELETE"_s},
             {u"--users"_s, {}, u"στη βάση των χρηστών αντί της κύριας"_s}},
            sql};
}

}  // namespace admin
