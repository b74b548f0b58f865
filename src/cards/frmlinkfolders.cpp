#include "cards/frmlinkfolders.h"

#include <QItemSelectionModel>

#include "controls/layout.h"
#include "controls/names.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

using controls::Item;
using controls::named;

frmLinkFolders::frmLinkFolders(core::MainMod& mod, QWidget* parent, const QString& place)
    : Dialog(mod, parent, u"frmLinkFolders"_s, u"Φάκελοι Συνδέσεων"_s, u"folder"_s),
      place_(place),
      ListView1(
          new core::StoredList(mod.services.settings, u"ListView1"_s, windowTitle(), u"lvLinkFolders"_s,
                               {{u"Θέση"_s, u"Δίσκος ή διακομιστής"_s, 2800}, {u"Φάκελος"_s, u"Φάκελος"_s, 5600}})),
      Text1(named(new controls::TextBox, u"Text1"_s)),
      File1(named(new controls::TextBox, u"File1"_s)),
      commands_(mod, this,
                {{u"cmdChoose"_s, u"search"_s, u"Επιλογή Φακέλου..."_s, {}, [this] { chooseFolder(); }},
                 {u"Command1"_s, u"save"_s, u"Αποθήκευση"_s, {Qt::Key_F5}, [this] { save(); }},
                 {u"Command2"_s,
                  u"delete"_s,
                  u"Διαγραφή"_s,
                  {Qt::Key_Delete},
                  [this] { remove(); },
                  [this] { return ListView1->currentRow() >= 0; }},
                 {u"Command3"_s, u"exit"_s, u"Έξοδος"_s, {}, [this] { reject(); }}}) {
    auto* hint = new QLabel(
        u"Συνδέσεις που αποθηκεύτηκαν σε άλλον υπολογιστή, όπως «G:\\Έγγραφα\\α.pdf» ή «\\\\server\\κοινά\\α.pdf», "
        "ανοίγουν εδώ από τον φάκελο που έχει τα ίδια αρχεία."_s);
    hint->setProperty("role", u"muted"_s);
    hint->setTextFormat(Qt::PlainText);
    hint->setWordWrap(true);
    auto* form = controls::formLayout();
    controls::addField(form, u" Δίσκος ή διακομιστής"_s, Text1);
    controls::addField(form, u" Φάκελος"_s, File1, controls::rowWidget({{File1, 1}, commands_.button(u"cmdChoose"_s)}));
    auto* row = controls::row({Item::rest()});
    commands_.addButtons(row, {u"Command1"_s, u"Command2"_s, u"Command3"_s});
    controls::add(controls::dialogLayout(this), {hint, {ListView1, 1}, form, row});
    commands_.bindKeys(this, {u"Command1"_s});
    commands_.bindKeys(ListView1, {u"Command2"_s});
    resize(720, 420);
    fields_.watch(Text1);
    fields_.watch(File1);
    guardUnsaved(u"Ο φάκελος που γράψατε δεν αποθηκεύτηκε."_s, [this] { save(); });
    on(ListView1->selectionModel(), &QItemSelectionModel::currentRowChanged, [this] {
        commands_.refresh();
        if (!fields_.isChanged()) showSelected();
    });
    on(ListView1, &controls::ListView::rowActivated, [this] {
        if (mayLose()) showSelected();
    });
    refresh(place);
    if (!place.isEmpty() && ListView1->currentRow() < 0) fill(place, {});
    (place.isEmpty() ? Text1 : File1)->setFocus(Qt::OtherFocusReason);
}

void frmLinkFolders::refresh(const QString& selected) {
    folders_ = linkFolders(mod_.services.settings);
    QVector<controls::ListRow> rows;
    for (const LinkFolder& each : folders_) rows.append({{each.place, each.folder}, each.place, {}});
    fields_.forget();
    ListView1->setRows(std::move(rows));
    ListView1->selectTag(selected);
    showSelected();
    commands_.refresh();
}

void frmLinkFolders::fill(const QString& place, const QString& folder) {
    Text1->setText(place);
    File1->setText(folder);
    fields_.remember();
}

void frmLinkFolders::showSelected() {
    const LinkFolder shown = folders_.value(ListView1->currentRow());
    fill(shown.place, shown.folder);
}

void frmLinkFolders::chooseFolder() {
    const QString chosen = mod_.services.prompts.chooseFolder(this, u"Επιλογή Φακέλου"_s);
    if (!chosen.isEmpty()) File1->setText(chosen);
}

void frmLinkFolders::save() {
    const QString place = linkPlace(Text1->text()), folder = File1->text().trimmed();
    if (place.isEmpty())
        return complain(u"Γράψτε έναν δίσκο, όπως «G:», ή έναν διακομιστή, όπως «\\\\server» ή «\\\\server\\κοινά»."_s,
                        Text1);
    if (!mod_.services.shell.exists(folder)) return complain(u"Ο φάκελος δεν υπάρχει:\n"_s + folder, File1);
    const auto same = std::find_if(folders_.begin(), folders_.end(), [&](const LinkFolder& each) {
        return each.place.compare(place, Qt::CaseInsensitive) == 0;
    });
    if (same == folders_.end())
        folders_.append({place, folder});
    else
        same->folder = folder;
    setLinkFolders(mod_.services.settings, folders_);
    refresh(place);
    if (place_.startsWith(place, Qt::CaseInsensitive)) accept();
}

void frmLinkFolders::remove() {
    const int row = ListView1->currentRow();
    if (row < 0 || !ask(u"Να διαγραφεί ο φάκελος του «%1»;"_s.arg(folders_[row].place))) return;
    folders_.removeAt(row);
    setLinkFolders(mod_.services.settings, folders_);
    refresh({});
}

}  // namespace cards
