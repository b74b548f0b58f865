#include "admin/command.h"
#include "admin/output.h"
#include "admin/seat.h"
#include "data/recordset.h"
#include "data/values/format.h"
#include "schema/office.h"

namespace admin {
namespace {

using namespace Qt::Literals::StringLiterals;

ExitCode agenda(const Arguments& arguments) {
    if (!arguments.has(u"--user"_s)) throw UsageError{u"Λείπει η επιλογή «--user»."_s};
    const QDate day = arguments.day(u"--day"_s, QDate::currentDate());
    const QString folder = arguments.positional().first();
    const Seat seat(folder);
    data::Connection connection;
    schema::openToRead(connection, schema::connectionString(schema::Database::Main, schema::mainDatabasePath(folder)));
    data::Recordset rows(connection, data::Sql(u"select [start],[end],contact,subject,location from dates where "
                                               "[day]=? and [user]=? order by [start],[end]"_s,
                                               day, arguments.value(u"--user"_s)));
    if (rows.isEmpty()) err() << u"Δεν υπάρχουν συναντήσεις."_s << Qt::endl;
    out() << u"Έναρξη\tΤέλος\tΕπαφή\tΘέμα\tΤόπος\n"_s;
    for (; !rows.eof(); rows.moveNext()) {
        QStringList cells;
        for (const QString& time : {u"start"_s, u"end"_s}) cells += data::format(rows[time].value(), u"hh:nn");
        for (const QString& text : {u"contact"_s, u"subject"_s, u"location"_s}) cells += escaped(rows[text].text());
        out() << cells.join(u'\t') << u'\n';
    }
    out() << Qt::flush;
    return Fine;
}

}  // namespace

Command agendaCommand() {
    return {
        u"agenda"_s,
        u"ΦΑΚΕΛΟΣ --user ΧΡΗΣΤΗΣ"_s,
        u"δείχνει τις συναντήσεις μιας ημέρας"_s,
        u"Δείχνει τις συναντήσεις ενός χρήστη σε μία ημέρα με τη σειρά της ώρας: έναρξη, τέλος, επαφή, θέμα και "
        u"τόπο, χωρισμένα με στηλοθέτες και με επικεφαλίδα· στηλοθέτες και αλλαγές γραμμής μέσα στις τιμές "
        u"γράφονται \\t, \\r, \\n. Μόνο διαβάζει."_s,
        1,
        1,
        {{u"--user"_s, u"ΧΡΗΣΤΗΣ"_s, u"ποιου χρήστη"_s}, {u"--day"_s, u"εεεε-μμ-ηη"_s, u"ποια ημέρα (η σημερινή)"_s}},
        agenda};
}

}  // namespace admin
