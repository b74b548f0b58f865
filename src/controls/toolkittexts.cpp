#include "controls/toolkittexts.h"

#include <QCoreApplication>
#include <QHash>
#include <QTranslator>

using namespace Qt::Literals::StringLiterals;

namespace controls {

namespace {

struct Entry {
    const char* source;
    const char* greek;
};

// By the source text alone: it means the same in every dialog.
constexpr Entry entries[] = {
    // text boxes
    {"&Undo", "&Αναίρεση"},
    {"&Redo", "Ακύρωση α&ναίρεσης"},
    {"Cu&t", "Απο&κοπή"},
    {"&Copy", "&Αντιγραφή"},
    {"&Paste", "&Επικόλληση"},
    {"Delete", "Διαγραφή"},
    {"Select All", "Επιλογή όλων"},
    {"Copy &Link Location", "Αντιγραφή διεύθυνσης &συνδέσμου"},
    // standard buttons
    {"OK", "Εντάξει"},
    {"&OK", "Εντάξει"},
    {"Cancel", "Άκυρο"},
    {"&Cancel", "Άκυρο"},
    {"&Yes", "&Ναι"},
    {"&No", "Ό&χι"},
    {"Save", "Αποθήκευση"},
    {"&Save", "Αποθήκευση"},
    {"Open", "Άνοιγμα"},
    {"&Open", "Άνοιγμα"},
    {"Close", "Κλείσιμο"},
    {"&Close", "Κλείσιμο"},
    {"Apply", "Εφαρμογή"},
    {"Help", "Βοήθεια"},
    {"Discard", "Απόρριψη"},
    {"Retry", "Επανάληψη"},
    {"Ignore", "Παράβλεψη"},
    {"Abort", "Διακοπή"},
    // file dialog
    {"Name", "Όνομα"},
    {"Size", "Μέγεθος"},
    {"Type", "Τύπος"},
    {"Kind", "Τύπος"},
    {"Date Modified", "Τροποποίηση"},
    {"Back", "Πίσω"},
    {"Forward", "Εμπρός"},
    {"Parent Directory", "Γονικός φάκελος"},
    {"Create New Folder", "Νέος φάκελος"},
    {"Create a New Folder", "Νέος φάκελος"},
    {"&New Folder", "&Νέος φάκελος"},
    {"New Folder", "Νέος φάκελος"},
    {"List View", "Λίστα"},
    {"Change to list view mode", "Προβολή ως λίστα"},
    {"Detail View", "Λεπτομέρειες"},
    {"Change to detail view mode", "Προβολή με λεπτομέρειες"},
    {"Go back", "Πίσω"},
    {"Go forward", "Εμπρός"},
    {"Go to the parent directory", "Στον γονικό φάκελο"},
    {"&Rename", "&Μετονομασία"},
    {"&Delete", "&Διαγραφή"},
    {"Show &hidden files", "Εμφάνιση &κρυφών αρχείων"},
    {"&Choose", "&Επιλογή"},
    {"Computer", "Υπολογιστής"},
    {"My Computer", "Ο υπολογιστής μου"},
    {"Drive", "Μονάδα δίσκου"},
    {"Folder", "Φάκελος"},
    {"File Folder", "Φάκελος"},
    {"File", "Αρχείο"},
    {"All Files (*)", "Όλα τα αρχεία (*)"},
    {"Directories", "Φάκελοι"},
    {"Remove", "Αφαίρεση"},
    {"%1\nFile not found.\nPlease verify the correct file name was given.",
     "%1\nΤο αρχείο δε βρέθηκε.\nΕλέγξτε το όνομα του αρχείου."},
    {"%1\nDirectory not found.\nPlease verify the correct directory name was given.",
     "%1\nΟ φάκελος δε βρέθηκε.\nΕλέγξτε το όνομα του φακέλου."},
    {"%1 already exists.\nDo you want to replace it?", "Το %1 υπάρχει ήδη.\nΝα αντικατασταθεί;"},
    // print dialogs
    {"Print", "Εκτύπωση"},
    {"&Print", "Ε&κτύπωση"},
    {"Print Preview", "Προεπισκόπηση εκτύπωσης"},
    {"Page Setup", "Διαμόρφωση σελίδας"},
    {"Page setup", "Διαμόρφωση σελίδας"},
    {"Fit width", "Στο πλάτος"},
    {"Fit page", "Στη σελίδα"},
    {"Zoom in", "Μεγέθυνση"},
    {"Zoom out", "Σμίκρυνση"},
    {"Portrait", "Κατακόρυφα"},
    {"Landscape", "Οριζόντια"},
    {"First page", "Πρώτη σελίδα"},
    {"Previous page", "Προηγούμενη σελίδα"},
    {"Next page", "Επόμενη σελίδα"},
    {"Last page", "Τελευταία σελίδα"},
    {"Show single page", "Μία σελίδα"},
    {"Show facing pages", "Δύο σελίδες"},
    {"Show overview of all pages", "Όλες οι σελίδες"},
    // windows inside the main window, scroll bars
    {"&Restore", "Ε&παναφορά"},
    {"&Move", "&Μετακίνηση"},
    {"&Size", "Μέ&γεθος"},
    {"Mi&nimize", "Ελα&χιστοποίηση"},
    {"Ma&ximize", "Μεγι&στοποίηση"},
    {"Stay on &Top", "Πάντα μπροστά"},
    {"Minimize", "Ελαχιστοποίηση"},
    {"Maximize", "Μεγιστοποίηση"},
    {"Restore Down", "Επαναφορά"},
    {"Restore", "Επαναφορά"},
    {"Menu", "Μενού"},
    {"Scroll here", "Κύλιση εδώ"},
    {"Top", "Αρχή"},
    {"Bottom", "Τέλος"},
    {"Left edge", "Αριστερό άκρο"},
    {"Right edge", "Δεξί άκρο"},
    {"Page up", "Σελίδα πάνω"},
    {"Page down", "Σελίδα κάτω"},
    {"Page left", "Σελίδα αριστερά"},
    {"Page right", "Σελίδα δεξιά"},
    {"Scroll up", "Κύλιση πάνω"},
    {"Scroll down", "Κύλιση κάτω"},
    {"Scroll left", "Κύλιση αριστερά"},
    {"Scroll right", "Κύλιση δεξιά"},
};

class GreekTexts : public QTranslator {
public:
    explicit GreekTexts(QObject* parent) : QTranslator(parent) {
        for (const Entry& entry : entries) table_.insert(entry.source, QString::fromUtf8(entry.greek));
    }

    bool isEmpty() const override { return false; }

    // The program's own contexts have no English, so only the toolkit's classes come here.
    QString translate(const char*, const char* source, const char*, int) const override {
        return table_.value(QByteArray::fromRawData(source, qsizetype(qstrlen(source))));
    }

private:
    QHash<QByteArray, QString> table_;
};

}  // namespace

void useGreekToolkitTexts(QCoreApplication& app) {
    const QString name = u"greekToolkitTexts"_s;
    if (app.findChild<QTranslator*>(name)) return;
    auto* texts = new GreekTexts(&app);
    texts->setObjectName(name);
    QCoreApplication::installTranslator(texts);
}

}  // namespace controls
