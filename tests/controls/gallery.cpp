// Draws the controls in both themes and at two scales into PNG files, for the eye.
// Usage: dorv_gallery FOLDER
#include <QtWidgets>

#include "controls/boxes.h"
#include "controls/datepair.h"
#include "controls/names.h"
#include "controls/picturebutton.h"
#include "controls/theme.h"

using namespace Qt::Literals::StringLiterals;

using namespace controls;

namespace {

QWidget* buttonRow() {
    const std::pair<const char*, const char*> buttons[] = {
        {"Προηγούμενος", "prev"},       {"Αναζήτηση", "search"}, {"Επόμενος", "next"},   {"Προσθήκη", "add"},
        {"Μεταβολή", "edit"},           {"Διαγραφή", "delete"},  {"Καταχώρηση", "save"}, {"Ακύρωση", "cancel"},
        {"Εκτύπωση καρτέλας", "print"}, {"Έξοδος", "exit"}};
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    int index = 0;
    for (const auto& [caption, icon] : buttons) {
        auto* button = new PictureButton(QString::fromUtf8(caption), QString::fromUtf8(icon));
        button->setEnabled(index != 6 && index != 7);
        layout->addWidget(button);
        if (index == 1) {
            QEnterEvent enter({5, 5}, {5, 5}, {5, 5});
            QApplication::sendEvent(button, &enter);
        }
        if (index == 3) button->setDown(true);
        ++index;
    }
    layout->addStretch();
    return row;
}

QHBoxLayout* datePair(const QString& text) {
    auto* box = new DateBox;
    box->setFormattedText(text);
    auto* picker = new DatePicker;
    pairUp(box, picker);
    auto* row = new QHBoxLayout;
    row->setSpacing(2);
    row->addWidget(box);
    row->addWidget(picker);
    row->addStretch();
    return row;
}

QWidget* fields() {
    auto* page = new QWidget;
    auto* grid = new QGridLayout(page);
    int line = 0;
    const auto row = [&](const QString& caption, QWidget* field) {
        auto* label = new QLabel(caption);
        tie(label, field);
        grid->addWidget(label, line, 0);
        grid->addWidget(field, line++, 1);
        return field;
    };
    row("Επώνυμο:", named(new TextBox, "first"));
    page->findChild<TextBox*>("first")->setText("Παπαδόπουλος-Οικονόμου");
    auto* focused = static_cast<TextBox*>(row("Όνομα:", named(new TextBox, "lit")));
    focused->setText("Ευαγγελία");
    focused->setHighlighting(true);
    auto* locked = static_cast<TextBox*>(row("Επάγγελμα:", new TextBox));
    locked->setText("Συμβολαιογράφος (μόνο ανάγνωση)");
    locked->setReadOnly(true);
    auto* off = static_cast<TextBox*>(row("Πόλη:", new TextBox));
    off->setText("Θεσσαλονίκη (ανενεργό)");
    off->setEnabled(false);
    auto* number = static_cast<NumberBox*>(row("Ποσό συνδρομής:", new NumberBox));
    number->setText("1234,50");
    auto* combo = static_cast<QComboBox*>(row("Κατηγορία:", new QComboBox));
    combo->addItems({"Πελάτες λιανικής", "Προμηθευτές"});
    auto* comboOff = static_cast<QComboBox*>(row("Φύλο:", new QComboBox));
    comboOff->addItems({"Γυναίκα"});
    comboOff->setEnabled(false);
    auto* editable = static_cast<QComboBox*>(row("Εντολέας:", new QComboBox));
    editable->setEditable(true);
    editable->addItem("Admin");
    grid->addWidget(new QLabel("Ημ. γέννησης:"), line, 0);
    grid->addLayout(datePair("05/11/1976"), line++, 1);
    grid->addWidget(new QLabel("Τελευταία κίνηση:"), line, 0);
    grid->addLayout(datePair(""), line++, 1);
    row("Αντίτυπα:", new QSpinBox);
    grid->setRowStretch(line, 1);
    return page;
}

QWidget* choices() {
    auto* group = new QGroupBox("Επιλογές εμφάνισης");
    auto* layout = new QVBoxLayout(group);
    for (const char* text : {"Νέος πελάτης", "Ενεργό μέλος", "Αποστολή ευχών"}) {
        auto* box = new QCheckBox(QString::fromUtf8(text));
        box->setChecked(layout->count() != 1);
        box->setEnabled(layout->count() != 2);
        layout->addWidget(box);
    }
    for (const char* text : {"Όλες οι εγγραφές", "Μόνο επιλεγμένες", "Καμία (ανενεργό)"}) {
        auto* radio = new QRadioButton(QString::fromUtf8(text));
        radio->setChecked(layout->count() == 3);
        radio->setEnabled(layout->count() != 5);
        layout->addWidget(radio);
    }
    auto* buttons = new QHBoxLayout;
    auto* ok = new QPushButton("Εντάξει");
    ok->setDefault(true);
    buttons->addWidget(ok);
    buttons->addWidget(new QPushButton("Άκυρο"));
    auto* dead = new QPushButton("Διαγραφή");
    dead->setEnabled(false);
    buttons->addWidget(dead);
    layout->addLayout(buttons);
    auto* withIcon = new QPushButton(icon("mail"), "Αποστολή e-mail");
    layout->addWidget(withIcon);
    auto* progress = new QProgressBar;
    progress->setValue(40);
    layout->addWidget(progress);
    return group;
}

QWidget* table() {
    auto* tree = new QTreeWidget;
    tree->setRootIsDecorated(false);
    tree->setAlternatingRowColors(true);
    tree->setHeaderLabels({"Ημερομηνία", "Αιτιολογία", "Χρέωση", "Πίστωση"});
    for (int i = 0; i < 14; ++i)
        tree->addTopLevelItem(new QTreeWidgetItem({QString("%1/11/2026").arg(i + 1, 2, 10, QChar('0')),
                                                   "Συνδρομή έτους " + QString::number(2000 + i), "120,00", "0,00"}));
    tree->topLevelItem(2)->setSelected(true);
    tree->header()->setSortIndicatorShown(true);
    return tree;
}

QWidget* iconSheet() {
    auto* sheet = new QWidget;
    auto* grid = new QGridLayout(sheet);
    grid->setSpacing(4);
    int i = 0;
    for (const QString& file : QDir(":/dorvalist/icons").entryList({"*.svg"})) {
        const QString name = file.chopped(4);
        if (name.startsWith("chevron") || name.startsWith("box-") || name.startsWith("tick")) continue;
        auto* label = new QLabel;
        label->setPixmap(
            icon(name).pixmap(QSize(24, 24), sheet->devicePixelRatioF(), i % 9 == 8 ? QIcon::Disabled : QIcon::Normal));
        label->setToolTip(name);
        grid->addWidget(label, i / 14, i % 14);
        ++i;
    }
    return sheet;
}

QWidget* gallery() {
    auto* window = new QMainWindow;
    window->setWindowTitle("Καρτέλα");
    QMenuBar* bar = window->menuBar();
    for (const char* text : {"Αρχείο", "Καρτέλες", "Ημερολόγιο", "Εκτυπώσεις", "Βοήθεια"})
        bar->addMenu(QString::fromUtf8(text));
    auto* central = new QWidget;
    auto* layout = new QVBoxLayout(central);
    layout->addWidget(buttonRow());
    auto* tabs = new QTabWidget;
    auto* page = new QWidget;
    auto* columns = new QGridLayout(page);
    columns->addWidget(fields(), 0, 0, 2, 1);
    columns->addWidget(choices(), 0, 1);
    auto* memo = new MemoBox;
    memo->setText("Προτιμά επικοινωνία μετά τις 17:00.\nΣτέλνουμε ευχές στη γιορτή της.");
    memo->setMaximumHeight(70);
    columns->addWidget(memo, 1, 1);
    columns->addWidget(table(), 0, 2, 2, 1);
    columns->setColumnStretch(2, 1);
    for (const char* caption :
         {"Βασικά Στοιχεία", "Ειδικά Στοιχεία", "Ιστορικό", "Σημειώσεις", "Κείμενα", "Συνδέσεις", "Συναντήσεις"})
        tabs->addTab(tabs->count() ? new QWidget : page, QString::fromUtf8(caption));
    layout->addWidget(tabs, 1);
    layout->addWidget(iconSheet());
    window->setCentralWidget(central);
    window->statusBar()->showMessage("Καρτέλα 1 από 2.345");
    window->resize(1060, 700);
    return window;
}

QWidget* childWindows() {
    auto* area = new QMdiArea;
    int index = 0;
    for (const char* title : {"Καρτέλα", "Συναντήσεις σήμερα"}) {
        auto* memo = new MemoBox;
        memo->setReadOnly(true);
        memo->setText("Μόνο ανάγνωση: Παπαδόπουλος Γεώργιος, 2310 123456");
        memo->setWindowTitle(QString::fromUtf8(title));
        memo->setWindowIcon(icon("card"));
        auto* window = area->addSubWindow(memo);
        window->setGeometry(20 + 200 * index, 20 + 60 * index, 320, 160);
        ++index;
    }
    area->resize(580, 280);
    return area;
}

void save(QWidget* widget, const QString& file) {
    QCoreApplication::processEvents();
    widget->grab().save(file);
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    const QString folder = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QDir::tempPath();
    const QString scale = QString::number(qRound(app.devicePixelRatio()));
    for (const ThemeKind kind : {ThemeKind::Light, ThemeKind::Dark}) {
        applyTheme(app, kind);
        const QString tail = u"-%1-%2x.png"_s.arg(theme().dark ? "dark" : "light", scale);
        std::unique_ptr<QWidget> window(gallery());
        window->show();
        window->activateWindow();
        window->findChild<TextBox*>("lit")->setFocus(Qt::TabFocusReason);
        save(window.get(), folder + "/controls" + tail);
        std::unique_ptr<QWidget> inner(childWindows());
        inner->show();
        save(inner.get(), folder + "/windows" + tail);
        inner.reset();
        auto* picker = window->findChild<DatePicker*>();
        picker->setValue(QDate(2026, 11, 23));
        picker->dropDown();
        save(picker->findChild<QFrame*>("calendarPopup"), folder + "/calendar" + tail);
        QMenu menu;
        menu.addAction(icon("add"), "Νέα καρτέλα");
        menu.addAction(icon("print"), "Εκτύπωση")->setEnabled(false);
        menu.addSeparator();
        menu.addAction("Έξοδος\tAlt+F4");
        menu.setActiveAction(menu.actions().constFirst());
        menu.popup({0, 0});
        save(&menu, folder + "/menu" + tail);
        menu.hide();
        QMessageBox box(QMessageBox::Question, "Dorvalist", "Να διαγραφεί η καρτέλα;",
                        QMessageBox::Yes | QMessageBox::No);
        box.show();
        save(&box, folder + "/box" + tail);
    }
    return 0;
}
