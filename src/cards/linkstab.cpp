#include "cards/linkstab.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "cards/dialogplace.h"
#include "cards/frmlink.h"
#include "cards/linkopen.h"
#include "controls/names.h"
#include "controls/theme.h"
#include "core/columnwidths.h"
#include "core/guard.h"
#include "data/recordset.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

using controls::named;

namespace {
const QString section = u"lvLinks"_s;
}

LinksTab::LinksTab(core::MainMod& mod) : mod_(mod) {
    ListView2 = named(new controls::ListView, u"ListView2"_s);
    ListView2->setAccessibleName(u"Συνδέσεις"_s);
    core::onSignal(mod_, this, ListView2, &controls::ListView::rowActivated, [this](int row) { openSelected(row); });
    auto* commands = new QHBoxLayout;
    const auto command = [&](const QString& name, const QString& icon, const QString& caption, auto run) {
        auto* button = named(new QPushButton(controls::icon(icon), caption), name);
        core::onSignal(mod_, this, button, &QPushButton::clicked, run);
        commands->addWidget(button);
        return button;
    };
    Command8 = command(u"Command8"_s, u"add"_s, u"Νέα Σύνδεση"_s, [this] { newLink(); });
    cmdEditLink = command(u"cmdEditLink"_s, u"edit"_s, u"Διόρθωση Σύνδεσης"_s, [this] { editLink(); });
    cmdDelLink = command(u"cmdDelLink"_s, u"delete"_s, u"Διαγραφή Σύνδεσης"_s, [this] { deleteLink(); });
    commands->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(14, 14, 14, 14);
    layout->setSpacing(8);
    layout->addWidget(ListView2, 1);
    layout->addLayout(commands);
}

void LinksTab::load() {
    core::loadColumns(mod_.services.settings, section, *ListView2,
                      {{u"Περιγραφή"_s, u"Περιγραφή"_s, 6000}, {u"Σύνδεση"_s, u"Σύνδεση"_s, 4000}});
    clear();
}

void LinksTab::storeWidths() {
    core::storeColumns(mod_.services.settings, section, *ListView2);
}

void LinksTab::fill(const QString& code) {
    QVector<controls::ListRow> rows;
    for (data::Recordset links(mod_.gConn, data::Sql(u"Select * from LINKS where codecards=? order by ΠΕΡΙΓΡΑΦΗ,aa"_s,
                                                     code.toLongLong()));
         !links.eof(); links.moveNext())
        rows.append({{links[u"ΠΕΡΙΓΡΑΦΗ"].text(), links[u"ΣΥΝΔΕΣΗ"].text()}, links[u"aa"].value(), {}});
    ListView2->setRows(std::move(rows));
    if (ListView2->count() > 0) ListView2->selectRow(0);
    code_ = code;
    enableCommands();
}

void LinksTab::clear() {
    code_.clear();
    ListView2->clear();
    enableCommands();
}

void LinksTab::enableCommands() {
    Command8->setEnabled(!code_.isEmpty());
    for (QPushButton* button : {cmdEditLink, cmdDelLink}) button->setEnabled(ListView2->count() > 0);
}

void LinksTab::openSelected(int row) {
    openLink(mod_, this, ListView2->row(row).cells.value(1));
}

void LinksTab::showForm(std::optional<qint64> link) {
    frmLink form(mod_, this, [this] { emit written(); });
    form.EditMode = link.has_value();
    form.LinkId = link.value_or(0);
    form.CodeCards = code_;
    if (!form.load()) return;
    placeOver(form, this, {450, 2450});
    form.exec();
}

void LinksTab::newLink() {
    showForm({});
}

void LinksTab::editLink() {
    const int row = ListView2->currentRow();
    if (row >= 0) showForm(ListView2->row(row).tag.toLongLong());
}

void LinksTab::deleteLink() {
    if (ListView2->count() == 0) return;
    ListView2->setFocus(Qt::OtherFocusReason);
    const int row = ListView2->currentRow();
    if (row < 0 ||
        !mod_.services.prompts.question(this, core::programTitle(), u"Να συνεχίσω με διαγραφή της σύνδεσης;"_s))
        return;
    mod_.gConn.execute(data::Sql(u"Delete from links where aa=?"_s, ListView2->row(row).tag.toLongLong()));
    fill(code_);
}

}  // namespace cards
