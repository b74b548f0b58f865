// A scratch folder with a small database of this program, and what tests of the road ask about errors.
#pragma once

#include <QTemporaryDir>
#include <QtTest>

#include "data/connection.h"
#include "data/fileidentity.h"
#include "data/recordset.h"
#include "data/sqlite/sqliteengine.h"

namespace road {

inline constexpr char cardsTable[] =
    "CREATE TABLE Cards (code INTEGER PRIMARY KEY AUTOINCREMENT, \"επωνυμο\" TEXT(30), \"ονομα\" TEXT(30), category "
    "SMALLINT,"
    "\"ΗΜ_ΓΕΝΗΣΗΣ\" DATETIME, \"ΑΝΔΡΑΣ\" YESNO NOT NULL DEFAULT 0, \"σχολια\" LONGTEXT, FIELdnum1 DOUBLE, Photo "
    "LONGBLOB,"
    "total DOUBLE DEFAULT 12.5);"
    "CREATE TABLE Saves (code INTEGER PRIMARY KEY AUTOINCREMENT, a INTEGER, b INTEGER, notes LONGTEXT);";

class Office {
public:
    Office() {
        data::createSqliteFile(file(), data::mainApplicationId);
        data::SqliteEngine({file(), {}, false, 5000}).script(cardsTable);
    }

    QString folder() const { return folder_.path(); }
    QString file() const { return folder_.filePath(QStringLiteral("dorvalist.mdb")); }
    QString connectionString(int timeout = 5000) const {
        return QStringLiteral("Provider=microsoft.jet.oledb.4.0;data source=%1;Busy Timeout=%2")
            .arg(file())
            .arg(timeout);
    }

private:
    QTemporaryDir folder_;
};

// The category of the error that `action` throws, and its text; nothing thrown is a failure of the test.
template <typename Action>
std::optional<data::Error> errorOf(Action action) {
    try {
        action();
    } catch (const data::Error& error) {
        return error;
    }
    return {};
}

#define VERIFY_ERROR(wanted, ...)                                                      \
    do {                                                                               \
        const auto thrown_ = road::errorOf([&] { __VA_ARGS__; });                      \
        QVERIFY2(thrown_.has_value(), "nothing was thrown");                           \
        QVERIFY2(thrown_->category() == data::ErrorCategory::wanted, thrown_->what()); \
    } while (false)

}  // namespace road
