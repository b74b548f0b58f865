#include "admin/command.h"
#include "admin/officeoptions.h"
#include "admin/output.h"
#include "admin/passwords.h"
#include "admin/terminal.h"
#include "data/error.h"

namespace admin {
namespace {

using namespace Qt::Literals::StringLiterals;

[[noreturn]] void refuse(const QString& text) {
    throw data::Error(data::ErrorCategory::Constraint, text);
}

QString askPassword() {
    const auto first = askHidden(u"Κωδικός του Admin: "_s);
    if (!first)
        throw UsageError{u"Δεν υπάρχει τερματικό για να ζητηθεί ο κωδικός· δώστε τον με --admin-password-file."_s};
    if (first->isEmpty()) refuse(u"Ο κωδικός δεν μπορεί να είναι κενός."_s);
    if (askHidden(u"Ξανά ο κωδικός: "_s) != first) refuse(u"Οι δύο κωδικοί δεν συμφωνούν."_s);
    return *first;
}

ExitCode create(const Arguments& arguments) {
    const auto given = passwordGiven(arguments);
    createOffice(arguments, given ? *given : askPassword());
    out() << u"Δημιουργήθηκαν οι βάσεις δεδομένων στον φάκελο "_s << arguments.positional().first() << Qt::endl;
    return Fine;
}

}  // namespace

Command createCommand() {
    return {u"create"_s,
            u"ΦΑΚΕΛΟΣ"_s,
            u"δημιουργεί νέες, κενές βάσεις δεδομένων"_s,
            u"Δημιουργεί στον ΦΑΚΕΛΟ τα dorvalist.mdb και dorvalistu.mdb με τις αρχικές εγγραφές και τα στοιχεία "
            u"αναφοράς. Αν υπάρχει ήδη έστω το ένα από τα δύο, δεν πειράζει τίποτα."_s,
            1,
            1,
            {adminPasswordOption(u"ο κωδικός του Admin· αν λείπει, ζητείται δύο φορές στο τερματικό. Μια γραμμή "
                                 u"εντολών τη διαβάζουν όλοι: προτιμήστε το --admin-password-file"_s),
             passwordFileOption(), referenceOption(), serverOption()},
            create};
}

}  // namespace admin
