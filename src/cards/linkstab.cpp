#include "cards/linkstab.h"

#include <QTimer>

#include "cards/frmlink.h"
#include "cards/linkopen.h"
#include "controls/layout.h"
#include "data/recordset.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

LinksTab::LinksTab(core::MainMod& mod)
    : Guarded(mod, this),
      ListView2(new core::StoredList(mod.services.settings, u"ListView2"_s, u"Συνδέσεις"_s, u"lvLinks"_s,
                                     {{u"Περιγραφή"_s, u"Περιγραφή"_s, 6000}, {u"Σύνδεση"_s, u"Σύνδεση"_s, 4000}})),
      commands_(mod, this,
                {{u"Command8"_s,
                  u"add"_s,
                  u"Νέα Σύνδεση"_s,
                  {},
                  [this] { showForm({}); },
                  [this] { return !code_.isEmpty() && !mod_.onlyReads(); }},
                 {u"cmdEditLink"_s,
                  u"edit"_s,
                  u"Διόρθωση Σύνδεσης"_s,
                  {},
                  [this] { editLink(); },
                  [this] { return ListView2->count() > 0 && !mod_.onlyReads(); }},
                 {u"cmdDelLink"_s,
                  u"delete"_s,
                  u"Διαγραφή Σύνδεσης"_s,
                  {},
                  [this] { deleteLink(); },
                  [this] { return ListView2->count() > 0 && !mod_.onlyReads(); }}}) {
    auto* buttons = controls::row({});
    commands_.addButtons(buttons);
    buttons->addStretch(1);
    controls::add(controls::tabLayout(this), {{ListView2, 1}, buttons});
    on(ListView2, &controls::ListView::rowActivated, [this](int row) { openRow(row); });
}

void LinksTab::openRow(int row) {
    const qint64 link = ListView2->row(row).tag.toLongLong();
    std::function<void()> chooseAnew;
    if (!mod_.onlyReads()) chooseAnew = [this, link] { showForm(link, true); };
    openLink(mod_, this, ListView2->row(row).cells.value(1), chooseAnew);
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
    commands_.refresh();
}

void LinksTab::clear() {
    code_.clear();
    ListView2->clear();
    commands_.refresh();
}

void LinksTab::showForm(std::optional<qint64> link, bool chooseAnew) {
    frmLink form(mod_, this, [this] { emit written(); });
    form.EditMode = link.has_value();
    form.LinkId = link.value_or(0);
    form.CodeCards = code_;
    form.KnownMissing = chooseAnew;
    if (!form.load()) return fill(QString(code_));
    core::placeOver(form, this, {450, 2450});
    // Over the window once it is shown.
    if (chooseAnew) QTimer::singleShot(0, &form, [&form] { form.chooseFile(); });
    form.exec();
    if (form.metChange() && form.result() != QDialog::Accepted)
        core::attempt(mod_, this, [this] { fill(QString(code_)); });
    ListView2->setFocus(Qt::OtherFocusReason);
}

void LinksTab::editLink() {
    if (const QVariant link = ListView2->currentTag(); link.isValid()) showForm(link.toLongLong());
}

void LinksTab::deleteLink() {
    ListView2->setFocus(Qt::OtherFocusReason);
    const QVariant link = ListView2->currentTag();
    if (link.isValid() && askAndDelete(u"Να συνεχίσω με διαγραφή της σύνδεσης;"_s, [&] {
            mod_.gConn.execute(data::Sql(u"Delete from links where aa=?"_s, link.toLongLong()));
        }))
        fill(code_);
}

}  // namespace cards
