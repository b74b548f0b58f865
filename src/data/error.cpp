#include "data/error.h"

#include <QDir>
#include <QFileDevice>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

namespace data {

qint32 adoErrorNumber(ErrorCategory category) {
    switch (category) {
        case ErrorCategory::Connection:
            return 3709;
        case ErrorCategory::Password:
            return qint32(0x80040E4D);
        case ErrorCategory::Corrupt:
            return qint32(0x80004005);
        case ErrorCategory::Busy:
            return qint32(0x80040E21);
        case ErrorCategory::Syntax:
            return qint32(0x80040E14);
        case ErrorCategory::Parameter:
            return qint32(0x80040E10);
        case ErrorCategory::Type:
            return qint32(0x80040E07);
        case ErrorCategory::Constraint:
            return qint32(0x80040E2F);
        case ErrorCategory::Conflict:
            return qint32(0x80040E38);
        case ErrorCategory::ReadOnly:
            return qint32(0x80040E09);
        case ErrorCategory::State:
            return 3021;
        case ErrorCategory::Full:
            return qint32(0x80004005);
        case ErrorCategory::Stopped:
            return qint32(0x80040E4E);
        case ErrorCategory::Other:
            return qint32(0x80004005);
    }
    return qint32(0x80004005);
}

Error::Error(ErrorCategory category, QString text, QString statement, int engineCode)
    : category_(category),
      text_(std::move(text)),
      statement_(std::move(statement)),
      engineCode_(engineCode),
      utf8_(text_.toUtf8()) {}

Error stoppedError(const QByteArray& sql, bool answered) {
    return Error(ErrorCategory::Stopped,
                 answered
                     ? u"Η εργασία διακόπηκε."_s
                     : u"Η εργασία διακόπηκε χωρίς απάντηση του διακομιστή. Δείτε αν αποθηκεύτηκε, πριν δοκιμάσετε "
                       "ξανά."_s,
                 QString::fromUtf8(sql));
}

Error Error::withDetails(const QString& words) const {
    Error copy = *this;
    copy.details_ = words;
    return copy;
}

Error Error::withStatement(const QString& sql) const {
    Error copy = *this;
    copy.statement_ = sql;
    return copy;
}

QString sentenceOf(const std::exception& failure) {
    if (dynamic_cast<const std::bad_alloc*>(&failure)) return u"Δεν υπάρχει αρκετή μνήμη."_s;
    const QString words = QString::fromUtf8(failure.what());
    const auto isGreek = [](QChar c) { return c.script() == QChar::Script_Greek; };
    if (std::any_of(words.begin(), words.end(), isGreek)) return words;
    return u"Απρόσμενο σφάλμα του προγράμματος."_s;
}

QString reasonOf(const QFileDevice& file) {
    const QFileInfo info(file.fileName());
    switch (file.error()) {
        case QFileDevice::ResourceError:
            return u"Ο δίσκος είναι γεμάτος."_s;
        case QFileDevice::PermissionsError:
            return u"Δεν έχετε δικαίωμα σε αυτό."_s;
        case QFileDevice::ReadError:
            return u"Ο δίσκος δεν διαβάζεται."_s;
        case QFileDevice::OpenError:
            if (info.isDir()) return u"Είναι φάκελος."_s;
            if (!QFileInfo::exists(info.absolutePath())) return u"Δεν υπάρχει ο φάκελός του."_s;
            if (!info.exists() && file.openMode() == QFileDevice::NotOpen &&
                QFileInfo(info.absolutePath()).isWritable())
                return u"Δεν υπάρχει."_s;
            return u"Δεν ανοίγει."_s;
        default:
            return u"Ο δίσκος δεν γράφεται."_s;
    }
}

void failWriting(const QString& file, const QString& why) {
    throw Error(ErrorCategory::Full, u"Δεν γράφεται το αρχείο «%1»: %2"_s.arg(QDir::toNativeSeparators(file), why));
}

// Of a disk that took only the first part of a write nothing is known but that.
void failWriting(const QFileDevice& file) {
    failWriting(file.fileName(), file.error() == QFileDevice::NoError ? u"Ο δίσκος είναι γεμάτος."_s : reasonOf(file));
}

}  // namespace data
