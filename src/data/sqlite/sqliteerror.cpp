#include "data/sqlite/sqliteerror.h"

#include <sqlite3.h>

#include <QDir>
#include <cerrno>

using namespace Qt::Literals::StringLiterals;

namespace data::sqlite {
namespace {

struct Meaning {
    int code;  // primary code
    ErrorCategory category;
    QString text;
};

const Meaning meanings[] = {
    {SQLITE_BUSY, ErrorCategory::Busy,
     u"Κάποιος άλλος κρατά τη βάση δεδομένων αυτή τη στιγμή. Δοκιμάστε ξανά σε λίγο."_s},
    {SQLITE_LOCKED, ErrorCategory::Busy, u"Ο πίνακας είναι κλειδωμένος από άλλη εργασία. Δοκιμάστε ξανά σε λίγο."_s},
    {SQLITE_CORRUPT, ErrorCategory::Corrupt,
     u"Η βάση δεδομένων έχει καταστραφεί. Επαναφέρετε ένα αντίγραφο ασφαλείας."_s},
    {SQLITE_NOTADB, ErrorCategory::Corrupt, u"Το αρχείο δεν είναι βάση δεδομένων ή έχει καταστραφεί."_s},
    {SQLITE_FULL, ErrorCategory::Full, u"Ο δίσκος είναι γεμάτος. Τίποτα δεν αποθηκεύτηκε."_s},
    {SQLITE_IOERR, ErrorCategory::Full, u"Ο δίσκος δεν διαβάζεται ή δεν γράφεται."_s},
    {SQLITE_READONLY, ErrorCategory::ReadOnly, u"Η βάση δεδομένων είναι μόνο για ανάγνωση."_s},
    {SQLITE_PERM, ErrorCategory::ReadOnly, u"Δεν έχετε δικαίωμα εγγραφής στη βάση δεδομένων."_s},
    {SQLITE_CANTOPEN, ErrorCategory::Connection,
     u"Η βάση δεδομένων δεν ανοίγει. Ελέγξτε ότι έχετε δικαίωμα εγγραφής στον φάκελό της."_s},
    {SQLITE_TOOBIG, ErrorCategory::Constraint, u"Η τιμή ή η εντολή είναι υπερβολικά μεγάλη."_s},
    {SQLITE_MISMATCH, ErrorCategory::Type, u"Η τιμή δεν ταιριάζει με τον τύπο του πεδίου."_s},
    {SQLITE_AUTH, ErrorCategory::ReadOnly, u"Η εντολή δεν επιτρέπεται εδώ."_s},
    {SQLITE_NOMEM, ErrorCategory::Other, u"Δεν υπάρχει αρκετή μνήμη."_s},
    {SQLITE_INTERRUPT, ErrorCategory::Other, u"Η εργασία διακόπηκε."_s},
};

// The engine tells a full disk from a broken one at its own writes alone, not at those of its journal's index, with
// which every opening begins.
int codeWithDisk(sqlite3* database, int code) {
    const int primary = code & 0xFF;
    if (!database || (primary != SQLITE_IOERR && primary != SQLITE_CANTOPEN)) return code;
    const int system = sqlite3_system_errno(database);
    bool full = system == ENOSPC || system == EFBIG;
#ifdef EDQUOT
    full = full || system == EDQUOT;
#endif
    return full ? SQLITE_FULL : code;
}

QString constraintText(int code) {
    switch (code) {
        case SQLITE_CONSTRAINT_UNIQUE:
        case SQLITE_CONSTRAINT_PRIMARYKEY:
        case SQLITE_CONSTRAINT_ROWID:
            return u"Υπάρχει ήδη εγγραφή με αυτή την τιμή κλειδιού."_s;
        case SQLITE_CONSTRAINT_NOTNULL:
            return u"Ένα υποχρεωτικό πεδίο είναι κενό."_s;
        default:
            return u"Η εγγραφή παραβιάζει κανόνα του πίνακα."_s;
    }
}

// The dialect's own functions fail with a Greek sentence, which is better than any made from the code.
bool isGreek(const QString& message) {
    return std::any_of(message.begin(), message.end(), [](QChar c) { return c.script() == QChar::Script_Greek; });
}

ErrorCategory categoryOf(int primary) {
    if (primary == SQLITE_CONSTRAINT) return ErrorCategory::Constraint;
    for (const Meaning& meaning : meanings)
        if (meaning.code == primary) return meaning.category;
    return ErrorCategory::Other;
}

QString textOf(int code) {
    if ((code & 0xFF) == SQLITE_CONSTRAINT) return constraintText(code);
    for (const Meaning& meaning : meanings)
        if (meaning.code == (code & 0xFF)) return meaning.text;
    return {};
}

}  // namespace

Error sqliteError(sqlite3* database, int engineCode, const QByteArray& sql, bool preparing) {
    const int code = codeWithDisk(database, engineCode);
    const QString message = database ? QString::fromUtf8(sqlite3_errmsg(database)) : QString();
    const QString statement = QString::fromUtf8(sql);
    const int primary = code & 0xFF;
    if (primary == SQLITE_ERROR && message == u"integer overflow") return sqliteRangeError(sql);
    if (primary == SQLITE_ERROR && isGreek(message) && !preparing)
        return Error(ErrorCategory::Type, message, statement, code);
    if ((primary == SQLITE_CONSTRAINT || primary == SQLITE_MISMATCH) && isGreek(message) &&
        !message.contains(u"failed"))
        return Error(categoryOf(primary), message, statement, code);
    if (primary == SQLITE_ERROR && preparing)
        return Error(ErrorCategory::Syntax, u"Η εντολή δεν είναι σωστή."_s, statement, code).withDetails(message);
    QString text = textOf(code);
    if (text.isEmpty()) text = u"Η βάση δεδομένων απάντησε με σφάλμα (%1)."_s.arg(code);
    return Error(categoryOf(primary), text, statement, code).withDetails(message);
}

Error sqliteRangeError(const QByteArray& sql) {
    return Error(ErrorCategory::Type, u"Ένας αριθμός είναι έξω από τα όρια."_s, QString::fromUtf8(sql));
}

Error sqliteOpenError(int code, const QString& file) {
    const QString text = textOf(code);
    return Error(categoryOf(code & 0xFF) == ErrorCategory::Other ? ErrorCategory::Connection : categoryOf(code & 0xFF),
                 u"Το αρχείο «%1» δεν άνοιξε. %2"_s.arg(QDir::toNativeSeparators(file), text), {}, code);
}

}  // namespace data::sqlite
