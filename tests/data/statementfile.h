// The statements typed by hand: tests/data/statements/*.txt.
#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

// One statement a line ("\n" and "\r\n" in it are line ends), and around it lines that begin with a sign:
//   @ user              as typed by a user: day first, decimal commas, nothing but SELECT
//   @ name = value      a named parameter; without a value it is Null
//   @ users             on the database of users
//   = 17                the number of rows that come, or that a change touches
//   > a|b               a row that comes; all of them, in order. Null is "-"
//   ! Type 15 a | b     refused: the category, the place ("0" for none) and what the text says, among other things
//   ? select ...        behind a change: looks at what it did; its rows follow with ">"
struct TypedStatement {
    QString name;  // file and line
    QString sql;
    bool user = false;
    bool usersDatabase = false;
    QMap<QString, QVariant> parameters;
    int count = -1;
    QStringList rows;
    bool hasRows = false;
    QString category;  // of the refusal; empty when it is right
    int position = 0;
    QStringList says;
    QString look;
};

// All statements of a file; throws std::runtime_error for a line that can't be understood.
QVector<TypedStatement> readStatements(const QString& file);
