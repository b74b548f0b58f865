#include "copies/move.h"

#include <QFileInfo>
#include <array>

#include "copies/manifest.h"
#include "copies/rowcheck.h"
#include "copies/tablereader.h"
#include "data/dialect/enginedialect.h"
#include "schema/check.h"
#include "schema/office.h"
#include "schema/officebuilder.h"
#include "schema/upgrade.h"

namespace copies {
namespace {

using namespace Qt::Literals::StringLiterals;
using data::Cell;
using data::Connection;
using data::Error;
using data::ErrorCategory;
using data::TableInfo;
using schema::allDatabases;
using schema::connectionString;
using schema::currentVersion;
using schema::Database;
using schema::databaseFileName;
using schema::databasePath;
using schema::findings;
using schema::Progress;
using schema::storedVersion;

constexpr qsizetype mostFaultsTold = 20;

[[noreturn]] void refuse(const QString& text) {
    throw Error(ErrorCategory::Constraint, text);
}

// Reports how far one pass over all rows of a database is.
class Pass {
public:
    Pass(const Progress& progress, const QString& what, qint64 all)
        : progress_(progress), what_(what), all_(qMax(qint64(1), all)) {
        tell();
    }
    void add(qint64 rows) {
        done_ += rows;
        tell();
    }

private:
    void tell() const {
        if (progress_ && !progress_(what_, int(qMin(qint64(100), done_ * 100 / all_))))
            throw Error(ErrorCategory::Other, u"Η μεταφορά διακόπηκε. Το γραφείο είναι όπως ήταν."_s);
    }

    const Progress& progress_;
    QString what_;
    qint64 all_, done_ = 0;
};

// How a person finds a row: by its number, or by its place in a table that has none.
QString rowName(const TableInfo& table, qint64 identity, qint64 place) {
    const QString row = table.autonumber < 0
                            ? u"%1η εγγραφή"_s.arg(place)
                            : u"εγγραφή με %1 = %2"_s.arg(table.columns[table.autonumber].name).arg(identity);
    return u"Πίνακας %1, %2"_s.arg(table.name, row);
}

// One database of the office that is carried, held still as long as this lives.
class SourceDatabase {
public:
    SourceDatabase(const QString& folder, Database database) : database_(database) {
        schema::openAsItIs(connection_, connectionString(database, databasePath(folder, database)));
        try {
            connection_.engine().holdStill();
        } catch (const Error& error) {
            if (error.category() != ErrorCategory::Busy) throw;
            throw Error(ErrorCategory::Busy,
                        u"Το «%1» είναι ανοιχτό. Κλείστε το πρόγραμμα σε όλες τις θέσεις και "
                        u"δοκιμάστε ξανά. (%2)"_s.arg(databaseFileName(database), error.text()));
        }
        requireSound();
        for (const qint64 rows : rowCounts(connection_)) rows_ += rows;
    }
    ~SourceDatabase() { connection_.engine().rollback(); }

    Connection& connection() { return connection_; }
    Database database() const { return database_; }
    qint64 rows() const { return rows_; }
    const QVector<TableInfo>& tables() const { return connection_.catalog().tables(); }

private:
    // Only what is as this program makes it can be made once more.
    void requireSound() {
        const int version = storedVersion(connection_);
        if (version < currentVersion)
            refuse(
                u"Η βάση «%1» είναι παλιότερης έκδοσης (%2 αντί για %3). Ανοίξτε την πρώτα μία φορά με το "
                u"πρόγραμμα."_s.arg(databaseFileName(database_))
                    .arg(version)
                    .arg(currentVersion));
        const QStringList found = findings(connection_, database_);
        if (!found.isEmpty())
            throw Error(ErrorCategory::Corrupt,
                        u"Η βάση «%1» δεν είναι όπως πρέπει και δεν μεταφέρθηκε τίποτα:\n%2"_s.arg(
                            databaseFileName(database_), found.mid(0, mostFaultsTold).join(u'\n')));
    }

