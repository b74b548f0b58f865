#include "cards/historytab.h"

#include "cards/frmhistory.h"
#include "controls/names.h"
#include "controls/theme.h"
#include "core/required.h"
#include "data/recordset.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

using controls::Item;
using controls::named;

namespace {

QVector<controls::ListColumn> columns() {
    return {{u"Ημερομηνία"_s, u"Ημερομηνία"_s, 1100},
            {u"Αιτιολογία"_s, u"Αιτιολογία"_s, 6000},
            {u"Χρέωση"_s, u"Χρέωση"_s, 1000, true},
            {u"Πίστωση"_s, u"Πίστωση"_s, 1000, true},
            {u"Υπόλοιπο"_s, u"Υπόλοιπο"_s, 1000, true}};
}

QVector<controls::ListRow> listRows(QVector<LedgerRow> rows) {
    QVector<controls::ListRow> list;
    list.reserve(rows.size());
    for (LedgerRow& row : rows)
        list.append({std::move(row.cells), row.movement ? QVariant(*row.movement) : QVariant(), {}});
    return list;
}

}  // namespace

HistoryTab::HistoryTab(core::MainMod& mod)
    : Guarded(mod, this),
      period_(new controls::Period(u"DTPcustDate0"_s)),
      ListView1(new core::StoredList(mod.services.settings, u"ListView1"_s, u"Κινήσεις"_s, u"lvHistory"_s, columns())),
      lblYpoloipo(named(new QLabel(u"0,00 "_s), u"lblYpoloipo"_s)),
      commands_(mod, this, commands()) {
    period_->setMonthToDate(mod.services.clock.today());
    const QStringList ofRows = {u"cmdAddHistory"_s, u"Command4"_s, u"cmdDelHistory"_s};
    auto* buttons = controls::row({});
    commands_.addButtons(buttons, ofRows);
    controls::add(buttons, {Item::rest(), commands_.button(u"cmdPrint"_s)});
    controls::add(controls::bareLayout(this), {head(), {ListView1, 1}, buttons});
    commands_.bindKeys(ListView1, ofRows);
    QMenu* menu = commands_.menu(u"MnuPopUpHist"_s, ofRows);
    on(ListView1, &controls::ListView::rowActivated, [this] { editMovement(); });
    on(ListView1, &controls::ListView::menuRequested,
       [this, menu](int row, QPoint position) { commands_.popUp(menu, row, position); });
}

QVector<core::Command> HistoryTab::commands() {
    const auto shown = [this] { return !code_.isEmpty(); };
    const auto possible = [this] { return browsing_ && !code_.isEmpty(); };
    const auto writing = [=, this] { return possible() && !mod_.onlyReads(); };
    return {{u"cmdShow"_s, u"search"_s, u"Εμφάνισε"_s, {}, [this] { refresh(); }, shown},
            {u"cmdAddHistory"_s,
             u"add"_s,
             u"Νέα Κίνηση"_s,
             {Qt::Key_Insert},
             [this] { open({}); },
             writing,
             false,
             u"MnuNewHistory"_s},
            {u"Command4"_s,
             u"edit"_s,
             u"Διόρθωση Κίνησης"_s,
             {},
             [this] { editMovement(); },
             writing,
             true,
             u"mnuEditHistory"_s,
             u"Επεξεργασία Κίνηση"_s},
            {u"cmdDelHistory"_s,
             u"delete"_s,
             u"Διαγραφή Κίνησης"_s,
             {Qt::Key_Delete},
             [this] { deleteMovement(); },
             writing,
             true,
             u"MnuDelHistory"_s},
            {u"cmdPrint"_s, u"print"_s, u"Εκτύπωση Κίνησης"_s, {}, [this] { emit printRequested(); }, possible}};
}

QLayout* HistoryTab::head() {
    lblYpoloipo->setFont(controls::font(u"Tahoma"_s, 12, true));
    auto* caption = named(new QLabel(u" Υπόλοιπο:"_s), controls::arrayName(u"Label1"_s, 3));
    return controls::row({period_, commands_.button(u"cmdShow"_s), Item::rest(), caption, lblYpoloipo});
}

