#include "diary/frmthinkstodoshow.h"

#include "controls/layout.h"
#include "controls/names.h"
#include "data/recordset.h"
#include "diary/reports.h"
#include "diary/users.h"

using namespace Qt::Literals::StringLiterals;

namespace diary {

using controls::Item;

namespace {

constexpr int userColumn = 3;

QVector<controls::ListColumn> columns() {
    return {{u"Subject"_s, u"Θέμα"_s, 1200},
            {.key = u"Notes"_s, .header = u"Σημειώσεις"_s, .width = 1200, .spare = true},
            {.key = u"Priority"_s, .header = u"Προτεραιότητα"_s, .width = 1300, .storedAs = u"Priotity"_s},
            {.key = u"Χρήστης"_s, .header = u"Χρήστης"_s, .section = u"lvDates"_s, .stored = false},
            {.key = u"Εντολέας"_s, .header = u"Εντολέας"_s, .section = u"lvDates"_s, .stored = false}};
}

}  // namespace

frmThinksToDoShow::frmThinksToDoShow(core::MainMod& mod)
    : Form(mod, u"frmThinksToDoShow"_s, u"Εμφάνιση Εργασιών"_s, {u"ThinksToDoShow"_s, 1230, 0}, u"tasks"_s),
      Combo1(controls::named(new controls::ChoiceBox(false), u"Combo1"_s)),
      ListView1(new core::StoredList(mod.services.settings, u"ListView1"_s, u"Εργασίες"_s, u"lvThinks"_s, columns())),
      keys_(mod, u"ThinksQuery"_s, {u"Priority"_s, u"Subject"_s, u"Notes"_s},
            {u"Subject"_s, u"Notes"_s, u"Priority"_s}),
      commands_(mod, this, commands()) {
    auto* foot = controls::row({Item::rest()});
    commands_.addPictures(foot, {u"lblClick(0)"_s, u"lblClick(1)"_s});
    controls::add(
        controls::pageLayout(this),
        {controls::row({commands_.toolBar(u"Toolbar1"_s, {u"mnuNewThink"_s, u"mnuEditThink"_s, u"mnuDelThink"_s}),
                        Item::rest(), controls::named(controls::captionOf(u"   Χρήστης"_s, Combo1), u"Label1"_s),
                        Combo1}),
         {ListView1, 1},
         foot});
    setMinimumSize(640, 380);
    on(Combo1, &QComboBox::activated, [this] { FillList(); });
    on(ListView1, &controls::ListView::rowActivated, [this] { edit(); });
    on(ListView1, &controls::ListView::columnClicked, [this](int column) {
        keys_.click(column);
        FillList();
    });
    const auto refresh = [this] { commands_.refresh(); };
    on(ListView1->selectionModel(), &QItemSelectionModel::currentChanged, refresh);
}

QVector<core::Command> frmThinksToDoShow::commands() {
    const auto hasRows = [this] { return ListView1->count() > 0; };
    return {{u"mnuNewThink"_s, u"add"_s, u"Νέα εργασία"_s, {}, [this] { mod_.doors.openTask(0, nullptr); }},
            {u"mnuEditThink"_s, u"edit"_s, u"Διόρθωση εργασίας"_s, {}, [this] { edit(); }, hasRows},
            {u"mnuDelThink"_s,
             u"delete"_s,
             u"Διαγραφή εργασίας"_s,
             {},
             [this] { remove(); },
             [this] { return mayDelete(); }},
            {u"lblClick(0)"_s, u"print"_s, u"Εκτύπωση λίστας Εργασιών"_s, {}, [this] { ThinksReport(mod_, this); }},
            {u"lblClick(1)"_s, u"exit"_s, u"Έξοδος"_s, {}, [this] { emit closeRequested(); }}};
}

void frmThinksToDoShow::onLoad() {
    keys_.load();
    fillUsers(mod_, *Combo1);
    chooseUser(*Combo1, mod_.gUserName);
    FillList();
}

void frmThinksToDoShow::onUnload() {
    keys_.store();
}

void frmThinksToDoShow::FillList() {
    const QString user = Combo1->currentText();
    const QVariant chosen = ListView1->currentTag();
    QVector<controls::ListRow> list;
    for (data::Recordset rows(mod_.gConn,
                              data::Sql(u"Select [user],[subject],[Priority],[aa],[notes],[entoleas] from ThinksToDo "
                                        "{where user=?}"_s,
                                        user.isEmpty() ? std::nullopt : std::optional(user)));
         !rows.eof(); rows.moveNext())
        list.append({{rows[u"subject"].text(), rows[u"notes"].text(), rows[u"Priority"].text(), rows[u"user"].text(),
                      rows[u"entoleas"].text()},
                     rows[u"aa"].toLong(),
                     {}});
    ListView1->setRows(std::move(list));
    if (!chosen.isValid() || !ListView1->selectTag(chosen)) ListView1->selectRow(0);
    commands_.refresh();
}

bool frmThinksToDoShow::mayDelete() const {
    const int row = ListView1->currentRow();
    return row >= 0 && mod_.mayChange(ListView1->row(row).cells.value(userColumn));
}

void frmThinksToDoShow::edit() {
    if (const QVariant task = ListView1->currentTag(); task.isValid()) mod_.doors.openTask(task.toLongLong(), this);
}

void frmThinksToDoShow::remove() {
    const QVariant task = ListView1->currentTag();
    if (task.isValid() && askAndDelete(u"Να συνεχίσω με διαγραφή της Εργασίας;"_s, [&] {
            mod_.gConn.execute(data::Sql(u"Delete from thinkstodo where aa=?"_s, task.toLongLong()));
        }))
        mod_.doors.tasksChanged();
}

}  // namespace diary
