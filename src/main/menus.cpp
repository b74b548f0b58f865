#include "main/menus.h"

#include <QSet>

#include "core/mainmod.h"

using namespace Qt::Literals::StringLiterals;

namespace entry {

namespace {

struct Row {
    const char16_t* name;
    const char16_t* parent;
    const char16_t* caption;
    const char16_t* form;
};

constexpr Row rows[] = {
    {u"mnuAddress", u"", u"01", u""},
    {u"mnuCards", u"mnuAddress", u"0101", u"frmAddress"},
    {u"mnuList", u"mnuAddress", u"0102", u"frmList"},
    {u"mnuQuery", u"mnuAddress", u"0103", u"frmQuerysNew"},
    {u"κ9", u"mnuAddress", u"-", u""},
    {u"MnuΗμερολόγιο", u"mnuAddress", u"Ημερολόγιο Κινήσεων", u"frmHmerologio"},
    {u"κκκ", u"mnuAddress", u"-", u""},
    {u"mnuLigoun", u"mnuAddress", u"0104", u"frmLigounShow"},
    {u"mnuDates", u"", u"Ημερολόγιο", u""},
    {u"mnuCalendar", u"mnuDates", u"Εμφάνιση Ημερολογίου", u"frmCalend"},
    {u"mnuDatesShow", u"mnuDates", u"Λίστα Συναντήσεων", u"frmDatesShow"},
    {u"κ1", u"mnuDates", u"-", u""},
    {u"mnuToday", u"mnuDates", u"Τι έχω να κάνω σήμερα;", u"frmTodayShow"},
    {u"mnuNameDay", u"mnuDates", u"Σήμερα γιορτάζουν", u"frmNameDay"},
    {u"mnuThinks", u"", u"Εργασίες", u""},
    {u"mnuThinksShow", u"mnuThinks", u"Εμφάνιση Εργασιών", u"frmThinksToDoShow"},
    {u"mnuUtilies", u"", u"Εργαλεία", u""},
    {u"MnuWordPad", u"mnuUtilies", u"Κειμενογράφος", u"frmWordPad"},
    {u"mnuCalculator", u"mnuUtilies", u"Αριθμομηχανή", u"frmCalcu"},
    {u"mnuCaller", u"mnuUtilies", u"Τηλεφωνική Κλήση", u"frmCaller1"},
    {u"mnuCallerID", u"mnuUtilies", u"Αναγνώριση Κλήσεων", u"frmOptions"},
    {u"mnuCallerID2", u"mnuUtilies", u"Αναγνώριση Κλήσεων 2", u"frmOptions2"},
    {u"mnuCalls", u"mnuUtilies", u"Λίστα Κλήσεων", u"frmCalls"},
    {u"mnuImport", u"mnuUtilies", u"Εισαγωγή/ Εξαγωγή από/ σε MS Outlook", u"frmImport"},
    {u"mnuImportDBF", u"mnuUtilies", u"Εισαγωγή από άλλα Αρχεία", u"frmImportDBF"},
    {u"mnuOptions", u"", u"Ρυθμίσεις", u""},
    {u"mnuOwner", u"mnuOptions", u"Στοιχεία Κατόχου", u"frmOwner"},
    {u"mnuPass", u"mnuOptions", u"Αλλαγή κωδικού Administrator", u"frmAdmin"},
    {u"mnuUsers", u"mnuOptions", u"Διαχείρηση Χρηστών", u"frmUsers"},
    {u"mnuCategory", u"mnuOptions", u"Κατηγορίες Επαφών", u"frmCategory"},
    {u"mnuFields", u"mnuOptions", u"Παραμετρικά Πεδία Επαφών", u""},
    {u"mnuFieldsCard", u"mnuFields", u"Πεδία Καρτέλας", u"frmFields"},
    {u"mnuFieldsHistory", u"mnuFields", u"Πεδία Ιστορικού", u"frmFields1"},
    {u"mnuLabels", u"mnuOptions", u"Ρύθμιση Ετικετών", u"frmLabels"},
    {u"mnuAlarm", u"mnuOptions", u"Ρύθμιση Ήχου Υπενθύμισης", u"frmAlarm"},
    {u"mnu", u"mnuOptions", u"Καθορισμός Ονομασίας Επαφών", u""},
    {u"MnuCat(1)", u"mnu", u"Επαφές", u""},
    {u"MnuCat(2)", u"mnu", u"Πελάτες", u""},
    {u"MnuCat(3)", u"mnu", u"Μέλη", u""},
    {u"κ1234", u"mnuOptions", u"-", u""},
    {u"mnuFilesMdb", u"mnuOptions", u"Εργασίες Αρχείων", u""},
    {u"mnuCompact", u"mnuFilesMdb", u"Συντήρηση Αρχείων", u"CompactDB"},
    {u"mnuFixFile", u"mnuFilesMdb", u"Καθαρισμός Αρχείων Συναντήσεων και Κλήσεων", u"frmFixFiles"},
    {u"mnuEmptyDB", u"mnuFilesMdb", u"Άδειασμα Όλων των Αρχείων", u"CompactDB"},
    {u"mnuBackup", u"mnuOptions", u"Αντίγραφα Ασφαλείας", u""},
    {u"mnuBackupFolder", u"mnuBackup", u"Φάκελος αντιγράφων...", u""},
    {u"mnuBackupNow", u"mnuBackup", u"Αντίγραφο τώρα", u""},
    {u"mnuPizza", u"mnuOptions", u"Αύξων Αριθμός Εντύπων", u"frmFixaa"},
    {u"MnuFarmaka", u"", u"Πίνακες", u""},
    {u"MnuListaFramaka", u"MnuFarmaka", u"Φάρμακα", u"frmList3"},
    {u"mnuMedra", u"MnuFarmaka", u"Λεξικό Medra", u"frmList4"},
    {u"mnuListfromMemo", u"MnuFarmaka", u"Λίστα με κλειδί απο Κείμενα", u"frmList5"},
    {u"mnuView", u"", u"Εμφάνιση", u""},
    {u"mnuTheme(0)", u"mnuView", u"Όπως το σύστημα", u""},
    {u"mnuTheme(1)", u"mnuView", u"Φωτεινή", u""},
    {u"mnuTheme(2)", u"mnuView", u"Σκούρα", u""},
    {u"κ2", u"mnuView", u"-", u""},
    {u"mnuSounds", u"mnuView", u"Ήχοι κουμπιών", u""},
    {u"mnuPreview", u"mnuView", u"Προεπισκόπηση πριν από κάθε εκτύπωση", u""},
    {u"mnuHelp", u"", u"Βοήθεια", u""},
    {u"mnuHelp1", u"mnuHelp", u"Οδηγίες", u"help"},
    {u"mnuAbout", u"mnuHelp", u"Περί", u"frmAbout"},
    {u"mnuLogOff", u"", u"Αποσύνδεση", u""},
    {u"mnuExit", u"", u"Έξοδος", u""},
};

QVector<MenuDef> build() {
    QVector<MenuDef> defs;
    for (const Row& row : rows)
        defs.append({QString::fromUtf16(row.name), QString::fromUtf16(row.parent), QString::fromUtf16(row.caption),
                     QString::fromUtf16(row.form)});
    return defs;
}

}  // namespace

const QVector<MenuDef>& menuDefs() {
    static const QVector<MenuDef> defs = build();
    return defs;
}

QString menuCaption(const MenuDef& def, const core::ContactNoun& noun) {
    const std::pair<const char16_t*, const QString&> nouns[] = {{u"mnuAddress", noun.address},
                                                                {u"mnuCards", noun.cards},
                                                                {u"mnuList", noun.list},
                                                                {u"mnuQuery", noun.query},
                                                                {u"mnuLigoun", noun.visits}};
    for (const auto& [name, caption] : nouns)
        if (def.name == QString::fromUtf16(name)) return caption;
    return def.caption;
}

bool menuVisible(const MenuDef& def, const MenuState& state) {
    const core::ContactNoun noun = core::contactNoun(state.category);
    if (def.name == u"mnuOptions"_s) return state.userGroup == core::groupAdministrators;
    if (def.name == u"MnuFarmaka"_s) return noun.medical;
    if (def.name == u"mnu"_s) return noun.changeable;
    return def.form.isEmpty() || state.isBuilt(def.form);
}

}  // namespace entry
