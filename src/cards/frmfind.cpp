#include "cards/frmfind.h"

#include <QPushButton>

#include "controls/layout.h"
#include "controls/names.h"
#include "core/placement.h"
#include "core/sqltext.h"
#include "data/phonekey.h"
#include "data/recordset.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

using controls::named;

namespace {

// The columns in the order of the condition; the order of the rows is their own.
const QString searched[] = {u"επωνυμο"_s,   u"ονομα"_s,     u"εταιρια"_s, u"τηλεφωνο1"_s, u"τηλεφωνο2"_s,
                            u"τηλεφωνο3"_s, u"τηλεφωνο4"_s, u"email"_s,   u"κινητο"_s};

bool isNumber(QStringView column) {
    return column.startsWith(u"τηλεφωνο") || column == u"κινητο";
}

QVector<controls::ListColumn> columns() {
    return {{u"Name"_s, u"Επώνυμο"_s},
            {u"Code"_s, u"Όνομα"_s},
            {u"ΕΤΑΙΡΙΑ"_s, u"ΕΤΑΙΡΙΑ"_s},
            {u"TelJob"_s, u"Τηλέφωνο 1"_s},
            {u"TelGym"_s, u"Διεύθυνση"_s}};
}

}  // namespace

QString findStatement(const QString& text) {
    const QString pattern = core::sqlText(text);
    QStringList conditions;
    for (const QString& column : searched) conditions << u"%1 like '%2%'"_s.arg(column, pattern);
    // A telephone number is the same one however it was written, and however the search writes it.
    if (!text.startsWith(u' ') && data::looksLikePhone(text))
        for (const QString& column : searched)
            if (isNumber(column)) conditions << u"phonekey(%1) like '%2%'"_s.arg(column, data::phoneKey(text));
    return u"Select [επωνυμο],[ονομα],[εταιρια],[διευθυνση],[τηλεφωνο1],[email],[code] from cards where "_s +
           conditions.join(u" or "_s) + u" ORDER BY επωνυμο,ονομα,email"_s;
}

frmFind::frmFind(core::MainMod& mod, QWidget* parent, std::function<void(const FoundCard&)> chosen)
    : Dialog(mod, parent, u"frmFind"_s, u"Έξυπνη Εύρεση"_s),
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