void HistoryTab::fill(const QString& code) {
    // Known from here on, so that a period that is none can be mended and shown.
    setCode(code);
    const controls::Days days = core::required(*period_, u"των κινήσεων"_s);
    Ledger ledger(days.from, days.to);
    // Named columns, since notes and photos of every movement would be read along with all of them.
    data::Recordset rows(mod_.gConn, data::Sql(u"Select aa,ΗΜΕΡΟΜΗΝΙΑ,ΑΙΤΙΟΛΟΓΙΑ,ΧΡΕΩΣΗ,ΠΙΣΤΩΣΗ from History where "
                                               "codecards=? order by ημερομηνια,aa"_s,
                                               code.toLongLong()));
    for (; !rows.eof(); rows.moveNext())
        ledger.add({rows.field(0).toLong(), rows.field(1).toDate(), rows.field(2).text(),
                    Money::of(rows.field(3).toDouble()), Money::of(rows.field(4).toDouble())});
    balance_ = ledger.balance();
    const QVariant selected = changed_ ? QVariant(*std::exchange(changed_, std::nullopt)) : ListView1->currentTag();
    ListView1->setRows(listRows(std::move(ledger).finish()));
    lblYpoloipo->setText(balance_.text() + u' ');
    // The movement that was just written is the selected one, and in view; else the one that was.
    if (selected.isValid()) ListView1->selectTag(selected);
}

void HistoryTab::refresh() {
    fill(code_);
    storeBalance();
}

void HistoryTab::storeBalance() {
    if (balance_.isBeyond())
        throw data::Error(data::ErrorCategory::Type,
                          u"Το υπόλοιπο της καρτέλας είναι μεγαλύτερο απ' όσο χωρά ένα ποσό και δεν αποθηκεύτηκε.\n"
                          "Διορθώστε τις κινήσεις που δείχνουν «υπέρβαση»."_s);
    data::Recordset stored(mod_.gConn, data::Sql(u"select total from cards where code=?"_s, code_.toLongLong()));
    if (stored.isEmpty()) return;
    // What binary sums left behind the digits that anybody sees is no difference.
    const Money before = Money::of(stored[u"total"].toDouble());
    if (!stored[u"total"].isNull() && !before.isBeyond() && before.toDouble() == balance_.toDouble()) return;
    mod_.gConn.execute(data::Sql(u"Update cards set total=? Where code=?"_s, balance_.toDouble(), code_.toLongLong()));
}

void HistoryTab::setCode(const QString& code) {
    code_ = code;
    commands_.refresh();
}

void HistoryTab::clear() {
    setCode({});
    ListView1->clear();
    lblYpoloipo->setText(u"0,00 "_s);
}

void HistoryTab::setBrowsing(bool browsing) {
    browsing_ = browsing;
    commands_.refresh();
}

void HistoryTab::open(std::optional<qint64> movement) {
    showForm([&](frmHistory& form) {
        form.EditMode = movement.has_value();
        form.MovementId = movement.value_or(0);
        form.CodeCards = code_;
        form.load();
    });
}

void HistoryTab::resume(const core::Draft& draft) {
    showForm([&](frmHistory& form) { form.resume(draft); });
}

void HistoryTab::showForm(const std::function<void(frmHistory&)>& load) {
    frmHistory form(mod_, this, [this](qint64 saved) {
        changed_ = saved;
        emit written();
    });
    load(form);
    core::placeOver(form, this, {450, 2450});
    form.exec();
    if (form.metChange() && form.result() != QDialog::Accepted) core::attempt(mod_, this, [this] { refresh(); });
    // The button that opened it may have been dead while the card was read again.
    ListView1->setFocus(Qt::OtherFocusReason);
}

void HistoryTab::editMovement() {
    // A double click reaches this also while the card is changed.
    if (!browsing_) return mod_.beep();
    if (mod_.onlyReads()) return tell(u"Τις κινήσεις μπορείτε μόνο να τις διαβάσετε."_s);
    if (const QVariant movement = ListView1->currentTag(); movement.isValid()) open(movement.toLongLong());
}

void HistoryTab::deleteMovement() {
    const QVariant movement = ListView1->currentTag();
    if (!movement.isValid()) return;
    ListView1->setFocus(Qt::OtherFocusReason);
    if (askAndDelete(u"Να συνεχίσω με διαγραφή της κίνησης;"_s, [&] {
            mod_.gConn.execute(data::Sql(u"Delete from history where aa=?"_s, movement.toLongLong()));
        }))
        refresh();
}

}  // namespace cards
