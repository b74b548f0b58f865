#include "data/postgres/pgerror.h"

using namespace Qt::Literals::StringLiterals;

namespace data::postgres {
namespace {

struct Meaning {
    QString state;  // a code or the beginning of several; the first that fits counts
    ErrorCategory category;
    QString text;  // empty: the message, which is a sentence of this program's functions
};

const Meaning meanings[] = {
    {u"DV001"_s, ErrorCategory::Type, {}},
    {u"DV002"_s, ErrorCategory::Constraint, {}},
    {u"23505"_s, ErrorCategory::Constraint, u"Υπάρχει ήδη εγγραφή με αυτή την τιμή κλειδιού."_s},
    {u"23502"_s, ErrorCategory::Constraint, u"Ένα υποχρεωτικό πεδίο είναι κενό."_s},
    {u"23"_s, ErrorCategory::Constraint, u"Η εγγραφή παραβιάζει κανόνα του πίνακα."_s},
    {u"22001"_s, ErrorCategory::Constraint, u"Η τιμή έχει περισσότερους χαρακτήρες από όσους χωράει το πεδίο."_s},
    {u"22021"_s, ErrorCategory::Type, u"Το κείμενο έχει μέσα του χαρακτήρα που η βάση δεν δέχεται."_s},
    {u"22003"_s, ErrorCategory::Type, u"Ένας αριθμός είναι έξω από τα όρια."_s},
    {u"22"_s, ErrorCategory::Type, u"Η τιμή δεν ταιριάζει με τον τύπο του πεδίου."_s},
    {u"55P03"_s, ErrorCategory::Busy, u"Κάποιος άλλος κρατά τα δεδομένα αυτή τη στιγμή. Δοκιμάστε ξανά σε λίγο."_s},
    {u"40P01"_s, ErrorCategory::Busy,
     u"Δύο εργασίες περίμεναν η μία την άλλη και αυτή εδώ ακυρώθηκε. Τίποτα δεν αποθηκεύτηκε· δοκιμάστε ξανά."_s},
    {u"40"_s, ErrorCategory::Busy,
     u"Η εργασία συγκρούστηκε με άλλη και ακυρώθηκε. Τίποτα δεν αποθηκεύτηκε· δοκιμάστε ξανά."_s},
    {u"25006"_s, ErrorCategory::ReadOnly, u"Η βάση δεδομένων είναι ανοιχτή μόνο για ανάγνωση."_s},
    {u"25P02"_s, ErrorCategory::State, u"Η εργασία απέτυχε σε προηγούμενη εντολή της και ακυρώθηκε."_s},
    {u"42501"_s, ErrorCategory::ReadOnly, u"Δεν έχετε δικαίωμα για αυτή την εντολή στον διακομιστή."_s},
    {u"42"_s, ErrorCategory::Syntax, u"Η εντολή δεν είναι σωστή."_s},
    {u"53100"_s, ErrorCategory::Full, u"Ο δίσκος του διακομιστή είναι γεμάτος. Τίποτα δεν αποθηκεύτηκε."_s},
    {u"54"_s, ErrorCategory::Constraint, u"Η τιμή ή η εντολή είναι υπερβολικά μεγάλη."_s},
    {u"57014"_s, ErrorCategory::Other, u"Η εργασία διακόπηκε."_s},
    {u"57P"_s, ErrorCategory::Connection, u"Ο διακομιστής της βάσης σταμάτησε. Δοκιμάστε ξανά σε λίγο."_s},
    {u"08"_s, ErrorCategory::Connection, u"Η σύνδεση με τον διακομιστή της βάσης χάθηκε."_s},
    {u"58"_s, ErrorCategory::Full, u"Ο δίσκος του διακομιστή δεν διαβάζεται ή δεν γράφεται."_s},
    {u"XX001"_s, ErrorCategory::Corrupt, u"Η βάση δεδομένων έχει καταστραφεί. Επαναφέρετε ένα αντίγραφο ασφαλείας."_s},
    {u"XX002"_s, ErrorCategory::Corrupt, u"Ένα ευρετήριο της βάσης έχει καταστραφεί. Ειδοποιήστε τον διαχειριστή."_s},
};

QString field(const PGresult* result, int code) {
    return QString::fromUtf8(PQresultErrorField(result, code));
}

// The code as a number, so that it can be read back from Error::engineCode(): five digits to the base 36.
int numberOf(const QString& state) {
    return state.toInt(nullptr, 36);
}

}  // namespace

Error pgError(const PGresult* result, const QByteArray& sql) {
    const QString state = field(result, PG_DIAG_SQLSTATE), message = field(result, PG_DIAG_MESSAGE_PRIMARY);
    const QString statement = QString::fromUtf8(sql);
    for (const Meaning& meaning : meanings) {
        if (!state.startsWith(meaning.state)) continue;
        const QString text = meaning.text.isEmpty() ? message : meaning.text;
        return Error(meaning.category, text, statement, numberOf(state)).withDetails(message);
    }
    const QString own = message.isEmpty() ? QString::fromUtf8(PQresultErrorMessage(result)).trimmed() : message;
    return Error(ErrorCategory::Other, u"Ο διακομιστής της βάσης απάντησε με σφάλμα (%1)."_s.arg(state), statement,
                 numberOf(state))
        .withDetails(own);
}

Error pgConnectError(const QString& message, PGPing server) {
    const QString advice =
        server == PQPING_OK ? u"Ο διακομιστής της βάσης απάντησε, αλλά δεν δέχτηκε τη σύνδεση. Ελέγξτε τον χρήστη, "
                              "τον κωδικό και το όνομα της βάσης στα στοιχεία του διακομιστή."_s
        : server == PQPING_REJECT
            ? u"Ο διακομιστής της βάσης ξεκινά ή σταματά. Δοκιμάστε ξανά σε λίγο."_s
            : u"Η σύνδεση με τον διακομιστή της βάσης δεν έγινε. Ελέγξτε το δίκτυο και τα στοιχεία στο "
              "αρχείο της βάσης."_s;
    return Error(ErrorCategory::Connection, advice).withDetails(message.trimmed());
}

Error pgLostError(WhatIsLost what, const QByteArray& sql) {
    const QString lost = u"Χάθηκε η σύνδεση με τον διακομιστή της βάσης. "_s;
    return Error(
        ErrorCategory::Connection,
        lost + (what == WhatIsLost::Nothing ? u"Η τελευταία εντολή δεν εκτελέστηκε· δοκιμάστε ξανά."_s
                                            : u"Η τελευταία εντολή μπορεί να εκτελέστηκε, μπορεί και όχι. Δείτε αν "
                                              "αποθηκεύτηκε, πριν δοκιμάσετε ξανά."_s),
        QString::fromUtf8(sql));
}

}  // namespace data::postgres
