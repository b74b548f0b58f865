#include "demo/words.h"

namespace demo {
namespace {

using namespace Qt::Literals::StringLiterals;

struct Ending {
    QString man;
    QString woman;
};

// One letter for each ending that a stem below takes.
Ending ending(QChar letter) {
    switch (letter.unicode()) {
        case u'o':
            return {u"όπουλος"_s, u"οπούλου"_s};
        case u'i':
            return {u"ίδης"_s, u"ίδου"_s};
        case u'a':
            return {u"άδης"_s, u"άδου"_s};
        case u'I':
            return {u"ιάδης"_s, u"ιάδου"_s};
        case u'k':
            return {u"άκης"_s, u"άκη"_s};
        case u'e':
            return {u"έας"_s, u"έα"_s};
        case u'r':
            return {u"άρης"_s, u"άρη"_s};
        default:
            return {u"ίου"_s, u"ίου"_s};  // a genitive, the same for both
    }
}

struct Stem {
    QString stem;
    QString endings;
};

const QVector<Stem>& stems() {
    static const QVector<Stem> all = {
        {u"Γεωργ"_s, u"oIkg"_s},   {u"Δημητρ"_s, u"oIkg"_s},   {u"Νικολ"_s, u"oik"_s},     {u"Αντων"_s, u"oIkg"_s},
        {u"Βασιλ"_s, u"ok"_s},     {u"Κωνσταντιν"_s, u"oi"_s}, {u"Θεοδωρ"_s, u"oik"_s},    {u"Αναστασ"_s, u"oIkg"_s},
        {u"Αθανασ"_s, u"oIg"_s},   {u"Παναγιωτ"_s, u"oik"_s},  {u"Χριστ"_s, u"oik"_s},     {u"Σταυρ"_s, u"oik"_s},
        {u"Πετρ"_s, u"oik"_s},     {u"Παυλ"_s, u"oik"_s},      {u"Στεφαν"_s, u"oik"_s},    {u"Ηλι"_s, u"oak"_s},
        {u"Μιχαηλ"_s, u"i"_s},     {u"Μιχαλ"_s, u"ok"_s},      {u"Εμμανουηλ"_s, u"i"_s},   {u"Μανωλ"_s, u"ok"_s},
        {u"Σωτηρ"_s, u"oIg"_s},    {u"Λεωνιδ"_s, u"k"_s},      {u"Γρηγορ"_s, u"oIkg"_s},   {u"Ιωανν"_s, u"i"_s},
        {u"Γιανν"_s, u"ok"_s},     {u"Ευσταθ"_s, u"oIg"_s},    {u"Σταθ"_s, u"ok"_s},       {u"Ευαγγελ"_s, u"oi"_s},
        {u"Αγγελ"_s, u"oik"_s},    {u"Αποστολ"_s, u"oik"_s},   {u"Χαραλαμπ"_s, u"oik"_s},  {u"Φωτ"_s, u"oIg"_s},
        {u"Αλεξανδρ"_s, u"oik"_s}, {u"Αλεξ"_s, u"oIg"_s},      {u"Ανδρ"_s, u"I"_s},        {u"Ανδρικ"_s, u"o"_s},
        {u"Καλλιγ"_s, u"r"_s},     {u"Ραφτ"_s, u"o"_s},        {u"Μυλων"_s, u"ak"_s},      {u"Σιδερ"_s, u"ik"_s},
        {u"Κουκουλ"_s, u"k"_s},    {u"Σαρρ"_s, u"i"_s},        {u"Κυριακ"_s, u"oik"_s},    {u"Λαζαρ"_s, u"oik"_s},
        {u"Σαββ"_s, u"oi"_s},      {u"Σιμ"_s, u"oI"_s},        {u"Συμεων"_s, u"i"_s},      {u"Τριανταφυλλ"_s, u"oik"_s},
        {u"Σπυρ"_s, u"oik"_s},     {u"Σπυριδ"_s, u"k"_s},      {u"Καραγιανν"_s, u"oik"_s}, {u"Παπαδ"_s, u"ok"_s},
        {u"Οικονομ"_s, u"oi"_s},   {u"Διαμαντ"_s, u"oik"_s},   {u"Αργυρ"_s, u"oik"_s},     {u"Ζαχαρ"_s, u"oIkg"_s},
        {u"Ιακωβ"_s, u"i"_s},      {u"Φραγκ"_s, u"oIk"_s},     {u"Κουτσ"_s, u"o"_s},       {u"Καραμαν"_s, u"oi"_s},
        {u"Μαυρ"_s, u"oik"_s},     {u"Ασημ"_s, u"ok"_s},       {u"Μαρκ"_s, u"oik"_s},      {u"Ματθαι"_s, u"o"_s},
        {u"Λυμπερ"_s, u"oik"_s},   {u"Κοντ"_s, u"o"_s},        {u"Σκουρ"_s, u"k"_s},       {u"Τσιμπ"_s, u"i"_s},
        {u"Αδαμ"_s, u"ok"_s},      {u"Δανιηλ"_s, u"i"_s},      {u"Γαβριηλ"_s, u"i"_s},     {u"Θωμ"_s, u"o"_s},
        {u"Λουκ"_s, u"ok"_s},      {u"Μελετ"_s, u"oIg"_s},     {u"Προκοπ"_s, u"g"_s},      {u"Ευθυμ"_s, u"oIkg"_s},
        {u"Καπετ"_s, u"k"_s},      {u"Κανελλ"_s, u"ok"_s},     {u"Ροδ"_s, u"oik"_s},       {u"Βλαχ"_s, u"ok"_s},
        {u"Κορδ"_s, u"k"_s},       {u"Μπαλ"_s, u"k"_s},        {u"Σερ"_s, u"i"_s},         {u"Λιακ"_s, u"o"_s},
        {u"Τζαν"_s, u"ek"_s},      {u"Ξαν"_s, u"k"_s},         {u"Σκαρλ"_s, u"k"_s},       {u"Κρητικ"_s, u"o"_s},
        {u"Βασιλε"_s, u"I"_s},
    };
    return all;
}

// Surnames that no rule gives, and prefixed ones of priests and pilgrims.
QVector<Surname> fixedSurnames() {
    QVector<Surname> all = {
        {u"Παππάς"_s, u"Παππά"_s},
        {u"Οικονόμου"_s, u"Οικονόμου"_s},
        {u"Αγγέλου"_s, u"Αγγέλου"_s},
        {u"Μακρής"_s, u"Μακρή"_s},
        {u"Κόκκινος"_s, u"Κόκκινου"_s},
        {u"Μαύρος"_s, u"Μαύρου"_s},
        {u"Ράπτης"_s, u"Ράπτη"_s},
        {u"Σαμαράς"_s, u"Σαμαρά"_s},
        {u"Μυλωνάς"_s, u"Μυλωνά"_s},
        {u"Αλεξίου"_s, u"Αλεξίου"_s},
        {u"Καρράς"_s, u"Καρρά"_s},
        {u"Κοσμάς"_s, u"Κοσμά"_s},
        {u"Βλάχος"_s, u"Βλάχου"_s},
        {u"Γκίκας"_s, u"Γκίκα"_s},
        {u"Ζέρβας"_s, u"Ζέρβα"_s},
        {u"Σκλάβος"_s, u"Σκλάβου"_s},
        {u"Κατσαρός"_s, u"Κατσαρού"_s},
        {u"Μπάρκας"_s, u"Μπάρκα"_s},
        {u"Τσιτσάνης"_s, u"Τσιτσάνη"_s},
        {u"Ρήγας"_s, u"Ρήγα"_s},
        {u"Φλώρος"_s, u"Φλώρου"_s},
        {u"Λάμπρου"_s, u"Λάμπρου"_s},
        {u"Νικολάου"_s, u"Νικολάου"_s},
        {u"Ιωάννου"_s, u"Ιωάννου"_s},
        {u"Κωνσταντίνου"_s, u"Κωνσταντίνου"_s},
        {u"Θεοδώρου"_s, u"Θεοδώρου"_s},
        {u"Πολίτης"_s, u"Πολίτη"_s},
        {u"Ξένος"_s, u"Ξένου"_s},
        {u"Δούκας"_s, u"Δούκα"_s},
        {u"Καλογήρου"_s, u"Καλογήρου"_s},
    };
    const QStringList bases = {u"γεωργίου"_s,  u"δημητρίου"_s, u"νικολάου"_s,  u"κωνσταντίνου"_s, u"ιωάννου"_s,
                               u"αθανασίου"_s, u"αντωνίου"_s,  u"βασιλείου"_s, u"θεοδώρου"_s,     u"στεφάνου"_s,
                               u"μιχαήλ"_s,    u"ευαγγέλου"_s, u"χρήστου"_s,   u"σταύρου"_s,      u"αναστασίου"_s};
    for (const QString& prefix : {u"Παπα"_s, u"Χατζη"_s})
        for (const QString& base : bases) all += Surname{prefix + base, prefix + base};
    return all;
}

QVector<Surname> makeSurnames() {
    QVector<Surname> all = {{u"Παπαδόπουλος"_s, u"Παπαδοπούλου"_s}};
    const qsizetype longest = 4;
    for (qsizetype i = 0; i < longest; ++i)
        for (const Stem& stem : stems())
            if (i < stem.endings.size()) {
                const Ending e = ending(stem.endings[i]);
                all += Surname{stem.stem + e.man, stem.stem + e.woman};
            }
    return all + fixedSurnames();
}

}  // namespace

const QVector<Surname>& surnames() {
    static const QVector<Surname> all = makeSurnames();
    return all;
}

const QVector<MaleName>& maleNames() {
    static const QVector<MaleName> all = {
        {u"Γεώργιος"_s, u"Γεωργίου"_s},
        {u"Ιωάννης"_s, u"Ιωάννη"_s},
        {u"Κωνσταντίνος"_s, u"Κωνσταντίνου"_s},
        {u"Δημήτριος"_s, u"Δημητρίου"_s},
        {u"Νικόλαος"_s, u"Νικολάου"_s},
        {u"Παναγιώτης"_s, u"Παναγιώτη"_s},
        {u"Βασίλειος"_s, u"Βασιλείου"_s},
        {u"Χρήστος"_s, u"Χρήστου"_s},
        {u"Αθανάσιος"_s, u"Αθανασίου"_s},
        {u"Γιώργος"_s, u"Γιώργου"_s},
        {u"Μιχαήλ"_s, u"Μιχαήλ"_s},
        {u"Ευάγγελος"_s, u"Ευαγγέλου"_s},
        {u"Γιάννης"_s, u"Γιάννη"_s},
        {u"Σπυρίδων"_s, u"Σπυρίδωνος"_s},
        {u"Αντώνιος"_s, u"Αντωνίου"_s},
        {u"Αναστάσιος"_s, u"Αναστασίου"_s},
        {u"Κώστας"_s, u"Κώστα"_s},
        {u"Θεόδωρος"_s, u"Θεοδώρου"_s},
        {u"Ανδρέας"_s, u"Ανδρέα"_s},
        {u"Δημήτρης"_s, u"Δημήτρη"_s},
        {u"Χαράλαμπος"_s, u"Χαραλάμπους"_s},
        {u"Αλέξανδρος"_s, u"Αλεξάνδρου"_s},
        {u"Εμμανουήλ"_s, u"Εμμανουήλ"_s},
        {u"Νίκος"_s, u"Νίκου"_s},
        {u"Ηλίας"_s, u"Ηλία"_s},
        {u"Σταύρος"_s, u"Σταύρου"_s},
        {u"Πέτρος"_s, u"Πέτρου"_s},
        {u"Σωτήριος"_s, u"Σωτηρίου"_s},
        {u"Στυλιανός"_s, u"Στυλιανού"_s},
        {u"Ελευθέριος"_s, u"Ελευθερίου"_s},
        {u"Απόστολος"_s, u"Αποστόλου"_s},
        {u"Φώτιος"_s, u"Φωτίου"_s},
        {u"Διονύσιος"_s, u"Διονυσίου"_s},
        {u"Γρηγόριος"_s, u"Γρηγορίου"_s},
        {u"Άγγελος"_s, u"Αγγέλου"_s},
        {u"Μανώλης"_s, u"Μανώλη"_s},
        {u"Στέφανος"_s, u"Στεφάνου"_s},
        {u"Ευστάθιος"_s, u"Ευσταθίου"_s},
        {u"Παύλος"_s, u"Παύλου"_s},
        {u"Παρασκευάς"_s, u"Παρασκευά"_s},
        {u"Σπύρος"_s, u"Σπύρου"_s},
        {u"Αριστείδης"_s, u"Αριστείδη"_s},
        {u"Λεωνίδας"_s, u"Λεωνίδα"_s},
        {u"Θωμάς"_s, u"Θωμά"_s},
        {u"Μάριος"_s, u"Μαρίου"_s},
        {u"Φίλιππος"_s, u"Φιλίππου"_s},
        {u"Ευθύμιος"_s, u"Ευθυμίου"_s},
        {u"Σάββας"_s, u"Σάββα"_s},
        {u"Κυριάκος"_s, u"Κυριάκου"_s},
        {u"Αχιλλέας"_s, u"Αχιλλέα"_s},
    };
    return all;
}

const QVector<QString>& femaleNames() {
    static const QVector<QString> all = {
        u"Μαρία"_s,     u"Ελένη"_s,       u"Αικατερίνη"_s, u"Βασιλική"_s,   u"Σοφία"_s,     u"Γεωργία"_s,
        u"Αναστασία"_s, u"Αγγελική"_s,    u"Δήμητρα"_s,    u"Ευαγγελία"_s,  u"Παναγιώτα"_s, u"Ιωάννα"_s,
        u"Κατερίνα"_s,  u"Κωνσταντίνα"_s, u"Ειρήνη"_s,     u"Άννα"_s,       u"Παρασκευή"_s, u"Φωτεινή"_s,
        u"Χριστίνα"_s,  u"Δέσποινα"_s,    u"Κυριακή"_s,    u"Χρυσούλα"_s,   u"Ελευθερία"_s, u"Σταυρούλα"_s,
        u"Αλεξάνδρα"_s, u"Θεοδώρα"_s,     u"Ευγενία"_s,    u"Στυλιανή"_s,   u"Νικολέτα"_s,  u"Αθανασία"_s,
        u"Όλγα"_s,      u"Ζωή"_s,         u"Μαρίνα"_s,     u"Αντωνία"_s,    u"Μαργαρίτα"_s, u"Ελισάβετ"_s,
        u"Βαρβάρα"_s,   u"Καλλιόπη"_s,    u"Ευφροσύνη"_s,  u"Σπυριδούλα"_s, u"Ευθυμία"_s,   u"Ολυμπία"_s,
        u"Αφροδίτη"_s,  u"Στέλλα"_s,      u"Νεκταρία"_s,   u"Μαγδαληνή"_s,  u"Δανάη"_s,     u"Χαρίκλεια"_s,
    };
    return all;
}

}  // namespace demo
