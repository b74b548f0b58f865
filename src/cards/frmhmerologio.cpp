#include "cards/frmhmerologio.h"

#include "controls/choicebox.h"
#include "controls/names.h"
#include "controls/theme.h"
#include "core/categories.h"
#include "core/printlist.h"
#include "core/required.h"
#include "data/recordset.h"
#include "data/sql.h"
#include "data/values/format.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

using controls::Item;
using controls::named;

namespace {

QVector<controls::ListColumn> columns() {
    QVector<controls::ListColumn> all;
    for (const QString& name : {u"Ημερομηνία"_s, u"Επώνυμο"_s, u"Όνομα"_s, u"Αιτιολογία"_s, u"Χρέωση"_s, u"Πίστωση"_s})
        all.append({name, name});
    all[4].number = all[5].number = true;
    return all;
}

}  // namespace

frmHmerologio::frmHmerologio(core::MainMod& mod)
    : Form(mod, u"frmHmerologio"_s, u"Ημερολόγιο Κινήσεων"_s, {u"Hmerologio"_s, 1000, 0}, u"journal"_s),
      ListView1(
          new core::StoredList(mod.services.settings, u"ListView1"_s, windowTitle(), u"lvHmerologio"_s, columns())),
      commands_(mod, this,
                {{u"lblClick(0)"_s, u"search"_s, u"Εμφάνιση Λίστας"_s, {}, [this] { FillList(); }},
                 {u"lblClick(1)"_s, u"print"_s, u"Εκτύπωση Λίστας"_s, {}, [this] { print(); }},
                 {u"lblClick(2)"_s, u"exit"_s, u"Έξοδος"_s, {}, [this] { emit closeRequested(); }}}),
      pieces_(mod, this),
      keys_(core::SortKeys::ofAppointments(mod)) {
    controls::add(controls::pageLayout(this), {filter(), {ListView1, 1}, foot()});
    setMinimumSize(720, 480);
    on(ListView1, &controls::ListView::columnClicked, [this](int column) { columnClicked(column); });
    on(ListView1, &controls::ListView::rowActivated, [this](int row) {
        if (const QVariant card = ListView1->row(row).tag; card.isValid()) mod_.doors.openCard(card.toLongLong());
    });
    enterRuns(txtAitia, [this] { FillList(); });
}

QWidget* frmHmerologio::filter() {
    period_ = new controls::Period(u"DTPcustDate"_s);
    Combo1 = named(new controls::ChoiceBox(false), u"Combo1"_s);
    on(Combo1, &controls::ChoiceBox::opening, [this] { FillCombo(); });
    Combo1->setMinimumContentsLength(16);
    Combo1->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    txtAitia = named(new controls::TextBox, u"txtAitia"_s);
    auto* rows = new QWidget;
    controls::add(controls::bareLayout(rows),
                  {controls::row({period_, controls::captionOf(u"Κατηγορία:"_s, Combo1), {Combo1, 1}}),
                   controls::row({controls::captionOf(u"Αιτιολογία:"_s, txtAitia), {txtAitia, 1}})});
    return rows;
}

QWidget* frmHmerologio::foot() {
    debit_ = named(new QLabel(u" Χρέωση: 0,00"_s), u"Label1(3)"_s);
    lblYpoloipo = named(new QLabel(u"Πίστωση: 0,00 "_s), u"lblYpoloipo"_s);
    for (QLabel* sum : {debit_, lblYpoloipo}) sum->setFont(controls::font(u"Tahoma"_s, 11, true));
    auto* row = controls::row({debit_, Item::gap(16), lblYpoloipo, Item::rest()});
    commands_.addPictures(row);
    return controls::rowWidget({row});
}

void frmHmerologio::onLoad() {
    period_->setMonthToDate(mod_.services.clock.today());
    keys_.load();
    FillCombo();
    FillList();
}

void frmHmerologio::FillCombo() {
    core::fillCategories(mod_.gConn, *Combo1);
}

JournalFilter frmHmerologio::chosen() {
    const controls::Days days = core::required(*period_, u"των κινήσεων"_s);
    JournalFilter filter{days.from, days.to, txtAitia->text(), {}};
    filter.category = core::chosenCategory(mod_.gConn, *Combo1);
    return filter;
}

void frmHmerologio::FillList() {
    pieces_.stop();
    ListView1->clear();
    reader_.reset();
    try {
        reader_ = std::make_unique<JournalReader>(mod_.gConn, chosen());
    } catch (const data::Error& error) {
        fail(error);
        return core::refillCategories(mod_.gConn, *Combo1);
    }
    pieces_.start(
        {[this] { return reader_->step(); }, [this] { finish(); }, [this](const data::Error& error) { fail(error); }});
}

QVector<controls::ListRow> frmHmerologio::takeRows() {
    QVector<controls::ListRow> rows;
    if (reader_)
        for (JournalRow& row : reader_->takeRows()) rows.append({std::move(row.cells), row.card, {}});
    return rows;
}

void frmHmerologio::finish() {
    QVector<controls::ListRow> rows = takeRows();
    const QString blank = u" "_s;
    rows.append({{blank}, {}, {}});
    rows.append({{blank, {}, {}, u"ΣΥΝΟΛΑ"_s, reader_->debit().text(), reader_->credit().text()}, {}, {}});
    ListView1->setRows(std::move(rows));
    showSums();
}

// Of the rows that were read.
void frmHmerologio::showSums() {
    debit_->setText(u"Χρέωση: "_s + (reader_ ? reader_->debit() : Money()).text());
    lblYpoloipo->setText(u"Πίστωση: "_s + (reader_ ? reader_->credit() : Money()).text());
}

// The list shows how far it had come.
void frmHmerologio::fail(const data::Error& error) {
    showSums();
    ListView1->setRows(takeRows());
    reader_.reset();
    core::showFailure(mod_, this, error,
                      u"Πρόβλημα κατά την επεξεργασία των δεμένων! \nΕλέγχετε τα πεδία της ημερομηνίας! \n"_s);
}

// The three keys belong to the lists of appointments, whose order a click here has always moved too.
void frmHmerologio::columnClicked(int column) {
    keys_.click(column);
    FillList();
}

void frmHmerologio::print() {
    // What the heading says goes on paper: all of the period as it stands in its boxes.
    FillList();
    if (!reader_ || !pieces_.finishNow()) return;
    printAndTell([this] {
        return core::gPrintListView(mod_, this, *ListView1, u"Ημερολόγιο "_s + period_->text(),
                                    core::ListHeading::Owner);
    });
}

void frmHmerologio::onUnload() {
    pieces_.stop();
    keys_.store();
}

}  // namespace cards
