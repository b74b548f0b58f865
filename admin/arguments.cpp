#include "admin/arguments.h"

namespace admin {

using namespace Qt::Literals::StringLiterals;

Arguments::Arguments(const QStringList& words, const QVector<Option>& options, int leastPositional,
                     int mostPositional) {
    for (qsizetype at = 0; at < words.size(); ++at) {
        if (words[at] == u"--") {
            positional_ += words.mid(at + 1);
            break;
        }
        if (words[at].startsWith(u'-') && words[at].size() > 1)
            take(options, words, at);
        else
            positional_ += words[at];
    }
    if (positional_.size() < leastPositional) throw UsageError{u"Λείπουν ορίσματα."_s};
    if (positional_.size() > mostPositional)
        throw UsageError{u"Περισσεύει το όρισμα «%1»."_s.arg(positional_[mostPositional])};
}

void Arguments::take(const QVector<Option>& options, const QStringList& words, qsizetype& at) {
    const QString word = words[at];
    const qsizetype equals = word.indexOf(u'=');
    const QString name = word.left(equals);
    const auto option =
        std::find_if(options.cbegin(), options.cend(), [&](const Option& candidate) { return candidate.name == name; });
    if (option == options.cend()) throw UsageError{u"Άγνωστη επιλογή «%1»."_s.arg(name)};
    if (values_.contains(name)) throw UsageError{u"Η επιλογή «%1» δόθηκε δύο φορές."_s.arg(name)};
    if (option->valueName.isEmpty()) {
        if (equals >= 0) throw UsageError{u"Η επιλογή «%1» δεν παίρνει τιμή."_s.arg(name)};
        values_.insert(name, {});
    } else if (equals >= 0) {
        values_.insert(name, word.mid(equals + 1));
    } else if (++at < words.size()) {
        values_.insert(name, words[at]);
    } else {
        throw UsageError{u"Η επιλογή «%1» χρειάζεται τιμή."_s.arg(name)};
    }
}

qint64 Arguments::number(const QString& option, qint64 fallback, qint64 least, qint64 most) const {
    if (!has(option)) return fallback;
    bool reads = false;
    const qint64 number = value(option).toLongLong(&reads);
    if (!reads || number < least || number > most)
        throw UsageError{u"Η επιλογή «%1» θέλει ακέραιο από %2 έως %3."_s.arg(option).arg(least).arg(most)};
    return number;
}

QDate Arguments::day(const QString& option, QDate fallback) const {
    if (!has(option)) return fallback;
    const QDate day = QDate::fromString(value(option), Qt::ISODate);
    if (!day.isValid() || day.year() < 1950)
        throw UsageError{u"Η επιλογή «%1» θέλει ημερομηνία της μορφής εεεε-μμ-ηη."_s.arg(option)};
    return day;
}

}  // namespace admin
