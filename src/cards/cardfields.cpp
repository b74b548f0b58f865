#include "cards/cardfields.h"

#include "controls/names.h"

namespace cards {

namespace {

struct Row {
    const char16_t* array;
    int index;
    const char16_t* column;
    const char16_t* caption;
};

CardField plain(CardKind kind, CardTab tab, const Row& row) {
    return {kind, QString::fromUtf16(row.array),   row.index, QString::fromUtf16(row.column),
            tab,  QString::fromUtf16(row.caption), {},        {}};
}

struct Family {
    CardKind kind;
    CardTab tab;
    const char16_t* array;
    int firstIndex;
    int count;
    const char16_t* column;         // followed by 1, 2 ...
    const char16_t* captionColumn;  // likewise
    const char16_t* visibleColumn;  // likewise; null when always shown
};

void append(QVector<CardField>& fields, const Family& family) {
    for (int i = 0; i < family.count; ++i) {
        const QString number = QString::number(i + 1);
        CardField field{family.kind,
                        QString::fromUtf16(family.array),
                        family.firstIndex + i,
                        QString::fromUtf16(family.column) + number,
                        family.tab,
                        {},
                        QString::fromUtf16(family.captionColumn) + number,
                        {}};
        if (family.visibleColumn) field.visibleColumn = QString::fromUtf16(family.visibleColumn) + number;
        fields.append(field);
    }
}

QVector<CardField> build() {
    using enum CardKind;
    constexpr CardTab Basic = CardTab::Basic, Special = CardTab::Special, History = CardTab::History,
                      Texts = CardTab::Texts;
    QVector<CardField> fields;
    for (const Row& row : {Row{u"Text7", 0, u"επωνυμο", u"Επώνυμο:"}, Row{u"Text7", 1, u"ονομα", u"Όνομα:"},
                           Row{u"Text7", 2, u"πατρονυμο", u"Πατρώνυμο:"}})
        fields.append(plain(Text, Basic, row));
    fields.append(plain(Category, Basic, {u"Combo1", -1, u"category", u"Κατηγορία:"}));
    fields.append(plain(BirthDate, Basic, {u"txtDate", -1, u"ΗΜ_ΓΕΝΗΣΗΣ", u"Ημ.Γέννησης:"}));
    fields.append(plain(Text, Basic, {u"Text7", 3, u"ΤΟΠΟΣ_ΓΕΝΗΣΗΣ", u"Τόπος Γέννησης:"}));
    fields.append(plain(NameDay, Basic, {u"Combo3", -1, u"KEIM_ΕΟΡΤΗΣ", u"Εορτή:"}));
    for (const Row& row : {
             Row{u"Text7", 4, u"επαγγελμα", u"Επάγγελμα:"},
             Row{u"Text7", 5, u"διευθυνση", u"Διεύθυνση:"},
             Row{u"Text7", 6, u"περιοχη", u"Περιοχή:"},
             Row{u"Text7", 7, u"ταχ_κωδ", u"Ταχ. Κώδικας:"},
             Row{u"Text7", 8, u"πολη", u"Πόλη:"},
             Row{u"Text7", 9, u"τηλεφωνο1", u"Τηλ. Οικίας 1:"},
             Row{u"Text7", 10, u"τηλεφωνο2", u"Τηλ. Εργασίας 1:"},
             Row{u"Text7", 20, u"τηλεφωνο3", u"Τηλ. Οικίας 2:"},
             Row{u"Text7", 21, u"τηλεφωνο4", u"Τηλ. Εργασίας 2:"},
             Row{u"Text7", 11, u"ΚΙΝΗΤΟ", u"Κινητό:"},
             Row{u"Text7", 12, u"FAX", u"Fax:"},
             Row{u"Text7", 13, u"email", u"e-mail:"},
             Row{u"Text7", 14, u"URL", u"URL:"},
         })
        fields.append(plain(Text, Basic, row));
    fields.append(plain(Sex, Basic, {u"Combo2", -1, u"ΑΝΔΡΑΣ", u"Φύλλο:"}));
    fields.append(plain(Notes, CardTab::Notes, {u"Text7", 17, u"σχολια", u"Σχόλια:"}));
    for (const Row& row :
         {Row{u"Text7", 18, u"εταιρια", u"Εταιρία:"}, Row{u"Text7", 19, u"ΔΙΕΥΘΥΝΣΗ_ΕΡΓΑΣΙΑΣ", u"Διεύθ. Εργασίας:"},
          Row{u"Text7", 15, u"ΣΥΣΤΑΣΗ", u"Σύσταση:"}, Row{u"Text7", 16, u"ΣΧΟΛΙΑ1", u"Σχόλια:"}})
        fields.append(plain(Text, Basic, row));
    append(fields, {ParamText, Special, u"Text8", 0, 10, u"FIELdchar", u"FIELdchar", u"fc"});
    append(fields, {ParamNumber, Special, u"Text8", 10, 6, u"FIELdnum", u"FIELdnum", u"fn"});
    append(fields, {ParamDate, Special, u"txtCustDate", 0, 4, u"FIELddate", u"FIELddate", u"fd"});
    fields.append(plain(LastMovement, History, {u"txtΤελευταία", -1, u"ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ", u"Τελευταία Επίσκεψη"}));
    fields.append(plain(Frequency, History, {u"txtΣυχνότητα", -1, u"ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ", u"Συχνότητα Επίσκεψης"}));
    fields.append(plain(Amount, History, {u"txtΣυνδρομή", -1, u"ΠΟΣΟ_ΚΙΝΗΣΗΣ", u"Συνδρομή"}));
    append(fields, {LongText, Texts, u"txtMemo", 0, 6, u"ΚΕΙΜΕΝΟ", u"Memo", nullptr});
    append(fields, {ParamFlag, Special, u"Check1", 0, 8, u"FieldYes", u"FieldYes", u"fy"});
    append(fields, {ParamList, Special, u"Combo4", 0, 4, u"FieldCombo", u"FieldCombo", u"fcb"});
    return fields;
}

}  // namespace

QString CardField::controlName() const {
    return index < 0 ? array : controls::arrayName(array, index);
}

const QVector<CardField>& cardFields() {
    static const QVector<CardField> fields = build();
    return fields;
}

const CardField* cardField(const QString& array, int index) {
    for (const CardField& field : cardFields())
        if (field.array == array && field.index == index) return &field;
    return nullptr;
}

}  // namespace cards
