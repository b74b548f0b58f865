#include "cards/frmhmerologio.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "controls/choicebox.h"
#include "controls/names.h"
#include "controls/picturebutton.h"
#include "controls/theme.h"
#include "core/columnwidths.h"
#include "core/printlist.h"
#include "data/format.h"
#include "data/recordset.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

using controls::arrayName;
using controls::named;

namespace {

const QString section = u"lvHmerologio"_s;
const QString orderSection = u"DateQuery"_s;

QVector<controls::ListColumn> columns() {
    QVector<controls::ListColumn> all;
    for (const QString& name : {u"Ημερομηνία"_s, u"Επώνυμο"_s, u"Όνομα"_s, u"Αιτιολογία"_s, u"Χρέωση"_s, u"Πίστωση"_s})
        all.append({name, name});
    all[4].number = all[5].number = true;
    return all;
}

}  // namespace

frmHmerologio::frmHmerologio(core::MainMod& mod, std::function<void(qint64)> showCard)
    : Form(mod, u"frmHmerologio"_s, u"Ημερολόγιο Κινήσεων"_s, {u"Hmerologio"_s, 1000, 0}),
      showCard_(std::move(showCard)) {
    build();
    on(ListView1, &controls::ListView::columnClicked, [this](int column) { columnClicked(column); });
    on(ListView1, &controls::ListView::rowActivated, [this](int row) { openCard(row); });
    next_.setInterval(0);
    on(&next_, &QTimer::timeout, [this] { readOn(0); });
}

void frmHmerologio::build() {
    ListView1 = named(new controls::ListView, u"ListView1"_s);
    ListView1->setAccessibleName(windowTitle());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(14, 12, 14, 10);
    layout->setSpacing(10);
    layout->addWidget(filterRow());
    layout->addWidget(ListView1, 1);
    layout->addWidget(footRow());
    setMinimumSize(720, 480);
}

controls::DateBox* frmHmerologio::dateBox(const QString& name, int picker, const QString& caption, QLayout* into) {
    auto* box = named(new controls::DateBox, name);
    auto* calendar = named(new controls::DatePicker, arrayName(u"DTPcustDate"_s, picker));
    controls::setAccessibleCaption(calendar, u"Ημερολόγιο: "_s + caption);
    controls::pairUp(box, calendar);
    on(box, &controls::DateBox::refused, [this] { mod_.beep(); });
    auto* label = new QLabel(caption);
    controls::tie(label, box);
    for (QWidget* widget : {static_cast<QWidget*>(label), static_cast<QWidget*>(box), static_cast<QWidget*>(calendar)})
        into->addWidget(widget);
    return box;
}

QWidget* frmHmerologio::filterRow() {
    auto* rows = new QWidget;
    auto* grid = new QVBoxLayout(rows);
    grid->setContentsMargins(0, 0, 0, 0);
    auto *first = new QHBoxLayout, *second = new QHBoxLayout;
    for (QHBoxLayout* row : {first, second}) {
        row->setSpacing(5);
        grid->addLayout(row);
    }
    txtFrom = dateBox(u"txtFrom"_s, 0, u"Από:"_s, first);
    first->addSpacing(8);
    txtTo = dateBox(u"txtTo"_s, 1, u"Έως:"_s, first);
    first->addSpacing(8);
    Combo1 = named(new controls::ChoiceBox(false), u"Combo1"_s);
    txtAitia = named(new controls::TextBox, u"txtAitia"_s);
    struct Field {
        QString caption;
        QWidget* box;
        QHBoxLayout* row;
    };
    for (const Field& field : {Field{u"Κατηγορία:"_s, Combo1, first}, Field{u"Αιτιολογία:"_s, txtAitia, second}}) {
        auto* label = new QLabel(field.caption);
        controls::tie(label, field.box);
        field.row->addWidget(label);
        field.row->addWidget(field.box, 1);
    }
    Combo1->setMinimumContentsLength(16);
    Combo1->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    // Enter in the reason lists, where the other boxes of the program move on.
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* shortcut = new QShortcut(key, txtAitia, nullptr, nullptr, Qt::WidgetShortcut);
        on(shortcut, &QShortcut::activated, [this] { FillList(); });
    }
    return rows;
}

QWidget* frmHmerologio::footRow() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    debit_ = named(new QLabel(u" Χρέωση: 0,00"_s), arrayName(u"Label1"_s, 3));
    lblYpoloipo = named(new QLabel(u"Πίστωση: 0,00 "_s), u"lblYpoloipo"_s);
    for (QLabel* label : {debit_, lblYpoloipo}) {
        label->setFont(controls::font(u"Tahoma"_s, 11, true));
        layout->addWidget(label);
        layout->addSpacing(16);
    }
    layout->addStretch(1);
    struct Button {
        QString caption;
        QString icon;
        std::function<void()> run;
    };
    int index = 0;
    for (const Button& def : {Button{u"Εμφάνιση Λίστας"_s, u"search"_s, [this] { FillList(); }},
                              Button{u"Εκτύπωση Λίστας"_s, u"print"_s, [this] { print(); }},
                              Button{u"Έξοδος"_s, u"exit"_s, [this] { emit closeRequested(); }}}) {
        auto* button = named(new controls::PictureButton(def.caption, def.icon), arrayName(u"lblClick"_s, index++));
        on(button, &QAbstractButton::clicked, [run = def.run] { run(); });
        layout->addWidget(button);
    }
    return row;
}

