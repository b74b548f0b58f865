#include "demo/demo.h"

#include <limits>

#include "admin/command.h"
#include "admin/officeoptions.h"
#include "admin/output.h"
#include "admin/passwords.h"
#include "admin/seat.h"
#include "copies/upgradecopy.h"
#include "schema/office.h"

namespace admin {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr qint64 mostCards = 1000000;

demo::DemoOptions demoOptions(const Arguments& arguments) {
    demo::DemoOptions options;
    options.cards = int(arguments.number(u"--cards"_s, options.cards, 0, mostCards));
    options.seed = quint64(arguments.number(u"--seed"_s, qint64(options.seed), 0, std::numeric_limits<qint64>::max()));
    options.referenceDate = arguments.day(u"--date"_s, QDate::currentDate());
    return options;
}

ExitCode demo(const Arguments& arguments) {
    demo::DemoOptions options = demoOptions(arguments);
    const QString folder = arguments.positional().first();
    const QString adminPassword = passwordGiven(arguments).value_or(u"admin"_s);
    createOffice(arguments, adminPassword);
    Seat seat(folder);
    options.progress = [&seat](int done, int total) {
        seat.keep();
        err() << u"%1 από %2 καρτέλες"_s.arg(done).arg(total) << Qt::endl;
    };
    data::Connection main, users;
    copies::openUpgraded(main, schema::connectionString(schema::Database::Main, schema::mainDatabasePath(folder)));
    copies::openUpgraded(users, schema::connectionString(schema::Database::Users, schema::usersDatabasePath(folder)));
    demo::fillDemo(main, users, options);

    out() << u"Δημιουργήθηκε γραφείο επίδειξης με %1 καρτέλες στον φάκελο %2"_s.arg(options.cards).arg(folder)
          << Qt::endl
          << u"Χρήστης\tΚωδικός\tΟμάδα"_s << Qt::endl
          << u"Admin\t%1\t1"_s.arg(adminPassword) << Qt::endl;
    for (const demo::DemoUser& user : demo::demoUsers())
        out() << u"%1\t%2\t%3"_s.arg(user.name, user.password).arg(user.group) << Qt::endl;
    return Fine;
}

}  // namespace

Command demoCommand() {
    return {u"demo"_s,
            u"ΦΑΚΕΛΟΣ"_s,
            u"δημιουργεί γραφείο επίδειξης με φανταστικά στοιχεία"_s,
            u"Δημιουργεί νέες βάσεις δεδομένων, όπως η create, και τις γεμίζει με φανταστικές επαφές, κινήσεις, "
            u"συναντήσεις, εργασίες και κλήσεις. Με τον ίδιο σπόρο και ημερομηνία βγαίνουν πάντα τα ίδια."_s,
            1,
            1,
            {{u"--cards"_s, u"N"_s, u"πόσες καρτέλες (200)"_s},
             {u"--seed"_s, u"N"_s, u"ο σπόρος των τυχαίων αριθμών (1)"_s},
             {u"--date"_s, u"εεεε-μμ-ηη"_s, u"η ημέρα που θα είναι «σήμερα» (η σημερινή)"_s},
             adminPasswordOption(u"ο κωδικός του Admin (admin)"_s),
             passwordFileOption(),
             referenceOption(),
             serverOption()},
            demo};
}

}  // namespace admin
