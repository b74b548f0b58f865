#include "cards/cardbinding.h"
#include "cards/cardfields.h"
#include "schema/tables.h"
#include "support/office.h"

class TestCardFields : public QObject {
    Q_OBJECT
private slots:
    // Every column that a save writes exists, once, and so do the captions and switches behind the parametric ones.
    void theMapFitsTheTables() {
        QHash<QString, QSet<QString>> columns;
        for (const schema::Table& table : schema::tables(schema::Database::Main))
            for (const schema::Column& column : table.columns) columns[table.name].insert(column.name);
        QSet<QString> controls, written;
        for (const cards::CardField& field : cards::cardFields()) {
            QVERIFY2(columns["Cards"].contains(field.column), qPrintable(field.column));
            for (const QString& custom : {field.captionColumn, field.visibleColumn})
                QVERIFY2(custom.isEmpty() || columns["CustomFields"].contains(custom), qPrintable(custom));
            controls.insert(field.controlName());
            written.insert(field.column);
        }
        QCOMPARE(controls.size(), cards::cardFields().size());
        const QSet<QString> untouched = {"code",  "codefull",       "ΗΜ_ΕΟΡΤΗΣ", "Photo",
                                         "total", "OutlookEntryID", "afm",       "doy"};
        QCOMPARE(columns["Cards"] - written, untouched);
    }

    void nameDays() {
        QCOMPARE(cards::nameDayLine("Μαρία", data::wallClock({1999, 8, 15})), "Μαρία   15/08");
        QCOMPARE(cards::nameDayDate("Μαρία   15/08", 2026), "15/08/2026");
        QVERIFY(!data::isDate(cards::nameDayDate("κάτι άλλο", 2026)));
    }
};

QTEST_MAIN(TestCardFields)
#include "test_cardfields.moc"
