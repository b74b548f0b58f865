// Looks for statements of the dialect in source code, and asks the engine about each.
#pragma once

#include <QStringList>

#include "data/connection.h"
#include "support/sourceliterals.h"

// Both databases are those of an office, and outlive the checker.
class StatementChecker {
public:
    StatementChecker(data::Connection& main, data::Connection& users) : main_(main), users_(users) {}

    // What is wrong with the statements of a source file of a room, each with its place.
    QStringList complaints(const QString& room, const QString& file, const QString& source);

    int statements() const { return statements_; }  // found so far

private:
    QString complaintAbout(const support::SourceLiteral& literal, const QString& file);
    QString failureOfStatement(const QString& text, const QString& file);
    void prepare(const QString& text);
    bool hasColumn(const QString& name) const;

    data::Connection& main_;
    data::Connection& users_;
    int statements_ = 0;
};
