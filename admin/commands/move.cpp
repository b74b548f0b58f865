#include "copies/move.h"

#include "admin/command.h"
#include "admin/interrupt.h"
#include "admin/officeoptions.h"
#include "admin/output.h"
#include "admin/seat.h"

namespace admin {
namespace {

using namespace Qt::Literals::StringLiterals;

ExitCode move(const Arguments& arguments) {
    const QString from = arguments.positional()[0], to = arguments.positional()[1];
    copies::MoveOptions options;
    options.server = serverGiven(arguments);
    Seat seat(from), newSeat(to);
    options.progress = newSeat.watched(seat.watched(progressLines()));
    const copies::MoveInfo info = copies::moveOffice(from, to, options);
    for (const auto& [table, rows] : info.tables) out() << u"  %1\t%2"_s.arg(table).arg(rows) << Qt::endl;
    out() << u"Το γραφείο μεταφέρθηκε στον φάκελο %1 και συγκρίθηκε: %2 εγγραφές, %3 εικόνες (%4 bytes), όλες ίδιες."_s
                 .arg(to)
                 .arg(info.rows)
                 .arg(info.pictures)
                 .arg(info.pictureBytes)
          << Qt::endl
          << u"Ο φάκελος %1 έμεινε όπως ήταν."_s.arg(from) << Qt::endl;
    return Fine;
}

}  // namespace

Command moveCommand() {
    return {u"move"_s,
            u"ΑΠΟ ΠΡΟΣ"_s,
            u"μεταφέρει ένα γραφείο σε διακομιστή, ή πίσω σε αρχεία"_s,
            u"Φτιάχνει το γραφείο του φακέλου ΑΠΟ άλλη μία φορά στον φάκελο ΠΡΟΣ, που δεν πρέπει να έχει βάσεις: με "
            u"--server σε διακομιστή, αλλιώς σε αρχεία. Μεταφέρονται οι δύο βάσεις, οι κωδικοί και οι αριθμοί που "
            u"συνεχίζουν· μετά διαβάζονται και συγκρίνονται όλες οι εγγραφές και οι εικόνες. Το πρόγραμμα πρέπει να "
            u"είναι κλειστό σε όλες τις θέσεις, και όσο κρατά η μεταφορά δεν αλλάζει κανείς τίποτα. Αν κάτι αποτύχει, "
            u"στο ΠΡΟΣ δεν μένει τίποτα· το ΑΠΟ δεν αλλάζει ποτέ."_s,
            2,
            2,
            {serverOption()},
            move};
}

}  // namespace admin
