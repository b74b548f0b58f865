#include "cards/frmhistory.h"

#include "cards/cardbinding.h"
#include "cards/ledger.h"
#include "controls/captions.h"
#include "controls/names.h"
#include "core/columnsize.h"
#include "core/customfields.h"
#include "core/photofile.h"
#include "data/values/format.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

using controls::arrayName;
using controls::named;

namespace {

// The columns of the boxes Text7. All but the first are the office's own, and have their caption and switch among its
// fields.
struct Line {
    QString column, caption, flag;
};
const Line lines[] = {{u"ΑΙΤΙΟΛΟΓΙΑ"_s, {}, {}},
                      {u"s1"_s, u"FIELdcharh1"_s, u"fch1"_s},
                      {u"s2"_s, u"FIELdcharh2"_s, u"fch2"_s},
                      {u"n1"_s, u"FieldNumh1"_s, u"fnh1"_s},
                      {u"n2"_s, u"FieldNumh2"_s, u"fnh2"_s},
                      {u"n3"_s, u"FieldNumh3"_s, u"fnh3"_s},
                      {u"n4"_s, u"FieldNumh4"_s, u"fnh4"_s}};
constexpr int firstNumber = 3;

}  // namespace

frmHistory::frmHistory(core::MainMod& mod, QWidget* parent, std::function<void(qint64)> saved)
    : Dialog(mod, parent, u"frmHistory"_s, u"ΝΕΑ ΚΑΤΑΧΩΡΗΣΗ"_s, u"movement"_s),
      saved_(std::move(saved)),
      commands_(mod, this,
                {{u"lblClick(0)"_s, u"save"_s, u"Αποθήκευση κίνησης"_s, {Qt::Key_F5}, [this] { save(); }},
                 {u"lblClick(1)"_s, u"cancel"_s, u"Ακύρωση κίνησης"_s, {}, [this] { startAnew(); }},
                 {u"lblClick(2)"_s, u"exit"_s, u"Έξοδος"_s, {}, [this] { reject(); }},
                 {u"Command1"_s, u"photo-add"_s, u"Εισαγωγή Φωτογραφίας"_s, {}, [this] { readPhoto(); }},
                 {u"Command3"_s, u"photo-remove"_s, u"Διαγραφή Φωτογραφίας"_s, {}, [this] { setPhoto({}); }}}) {
    Image1 = named(new controls::PhotoView, u"Image1"_s);
    auto* photo = controls::column({{Image1, 1}, commands_.button(u"Command1"_s), commands_.button(u"Command3"_s)});
    controls::add(controls::dialogLayout(this), {{controls::row({{fields(), 2}, {photo, 1}}, 18), 1}, buttons()});
    resize(760, 560);
    commands_.bindKeys(this);
    fields_.watchAll(this);
    fields_.watch(
        u"Photo"_s, [this] { return Image1->bytes(); },
        [this](const QVariant& value) { setPhoto(value.toByteArray()); });
    keepDraft([this] { return draft(); });
    guardUnsaved(u"Η κίνηση έχει αλλαγές που δεν αποθηκεύτηκαν."_s, [this] { save(); });
}

QFormLayout* frmHistory::fields() {
    form_ = controls::formLayout();
    txtDate = new controls::DateField(u"txtDate"_s, u"DTPicker1"_s, u"Ημ. Κίνησης"_s);
    controls::addField(form_, u"Ημ. Κίνησης"_s, txtDate->box(), txtDate);
    txtDate->box()->setHighlighting(true);
    const auto add = [this](const QString& caption, controls::TextBox* box) {
        box->setHighlighting(true);
        return controls::addField(form_, caption, box);
    };
    for (int i = 0; i < int(std::size(lines)); ++i) {
        Text7.append(
            named(i < firstNumber ? new controls::TextBox : new controls::NumberBox, arrayName(u"Text7"_s, i)));
        core::limitToColumn(Text7[i], u"History"_s, lines[i].column);
        const QString caption = i == 0 ? u"Αιτιολογία"_s : lines[i].column.toUpper();
        Label1.append(named(add(caption, Text7[i]), arrayName(u"Label1"_s, i)));
    }
    txtXreosh = named(new controls::NumberBox, u"txtXreosh"_s);
    txtPistosi = named(new controls::NumberBox, u"txtPistosi"_s);
    add(u"ΧΡΕΩΣΗ"_s, txtXreosh);
    add(u"ΠΙΣΤΩΣΗ"_s, txtPistosi);
    Text1 = named(new controls::MemoBox, u"Text1"_s);
    Text1->setHighlighting(true);
    Text1->setMinimumHeight(90);
    controls::addField(form_, u"Σημείωσεις"_s, Text1);
    return form_;
}

