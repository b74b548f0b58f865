#include "controls/toolkittexts.h"

#include <QApplication>
#include <QHash>
#include <QLocale>
#include <QTranslator>

namespace controls {

namespace {

struct Entry {
    const char* source;
    const char16_t* greek;
};

// By the toolkit's source text alone: the same word means the same in all of its windows here.
constexpr Entry entries[] = {
    {"&Undo", u"&Αναίρεση"},
    {"&Redo", u"Α&κύρωση αναίρεσης"},
    {"Cu&t", u"Απο&κοπή"},
    {"&Copy", u"Α&ντιγραφή"},
    {"&Paste", u"&Επικόλληση"},
    {"Delete", u"Διαγραφή"},
    {"Select All", u"Επιλογή όλων"},
    {"Copy &Link Location", u"Αντιγραφή &διεύθυνσης"},
    {"Insert Unicode control character", u"Εισαγωγή χαρακτήρα ελέγχου"},
    {"&Restore", u"Επανα&φορά"},
    {"&Move", u"&Μετακίνηση"},
    {"&Size", u"Μέ&γεθος"},
    {"Mi&nimize", u"&Ελαχιστοποίηση"},
    {"Ma&ximize", u"Μεγ&ιστοποίηση"},
    {"Stay on &Top", u"Πάντα μπρο&στά"},
    {"&Close", u"&Κλείσιμο"},
    {"Close", u"Κλείσιμο"},
    {"Minimize", u"Ελαχιστοποίηση"},
    {"Maximize", u"Μεγιστοποίηση"},
    {"Restore", u"Επαναφορά"},
    {"Restore Down", u"Επαναφορά"},
    {"Menu", u"Μενού"},
    {"Help", u"Βοήθεια"},
    {"OK", u"Εντάξει"},
    {"&OK", u"Εντάξει"},
    {"&Yes", u"&Ναι"},
    {"&No", u"Ό&χι"},
    {"Cancel", u"Άκυρο"},
    {"Open", u"Άνοιγμα"},
    {"&Open", u"Ά&νοιγμα"},
    {"Save", u"Αποθήκευση"},
    {"&Save", u"Απο&θήκευση"},
    {"Save As", u"Αποθήκευση ως"},
    {"Apply", u"Εφαρμογή"},
    {"Back", u"Πίσω"},
    {"Forward", u"Εμπρός"},
    {"Go back", u"Μετάβαση πίσω"},
    {"Go forward", u"Μετάβαση εμπρός"},
    {"Go to the parent directory", u"Μετάβαση στον γονικό φάκελο"},
    {"Parent Directory", u"Γονικός φάκελος"},
    {"Create a New Folder", u"Δημιουργία νέου φακέλου"},
    {"Create New Folder", u"Δημιουργία νέου φακέλου"},
    {"New Folder", u"Νέος φάκελος"},
    {"&New Folder", u"&Νέος φάκελος"},
    {"List View", u"Προβολή λίστας"},
    {"Detail View", u"Προβολή λεπτομερειών"},
    {"Change to list view mode", u"Αλλαγή σε προβολή λίστας"},
    {"Change to detail view mode", u"Αλλαγή σε προβολή λεπτομερειών"},
    {"Look in:", u"Θέση:"},
    {"Directory:", u"Φάκελος:"},
    {"Directories", u"Φάκελοι"},
    {"Find Directory", u"Εύρεση φακέλου"},
    {"File &name:", u"Όν&ομα αρχείου:"},
    {"Files of type:", u"Αρχεία τύπου:"},
    {"Files", u"Αρχεία"},
    {"Sidebar", u"Πλευρική στήλη"},
    {"List of places and bookmarks", u"Λίστα θέσεων και σελιδοδεικτών"},
    {"Recent Places", u"Πρόσφατες θέσεις"},
    {"Remove", u"Αφαίρεση"},
    {"Show ", u"Εμφάνιση "},
    {"&Choose", u"&Επιλογή"},
    {"&Delete", u"&Διαγραφή"},
    {"&Rename", u"&Μετονομασία"},
    {"Show &hidden files", u"Εμφάνιση &κρυφών αρχείων"},
    {"All Files (*)", u"Όλα τα αρχεία (*)"},
    {"All files (*)", u"Όλα τα αρχεία (*)"},
    {"Could not delete directory.", u"Ο φάκελος δεν διαγράφηκε."},
    {"Are you sure you want to delete '%1'?", u"Να διαγραφεί το «%1»;"},
    {"%1 already exists.\nDo you want to replace it?", u"Το %1 υπάρχει ήδη.\nΝα αντικατασταθεί;"},
    {"%1\nDirectory not found.\nPlease verify the correct directory name was given.",
     u"%1\nΟ φάκελος δεν βρέθηκε.\nΕλέγξτε το όνομά του."},
    {"%1\nFile not found.\nPlease verify the correct file name was given.",
     u"%1\nΤο αρχείο δεν βρέθηκε.\nΕλέγξτε το όνομά του."},
    {"Name", u"Όνομα"},
    {"Size", u"Μέγεθος"},
    {"Kind", u"Είδος"},
    {"Type", u"Τύπος"},
    {"Date Modified", u"Τροποποίηση"},
    {"My Computer", u"Υπολογιστής"},
    {"Computer", u"Υπολογιστής"},
    {"Top", u"Αρχή"},
    {"Bottom", u"Τέλος"},
    {"Left edge", u"Αριστερό άκρο"},
    {"Right edge", u"Δεξιό άκρο"},
    {"Scroll here", u"Κύλιση εδώ"},
    {"Scroll up", u"Κύλιση πάνω"},
    {"Scroll down", u"Κύλιση κάτω"},
    {"Scroll left", u"Κύλιση αριστερά"},
    {"Scroll right", u"Κύλιση δεξιά"},
    {"Page up", u"Προηγούμενη σελίδα"},
    {"Page down", u"Επόμενη σελίδα"},
    {"Page left", u"Σελίδα αριστερά"},
    {"Page right", u"Σελίδα δεξιά"},
    {"Scroll Left", u"Κύλιση αριστερά"},
    {"Scroll Right", u"Κύλιση δεξιά"},
    {"Open the combo box selection popup", u"Άνοιγμα της λίστας επιλογών"},
};

class ToolkitTexts : public QTranslator {
public:
    explicit ToolkitTexts(QObject* parent) : QTranslator(parent) {
        for (const Entry& entry : entries) texts_.insert(QByteArray(entry.source), QString::fromUtf16(entry.greek));
    }
    bool isEmpty() const override { return false; }
    QString translate(const char*, const char* source, const char*, int) const override {
        return texts_.value(QByteArray::fromRawData(source, static_cast<qsizetype>(qstrlen(source))));
    }

private:
    QHash<QByteArray, QString> texts_;
};

}  // namespace

void speakGreek(QApplication& app) {
    QLocale::setDefault(QLocale(QLocale::Greek, QLocale::Greece));
    QCoreApplication::installTranslator(new ToolkitTexts(&app));
}

}  // namespace controls
