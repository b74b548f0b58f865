#include "cards/historytab.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "cards/dialogplace.h"
#include "cards/frmhistory.h"
#include "controls/names.h"
#include "controls/theme.h"
#include "core/columnwidths.h"
#include "core/guard.h"
#include "data/recordset.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

using controls::arrayName;
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

HistoryTab::HistoryTab(core::MainMod& mod) : mod_(mod) {
    ListView1 = named(new controls::ListView, u"ListView1"_s);
    ListView1->setAccessibleName(u"Κινήσεις"_s);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addWidget(periodRow());
    layout->addWidget(ListView1, 1);
    layout->addWidget(commandRow());
    buildMenu();
    core::onSignal(mod_, this, ListView1, &controls::ListView::rowActivated, [this] { editMovement(); });
    core::onSignal(mod_, this, ListView1, &controls::ListView::menuRequested,
                   [this](int row, QPoint position) { showMenu(row, position); });
}

controls::DateBox* HistoryTab::dateBox(const QString& name, int picker, const QString& caption, QHBoxLayout* into) {
    auto* box = named(new controls::DateBox, name);
    auto* calendar = named(new controls::DatePicker, arrayName(u"DTPcustDate0"_s, picker));
    controls::setAccessibleCaption(calendar, u"Ημερολόγιο: "_s + caption);
    controls::pairUp(box, calendar);
    core::onSignal(mod_, this, box, &controls::DateBox::refused, [this] { mod_.beep(); });
    auto* label = new QLabel(caption);
    controls::tie(label, box);
    into->addWidget(label);
    into->addWidget(box);
    into->addWidget(calendar);
    into->addSpacing(10);
    return box;
}

QWidget* HistoryTab::periodRow() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    txtFrom = dateBox(u"txtFrom"_s, 0, u"Από:"_s, layout);
    txtTo = dateBox(u"txtTo"_s, 1, u"Έως:"_s, layout);
    cmdShow = named(new QPushButton(controls::icon(u"search"_s), u"Εμφάνισε"_s), u"cmdShow"_s);
    core::onSignal(mod_, this, cmdShow, &QPushButton::clicked, [this] {
        if (!code_.isEmpty()) refresh();
    });
    auto* caption = named(new QLabel(u" Υπόλοιπο:"_s), arrayName(u"Label1"_s, 3));
    lblYpoloipo = named(new QLabel(u"0,00 "_s), u"lblYpoloipo"_s);
    lblYpoloipo->setFont(controls::font(u"Tahoma"_s, 12, true));
    layout->addWidget(cmdShow);
    layout->addStretch(1);
    layout->addWidget(caption);
    layout->addWidget(lblYpoloipo);
    return row;
}

QWidget* HistoryTab::commandRow() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    const auto command = [&](const QString& name, const QString& icon, const QString& caption, auto run) {
        auto* button = named(new QPushButton(controls::icon(icon), caption), name);
        core::onSignal(mod_, this, button, &QPushButton::clicked, run);
        layout->addWidget(button);
        return button;
    };
    cmdAddHistory = command(u"cmdAddHistory"_s, u"add"_s, u"Νέα Κίνηση"_s, [this] { newMovement(); });
    Command4 = command(u"Command4"_s, u"edit"_s, u"Διόρθωση Κίνησης"_s, [this] { editMovement(); });
    cmdDelHistory = command(u"cmdDelHistory"_s, u"delete"_s, u"Διαγραφή Κίνησης"_s, [this] { deleteMovement(); });
    layout->addStretch(1);
    cmdPrint = command(u"cmdPrint"_s, u"print"_s, u"Εκτύπωση Κίνησης"_s, [this] { emit printRequested(); });
    return row;
}

void HistoryTab::buildMenu() {
    MnuPopUpHist = named(new QMenu(this), u"MnuPopUpHist"_s);
    struct Entry {
        QString name;
        QString caption;
        Qt::Key key;
        void (HistoryTab::*run)();
        QAction*& action;
    };
    for (const Entry& entry :
         {Entry{u"MnuNewHistory"_s, u"Νέα Κίνηση"_s, Qt::Key_Insert, &HistoryTab::newMovement, MnuNewHistory},
          Entry{u"mnuEditHistory"_s, u"Επεξεργασία Κίνηση"_s, Qt::Key_unknown, &HistoryTab::editMovement,
                mnuEditHistory},
          Entry{u"MnuDelHistory"_s, u"Διαγραφή Κίνησης"_s, Qt::Key_Delete, &HistoryTab::deleteMovement,
                MnuDelHistory}}) {
        entry.action = named(new QAction(entry.caption, this), entry.name);
        if (entry.key != Qt::Key_unknown) entry.action->setShortcut(entry.key);
        entry.action->setShortcutContext(Qt::WidgetShortcut);
        core::onSignal(mod_, this, entry.action, &QAction::triggered, [this, run = entry.run] { (this->*run)(); });
        ListView1->addAction(entry.action);
        MnuPopUpHist->addAction(entry.action);
    }
}

