#include "controls/toolkittexts.h"

#include <QCoreApplication>
#include <QHash>
#include <QTranslator>

using namespace Qt::Literals::StringLiterals;

namespace controls {

namespace {

// By the source text alone: it means the same in every dialog.
const QHash<QByteArray, QString> greek = {
    // text boxes
    {"&Undo", u"&Αναίρεση"_s},
    {"&Redo", u"Ακύρωση α&ναίρεσης"_s},
    {"Cu&t", u"Απο&κοπή"_s},
    {"&Copy", u"&Αντιγραφή"_s},
    {"&Paste", u"&Επικόλληση"_s},
    {"Delete", u"Διαγραφή"_s},
    {"Select All", u"Επιλογή όλων"_s},
    {"Copy &Link Location", u"Αντιγραφή διεύθυνσης &συνδέσμου"_s},
    // standard buttons
    {"OK", u"Εντάξει"_s},
    {"&OK", u"Εντάξει"_s},
    {"Cancel", u"Άκυρο"_s},
    {"&Cancel", u"Άκυρο"_s},
    {"&Yes", u"&Ναι"_s},
    {"&No", u"Ό&χι"_s},
    {"Save", u"Αποθήκευση"_s},
    {"&Save", u"Αποθήκευση"_s},
    {"Open", u"Άνοιγμα"_s},
    {"&Open", u"Άνοιγμα"_s},
    {"Close", u"Κλείσιμο"_s},
    {"&Close", u"Κλείσιμο"_s},
    {"Apply", u"Εφαρμογή"_s},
    {"Help", u"Βοήθεια"_s},
    {"Discard", u"Απόρριψη"_s},
    {"Retry", u"Επανάληψη"_s},
    {"Ignore", u"Παράβλεψη"_s},
    {"Abort", u"Διακοπή"_s},
    // file dialog
    {"Name", u"Όνομα"_s},
    {"Size", u"Μέγεθος"_s},
    {"Type", u"Τύπος"_s},
    {"Kind", u"Τύπος"_s},
    {"Date Modified", u"Τροποποίηση"_s},
    {"Back", u"Πίσω"_s},
    {"Forward", u"Εμπρός"_s},
    {"Parent Directory", u"Γονικός φάκελος"_s},
    {"Create New Folder", u"Νέος φάκελος"_s},
    {"Create a New Folder", u"Νέος φάκελος"_s},
    {"&New Folder", u"&Νέος φάκελος"_s},
    {"New Folder", u"Νέος φάκελος"_s},
    {"List View", u"Λίστα"_s},
    {"Change to list view mode", u"Προβολή ως λίστα"_s},
    {"Detail View", u"Λεπτομέρειες"_s},
    {"Change to detail view mode", u"Προβολή με λεπτομέρειες"_s},
    {"Go back", u"Πίσω"_s},
    {"Go forward", u"Εμπρός"_s},
    {"Go to the parent directory", u"Στον γονικό φάκελο"_s},
    {"&Rename", u"&Μετονομασία"_s},
    {"&Delete", u"&Διαγραφή"_s},
    {"Show &hidden files", u"Εμφάνιση &κρυφών αρχείων"_s},
    {"&Choose", u"&Επιλογή"_s},
    {"Computer", u"Υπολογιστής"_s},
    {"My Computer", u"Ο υπολογιστής μου"_s},
    {"Drive", u"Μονάδα δίσκου"_s},
    {"Folder", u"Φάκελος"_s},
    {"File Folder", u"Φάκελος"_s},
    {"File", u"Αρχείο"_s},
    {"All Files (*)", u"Όλα τα αρχεία (*)"_s},
    {"Directories", u"Φάκελοι"_s},
    {"Remove", u"Αφαίρεση"_s},
    {"%1\nFile not found.\nPlease verify the correct file name was given.",
     u"%1\nΤο αρχείο δε βρέθηκε.\nΕλέγξτε το όνομα του αρχείου."_s},
    {"%1\nDirectory not found.\nPlease verify the correct directory name was given.",
     u"%1\nΟ φάκελος δε βρέθηκε.\nΕλέγξτε το όνομα του φακέλου."_s},
    {"%1 already exists.\nDo you want to replace it?", u"Το %1 υπάρχει ήδη.\nΝα αντικατασταθεί;"_s},
    // print dialogs
    {"Print", u"Εκτύπωση"_s},
    {"&Print", u"Ε&κτύπωση"_s},
    {"Print Preview", u"Προεπισκόπηση εκτύπωσης"_s},
    {"Page Setup", u"Διαμόρφωση σελίδας"_s},
    {"Page setup", u"Διαμόρφωση σελίδας"_s},
    {"Fit width", u"Στο πλάτος"_s},
    {"Fit page", u"Στη σελίδα"_s},
    {"Zoom in", u"Μεγέθυνση"_s},
    {"Zoom out", u"Σμίκρυνση"_s},
    {"Portrait", u"Κατακόρυφα"_s},
    {"Landscape", u"Οριζόντια"_s},
    {"First page", u"Πρώτη σελίδα"_s},
    {"Previous page", u"Προηγούμενη σελίδα"_s},
    {"Next page", u"Επόμενη σελίδα"_s},
    {"Last page", u"Τελευταία σελίδα"_s},
    {"Show single page", u"Μία σελίδα"_s},
    {"Show facing pages", u"Δύο σελίδες"_s},
    {"Show overview of all pages", u"Όλες οι σελίδες"_s},
    // windows inside the main window, scroll bars
    {"&Restore", u"Ε&παναφορά"_s},
    {"&Move", u"&Μετακίνηση"_s},
    {"&Size", u"Μέ&γεθος"_s},
    {"Mi&nimize", u"Ελα&χιστοποίηση"_s},
    {"Ma&ximize", u"Μεγι&στοποίηση"_s},
    {"Stay on &Top", u"Πάντα μπροστά"_s},
    {"Minimize", u"Ελαχιστοποίηση"_s},
    {"Maximize", u"Μεγιστοποίηση"_s},
    {"Restore Down", u"Επαναφορά"_s},
    {"Restore", u"Επαναφορά"_s},
    {"Menu", u"Μενού"_s},
    {"Scroll here", u"Κύλιση εδώ"_s},
    {"Top", u"Αρχή"_s},
    {"Bottom", u"Τέλος"_s},
    {"Left edge", u"Αριστερό άκρο"_s},
    {"Right edge", u"Δεξί άκρο"_s},
    {"Page up", u"Σελίδα πάνω"_s},
    {"Page down", u"Σελίδα κάτω"_s},
    {"Page left", u"Σελίδα αριστερά"_s},
    {"Page right", u"Σελίδα δεξιά"_s},
    {"Scroll up", u"Κύλιση πάνω"_s},
    {"Scroll down", u"Κύλιση κάτω"_s},
    {"Scroll left", u"Κύλιση αριστερά"_s},
    {"Scroll right", u"Κύλιση δεξιά"_s},
};

class GreekTexts : public QTranslator {
public:
    using QTranslator::QTranslator;

    bool isEmpty() const override { return false; }

    // The program's own contexts have no English, so only the toolkit's classes come here.
    QString translate(const char*, const char* source, const char*, int) const override {
        return greek.value(QByteArray::fromRawData(source, qsizetype(qstrlen(source))));
    }
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