void frmHmerologio::onLoad() {
    const QDate today = mod_.services.clock.today();
    txtFrom->setDate(QDate(today.year(), today.month(), 1));
    txtTo->setDate(today);
    core::loadColumns(mod_.services.settings, section, *ListView1, columns());
    const auto& settings = mod_.services.settings;
    mod_.gSqlOrdr = settings.value(orderSection, u"SqlOrdr"_s, u"Day"_s);
    mod_.gSqlOrdr1 = settings.value(orderSection, u"SqlOrdr1"_s, u"Start"_s);
    mod_.gSqlOrdr2 = settings.value(orderSection, u"SqlOrdr2"_s, u"End"_s);
    FillCombo();
    FillList();
}

void frmHmerologio::FillCombo() {
    QStringList lines{QString()};
    for (data::Recordset rows(mod_.gConn, u"select description,code,PAYABLE from cardKategory order by description"_s);
         !rows.eof(); rows.moveNext())
        lines << rows[u"description"].text();
    Combo1->clear();
    Combo1->addItems(lines);
}

JournalFilter frmHmerologio::filter() {
    const auto from = txtFrom->date(), to = txtTo->date();
    if (!from || !to) throw data::Error(data::ErrorCategory::Type, u"Η περίοδος των κινήσεων δεν είναι σωστή."_s);
    JournalFilter filter{*from, *to, txtAitia->text(), {}};
    const QString category = Combo1->currentText();
    if (category.isEmpty()) return filter;
    data::Recordset found(mod_.gConn,
                          data::Sql(u"select description,code from cardKategory where description=?"_s, category));
    if (found.isEmpty())
        throw data::Error(data::ErrorCategory::Constraint, u"Η κατηγορία «%1» δεν υπάρχει πια."_s.arg(category));
    filter.category = found[u"code"].toLong();
    return filter;
}

void frmHmerologio::FillList() {
    // A period that is read at once never leaves the list empty on screen.
    constexpr int atOnceMs = 15;
    next_.stop();
    reader_.reset();
    ListView1->clear();
    try {
        reader_ = std::make_unique<JournalReader>(mod_.gConn, filter());
    } catch (const data::Error& error) {
        return fail(error);
    }
    readOn(atOnceMs);
    if (!isReading()) return;
    setCursor(Qt::BusyCursor);
    next_.start();
}

bool frmHmerologio::readOn(int milliseconds) {
    QElapsedTimer clock;
    clock.start();
    try {
        do {
            if (!reader_->step()) {
                finish();
                return true;
            }
        } while (clock.elapsed() < milliseconds);
    } catch (const data::Error& error) {
        fail(error);
        return false;
    }
    return true;
}

void frmHmerologio::finish() {
    next_.stop();
    unsetCursor();
    const auto reader = std::move(reader_);
    QVector<controls::ListRow> rows;
    for (JournalRow& row : reader->takeRows()) rows.append({std::move(row.cells), row.card, {}});
    const QString debit = reader->debit().text(), credit = reader->credit().text(), blank = u" "_s;
    rows.append({{blank}, {}, {}});
    rows.append({{blank, {}, {}, u"ΣΥΝΟΛΑ"_s, debit, credit}, {}, {}});
    ListView1->setRows(std::move(rows));
    debit_->setText(u"Χρέωση: "_s + debit);
    lblYpoloipo->setText(u"Πίστωση: "_s + credit);
}

// The list shows how far it had come.
void frmHmerologio::fail(const data::Error& error) {
    next_.stop();
    unsetCursor();
    QVector<controls::ListRow> rows;
    if (const auto reader = std::move(reader_))
        for (JournalRow& row : reader->takeRows()) rows.append({std::move(row.cells), row.card, {}});
    ListView1->setRows(std::move(rows));
    core::showFailure(mod_, this, error,
                      u"Πρόβλημα κατά την επεξεργασία των δεμένων! \nΕλέγχετε τα πεδία της ημερομηνίας! \n"_s);
}

// The three keys belong to the lists of appointments, whose order a click here has always moved too.
void frmHmerologio::columnClicked(int column) {
    static const QStringList orders = {u"Subject"_s, u"Location"_s, u"Day"_s, u"Start"_s, u"end"_s};
    if (column < orders.size()) {
        mod_.gSqlOrdr2 = mod_.gSqlOrdr1;
        mod_.gSqlOrdr1 = mod_.gSqlOrdr;
        mod_.gSqlOrdr = orders[column];
    }
    FillList();
}

void frmHmerologio::openCard(int row) {
    const QVariant card = ListView1->row(row).tag;
    if (card.isValid()) showCard_(card.toLongLong());
}

void frmHmerologio::print() {
    // All of the period goes on paper, also what is still being read.
    while (isReading())
        if (!readOn(1000)) return;
    const QString title = u"Ημερολόγιο από %1 έως %2"_s.arg(txtFrom->formattedText(), txtTo->formattedText());
    if (core::gPrintListView(mod_, this, *ListView1, title, core::ListHeading::Owner))
        mod_.services.prompts.message(this, platform::MessageIcon::Plain, core::programTitle(),
                                      u"Η εκτύπωση ολοκληρώθηκε"_s);
}

void frmHmerologio::onUnload() {
    next_.stop();
    reader_.reset();
    auto& settings = mod_.services.settings;
    core::storeColumns(settings, section, *ListView1);
    settings.setValue(orderSection, u"SqlOrdr"_s, mod_.gSqlOrdr);
    settings.setValue(orderSection, u"SqlOrdr1"_s, mod_.gSqlOrdr1);
    settings.setValue(orderSection, u"SqlOrdr2"_s, mod_.gSqlOrdr2);
}

}  // namespace cards
