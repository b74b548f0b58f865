// Statements of the dialect with their values: the one way to put a value into a statement's text.
#pragma once

#include <QDateTime>
#include <QString>
#include <QVariant>
#include <QVector>
#include <concepts>
#include <optional>

namespace data {

// The text of a statement, or of a criterion of Recordset::find, in which each `?` stands for a value:
//
//     Sql(u"select * from cards where code=?"_s, code)
//
// A `?` between quotes, # or brackets is no place for a value. What stands in braces may be left out: it is, when one
// of its values is std::nullopt. So a statement whose conditions come and go is one text all the same:
//
//     Sql(u"select * from calls where day=? {and line=?}"_s, day, line)
//
// The text is always a literal of the program, whole from its first word to its last, so that a test can find and check
// every one of them. Throws Error(Syntax) when the values aren't as many as the places, Error(Type) for a value that
// the dialect has no literal for.
class Sql {
public:
    // What takes the place of a `?`, written as the dialect reads it: texts in quotes, dates and times between #,
    // numbers exactly, True, False, Null.
    class Value {
    public:
        Value(const QString& text);
        Value(QStringView text) : Value(text.toString()) {}
        Value(double number);
        template <std::integral Whole>
        requires(!std::same_as<Whole, bool>) Value(Whole number) : literal_(QString::number(number)) {}
        template <std::same_as<bool> Flag>
        Value(Flag flag) : Value(QVariant(flag)) {}
        Value(QDate day);  // Null when not valid, as are the next two
        Value(QTime time);
        Value(const QDateTime& moment);  // to the second, as its own clock shows it
        Value(std::nullptr_t) : Value(QVariant()) {}
        Value(const QVariant& value);  // forms of types.h; the dialect has none for bytes

        // Leaves out what stands in braces around its place.
        Value(std::nullopt_t) : given_(false) {}
        template <class Any>
        Value(const std::optional<Any>& value) : Value(value ? Value(*value) : Value(std::nullopt)) {}

        bool isGiven() const { return given_; }
        const QString& literal() const { return literal_; }

    private:
        friend class Sql;
        QString literal_;
        bool given_ = true;
    };

    template <class... Values>
    explicit Sql(const QString& text, const Values&... values) : Sql(text, QVector<Value>{Value(values)...}) {}
    Sql(const QString& text, const QVector<Value>& values);

    // Patterns for LIKE: texts that hold this one, and texts that start with it. A % or _ in it stands for any
    // characters or any one, as users of the search boxes expect; the dialect has no way to ask for these two
    // themselves.
    static Value inside(const QString& text);
    static Value starting(const QString& text);
    // The name of a table or column out of a table of the program, never out of what somebody typed. Throws
    // Error(Syntax) for anything but letters, digits and _.
    static Value name(const QString& name);
    // Several values for one place, with commas between: "in (?)", "values (?)".
    static Value list(const QVector<Value>& values);

    const QString& text() const { return text_; }
    operator const QString&() const { return text_; }

private:
    QString text_;
};

}  // namespace data
