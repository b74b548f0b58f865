// Statements as people type them and as windows compose them, right and wrong, on both engines over the same rows:
// equal names, types, values and order, or the same refusal.
#include <QTemporaryDir>
#include <QtTest/QtTest>

#include "copies/upgradecopy.h"
#include "data/error.h"
#include "data/recordset.h"
#include "schema/creation.h"
#include "schema/office.h"
#include "statementfile.h"
#include "statementrows.h"
#include "support/testengine.h"

using namespace Qt::Literals::StringLiterals;

using namespace data;

namespace {

const char* const categoryNames[] = {"Connection", "Password", "Corrupt",  "Busy",  "Syntax", "Parameter", "Type",
                                     "Constraint", "Conflict", "ReadOnly", "State", "Full",   "Other"};

// An office on one engine.
class Seat {
public:
    explicit Seat(bool server) : server_(server) {
        schema::NewOffice office{u"secret"_s, {}};
        if (server) office.server = testengine::server(testengine::Schema::newName());
        schema::createOffice(folder_.path(), office);
        copies::openUpgraded(main, schema::connectionString(schema::Database::Main, mainFile()));
        copies::openUpgraded(users, schema::connectionString(schema::Database::Users, usersFile()));
    }
    ~Seat() {
        main.close();
        users.close();
        if (!server_) return;
        for (const QString& file : {mainFile(), usersFile()}) dropPgDatabase(readServerDescription(file));
    }
    Seat(const Seat&) = delete;
    Seat& operator=(const Seat&) = delete;

    Connection main, users;

private:
    QString mainFile() const { return schema::mainDatabasePath(folder_.path()); }
    QString usersFile() const { return schema::usersDatabasePath(folder_.path()); }

    QTemporaryDir folder_;
    bool server_;
};

// What came of a statement.
struct Outcome {
    QString columns;    // name:type:size of each
    QStringList rows;   // as a user reads them, "-" for Null
    QStringList exact;  // with the type and the digits that a sum is good for in any order
    qint64 affected = -1;
    QString category;
    QString error;
};

QString exactCell(const Field& field) {
    const QVariant value = field.value();
    if (!value.isValid()) return u"Null"_s;
    const QString digits = value.typeId() == QMetaType::Double       ? QString::number(value.toDouble(), 'g', 14)
                           : value.typeId() == QMetaType::QByteArray ? QString::fromLatin1(value.toByteArray().toHex())
                                                                     : value.toString();
    return QString::fromLatin1(value.typeName()) + u' ' + digits;
}

void readRows(Recordset& rows, Outcome& outcome) {
    for (int i = 0; i < rows.fieldCount(); ++i)
        outcome.columns += u"%1:%2:%3 "_s.arg(rows.field(i).name())
                               .arg(int(rows.field(i).columnType()))
                               .arg(rows.field(i).definedSize());
    for (; !rows.eof(); rows.moveNext()) {
        QStringList cells, exact;
        for (int i = 0; i < rows.fieldCount(); ++i) {
            const Field field = rows.field(i);
            cells << (field.isNull() ? u"-"_s : field.text());
            exact << exactCell(field);
        }
        outcome.rows << cells.join(u'|');
        outcome.exact << exact.join(u'|');
    }
}

bool changes(const TypedStatement& statement) {
    static const QRegularExpression word(u"^\\s*(insert|update|delete)\\b"_s,
                                         QRegularExpression::CaseInsensitiveOption);
    return !statement.user && statement.sql.contains(word);
}

Outcome run(Connection& connection, const TypedStatement& statement) {
    Outcome outcome;
    try {
        if (!changes(statement)) {
            Recordset rows(connection, statement.sql, {statement.parameters, statement.user});
            readRows(rows, outcome);
            return outcome;
        }
        const Transaction undone(connection);
        outcome.affected = connection.execute(statement.sql, statement.parameters);
        if (statement.look.isEmpty()) return outcome;
        Recordset rows(connection, statement.look);
        readRows(rows, outcome);
    } catch (const Error& error) {
        outcome.category = QString::fromLatin1(categoryNames[int(error.category())]);
        outcome.error = error.text();
    }
    return outcome;
}

// The first line in which two lists differ.
QString difference(const QStringList& a, const QStringList& b) {
    for (qsizetype i = 0; i < qMax(a.size(), b.size()); ++i)
        if (a.value(i) != b.value(i)) return u"row %1:\n  %2\n  %3"_s.arg(i + 1).arg(a.value(i), b.value(i));
    return {};
}

// An engine that can't compute what another computes and can't store says so in general words.
bool bothTooLarge(const Outcome& a, const Outcome& b) {
    const QString limits = u"έξω από τα όρια"_s;
    return a.category == b.category && a.error.contains(limits) && b.error.contains(limits);
}

QString difference(const Outcome& a, const Outcome& b) {
    if (bothTooLarge(a, b)) return {};
    if (a.error != b.error || a.category != b.category)
        return u"error:\n  %1 %2\n  %3 %4"_s.arg(a.category, a.error, b.category, b.error);
    if (a.columns != b.columns) return u"columns:\n  %1\n  %2"_s.arg(a.columns, b.columns);
    if (a.affected != b.affected) return u"affected: %1 and %2"_s.arg(a.affected).arg(b.affected);
    return difference(a.exact, b.exact);
}

// What the file says of the statement and the answer doesn't show.
QString contradiction(const TypedStatement& wanted, const Outcome& got) {
    if (wanted.category != got.category)
        return u"wanted «%1», got «%2» %3"_s.arg(wanted.category, got.category, got.error);
    const QString place = u"Στη θέση %1: "_s.arg(wanted.position);
    if (wanted.position > 0 && !got.error.startsWith(place)) return u"the place: "_s + got.error;
    if (!got.error.contains(wanted.says)) return u"the text: "_s + got.error;
    const qint64 count = got.affected >= 0 ? got.affected : got.rows.size();
    if (wanted.count >= 0 && wanted.count != count) return u"wanted %1 rows, got %2"_s.arg(wanted.count).arg(count);
    return wanted.hasRows ? difference(wanted.rows, got.rows) : QString();
}

}  // namespace

