#include "data/sql.h"

#include <QLocale>
#include <algorithm>
#include <cmath>

#include "data/error.h"

using namespace Qt::Literals::StringLiterals;

namespace data {

namespace {

QString quoted(QString text) {
    return u'\'' + text.replace(u'\'', u"''"_s) + u'\'';
}

QString dateOrNull(bool isValid, const QString& date) {
    return isValid ? u'#' + date + u'#' : u"Null"_s;
}

QString literalOf(const QVariant& value) {
    if (value.isNull()) return u"Null"_s;
    switch (value.typeId()) {
        case QMetaType::Bool:
            return value.toBool() ? u"True"_s : u"False"_s;
        case QMetaType::Int:
        case QMetaType::LongLong:
            return QString::number(value.toLongLong());
        case QMetaType::Double:
            return Sql::Value(value.toDouble()).literal();
        case QMetaType::QString:
            return quoted(value.toString());
        case QMetaType::QDate:
            return Sql::Value(value.toDate()).literal();
        case QMetaType::QTime:
            return Sql::Value(value.toTime()).literal();
        case QMetaType::QDateTime:
            return Sql::Value(value.toDateTime()).literal();
        default:
            throw Error(ErrorCategory::Type, u"Μια τιμή αυτού του είδους δεν γράφεται μέσα σε εντολή (%1)."_s.arg(
                                                 QString::fromUtf8(value.typeName())));
    }
}

// Where a quoted text, a date or a bracketed name that starts at `at` ends; `at` itself when none does.
qsizetype endOfQuoted(QStringView text, qsizetype at) {
    constexpr QStringView opening = u"'\"#[`", closing = u"'\"#]`";
    const qsizetype kind = opening.indexOf(text[at]);
    if (kind < 0) return at;
    const qsizetype end = text.indexOf(closing[kind], at + 1);
    return end < 0 ? text.size() : end + 1;
}

class Filling {
public:
    Filling(const QString& text, const QVector<Sql::Value>& values) : text_(text), values_(values) {}

    QString run() {
        for (qsizetype at = 0; at < text_.size();) {
            const qsizetype end = std::max(endOfQuoted(text_, at), at + 1);
            const QStringView piece = QStringView(text_).mid(at, end - at);
            at = end;
            if (piece == u"?")
                put();
            else if (piece == u"{")
                open();
            else if (piece == u"}")
                close();
            else
                out_ += piece;
        }
        if (used_ != values_.size()) fail(u"θέλει %1 τιμές και πήρε %2"_s.arg(used_).arg(values_.size()));
        if (section_) fail(u"έχει ένα άγκιστρο { που δεν κλείνει"_s);
        return std::move(out_);
    }

private:
    struct Section {
        qsizetype start;
        bool takesValues = false, kept = true;
    };

    void put() {
        if (used_ == values_.size()) fail(u"έχει θέση για περισσότερες από %1 τιμές"_s.arg(values_.size()));
        const Sql::Value& value = values_[used_++];
        if (section_) {
            section_->takesValues = true;
            section_->kept = section_->kept && value.isGiven();
        } else if (!value.isGiven()) {
            fail(u"δεν μπορεί να γίνει χωρίς την τιμή %1"_s.arg(used_));
        }
        out_ += value.literal();
    }

    void open() {
        if (section_) fail(u"έχει άγκιστρα { } το ένα μέσα στο άλλο"_s);
        section_ = Section{out_.size()};
    }

    void close() {
        if (!section_ || !section_->takesValues) fail(u"έχει άγκιστρα { } χωρίς καμία τιμή μέσα τους"_s);
        if (!section_->kept) out_.truncate(section_->start);
        section_.reset();
    }

    [[noreturn]] void fail(const QString& what) const {
        throw Error(ErrorCategory::Syntax, u"Η εντολή %1."_s.arg(what), text_);
    }

    const QString& text_;
    const QVector<Sql::Value>& values_;
    QString out_;
    qsizetype used_ = 0;
    std::optional<Section> section_;
};

}  // namespace

Sql::Value::Value(const QString& text) : literal_(quoted(text)) {}

Sql::Value::Value(double number) : literal_(QString::number(number, 'g', QLocale::FloatingPointShortest)) {
    if (!std::isfinite(number)) throw Error(ErrorCategory::Type, u"Μια τιμή χωρίς όριο δεν γράφεται μέσα σε εντολή."_s);
}

Sql::Value::Value(QDate day) : literal_(dateOrNull(day.isValid(), day.toString(u"yyyy/MM/dd"))) {}

Sql::Value::Value(QTime time) : literal_(dateOrNull(time.isValid(), time.toString(u"HH:mm:ss"))) {}

Sql::Value::Value(const QDateTime& moment)
    : literal_(dateOrNull(moment.isValid(), moment.toString(u"yyyy/MM/dd HH:mm:ss"))) {}

Sql::Value::Value(const QVariant& value) : literal_(literalOf(value)) {}

Sql::Sql(const QString& text, const QVector<Value>& values) : text_(Filling(text, values).run()) {}

Sql::Value Sql::inside(const QString& text) {
    return Value(u'%' + text + u'%');
}

Sql::Value Sql::starting(const QString& text) {
    return Value(text + u'%');
}

Sql::Value Sql::name(const QString& name) {
    const bool plain = !name.isEmpty() && !name[0].isDigit() &&
                       std::all_of(name.begin(), name.end(), [](QChar c) { return c.isLetterOrNumber() || c == u'_'; });
    if (!plain) throw Error(ErrorCategory::Syntax, u"Το «%1» δεν είναι όνομα πίνακα ή στήλης."_s.arg(name));
    Value value(name);
    value.literal_ = u'[' + name + u']';
    return value;
}

Sql::Value Sql::list(const QVector<Value>& values) {
    Value list(std::nullopt);
    list.given_ = !values.isEmpty();
    for (const Value& value : values) {
        if (!list.literal_.isEmpty()) list.literal_ += u',';
        list.literal_ += value.literal_;
        list.given_ = list.given_ && value.given_;
    }
    return list;
}

}  // namespace data
