#include "copies/backup.h"

#include "admin/command.h"
#include "admin/interrupt.h"
#include "admin/officeoptions.h"
#include "admin/output.h"
#include "admin/seat.h"
#include "copies/restore.h"

namespace admin {
namespace {

using namespace Qt::Literals::StringLiterals;

void tell(const QString& done, const copies::BackupInfo& info) {
    out() << done << Qt::endl << u"Εγγραφές: %1"_s.arg(info.rows) << Qt::endl;
}

ExitCode backup(const Arguments& arguments) {
    const QString folder = arguments.positional()[0], file = arguments.positional()[1];
    copies::BackupOptions options;
    options.replace = arguments.has(u"--force"_s);
    Seat seat(folder);
    options.progress = seat.watched(progressLines());
    tell(u"Το αντίγραφο ασφαλείας γράφτηκε και ελέγχθηκε: "_s + file, copies::backupOffice(folder, file, options));
    return Fine;
}

ExitCode restore(const Arguments& arguments) {
    const QString file = arguments.positional()[0], folder = arguments.positional()[1];
    copies::RestoreOptions options;
    options.force = arguments.has(u"--force"_s);
    options.asFiles = arguments.has(u"--as-files"_s);
    options.server = serverGiven(arguments);
    Seat seat(folder);
    options.progress = seat.watched(progressLines());
    const QStringList aside = copies::restoreOffice(file, folder, options);
    out() << u"Οι βάσεις δεδομένων επανήλθαν στον φάκελο "_s << folder << Qt::endl;
    for (const QString& old : aside) out() << u"Η παλιά κρατήθηκε ως "_s << old << Qt::endl;
    return Fine;
}

}  // namespace

Command backupCommand() {
    return {u"backup"_s,
            u"ΦΑΚΕΛΟΣ ΑΡΧΕΙΟ"_s,
            u"γράφει αντίγραφο ασφαλείας των δύο βάσεων σε ένα αρχείο"_s,
            u"Αντιγράφει τις δύο βάσεις του ΦΑΚΕΛΟΥ σε ένα ΑΡΧΕΙΟ tar, ενώ οι άλλοι μπορούν να δουλεύουν. Το αντίγραφο "
            u"ελέγχεται και μετριέται πριν πάρει το όνομά του· αν κάτι αποτύχει, αρχείο με αυτό το όνομα δεν υπάρχει. "
            u"Βάσεις σε διακομιστή αντιγράφονται με το pg_dump, που πρέπει να είναι εγκατεστημένο."_s,
            2,
            2,
            {{u"--force"_s, {}, u"αντικαθιστά το ΑΡΧΕΙΟ, αν υπάρχει"_s}},
            backup};
}

Command restoreCommand() {
    return {u"restore"_s,
            u"ΑΡΧΕΙΟ ΦΑΚΕΛΟΣ"_s,
            u"επαναφέρει τις βάσεις από αντίγραφο ασφαλείας"_s,
            u"Ελέγχει το ΑΡΧΕΙΟ και βάζει τις δύο βάσεις του στον ΦΑΚΕΛΟ. Φάκελο που έχει ήδη βάση δεν τον πειράζει, "
            u"εκτός με --force· οι παλιές μένουν τότε δίπλα, με την ημερομηνία στο όνομά τους. Το πρόγραμμα πρέπει να "
            u"είναι κλειστό σε όλες τις θέσεις. Αντίγραφο βάσεων διακομιστή επανέρχεται στον διακομιστή που λένε τα "
            u"αρχεία του ΦΑΚΕΛΟΥ ή η επιλογή --server."_s,
            2,
            2,
            {{u"--force"_s, {}, u"στη θέση βάσεων που υπάρχουν, κρατώντας τις παλιές"_s},
             {u"--as-files"_s, {}, u"γραφείο σε διακομιστή ξαναγίνεται γραφείο σε αρχεία (με --force)"_s},
             serverOption()},
            restore};
}

}  // namespace admin