void HistoryTab::load() {
    core::loadColumns(mod_.services.settings, u"lvHistory"_s, *ListView1, columns());
    const QDate today = mod_.services.clock.today();
    txtFrom->setDate(QDate(today.year(), today.month(), 1));
    txtTo->setDate(today);
    clear();
}

void HistoryTab::fill(const QString& code) {
    // Known from here on, so that a period that is none can be mended and shown.
    code_ = code;
    enableCommands();
    const auto from = txtFrom->date(), to = txtTo->date();
    if (!from || !to) throw data::Error(data::ErrorCategory::Type, u"Η περίοδος των κινήσεων δεν είναι σωστή."_s);
    Ledger ledger(*from, *to);
    // Named columns, since notes and photos of every movement would be read along with all of them.
    data::Recordset rows(mod_.gConn, data::Sql(u"Select aa,ΗΜΕΡΟΜΗΝΙΑ,ΑΙΤΙΟΛΟΓΙΑ,ΧΡΕΩΣΗ,ΠΙΣΤΩΣΗ from History where "
                                               "codecards=? order by ημερομηνια,aa"_s,
                                               code.toLongLong()));
    for (; !rows.eof(); rows.moveNext())
        ledger.add({rows.field(0).toLong(), rows.field(1).toDate(), rows.field(2).text(),
                    Money::of(rows.field(3).toDouble()), Money::of(rows.field(4).toDouble())});
    balance_ = ledger.balance();
    ListView1->setRows(listRows(std::move(ledger).finish()));
    lblYpoloipo->setText(balance_.text() + u' ');
    selectChanged();
}

void HistoryTab::refresh() {
    fill(code_);
    storeBalance();
}

// The movement that was just written is the selected one, and in view.
void HistoryTab::selectChanged() {
    const auto changed = std::exchange(changed_, std::nullopt);
    for (int row = 0; changed && row < ListView1->count(); ++row)
        if (ListView1->row(row).tag == QVariant(*changed)) ListView1->selectRow(row);
}

void HistoryTab::storeBalance() {
    data::Recordset stored(mod_.gConn, data::Sql(u"select total from cards where code=?"_s, code_.toLongLong()));
    if (stored.isEmpty() || (!stored[u"total"].isNull() && stored[u"total"].toDouble() == balance_.toDouble())) return;
    mod_.gConn.execute(data::Sql(u"Update cards set total=? Where code=?"_s, balance_.toDouble(), code_.toLongLong()));
}

void HistoryTab::clear() {
    code_.clear();
    ListView1->clear();
    lblYpoloipo->setText(u"0,00 "_s);
    enableCommands();
}

void HistoryTab::setBrowsing(bool browsing) {
    browsing_ = browsing;
    enableCommands();
}

void HistoryTab::enableCommands() {
    const bool possible = browsing_ && !code_.isEmpty();
    for (QPushButton* button : {cmdAddHistory, Command4, cmdDelHistory, cmdPrint}) button->setEnabled(possible);
    for (QAction* action : {MnuNewHistory, mnuEditHistory, MnuDelHistory}) action->setEnabled(possible);
    cmdShow->setEnabled(!code_.isEmpty());
}

void HistoryTab::showMenu(int row, QPoint position) {
    enableCommands();
    for (QAction* action : {mnuEditHistory, MnuDelHistory}) action->setEnabled(action->isEnabled() && row >= 0);
    MnuPopUpHist->exec(position);
    enableCommands();
}

std::optional<qint64> HistoryTab::selected() const {
    const int row = ListView1->currentRow();
    if (row < 0 || !ListView1->row(row).tag.isValid()) return {};
    return ListView1->row(row).tag.toLongLong();
}

void HistoryTab::open(std::optional<qint64> movement) {
    frmHistory form(mod_, this, [this](qint64 saved) {
        changed_ = saved;
        emit written();
    });
    form.EditMode = movement.has_value();
    form.MovementId = movement.value_or(0);
    form.CodeCards = code_;
    form.load();
    placeOver(form, this, {450, 2450});
    form.exec();
}

void HistoryTab::newMovement() {
    if (browsing_ && !code_.isEmpty()) open({});
}

void HistoryTab::editMovement() {
    // A double click reaches this also while the card is changed.
    if (!browsing_) return mod_.beep();
    if (const auto movement = selected()) open(movement);
}

void HistoryTab::deleteMovement() {
    const auto movement = selected();
    if (!browsing_ || !movement) return;
    ListView1->setFocus(Qt::OtherFocusReason);
    if (!mod_.services.prompts.question(this, core::programTitle(), u"Να συνεχίσω με διαγραφή της κίνησης;"_s)) return;
    mod_.gConn.execute(data::Sql(u"Delete from history where aa=?"_s, *movement));
    refresh();
}

QString HistoryTab::period() const {
    return u"από %1 έως %2"_s.arg(txtFrom->formattedText(), txtTo->formattedText());
}

}  // namespace cards
