#include "cards/cardfields.h"

#include "controls/names.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

namespace {

struct Row {
    QString array;
    int index;
    QString column;
    QString caption;
};

CardField plain(CardKind kind, CardTab tab, const Row& row) {
    return {kind, row.array, row.index, row.column, tab, row.caption, {}, {}};
}

struct Family {
    CardKind kind;
    CardTab tab;
    QString array;
    int firstIndex;
    int count;
    QString column;         // followed by 1, 2 ...
    QString captionColumn;  // likewise
    QString visibleColumn;  // likewise; empty when always shown
};

void append(QVector<CardField>& fields, const Family& family) {
    for (int i = 0; i < family.count; ++i) {
        const QString number = QString::number(i + 1);
        const QString visible = family.visibleColumn.isEmpty() ? QString() : family.visibleColumn + number;
        fields.append({family.kind,
                       family.array,
                       family.firstIndex + i,
                       family.column + number,
                       family.tab,
                       {},
                       family.captionColumn + number,
                       visible});
    }
}

QVector<CardField> build() {
    using enum CardKind;
    constexpr CardTab Basic = CardTab::Basic, Special = CardTab::Special, History = CardTab::History,
                      Texts = CardTab::Texts;
    QVector<CardField> fields;
    for (const Row& row : {Row{u"Text7"_s, 0, u"επωνυμο"_s, u"Επώνυμο:"_s}, Row{u"Text7"_s, 1, u"ονομα"_s, u"Όνομα:"_s},
                           Row{u"Text7"_s, 2, u"πατρονυμο"_s, u"Πατρώνυμο:"_s}})
        fields.append(plain(Text, Basic, row));
    fields.append(plain(Category, Basic, {u"Combo1"_s, -1, u"category"_s, u"Κατηγορία:"_s}));
    fields.append(plain(BirthDate, Basic, {u"txtDate"_s, -1, u"ΗΜ_ΓΕΝΗΣΗΣ"_s, u"Ημ.Γέννησης:"_s}));
    fields.append(plain(Text, Basic, {u"Text7"_s, 3, u"ΤΟΠΟΣ_ΓΕΝΗΣΗΣ"_s, u"Τόπος Γέννησης:"_s}));
    fields.append(plain(NameDay, Basic, {u"Combo3"_s, -1, u"KEIM_ΕΟΡΤΗΣ"_s, u"Εορτή:"_s}));
    for (const Row& row : {
             Row{u"Text7"_s, 4, u"επαγγελμα"_s, u"Επάγγελμα:"_s},
             Row{u"Text7"_s, 5, u"διευθυνση"_s, u"Διεύθυνση:"_s},
             Row{u"Text7"_s, 6, u"περιοχη"_s, u"Περιοχή:"_s},
             Row{u"Text7"_s, 7, u"ταχ_κωδ"_s, u"Ταχ. Κώδικας:"_s},
             Row{u"Text7"_s, 8, u"πολη"_s, u"Πόλη:"_s},
             Row{u"Text7"_s, 9, u"τηλεφωνο1"_s, u"Τηλ. Οικίας 1:"_s},
             Row{u"Text7"_s, 10, u"τηλεφωνο2"_s, u"Τηλ. Εργασίας 1:"_s},
             Row{u"Text7"_s, 20, u"τηλεφωνο3"_s, u"Τηλ. Οικίας 2:"_s},
             Row{u"Text7"_s, 21, u"τηλεφωνο4"_s, u"Τηλ. Εργασίας 2:"_s},
             Row{u"Text7"_s, 11, u"ΚΙΝΗΤΟ"_s, u"Κινητό:"_s},
             Row{u"Text7"_s, 12, u"FAX"_s, u"Fax:"_s},
             Row{u"Text7"_s, 13, u"email"_s, u"e-mail:"_s},
             Row{u"Text7"_s, 14, u"URL"_s, u"URL:"_s},
         })
        fields.append(plain(Text, Basic, row));
    fields.append(plain(Sex, Basic, {u"Combo2"_s, -1, u"ΑΝΔΡΑΣ"_s, u"Φύλλο:"_s}));
    fields.append(plain(Notes, CardTab::Notes, {u"Text7"_s, 17, u"σχολια"_s, u"Σχόλια:"_s}));
    for (const Row& row :
         {Row{u"Text7"_s, 18, u"εταιρια"_s, u"Εταιρία:"_s},
          Row{u"Text7"_s, 19, u"ΔΙΕΥΘΥΝΣΗ_ΕΡΓΑΣΙΑΣ"_s, u"Διεύθ. Εργασίας:"_s},
          Row{u"Text7"_s, 15, u"ΣΥΣΤΑΣΗ"_s, u"Σύσταση:"_s}, Row{u"Text7"_s, 16, u"ΣΧΟΛΙΑ1"_s, u"Σχόλια:"_s}})
        fields.append(plain(Text, Basic, row));
    append(fields, {ParamText, Special, u"Text8"_s, 0, 10, u"FIELdchar"_s, u"FIELdchar"_s, u"fc"_s});
    append(fields, {ParamNumber, Special, u"Text8"_s, 10, 6, u"FIELdnum"_s, u"FIELdnum"_s, u"fn"_s});
    append(fields, {ParamDate, Special, u"txtCustDate"_s, 0, 4, u"FIELddate"_s, u"FIELddate"_s, u"fd"_s});
    fields.append(
        plain(LastMovement, History, {u"txtΤελευταία"_s, -1, u"ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ"_s, u"Τελευταία Επίσκεψη"_s}));
    fields.append(plain(Frequency, History, {u"txtΣυχνότητα"_s, -1, u"ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ"_s, u"Συχνότητα Επίσκεψης"_s}));
    fields.append(plain(Amount, History, {u"txtΣυνδρομή"_s, -1, u"ΠΟΣΟ_ΚΙΝΗΣΗΣ"_s, u"Συνδρομή"_s}));
    append(fields, {LongText, Texts, u"txtMemo"_s, 0, 6, u"ΚΕΙΜΕΝΟ"_s, u"Memo"_s, {}});
    append(fields, {ParamFlag, Special, u"Check1"_s, 0, 8, u"FieldYes"_s, u"FieldYes"_s, u"fy"_s});
    append(fields, {ParamList, Special, u"Combo4"_s, 0, 4, u"FieldCombo"_s, u"FieldCombo"_s, u"fcb"_s});
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
