// The one failure type of the data road.
#pragma once

#include <QString>
#include <exception>

class QFileDevice;

namespace data {

enum class ErrorCategory {
    Connection,  // the database can't be reached or opened, or the connection is closed
    Password,    // the database password is wrong
    Corrupt,     // not a database, or a damaged one
    Busy,        // somebody else holds the lock longer than the busy time-out
    Syntax,      // the statement doesn't parse or names what isn't there
    Parameter,   // a name is neither a column nor a given parameter
    Type,        // a value doesn't fit its column or its comparison
    Constraint,  // too long, duplicate, mandatory
    Conflict,    // the row was changed or deleted by somebody else since it was read
    ReadOnly,    // a write where only reading is allowed
    State,       // the operation isn't possible now: no current row, a closed recordset
    Full,        // the disk is full or can't be written
    Stopped,     // whoever waited for it broke it off
    Other,
};

// ADO error number that goes with a category; users and their supporters look these numbers up.
qint32 adoErrorNumber(ErrorCategory category);

// Thrown by everything in data/. The text is a Greek sentence for a message box, without the
// statement and without anybody else's words; those are for logs and the command line.
class Error : public std::exception {
public:
    Error(ErrorCategory category, QString text, QString statement = {}, int engineCode = 0);

    ErrorCategory category() const { return category_; }
    qint32 number() const { return adoErrorNumber(category_); }
    const QString& text() const { return text_; }
    const QString& statement() const { return statement_; }
    int engineCode() const { return engineCode_; }
    // The engine's, the library's or the system's own words, in whatever language; for logs and the command line.
    const QString& details() const { return details_; }
    Error withDetails(const QString& words) const;
    Error withStatement(const QString& sql) const;
    const char* what() const noexcept override { return utf8_.constData(); }

private:
    ErrorCategory category_;
    QString text_;
    QString statement_, details_;
    int engineCode_;
    QByteArray utf8_;
};

// Of a statement that was broken off. Without the server's answer nobody knows whether a change was carried out.
Error stoppedError(const QByteArray& sql, bool answered = true);

// What to tell of any failure: its Greek sentence, or a general one when its words are for developers.
QString sentenceOf(const std::exception& failure);

// Why a file can't be used, as a Greek sentence.
QString reasonOf(const QFileDevice& file);

// Throw Error(Full), which tells of a file that can't be written. A device tells the reason itself.
[[noreturn]] void failWriting(const QString& file, const QString& why);
[[noreturn]] void failWriting(const QFileDevice& file);

}  // namespace data
