#include "cards/frmfind.h"

#include <QPushButton>

#include "controls/layout.h"
#include "controls/names.h"
#include "core/placement.h"
#include "data/recordset.h"
#include "data/values/phonekey.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

using controls::named;

namespace {

QVector<controls::ListColumn> columns() {
    return {{u"Name"_s, u"Επώνυμο"_s},
            {u"Code"_s, u"Όνομα"_s},
            {u"ΕΤΑΙΡΙΑ"_s, u"ΕΤΑΙΡΙΑ"_s},
            {u"TelJob"_s, u"Τηλέφωνο 1"_s},
            {u"TelGym"_s, u"Διεύθυνση"_s}};
}

}  // namespace

QString findStatement(const QString& text) {
    using data::Sql;
    // A telephone number is the same one however it was written, and however the search writes it.
    const bool isPhone = !text.startsWith(u' ') && data::looksLikePhone(text);
    const Sql::Value number = isPhone ? Sql::starting(data::phoneKey(text)) : Sql::Value(std::nullopt);
    return Sql(
        u"Select [επωνυμο],[ονομα],[εταιρια],[διευθυνση],[τηλεφωνο1],[email],[code] from cards where "
        "επωνυμο like ? or ονομα like ? or εταιρια like ? or τηλεφωνο1 like ? or τηλεφωνο2 like ? or "
        "τηλεφωνο3 like ? or τηλεφωνο4 like ? or email like ? or κινητο like ? "
        "{or phonekey(τηλεφωνο1) like ? or phonekey(τηλεφωνο2) like ? or phonekey(τηλεφωνο3) like ? or "
        "phonekey(τηλεφωνο4) like ? or phonekey(κινητο) like ?} ORDER BY επωνυμο,ονομα,email"_s,
        QVector<Sql::Value>(9, Sql::starting(text)) + QVector<Sql::Value>(5, number));
}

frmFind::frmFind(core::MainMod& mod, QWidget* parent, std::function<void(const FoundCard&)> chosen)
    : Dialog(mod, parent, u"frmFind"_s, u"Έξυπνη Εύρεση"_s, u"search"_s),
      chosen_(std::move(chosen)),
      text_(named(new controls::TextBox, u"Text1(0)"_s)),
      list_(new core::StoredList(mod.services.settings, u"ListView1"_s, u"Καρτέλες που βρέθηκαν"_s, u"lvFind"_s,
                                 columns())) {
    auto* exit = named(new QPushButton(u"Έξοδος"_s), u"cmdexit"_s);
    auto* caption = named(controls::captionOf(u" Αναζήτηση για"_s, text_), u"Label1(0)"_s);
    controls::add(controls::dialogLayout(this),
                  {controls::row({caption, {text_, 1}}), {list_, 1}, controls::row({controls::Item::rest(), exit})});
    resize(760, 460);
    on(exit, &QPushButton::clicked, [this] { reject(); });
    on(list_, &controls::ListView::rowActivated, [this](int row) { choose(row); });
    enterRuns(text_, [this] {
        search(text_->text());
        // A second Enter takes the first of what was found.
        if (!text_->text().isEmpty()) enterList();
    });
    onKey(Qt::Key_Down, text_, [this] { enterList(); });
    text_->setHighlighting(true);
    text_->setFocus();
}

void frmFind::enterList() {
    if (list_->count() > 0) list_->setFocus(Qt::TabFocusReason);
}

void frmFind::search(const QString& text) {
    if (text.isEmpty()) return;
    if (text_->text() != text) text_->setText(text);
    QVector<controls::ListRow> rows;
    for (data::Recordset found(mod_.gConn, findStatement(text)); !found.eof(); found.moveNext()) {
        // In the order of the list: surname, first name, company, telephone, address.
        QStringList cells;
        for (const int column : {0, 1, 2, 4, 3}) cells << found.field(column).text();
        constexpr int code = 6;
        rows.append({cells, found.field(code).value(), {}});
    }
    list_->setRows(std::move(rows));
    if (list_->count() == 0) return mod_.beep();
    list_->selectRow(0);
}

void frmFind::choose(int row) {
    const controls::ListRow& found = list_->row(row);
    const FoundCard card{found.tag.toLongLong(), found.cells.value(0), found.cells.value(1)};
    accept();
    chosen_(card);
}

void frmFind::done(int result) {
    if (!isMinimized()) core::storePosition(mod_.services.settings, {u"Find"_s}, pos());
    Dialog::done(result);
}

}  // namespace cards
