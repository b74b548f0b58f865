#include "cards/frmfind.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "controls/names.h"
#include "core/columnwidths.h"
#include "core/guard.h"
#include "core/placement.h"
#include "data/recordset.h"
#include "data/values/phonekey.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

using controls::named;

namespace {

const QString section = u"lvFind"_s;

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
    : QDialog(parent), mod_(mod), chosen_(std::move(chosen)) {
    setObjectName(u"frmFind"_s);
    setWindowTitle(u"Έξυπνη Εύρεση"_s);
    build();
    core::loadColumns(mod_.services.settings, section, *list_, columns());
    core::onSignal(mod_, this, list_, &controls::ListView::rowActivated, [this](int row) { choose(row); });
    text_->installEventFilter(this);
    text_->setFocus();
}

void frmFind::build() {
    text_ = named(new controls::TextBox, controls::arrayName(u"Text1"_s, 0));
    text_->setHighlighting(true);
    auto* caption = named(new QLabel(u" Αναζήτηση για"_s), controls::arrayName(u"Label1"_s, 0));
    controls::tie(caption, text_);
    list_ = named(new controls::ListView, u"ListView1"_s);
    list_->setAccessibleName(u"Καρτέλες που βρέθηκαν"_s);
    auto* exit = named(new QPushButton(u"Έξοδος"_s), u"cmdexit"_s);
    exit->setAutoDefault(false);
    connect(exit, &QPushButton::clicked, this, &QDialog::reject);

    auto* top = new QHBoxLayout;
    top->addWidget(caption);
    top->addWidget(text_, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(14, 14, 14, 12);
    layout->setSpacing(10);
    layout->addLayout(top);
    layout->addWidget(list_, 1);
    layout->addWidget(exit, 0, Qt::AlignRight);
    resize(760, 460);
}

// Enter searches; in every other box of the program it would move on.
bool frmFind::eventFilter(QObject* watched, QEvent* event) {
    if (watched != text_ || event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Down && list_->count() > 0) {
        list_->setFocus(Qt::TabFocusReason);
        return true;
    }
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return QDialog::eventFilter(watched, event);
    core::attempt(mod_, this, [this] {
        search(text_->text());
        // A second Enter takes the first of what was found.
        if (!text_->text().isEmpty() && list_->count() > 0) list_->setFocus(Qt::TabFocusReason);
    });
    return true;
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
    core::storeColumns(mod_.services.settings, section, *list_);
    const core::Placement placement{u"Find"_s};
    if (!isMinimized()) core::storePosition(mod_.services.settings, placement, pos());
    QDialog::done(result);
}

}  // namespace cards