QHBoxLayout* frmHistory::buttons() {
    auto* hint = new QLabel(u"[F5] Αποθήκευση"_s);
    hint->setProperty("role", u"accent"_s);
    auto* exit = commands_.picture(u"lblClick(2)"_s);
    // Too long to stand under a picture.
    exit->setToolTip(u"Έξοδος από την καταχώρηση συνάντησης"_s);
    exit->setAccessibleName(exit->toolTip());
    return controls::row(
        {hint, controls::Item::rest(), commands_.picture(u"lblClick(0)"_s), commands_.picture(u"lblClick(1)"_s), exit});
}

void frmHistory::load() {
    begin([this] {
        openCarrier();
        if (!mRsHistory.isEmpty()) return readMovement();
        metChange_ = true;
        complain(u"Η συγκεκριμένη κίνηση έχει ακυρωθεί !"_s);
    });
}

void frmHistory::resume(const core::Draft& draft) {
    EditMode = !draft.isNew;
    MovementId = draft.key[u"aa"_s].toLongLong();
    CodeCards = draft.key[u"card"_s].toString();
    begin([&] {
        openCarrier();
        const bool gone = mRsHistory.isEmpty();
        core::readAsDrafted(mRsHistory, draft.row);
        readMovement();
        if (gone) addAgain();
    });
    goOnWith(draft);
}

// Throws nothing; `read` fills the boxes for a movement that exists.
void frmHistory::begin(const std::function<void()>& read) {
    clearForm();
    setWindowTitle(EditMode ? u" Διόρθωση Κίνησης!"_s : u" Καταχώρηση Νέας Κίνησης !"_s);
    core::attempt(mod_, this, [&] {
        if (EditMode) read();
        dress();
    });
    fields_.remember();
    txtDate->setFocus(Qt::TabFocusReason);
}

core::Draft frmHistory::draft() {
    core::Draft draft;
    draft.title = Text7[0]->text();
    draft.isNew = !EditMode;
    draft.key = {{u"aa"_s, MovementId}, {u"card"_s, CodeCards}};
    if (EditMode && mRsHistory.isOpen() && !mRsHistory.isEmpty()) draft.row = core::draftRow(mRsHistory);
    return draft;
}

void frmHistory::openCarrier() {
    mRsHistory.open(mod_.gConn, EditMode ? data::Sql(u"select * from HISTORY where aa=?"_s, MovementId)
                                         : u"select * from history where aa=0"_s);
}

void frmHistory::readMovement() {
    txtDate->setDate(mRsHistory[u"ΗΜΕΡΟΜΗΝΙΑ"].toDate().date());
    for (int i = 0; i < Text7.size(); ++i)
        if (const data::Field field = mRsHistory[lines[i].column]; !field.isNull()) Text7[i]->setText(field.text());
    Text1->setText(mRsHistory[u"notes"].text());
    data::Field photo = mRsHistory[u"Photo"];
    if (!photo.isNull()) Image1->setBytes(photo.getChunk(photo.actualSize()));
    CodeCards = mRsHistory[u"codecards"].text();
    txtXreosh->setText(data::format(mRsHistory[u"ΧΡΕΩΣΗ"].toDouble(), u"0.00"));
    txtPistosi->setText(data::format(mRsHistory[u"ΠΙΣΤΩΣΗ"].toDouble(), u"0.00"));
}

void frmHistory::dress() {
    core::CustomFields custom(mod_.gConn);
    if (custom.isEmpty()) return;
    for (int i = 1; i < Text7.size(); ++i) {
        const QString caption = custom.caption(lines[i].caption);
        controls::setTypedCaption(Label1[i], caption);
        controls::setAccessibleCaption(Text7[i], caption.isEmpty() ? u"Πεδίο %1"_s.arg(i) : caption);
        form_->setRowVisible(Text7[i], custom.isShown(lines[i].flag));
    }
}

void frmHistory::clearForm() {
    txtDate->setDate(mod_.services.clock.today());
    for (int i = 0; i < Text7.size(); ++i) Text7[i]->setText(i < firstNumber ? QString() : u"0"_s);
    for (controls::NumberBox* amount : {txtXreosh, txtPistosi}) amount->setText(u"0"_s);
    Text1->setText({});
    Image1->setBytes({});
}

void frmHistory::startAnew() {
    clearForm();
    txtDate->setFocus(Qt::TabFocusReason);
}

