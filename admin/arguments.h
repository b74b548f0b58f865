#pragma once

#include <QDate>
#include <QHash>
#include <QString>
#include <QStringList>
#include <QVector>

namespace admin {

struct Option {
    QString name;       // with its dashes
    QString valueName;  // as help shows it; empty for a switch
    QString help;
};

struct UsageError {
    QString text;
};

// What followed the command's name.
class Arguments {
public:
    // Throws UsageError for an unknown or repeated option, a missing value and a wrong number of positional
    // arguments. A value may also stand behind "=". Behind "--" everything is positional.
    Arguments(const QStringList& words, const QVector<Option>& options, int leastPositional, int mostPositional);

    bool has(const QString& option) const { return values_.contains(option); }
    QString value(const QString& option) const { return values_.value(option); }
    // The value as a whole number within bounds, `fallback` when not given; throws UsageError otherwise.
    qint64 number(const QString& option, qint64 fallback, qint64 least, qint64 most) const;
    // The value as a day, "yyyy-mm-dd" and not before 1950; likewise.
    QDate day(const QString& option, QDate fallback) const;
    const QStringList& positional() const { return positional_; }

private:
    void take(const QVector<Option>& options, const QStringList& words, qsizetype& at);

    QHash<QString, QString> values_;
    QStringList positional_;
};

}  // namespace admin