class TestStatements : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void typed_data();
    void typed();
    void collectionIsLarge();

private:
    std::unique_ptr<Seat> file_, server_;
    QVector<TypedStatement> all_;
};

void TestStatements::initTestCase() {
    try {
        file_ = std::make_unique<Seat>(false);
        server_ = std::make_unique<Seat>(true);
        for (Seat* seat : {file_.get(), server_.get()}) fillStatementRows(seat->main, seat->users);
        const QDir folder(QFileInfo(QFINDTESTDATA("statements/select.txt")).path());
        for (const QString& name : folder.entryList({u"*.txt"_s})) all_ += readStatements(folder.filePath(name));
    } catch (const std::exception& error) {
        QFAIL(error.what());
    }
}

void TestStatements::typed_data() {
    QTest::addColumn<int>("index");
    for (int i = 0; i < all_.size(); ++i) QTest::newRow(qPrintable(all_[i].place)) << i;
}

void TestStatements::typed() {
    QFETCH(int, index);
    const TypedStatement& statement = all_[index];
    const auto on = [&](Seat& seat) { return run(statement.usersDatabase ? seat.users : seat.main, statement); };
    const Outcome file = on(*file_);
    const Outcome server = on(*server_);
    const QString told = u'\n' + statement.sql + u'\n';
    const QString differs = difference(file, server);
    QVERIFY2(differs.isEmpty(), qPrintable(told + differs));
    // The engines' own words are for statements that we wrote wrongly.
    QVERIFY2(!file.error.contains(u"Η εντολή δεν είναι σωστή"_s), qPrintable(told + file.error));
    const QString contradicts = contradiction(statement, file);
    QVERIFY2(contradicts.isEmpty(), qPrintable(told + contradicts));
}

// The collection keeps its size, and a good part of it says more than that the engines agree.
void TestStatements::collectionIsLarge() {
    int right = 0, told = 0, wrong = 0;
    for (const TypedStatement& statement : all_) {
        if (statement.category.isEmpty())
            ++right;
        else
            ++wrong;
        if (statement.category.isEmpty() && (statement.hasRows || statement.count >= 0)) ++told;
    }
    QVERIFY2(right >= 150 && wrong >= 50 && told * 3 >= right,
             qPrintable(u"%1 right, %2 with facts, %3 wrong"_s.arg(right).arg(told).arg(wrong)));
}

QTEST_GUILESS_MAIN(TestStatements)
#include "test_statements.moc"
