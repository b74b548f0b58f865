#include "demo/lists.h"

namespace demo {

using namespace Qt::Literals::StringLiterals;

const QVector<LookupList>& lookupLists() {
    static const QVector<LookupList> all = {
        {u"Τρόπος πληρωμής"_s,
         {u"Μετρητοίς"_s, u"Κατάθεση σε τράπεζα"_s, u"Πιστωτική κάρτα"_s, u"Επιταγή"_s, u"Αντικαταβολή"_s}},
        {u"Πηγή γνωριμίας"_s,
         {u"Σύσταση"_s, u"Διαδίκτυο"_s, u"Έκθεση"_s, u"Διαφήμιση"_s, u"Παλιός πελάτης"_s, u"Τηλέφωνο"_s}},
        {u"Γλώσσα"_s, {u"Ελληνικά"_s, u"Αγγλικά"_s, u"Γερμανικά"_s}},
        {u"Κατάσταση"_s, {u"Ενεργός"_s, u"Σε αναμονή"_s, u"Ανενεργός"_s}},
    };
    return all;
}

const QVector<Category>& categories() {
    static const QVector<Category> all = {
        {u"ΠΕΛΑΤΕΣ"_s, false}, {u"ΠΡΟΜΗΘΕΥΤΕΣ"_s, true}, {u"ΣΥΝΕΡΓΑΤΕΣ"_s, false}, {u"ΥΠΗΡΕΣΙΕΣ"_s, true}};
    return all;
}

const QVector<Caption>& captions() {
    static const QVector<Caption> all = {
        {u"FIELdchar1"_s, u"ΑΦΜ"_s, u"fc1"_s},
        {u"FIELdchar2"_s, u"ΔΟΥ"_s, u"fc2"_s},
        {u"FIELdchar3"_s, u"Πωλητής"_s, u"fc3"_s},
        {u"FIELdnum1"_s, u"Έκπτωση %"_s, u"fn1"_s},
        {u"FIELdnum2"_s, u"Πιστωτικό όριο"_s, u"fn2"_s},
        {u"FIELddate1"_s, u"Ημ. συμβολαίου"_s, u"fd1"_s},
        {u"FieldYes1"_s, u"Ενημερωτικό δελτίο"_s, u"fy1"_s},
        {u"FieldYes2"_s, u"Με τιμολόγιο"_s, u"fy2"_s},
        {u"FieldCombo1"_s, lookupLists()[0].caption, u"fcb1"_s},
        {u"FieldCombo2"_s, lookupLists()[1].caption, u"fcb2"_s},
        {u"Memo1"_s, u"Ιστορικό συνεργασίας"_s, {}},
        {u"Memo2"_s, u"Προτιμήσεις"_s, {}},
        {u"FIELdcharh1"_s, u"Παραστατικό"_s, u"fch1"_s},
        {u"FieldNumh1"_s, u"ΦΠΑ %"_s, u"fnh1"_s},
    };
    return all;
}

const QVector<QString>& taxOffices() {
    static const QVector<QString> all = {u"Α' ΑΘΗΝΩΝ"_s,  u"Δ' ΑΘΗΝΩΝ"_s, u"ΚΗΦΙΣΙΑΣ"_s,  u"Α' ΘΕΣΣΑΛΟΝΙΚΗΣ"_s,
                                         u"ΚΑΛΑΜΑΡΙΑΣ"_s, u"Α' ΠΑΤΡΩΝ"_s, u"ΗΡΑΚΛΕΙΟΥ"_s, u"ΛΑΡΙΣΑΣ"_s,
                                         u"ΒΟΛΟΥ"_s,      u"ΙΩΑΝΝΙΝΩΝ"_s, u"ΧΑΝΙΩΝ"_s,    u"ΚΑΒΑΛΑΣ"_s};
    return all;
}

const QVector<QString>& sellers() {
    static const QVector<QString> all = {u"Μαρία"_s, u"Νίκος"_s, u"Ελένη"_s};
    return all;
}

}  // namespace demo
