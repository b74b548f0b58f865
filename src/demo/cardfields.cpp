#include "demo/cardfields.h"

#include "demo/values.h"

namespace demo {

using namespace Qt::Literals::StringLiterals;

const QVector<CardField>& cardFields() {
    static const QVector<CardField> all = {
        {u"επωνυμο"_s, [](const Person& p) { return textOrNull(p.last); }},
        {u"ονομα"_s, [](const Person& p) { return textOrNull(p.first); }},
        {u"πατρονυμο"_s, [](const Person& p) { return textOrNull(p.father); }},
        {u"category"_s, [](const Person& p) { return QVariant(p.category); }},
        {u"ΗΜ_ΓΕΝΗΣΗΣ"_s, [](const Person& p) { return dateOrNull(p.birth); }},
        {u"ΤΟΠΟΣ_ΓΕΝΗΣΗΣ"_s, [](const Person& p) { return textOrNull(p.birthPlace); }},
        {u"ΗΜ_ΕΟΡΤΗΣ"_s, [](const Person& p) { return dateOrNull(p.nameDay); }},
        {u"KEIM_ΕΟΡΤΗΣ"_s, [](const Person& p) { return textOrNull(p.nameDayLine); }},
        {u"επαγγελμα"_s, [](const Person& p) { return textOrNull(p.occupation); }},
        {u"διευθυνση"_s, [](const Person& p) { return textOrNull(p.street); }},
        {u"περιοχη"_s, [](const Person& p) { return textOrNull(p.district); }},
        {u"ταχ_κωδ"_s, [](const Person& p) { return textOrNull(p.postalCode); }},
        {u"πολη"_s, [](const Person& p) { return textOrNull(p.town); }},
        {u"τηλεφωνο1"_s, [](const Person& p) { return textOrNull(p.home); }},
        {u"τηλεφωνο2"_s, [](const Person& p) { return textOrNull(p.work); }},
        {u"τηλεφωνο3"_s, [](const Person& p) { return textOrNull(p.secondHome); }},
        {u"τηλεφωνο4"_s, [](const Person& p) { return textOrNull(p.secondWork); }},
        {u"ΚΙΝΗΤΟ"_s, [](const Person& p) { return textOrNull(p.mobile); }},
        {u"FAX"_s, [](const Person& p) { return textOrNull(p.fax); }},
        {u"email"_s, [](const Person& p) { return textOrNull(p.email); }},
        {u"URL"_s, [](const Person& p) { return textOrNull(p.url); }},
        {u"ΑΝΔΡΑΣ"_s, [](const Person& p) { return QVariant(p.man); }},
        {u"σχολια"_s, [](const Person& p) { return textOrNull(p.notes); }},
        {u"εταιρια"_s, [](const Person& p) { return textOrNull(p.company); }},
        {u"ΔΙΕΥΘΥΝΣΗ_ΕΡΓΑΣΙΑΣ"_s, [](const Person& p) { return textOrNull(p.workStreet); }},
        {u"ΣΥΣΤΑΣΗ"_s, [](const Person& p) { return textOrNull(p.recommendedBy); }},
        {u"ΣΧΟΛΙΑ1"_s, [](const Person& p) { return textOrNull(p.cardNotes); }},
        {u"FIELdchar1"_s, [](const Person& p) { return textOrNull(p.taxNumber); }},
        {u"FIELdchar2"_s, [](const Person& p) { return textOrNull(p.taxOffice); }},
        {u"FIELdchar3"_s, [](const Person& p) { return textOrNull(p.seller); }},
        {u"FIELdnum1"_s, [](const Person& p) { return numberOrNull(p.discount); }},
        {u"FIELdnum2"_s, [](const Person& p) { return numberOrNull(p.creditLimit); }},
        {u"FIELddate1"_s, [](const Person& p) { return dateOrNull(p.contract); }},
        {u"ΤΕΛΕΥΤΑΙΑ_ΚΙΝΗΣΗ"_s, [](const Person& p) { return dateOrNull(p.lastMovement); }},
        {u"ΣΥΧΝΟΤΗΤΑ_ΚΙΝΗΣΗΣ"_s, [](const Person& p) { return QVariant(p.frequencyDays); }},
        {u"ΠΟΣΟ_ΚΙΝΗΣΗΣ"_s, [](const Person& p) { return QVariant(p.amountDue); }},
        {u"ΚΕΙΜΕΝΟ1"_s, [](const Person& p) { return textOrNull(p.longText); }},
        {u"ΚΕΙΜΕΝΟ2"_s, [](const Person& p) { return textOrNull(p.preferences); }},
        {u"FieldYes1"_s, [](const Person& p) { return QVariant(p.newsletter); }},
        {u"FieldYes2"_s, [](const Person& p) { return QVariant(p.invoices); }},
        {u"FieldCombo1"_s, [](const Person& p) { return textOrNull(p.payment); }},
        {u"FieldCombo2"_s, [](const Person& p) { return textOrNull(p.source); }},
        {u"Photo"_s, [](const Person& p) { return p.photo.isEmpty() ? QVariant() : QVariant(p.photo); }},
        {u"total"_s, [](const Person& p) { return QVariant(euros(p.balanceCents())); }},
    };
    return all;
}

}  // namespace demo
