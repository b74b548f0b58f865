// Where in a statement something stands, for error texts.
#pragma once

#include <QString>
#include <QStringList>

#include "data/error.h"

namespace data::dialect {

class Places {
public:
    explicit Places(const QString& statement) : statement_(statement) {}

    // "Στη θέση 15", or "Στη γραμμή 2, στήλη 5" when the statement has several lines.
    QString place(qsizetype position) const;
    // Throws Error with "PLACE: what".
    [[noreturn]] void fail(qsizetype position, const QString& what,
                           ErrorCategory category = ErrorCategory::Syntax) const;

    const QString& statement() const { return statement_; }

private:
    const QString& statement_;
};

// In Greek quotation marks, shortened when long.
QString shown(QStringView text);

// "; μήπως εννοείτε «x»;" for the candidate that `name` is likely a slip of, or nothing.
QString suggestion(QStringView name, const QStringList& candidates);

}  // namespace data::dialect
