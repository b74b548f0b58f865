#include "data/postgres/pgerror.h"

using namespace Qt::Literals::StringLiterals;

namespace data {
namespace {

struct Meaning {
    const char* state;  // a code or the beginning of several; the first that fits counts
    ErrorCategory category;
    const char16_t* text;  // null: the server's own message behind the general words
};

constexpr Meaning meanings[] = {
    {"DV001", ErrorCategory::Type, nullptr},
    {"DV002", ErrorCategory::Constraint, nullptr},
    {"23505", ErrorCategory::Constraint, u"Υπάρχει ήδη εγγραφή με αυτή την τιμή κλειδιού."},
    {"23502", ErrorCategory::Constraint, u"Ένα υποχρεωτικό πεδίο είναι κενό."},
    {"23", ErrorCategory::Constraint, u"Η εγγραφή παραβιάζει κανόνα του πίνακα."},
    {"22001", ErrorCategory::Constraint, u"Η τιμή έχει περισσότερους χαρακτήρες από όσους χωράει το πεδίο."},
    {"22021", ErrorCategory::Type, u"Το κείμενο έχει μέσα του χαρακτήρα που η βάση δεν δέχεται."},
    {"22003", ErrorCategory::Type, u"Ένας αριθμός είναι έξω από τα όρια."},
    {"22", ErrorCategory::Type, u"Η τιμή δεν ταιριάζει με τον τύπο του πεδίου."},
    {"55P03", ErrorCategory::Busy, u"Κάποιος άλλος κρατά τα δεδομένα αυτή τη στιγμή. Δοκιμάστε ξανά σε λίγο."},
    {"40P01", ErrorCategory::Busy,
     u"Δύο εργασίες περίμεναν η μία την άλλη και αυτή εδώ ακυρώθηκε. Τίποτα δεν αποθηκεύτηκε· δοκιμάστε ξανά."},
    {"40", ErrorCategory::Busy,
     u"Η εργασία συγκρούστηκε με άλλη και ακυρώθηκε. Τίποτα δεν αποθηκεύτηκε· δοκιμάστε ξανά."},
    {"25006", ErrorCategory::ReadOnly, u"Η βάση δεδομένων είναι ανοιχτή μόνο για ανάγνωση."},
    {"25P02", ErrorCategory::State, u"Η εργασία απέτυχε σε προηγούμενη εντολή της και ακυρώθηκε."},
    {"42501", ErrorCategory::ReadOnly, u"Δεν έχετε δικαίωμα για αυτή την εντολή στον διακομιστή."},
    {"42", ErrorCategory::Syntax, nullptr},
    {"53100", ErrorCategory::Full, u"Ο δίσκος του διακομιστή είναι γεμάτος. Τίποτα δεν αποθηκεύτηκε."},
    {"54", ErrorCategory::Constraint, u"Η τιμή ή η εντολή είναι υπερβολικά μεγάλη."},
    {"57014", ErrorCategory::Other, u"Η εργασία διακόπηκε."},
    {"57P", ErrorCategory::Connection, u"Ο διακομιστής της βάσης σταμάτησε. Δοκιμάστε ξανά σε λίγο."},
    {"08", ErrorCategory::Connection, u"Η σύνδεση με τον διακομιστή της βάσης χάθηκε."},
    {"58", ErrorCategory::Full, u"Ο δίσκος του διακομιστή δεν διαβάζεται ή δεν γράφεται."},
    {"XX001", ErrorCategory::Corrupt, u"Η βάση δεδομένων έχει καταστραφεί. Επαναφέρετε ένα αντίγραφο ασφαλείας."},
    {"XX002", ErrorCategory::Corrupt, u"Ένα ευρετήριο της βάσης έχει καταστραφεί. Ειδοποιήστε τον διαχειριστή."},
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
        if (!state.startsWith(QLatin1String(meaning.state))) continue;
        QString text = meaning.text ? QString::fromUtf16(meaning.text) : message;
        if (meaning.category == ErrorCategory::Syntax) text = u"Η εντολή δεν είναι σωστή: "_s + message;
        return Error(meaning.category, text, statement, numberOf(state));
    }
    const QString own = message.isEmpty() ? QString::fromUtf8(PQresultErrorMessage(result)).trimmed() : message;
    return Error(ErrorCategory::Other, u"Σφάλμα της βάσης δεδομένων: "_s + own, statement, numberOf(state));
}

Error pgConnectError(const QString& message, PGPing server) {
    const QString advice =
        server == PQPING_OK ? u"Ο διακομιστής της βάσης απάντησε, αλλά δεν δέχτηκε τη σύνδεση. Ελέγξτε τον χρήστη, "
                              "τον κωδικό και το όνομα της βάσης στα στοιχεία του διακομιστή."_s
        : server == PQPING_REJECT
            ? u"Ο διακομιστής της βάσης ξεκινά ή σταματά. Δοκιμάστε ξανά σε λίγο."_s
            : u"Η σύνδεση με τον διακομιστή της βάσης δεν έγινε. Ελέγξτε το δίκτυο και τα στοιχεία στο "
              "αρχείο της βάσης."_s;
    return Error(ErrorCategory::Connection, advice + u'\n' + message.trimmed());
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

}  // namespace data
