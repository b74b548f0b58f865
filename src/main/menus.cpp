#include "main/menus.h"

#include <QSet>

#include "core/mainmod.h"

using namespace Qt::Literals::StringLiterals;

namespace entry {

const QVector<MenuDef>& menuDefs() {
    static const QVector<MenuDef> defs = {
        {u"mnuAddress"_s, {}, u"01"_s, {}},
        {u"mnuCards"_s, u"mnuAddress"_s, u"0101"_s, u"frmAddress"_s},
        {u"mnuList"_s, u"mnuAddress"_s, u"0102"_s, u"frmList"_s},
        {u"mnuQuery"_s, u"mnuAddress"_s, u"0103"_s, u"frmQuerysNew"_s},
        {u"κ9"_s, u"mnuAddress"_s, u"-"_s, {}},
        {u"MnuΗμερολόγιο"_s, u"mnuAddress"_s, u"Ημερολόγιο Κινήσεων"_s, u"frmHmerologio"_s},
        {u"κκκ"_s, u"mnuAddress"_s, u"-"_s, {}},
        {u"mnuLigoun"_s, u"mnuAddress"_s, u"0104"_s, u"frmLigounShow"_s},
        {u"mnuDates"_s, {}, u"Ημερολόγιο"_s, {}},
        {u"mnuCalendar"_s, u"mnuDates"_s, u"Εμφάνιση Ημερολογίου"_s, u"frmCalend"_s},
        {u"mnuDatesShow"_s, u"mnuDates"_s, u"Λίστα Συναντήσεων"_s, u"frmDatesShow"_s},
        {u"κ1"_s, u"mnuDates"_s, u"-"_s, {}},
        {u"mnuToday"_s, u"mnuDates"_s, u"Τι έχω να κάνω σήμερα;"_s, u"frmTodayShow"_s},
        {u"mnuNameDay"_s, u"mnuDates"_s, u"Σήμερα γιορτάζουν"_s, u"frmNameDay"_s},
        {u"mnuThinks"_s, {}, u"Εργασίες"_s, {}},
        {u"mnuThinksShow"_s, u"mnuThinks"_s, u"Εμφάνιση Εργασιών"_s, u"frmThinksToDoShow"_s},
        {u"mnuUtilies"_s, {}, u"Εργαλεία"_s, {}},
        {u"MnuWordPad"_s, u"mnuUtilies"_s, u"Κειμενογράφος"_s, u"frmWordPad"_s},
        {u"mnuCalculator"_s, u"mnuUtilies"_s, u"Αριθμομηχανή"_s, u"frmCalcu"_s},
        {u"mnuCaller"_s, u"mnuUtilies"_s, u"Τηλεφωνική Κλήση"_s, u"frmCaller1"_s},
        {u"mnuCallerID"_s, u"mnuUtilies"_s, u"Αναγνώριση Κλήσεων"_s, u"frmOptions"_s},
        {u"mnuCallerID2"_s, u"mnuUtilies"_s, u"Αναγνώριση Κλήσεων 2"_s, u"frmOptions2"_s},
        {u"mnuCalls"_s, u"mnuUtilies"_s, u"Λίστα Κλήσεων"_s, u"frmCalls"_s},
        {u"mnuImport"_s, u"mnuUtilies"_s, u"Εισαγωγή/ Εξαγωγή από/ σε MS Outlook"_s, u"frmImport"_s},
        {u"mnuImportDBF"_s, u"mnuUtilies"_s, u"Εισαγωγή από άλλα Αρχεία"_s, u"frmImportDBF"_s},
        {u"mnuOptions"_s, {}, u"Ρυθμίσεις"_s, {}},
        {u"mnuOwner"_s, u"mnuOptions"_s, u"Στοιχεία Κατόχου"_s, u"frmOwner"_s},
        {u"mnuPass"_s, u"mnuOptions"_s, u"Αλλαγή κωδικού Administrator"_s, u"frmAdmin"_s},
        {u"mnuUsers"_s, u"mnuOptions"_s, u"Διαχείρηση Χρηστών"_s, u"frmUsers"_s},
        {u"mnuCategory"_s, u"mnuOptions"_s, u"Κατηγορίες Επαφών"_s, u"frmCategory"_s},
        {u"mnuFields"_s, u"mnuOptions"_s, u"Παραμετρικά Πεδία Επαφών"_s, {}},
        {u"mnuFieldsCard"_s, u"mnuFields"_s, u"Πεδία Καρτέλας"_s, u"frmFields"_s},
        {u"mnuFieldsHistory"_s, u"mnuFields"_s, u"Πεδία Ιστορικού"_s, u"frmFields1"_s},
        {u"mnuLinkFolders"_s, u"mnuOptions"_s, u"Φάκελοι Συνδέσεων"_s, u"frmLinkFolders"_s},
        {u"mnuLabels"_s, u"mnuOptions"_s, u"Ρύθμιση Ετικετών"_s, u"frmLabels"_s},
        {u"mnuAlarm"_s, u"mnuOptions"_s, u"Ρύθμιση Ήχου Υπενθύμισης"_s, u"frmAlarm"_s},
        {u"mnu"_s, u"mnuOptions"_s, u"Καθορισμός Ονομασίας Επαφών"_s, {}},
        {u"MnuCat(1)"_s, u"mnu"_s, u"Επαφές"_s, {}},
        {u"MnuCat(2)"_s, u"mnu"_s, u"Πελάτες"_s, {}},
        {u"MnuCat(3)"_s, u"mnu"_s, u"Μέλη"_s, {}},
        {u"κ1234"_s, u"mnuOptions"_s, u"-"_s, {}},
        {u"mnuFilesMdb"_s, u"mnuOptions"_s, u"Εργασίες Αρχείων"_s, {}},
        {u"mnuCompact"_s, u"mnuFilesMdb"_s, u"Συντήρηση Αρχείων"_s, u"CompactDB"_s},
        {u"mnuFixFile"_s, u"mnuFilesMdb"_s, u"Καθαρισμός Αρχείων Συναντήσεων και Κλήσεων"_s, u"frmFixFiles"_s},
        {u"mnuEmptyDB"_s, u"mnuFilesMdb"_s, u"Άδειασμα Όλων των Αρχείων"_s, u"CompactDB"_s},
        {u"mnuBackup"_s, u"mnuOptions"_s, u"Αντίγραφα Ασφαλείας"_s, {}},
        {u"mnuBackupFolder"_s, u"mnuBackup"_s, u"Φάκελος αντιγράφων..."_s, {}},
        {u"mnuBackupNow"_s, u"mnuBackup"_s, u"Αντίγραφο τώρα"_s, {}},
        {u"mnuRestore"_s, u"mnuBackup"_s, u"Επαναφορά αντιγράφου..."_s, {}},
        {u"mnuPizza"_s, u"mnuOptions"_s, u"Αύξων Αριθμός Εντύπων"_s, u"frmFixaa"_s},
        {u"MnuFarmaka"_s, {}, u"Πίνακες"_s, {}},
        {u"MnuListaFramaka"_s, u"MnuFarmaka"_s, u"Φάρμακα"_s, u"frmList3"_s},
        {u"mnuMedra"_s, u"MnuFarmaka"_s, u"Λεξικό Medra"_s, u"frmList4"_s},
        {u"mnuListfromMemo"_s, u"MnuFarmaka"_s, u"Λίστα με κλειδί απο Κείμενα"_s, u"frmList5"_s},
        {u"mnuView"_s, {}, u"Εμφάνιση"_s, {}},
        {u"mnuTheme(0)"_s, u"mnuView"_s, u"Όπως το σύστημα"_s, {}},
        {u"mnuTheme(1)"_s, u"mnuView"_s, u"Φωτεινή"_s, {}},
        {u"mnuTheme(2)"_s, u"mnuView"_s, u"Σκούρα"_s, {}},
        {u"κ2"_s, u"mnuView"_s, u"-"_s, {}},
        {u"mnuSounds"_s, u"mnuView"_s, u"Ήχοι κουμπιών"_s, {}},
        {u"mnuPreview"_s, u"mnuView"_s, u"Προεπισκόπηση πριν από κάθε εκτύπωση"_s, {}},
        {u"mnuHelp"_s, {}, u"Βοήθεια"_s, {}},
        {u"mnuHelp1"_s, u"mnuHelp"_s, u"Οδηγίες"_s, u"help"_s},
        {u"mnuAbout"_s, u"mnuHelp"_s, u"Περί"_s, u"frmAbout"_s},
        {u"mnuLogOff"_s, {}, u"Αποσύνδεση"_s, {}},
        // What follows a separator on the bar stands at its right end.
        {u"κ3"_s, {}, u"-"_s, {}},
        {u"mnuExit"_s, {}, u"Έξοδος"_s, {}},
    };
    return defs;
}

QString menuCaption(const MenuDef& def, const core::ContactNoun& noun) {
    const std::pair<QString, const QString&> nouns[] = {{u"mnuAddress"_s, noun.address},
                                                        {u"mnuCards"_s, noun.cards},
                                                        {u"mnuList"_s, noun.list},
                                                        {u"mnuQuery"_s, noun.query},
                                                        {u"mnuLigoun"_s, noun.visits}};
    for (const auto& [name, caption] : nouns)
        if (def.name == name) return caption;
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