void frmHistory::readPhoto() {
    if (const auto bytes = core::choosePhoto(mod_, this)) setPhoto(*bytes);
}

void frmHistory::setPhoto(const QByteArray& bytes) {
    Image1->setBytes(bytes);
    fields_.touch();
}

bool frmHistory::isComplete() {
    const QString badNumber = u"Δεν έχετε συμπληρώσει σωστά το αριθμιτικό πεδίο!"_s;
    struct Test {
        bool passed;
        QString text;
        QWidget* box;
    };
    QVector<Test> tests = {
        {!Text7[0]->text().isEmpty(), u"Δεν έχετε συμπληρώσει την Αιτιολογία!"_s, Text7[0]},
        {txtDate->date().has_value(), u"Δεν έχετε συμπληρώσει σωστά την Ημερομηνία!"_s, txtDate},
        {data::typedAmount(txtPistosi->text()).has_value(), u"Δεν έχετε συμπληρώσει σωστά την ΠΙΣΤΩΣΗ!"_s, txtPistosi},
        {data::typedAmount(txtXreosh->text()).has_value(), u"Δεν έχετε συμπληρώσει σωστά την ΧΡΕΩΣΗ!"_s, txtXreosh}};
    for (int i = firstNumber; i < Text7.size(); ++i)
        tests.append({data::isNumeric(Text7[i]->text()), badNumber, Text7[i]});
    for (const Test& test : tests) {
        if (test.passed) continue;
        complain(test.text, test.box);
        return false;
    }
    return true;
}

void frmHistory::save() {
    while (isComplete()) {
        try {
            writeMovement();
        } catch (const data::Error& error) {
            if (error.category() != data::ErrorCategory::Conflict) throw;
            metChange_ = true;
            if (!settleConflict(error)) return;
            continue;
        }
        accept();
        return saved_(mRsHistory[u"aa"].toLong());
    }
}

void frmHistory::writeMovement() {
    if (!mRsHistory.isOpen()) openCarrier();
    if (EditMode && mRsHistory.isEmpty())
        throw data::Error(data::ErrorCategory::Conflict, u"Η κίνηση έχει διαγραφεί από άλλον χρήστη."_s);
    if (!EditMode && mRsHistory.editMode() != data::EditMode::Add) mRsHistory.addNew();
    write(mRsHistory);
    mRsHistory.update();
}

QVector<frmHistory::Bound> frmHistory::bound() const {
    QVector<Bound> all = {
        {txtDate->box(), u"ΗΜΕΡΟΜΗΝΙΑ"_s}, {txtXreosh, u"ΧΡΕΩΣΗ"_s}, {txtPistosi, u"ΠΙΣΤΩΣΗ"_s}, {Text1, u"notes"_s}};
    for (int i = 0; i < Text7.size(); ++i) all.append({Text7[i], lines[i].column});
    return all;
}

// Only what was changed goes into a movement that exists: a column that holds nothing shows as 0.
void frmHistory::write(data::Recordset& row) {
    const auto isToWrite = [this](const QWidget* box, const QString& column) {
        return fields_.isChanged(box) || (!EditMode && !nothing_.contains(column));
    };
    for (int i = 0; i < Text7.size(); ++i) {
        if (!isToWrite(Text7[i], lines[i].column)) continue;
        const QString text = Text7[i]->text();
        if (i < firstNumber)
            writeText(row[lines[i].column], text);
        else
            row[lines[i].column].setValue(*data::parseNumber(text));
    }
    if (isToWrite(Text1, u"notes"_s)) writeText(row[u"notes"], Text1->text());
    if (isToWrite(txtDate->box(), u"ΗΜΕΡΟΜΗΝΙΑ"_s)) row[u"ΗΜΕΡΟΜΗΝΙΑ"].setValue(txtDate->text());
    if (!EditMode) row[u"codecards"].setValue(CodeCards.toLongLong());
    if (isToWrite(txtXreosh, u"ΧΡΕΩΣΗ"_s)) row[u"ΧΡΕΩΣΗ"].setValue(*data::typedAmount(txtXreosh->text()));
    if (isToWrite(txtPistosi, u"ΠΙΣΤΩΣΗ"_s)) row[u"ΠΙΣΤΩΣΗ"].setValue(*data::typedAmount(txtPistosi->text()));
    data::Field photo = row[u"Photo"];
    if (!photo.isNull() || !Image1->bytes().isEmpty()) photo.setValue(Image1->bytes());
}

}  // namespace cards