    Connection connection_;
    Database database_;
    qint64 rows_ = 0;
};

// Before anything is made: what the new engine would refuse half way.
void requireStorable(SourceDatabase& source, bool nulAllowed, const Progress& progress) {
    Pass pass(progress, u"Έλεγχος του "_s + databaseFileName(source.database()), source.rows());
    QStringList faults;
    for (const TableInfo& table : source.tables()) {
        TableReader reader(source.connection(), table);
        qint64 place = 0;
        while (reader.nextPiece() && faults.size() < mostFaultsTold) {
            for (qint64 row = 0; row < reader.piece().count(); ++row) {
                ++place;
                const auto fault = unfitCell(table, reader.piece().row(row), nulAllowed);
                if (fault)
                    faults += u"%1: το πεδίο «%2» %3."_s.arg(rowName(table, reader.identity(row), place),
                                                             table.columns[fault->column].name, fault->text);
            }
            pass.add(reader.piece().count());
        }
    }
    if (!faults.isEmpty())
        refuse(u"Δεν μεταφέρθηκε τίποτα. Διορθώστε πρώτα:\n"_s + faults.mid(0, mostFaultsTold).join(u'\n'));
}

QVector<QVector<QVariant>> valuesOf(const data::RowStore& rows, qsizetype columns) {
    QVector<QVector<QVariant>> all(rows.count());
    for (qint64 row = 0; row < rows.count(); ++row) {
        all[row].reserve(columns);
        for (qsizetype column = 0; column < columns; ++column) all[row] += data::cellParameter(rows.row(row)[column]);
    }
    return all;
}

void copyTable(SourceDatabase& source, Connection& target, const TableInfo& table, Pass& pass) {
    TableReader reader(source.connection(), table);
    qint64 place = 0;
    while (reader.nextPiece()) {
        const data::RowStore& piece = reader.piece();
        qsizetype refused = -1;
        try {
            target.engine().insertRows(table, valuesOf(piece, table.columns.size()), refused);
        } catch (const Error& error) {
            const QString where = refused >= 0 && refused < piece.count()
                                      ? rowName(table, reader.identity(refused), place + refused + 1)
                                      : u"Πίνακας %1"_s.arg(table.name);
            throw Error(error.category(), u"%1: %2 Η μεταφορά ακυρώθηκε."_s.arg(where, error.text()), {},
                        error.engineCode())
                .withDetails(error.details());
        }
        place += piece.count();
        pass.add(piece.count());
    }
    data::Engine& from = source.connection().engine();
    if (table.autonumber >= 0) target.engine().setLastNumber(table, from.lastNumber(table));
}

// Everything in one transaction; the indexes last, since sorting once is quicker than keeping them.
void copyDatabase(SourceDatabase& source, const QString& file, const Progress& progress) {
    Connection target;
    target.open(connectionString(source.database(), file));
    data::Transaction transaction(target);
    schema::makeTables(target, source.database());
    Pass pass(progress, u"Μεταφορά του "_s + databaseFileName(source.database()), source.rows());
    for (const TableInfo& table : source.tables()) copyTable(source, target, table, pass);
    schema::makeIndexes(target, source.database());
    const auto properties = source.connection().engine().properties();
    for (auto property = properties.cbegin(); property != properties.cend(); ++property)
        target.engine().setProperty(property.key(), property.value());
    schema::storeVersion(target, storedVersion(source.connection()));
    transaction.commit();
    target.engine().afterLoading(target.catalog());
}

void countPictures(const TableInfo& table, const Cell* row, MoveInfo& info) {
    for (qsizetype i = 0; i < table.columns.size(); ++i) {
        if (table.columns[i].type != data::ColumnType::LongBinary || row[i].kind != data::CellKind::Blob) continue;
        ++info.pictures;
        info.pictureBytes += row[i].size;
    }
}

void compareTable(SourceDatabase& source, Connection& target, const TableInfo& table, Pass& pass, MoveInfo& info) {
    const TableInfo* there = target.catalog().find(table.name);
    if (!there) throw Error(ErrorCategory::Corrupt, u"Στον προορισμό λείπει ο πίνακας %1."_s.arg(table.name));
    TableReader old(source.connection(), table), fresh(target, *there);
    constexpr int often = 1000;
    qint64 rows = 0;
    const auto differs = [&](const QString& how) {
        throw Error(ErrorCategory::Corrupt,
                    u"%1: %2 Η μεταφορά ακυρώθηκε."_s.arg(rowName(table, old.identity(), rows), how));
    };
    while (const Cell* row = old.nextRow()) {
        ++rows;
        const Cell* copy = fresh.nextRow();
        if (!copy) differs(u"λείπει από τον προορισμό."_s);
        const int column = differingColumn(table, row, copy);
        if (column >= 0) differs(u"το πεδίο «%1» είναι αλλιώτικο στον προορισμό."_s.arg(table.columns[column].name));
        countPictures(table, row, info);
        if (rows % often == 0) pass.add(often);
    }
    if (fresh.nextRow())
        throw Error(ErrorCategory::Corrupt,
                    u"Ο πίνακας %1 έχει στον προορισμό περισσότερες εγγραφές. Η μεταφορά ακυρώθηκε."_s.arg(table.name));
    pass.add(rows % often);
    info.tables += {table.name, rows};
    info.rows += rows;
}

void compareRest(SourceDatabase& source, Connection& target) {
    data::Engine &from = source.connection().engine(), &to = target.engine();
    for (const TableInfo& table : source.tables())
        if (table.autonumber >= 0 && from.lastNumber(table) != to.lastNumber(table))
            refuse(u"Ο επόμενος αριθμός του πίνακα %1 δεν είναι ο ίδιος στον προορισμό."_s.arg(table.name));
    if (from.properties() != to.properties())
        refuse(u"Ο κωδικός ή άλλη ιδιότητα του «%1» δεν είναι ίδια στον προορισμό."_s.arg(
            databaseFileName(source.database())));
    const QStringList found = findings(target, source.database());
    if (!found.isEmpty()) throw Error(ErrorCategory::Corrupt, found.mid(0, mostFaultsTold).join(u'\n'));
}

// Read anew, through a connection that hasn't written any of it.
void compareDatabase(SourceDatabase& source, const QString& file, const Progress& progress, MoveInfo& info) {
    Connection target;
    Pass pass(progress, u"Σύγκριση του "_s + databaseFileName(source.database()), source.rows());
    schema::openToRead(target, connectionString(source.database(), file));
    target.engine().beginSnapshot();
    for (const TableInfo& table : source.tables()) compareTable(source, target, table, pass, info);
    compareRest(source, target);
    target.engine().rollback();
}

}  // namespace

MoveInfo moveOffice(const QString& from, const QString& to, const MoveOptions& options) {
    std::array<std::unique_ptr<SourceDatabase>, std::size(allDatabases)> sources;
    schema::OfficeBuilder builder(to, options.server);
    for (size_t i = 0; i < sources.size(); ++i) sources[i] = std::make_unique<SourceDatabase>(from, allDatabases[i]);
    for (const auto& source : sources) requireStorable(*source, !options.server, options.progress);
    for (const Database database : allDatabases) builder.make(database);
    for (const auto& source : sources) copyDatabase(*source, builder.file(source->database()), options.progress);
    MoveInfo info;
    for (const auto& source : sources)
        compareDatabase(*source, builder.file(source->database()), options.progress, info);
    builder.finish();
    return info;
}

}  // namespace copies
