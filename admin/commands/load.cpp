#include "admin/command.h"
#include "admin/output.h"
#include "admin/seat.h"
#include "copies/upgradecopy.h"
#include "schema/office.h"
#include "schema/reference.h"

namespace admin {
namespace {

using namespace Qt::Literals::StringLiterals;

ExitCode load(const Arguments& arguments) {
    const QString folder = arguments.positional()[0], name = arguments.positional()[1],
                  file = arguments.positional()[2];
    const schema::ReferenceKind* kind = schema::findReferenceKind(name);
    if (!kind) throw UsageError{u"Άγνωστο είδος στοιχείων «%1»."_s.arg(name)};
    const Seat seat(folder);
    data::Connection main;
    copies::openUpgraded(main, schema::connectionString(schema::Database::Main, schema::mainDatabasePath(folder)));
    const schema::LoadCounts counts = schema::loadReference(main, *kind, file, arguments.has(u"--replace"_s));
    out() << u"Φορτώθηκαν %1 γραμμές, %2 υπήρχαν ήδη."_s.arg(counts.added).arg(counts.alreadyThere) << Qt::endl;
    return Fine;
}

QString kindsHelp() {
    QString text =
        u"Φορτώνει στοιχεία αναφοράς από απλό αρχείο κειμένου: UTF-8, μία εγγραφή σε κάθε γραμμή, στήλες με "
        u"στηλοθέτη (tab), σχόλια με #. Μία λάθος γραμμή απορρίπτει όλο το αρχείο.\n"_s;
    for (const schema::ReferenceKind& kind : schema::referenceKinds())
        text += u"\n  %1  %2"_s.arg(kind.name, -9).arg(kind.about);
    return text;
}

}  // namespace

Command loadCommand() {
    return {u"load"_s,
            u"ΦΑΚΕΛΟΣ namedays|farmaka|medra ΑΡΧΕΙΟ"_s,
            u"φορτώνει εορτές, φάρμακα ή ιατρικό λεξικό από αρχείο"_s,
            kindsHelp(),
            3,
            3,
            {{u"--replace"_s, {}, u"αδειάζει πρώτα τον πίνακα"_s}},
            load};
}

}  // namespace admin
