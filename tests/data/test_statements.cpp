// Statements as people type them and as windows compose them, right and wrong, on both engines over the same rows:
// equal names, types, values and order, or the same refusal.
#include "statementfile.h"
#include "statementrows.h"
#include "support/cases.h"
#include "support/failure.h"
#include "support/officefolder.h"

using namespace Qt::Literals::StringLiterals;

using namespace data;

namespace {

const char* const categoryNames[] = {"Connection", "Password", "Corrupt",  "Busy",  "Syntax", "Parameter", "Type",
                                     "Constraint", "Conflict", "ReadOnly", "State", "Full",   "Other"};

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
    for (const QString& part : wanted.says)
        if (!got.error.contains(part)) return u"the text: "_s + got.error;
    const qint64 count = got.affected >= 0 ? got.affected : got.rows.size();
    if (wanted.count >= 0 && wanted.count != count) return u"wanted %1 rows, got %2"_s.arg(wanted.count).arg(count);
    return wanted.hasRows ? difference(wanted.rows, got.rows) : QString();
}

}  // namespace

class TestStatements : public QObject {
    Q_OBJECT

    static QString fault(const TypedStatement& statement, support::ScratchOffice& inFiles,
                         support::ScratchOffice& onServer) {
        const auto on = [&](support::ScratchOffice& office) {
            return run(statement.usersDatabase ? office.users : office.main, statement);
        };
        const Outcome file = on(inFiles), server = on(onServer);
        if (const QString differs = difference(file, server); !differs.isEmpty()) return differs;
        // The engines' own words are for statements that we wrote wrongly.
        if (file.error.contains(u"Η εντολή δεν είναι σωστή")) return file.error;
        return contradiction(statement, file);
    }

private slots:
    void typed() {
        support::ScratchOffice file({}, false), server({}, true);
        for (support::ScratchOffice* office : {&file, &server}) fillStatementRows(office->main, office->users);
        const QDir folder(QString::fromUtf8(DORV_STATEMENTS));
        QVector<TypedStatement> all;
        for (const QString& name : folder.entryList({u"*.txt"_s})) all += readStatements(folder.filePath(name));
        QVERIFY(all.size() > 600);
        const int wrong = support::countFaults(all, [&](const TypedStatement& statement) {
            const QString found = fault(statement, file, server);
            return found.isEmpty() ? found : statement.sql + u'\n' + found;
        });
        QCOMPARE(wrong, 0);
    }
};

QTEST_GUILESS_MAIN(TestStatements)
#include "test_statements.moc"
