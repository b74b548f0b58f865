#include "cards/frmhistory.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "cards/cardbinding.h"
#include "cards/ledger.h"
#include "cards/photofile.h"
#include "controls/names.h"
#include "controls/picturebutton.h"
#include "controls/theme.h"
#include "core/guard.h"
#include "data/format.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

using controls::arrayName;
using controls::named;

namespace {

constexpr int parametricTexts = 2, parametricNumbers = 4;

// Columns of the boxes Text7, in their order, and where the office's caption and switch of each one stands.
struct Parametric {
    QString column, caption, flag;
};

const QVector<Parametric>& parametric() {
    static const QVector<Parametric> all = [] {
        QVector<Parametric> rows;
        const auto add = [&rows](const QString& column, const QString& caption, const QString& flag, int count) {
            for (int i = 1; i <= count; ++i)
                rows.append({column + QString::number(i), caption + QString::number(i), flag + QString::number(i)});
        };
        add(u"s"_s, u"FIELdcharh"_s, u"fch"_s, parametricTexts);
        add(u"n"_s, u"FieldNumh"_s, u"fnh"_s, parametricNumbers);
        return rows;
    }();
    return all;
}

}  // namespace

frmHistory::frmHistory(core::MainMod& mod, QWidget* parent, std::function<void(qint64)> saved)
    : QDialog(parent), mod_(mod), saved_(std::move(saved)) {
    setObjectName(u"frmHistory"_s);
    setWindowTitle(u"ΝΕΑ ΚΑΤΑΧΩΡΗΣΗ"_s);
    build();
    auto* saveKey = new QShortcut(Qt::Key_F5, this);
    core::onSignal(mod_, this, saveKey, &QShortcut::activated, [this] { save(); });
}

void frmHistory::build() {
    auto* top = new QHBoxLayout;
    top->setSpacing(18);
    top->addWidget(fields(), 2);
    top->addWidget(photoColumn(), 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 12);
    layout->setSpacing(12);
    layout->addLayout(top, 1);
    layout->addWidget(buttons());
    resize(760, 560);
}

QWidget* frmHistory::fields() {
    auto* page = new QWidget;
    form_ = new QFormLayout(page);
    form_->setContentsMargins(0, 0, 0, 0);
    form_->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    form_->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);

    txtDate = named(new controls::DateBox, u"txtDate"_s);
    DTPicker1 = named(new controls::DatePicker, u"DTPicker1"_s);
    controls::setAccessibleCaption(DTPicker1, u"Ημερολόγιο: Ημ. Κίνησης"_s);
    controls::pairUp(txtDate, DTPicker1);
    core::onSignal(mod_, this, txtDate, &controls::DateBox::refused, [this] { mod_.beep(); });
    auto* pair = new QWidget;
    auto* pairLayout = new QHBoxLayout(pair);
    pairLayout->setContentsMargins(0, 0, 0, 0);
    pairLayout->addWidget(txtDate);
    pairLayout->addWidget(DTPicker1);
    pairLayout->addStretch(1);
    auto* dateCaption = new QLabel(u"Ημ. Κίνησης"_s);
    controls::tie(dateCaption, txtDate);
    form_->addRow(dateCaption, pair);

    static const QString captions[] = {u"Αιτιολογία"_s, u"S1"_s, u"S2"_s, u"N1"_s, u"N2"_s, u"N3"_s, u"N4"_s};
    for (int i = 0; i <= parametricTexts + parametricNumbers; ++i) {
        controls::TextBox* box = i > parametricTexts ? new controls::NumberBox : new controls::TextBox;
        Text7.append(named(box, arrayName(u"Text7"_s, i)));
        addRow(form_, captions[i], box);
    }
    txtXreosh = named(new controls::NumberBox, u"txtXreosh"_s);
    txtPistosi = named(new controls::NumberBox, u"txtPistosi"_s);
    Text1 = named(new controls::MemoBox, u"Text1"_s);
    addRow(form_, u"ΧΡΕΩΣΗ"_s, txtXreosh);
    addRow(form_, u"ΠΙΣΤΩΣΗ"_s, txtPistosi);
    addRow(form_, u"Σημείωσεις"_s, Text1);
    txtDate->setHighlighting(true);
    for (controls::TextBox* box : Text7 + QVector<controls::TextBox*>{txtXreosh, txtPistosi})
        box->setHighlighting(true);
    Text1->setHighlighting(true);
    Text1->setMinimumHeight(90);
    return page;
}

void frmHistory::addRow(QFormLayout* form, const QString& caption, QWidget* box) {
    auto* label = new QLabel(caption);
    label->setTextFormat(Qt::PlainText);
    controls::tie(label, box);
    form->addRow(label, box);
    if (Label1.size() < Text7.size()) Label1.append(named(label, arrayName(u"Label1"_s, int(Label1.size()))));
}

QWidget* frmHistory::photoColumn() {
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    Image1 = named(new PhotoView, u"Image1"_s);
    layout->addWidget(Image1, 1);
    struct Row {
        QString name;
        QString icon;
        QString caption;
        std::function<void()> run;
    };
    const auto setPhoto = [this](const QByteArray& bytes) {
        mPhotoBytes = bytes;
        Image1->setBytes(bytes);
    };
    for (const Row& row :
         {Row{u"Command1"_s, u"photo-add"_s, u"Εισαγωγή Φωτογραφίας"_s,
              [this, setPhoto] {
                  if (const auto bytes = choosePhoto(mod_, this)) setPhoto(*bytes);
              }},
          Row{u"Command3"_s, u"photo-remove"_s, u"Διαγραφή Φωτογραφίας"_s, [setPhoto] { setPhoto({}); }}}) {
        auto* button = named(new QPushButton(controls::icon(row.icon), row.caption), row.name);
        button->setAutoDefault(false);
        core::onSignal(mod_, this, button, &QPushButton::clicked, [run = row.run] { run(); });
        layout->addWidget(button);
    }
    return page;
}

QWidget* frmHistory::buttons() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* hint = new QLabel(u"[F5] Αποθήκευση"_s);
    hint->setProperty("role", u"accent"_s);
    layout->addWidget(hint);
    layout->addStretch(1);
    struct Button {
        QString caption;
        QString icon;
        std::function<void()> run;
    };
    int index = 0;
    for (const Button& def : {Button{u"Αποθήκευση κίνησης"_s, u"save"_s, [this] { save(); }},
                              Button{u"Ακύρωση κίνησης"_s, u"cancel"_s,
                                     [this] {
                                         clearForm();
                                         txtDate->setFocus(Qt::TabFocusReason);
                                     }},
                              Button{u"Έξοδος"_s, u"exit"_s, [this] { reject(); }}}) {
        auto* button = named(new controls::PictureButton(def.caption, def.icon), arrayName(u"lblClick"_s, index++));
        core::onSignal(mod_, this, button, &QAbstractButton::clicked, [run = def.run] { run(); });
        layout->addWidget(button);
    }
    // Too long to stand under a picture.
    auto* exit = row->findChild<controls::PictureButton*>(arrayName(u"lblClick"_s, 2));
    exit->setToolTip(u"Έξοδος από την καταχώρηση συνάντησης"_s);
    exit->setAccessibleName(exit->toolTip());
    return row;
}

void frmHistory::load() {
    clearForm();
    setWindowTitle(EditMode ? u" Διόρθωση Κίνησης!"_s : u" Καταχώρηση Νέας Κίνησης !"_s);
    core::attempt(mod_, this, [this] {
        if (EditMode) {
            openCarrier();
            if (mRsHistory.isEmpty()) {
                core::complain(mod_, this, u"Η συγκεκριμένη κίνηση έχει ακυρωθεί !"_s);
                return;
            }
            readMovement();
        }
        dress();
    });
    untouched_ = typed();
    untouchedPhoto_ = mPhotoBytes;
    txtDate->setFocus(Qt::TabFocusReason);
}

void frmHistory::openCarrier() {
    mRsHistory.open(mod_.gConn, EditMode ? data::Sql(u"select * from HISTORY where aa=?"_s, MovementId)
                                         : u"select * from history where aa=0"_s);
}

void frmHistory::readMovement() {
    txtDate->setDate(mRsHistory[u"ΗΜΕΡΟΜΗΝΙΑ"].toDate().date());
    DTPicker1->setValue(mRsHistory[u"ΗΜΕΡΟΜΗΝΙΑ"].toDate().date());
    Text7[0]->setText(mRsHistory[u"ΑΙΤΙΟΛΟΓΙΑ"].text());
    for (int i = 0; i < parametric().size(); ++i)
        if (const data::Field field = mRsHistory[parametric()[i].column]; !field.isNull())
            Text7[i + 1]->setText(field.text());
    Text1->setText(mRsHistory[u"notes"].text());
    data::Field photo = mRsHistory[u"Photo"];
    mPhotoBytes = photo.isNull() ? QByteArray() : photo.getChunk(photo.actualSize());
    Image1->setBytes(mPhotoBytes);
    CodeCards = mRsHistory[u"codecards"].text();
    txtXreosh->setText(data::format(mRsHistory[u"ΧΡΕΩΣΗ"].toDouble(), u"0.00"));
    txtPistosi->setText(data::format(mRsHistory[u"ΠΙΣΤΩΣΗ"].toDouble(), u"0.00"));
}

void frmHistory::dress() {
    data::Recordset custom(mod_.gConn, u"Select * from customfields where id=1"_s);
    if (custom.isEmpty()) return;
    for (int i = 0; i < parametric().size(); ++i) {
        const QString caption = custom[parametric()[i].caption].text();
        Label1[i + 1]->setText(caption);
        controls::setAccessibleCaption(Text7[i + 1], caption.isEmpty() ? u"Πεδίο %1"_s.arg(i + 1) : caption);
        form_->setRowVisible(Text7[i + 1], custom[parametric()[i].flag].toBool());
    }
}

void frmHistory::clearForm() {
    const QDate today = mod_.services.clock.today();
    txtDate->setDate(today);
    DTPicker1->setValue(today);
    for (int i = 0; i < Text7.size(); ++i) Text7[i]->setText(i > parametricTexts ? u"0"_s : QString());
    Text1->setText({});
    txtXreosh->setText(u"0"_s);
    txtPistosi->setText(u"0"_s);
    mPhotoBytes.clear();
    Image1->setBytes({});
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
        {typedAmount(txtPistosi->text()).has_value(), u"Δεν έχετε συμπληρώσει σωστά την ΠΙΣΤΩΣΗ!"_s, txtPistosi},
        {typedAmount(txtXreosh->text()).has_value(), u"Δεν έχετε συμπληρώσει σωστά την ΧΡΕΩΣΗ!"_s, txtXreosh}};
    for (int i = parametricTexts + 1; i < Text7.size(); ++i)
        tests.append({data::isNumeric(Text7[i]->text()), badNumber, Text7[i]});
    for (const Test& test : tests) {
        if (test.passed) continue;
        core::complain(mod_, this, test.text, test.box);
        return false;
    }
    return true;
}

void frmHistory::save() {
    if (!isComplete()) return;
    if (!mRsHistory.isOpen()) openCarrier();
    if (EditMode && mRsHistory.isEmpty())
        throw data::Error(data::ErrorCategory::Conflict, u"Η κίνηση έχει διαγραφεί από άλλον χρήστη."_s);
    if (!EditMode && mRsHistory.editMode() != data::EditMode::Add) mRsHistory.addNew();
    write(mRsHistory);
    mRsHistory.update();
    const qint64 movement = mRsHistory[u"aa"].toLong();
    mRsHistory.close();
    accept();
    saved_(movement);
}

void frmHistory::write(data::Recordset& row) {
    writeText(row[u"ΑΙΤΙΟΛΟΓΙΑ"], Text7[0]->text());
    for (int i = 0; i < parametricTexts; ++i) writeText(row[parametric()[i].column], Text7[i + 1]->text());
    for (int i = parametricTexts; i < parametric().size(); ++i)
        row[parametric()[i].column].setValue(*data::parseNumber(Text7[i + 1]->text()));
    writeText(row[u"notes"], Text1->text());
    row[u"ΗΜΕΡΟΜΗΝΙΑ"].setValue(txtDate->formattedText());
    row[u"codecards"].setValue(CodeCards.toLongLong());
    row[u"ΧΡΕΩΣΗ"].setValue(*typedAmount(txtXreosh->text()));
    row[u"ΠΙΣΤΩΣΗ"].setValue(*typedAmount(txtPistosi->text()));
    data::Field photo = row[u"Photo"];
    if (!photo.isNull() || !mPhotoBytes.isEmpty()) photo.setValue(mPhotoBytes);
}

QStringList frmHistory::typed() const {
    QStringList texts{txtDate->formattedText(), Text1->text(), txtXreosh->text(), txtPistosi->text()};
    for (const controls::TextBox* box : Text7) texts << box->text();
    return texts;
}

void frmHistory::reject() {
    const bool changed = typed() != untouched_ || mPhotoBytes != untouchedPhoto_;
    if (changed && !mod_.services.prompts.question(
                       this, core::programTitle(),
                       u"Η κίνηση έχει αλλαγές που δεν αποθηκεύτηκαν.\nΝα κλείσει χωρίς αποθήκευση;"_s))
        return;
    mRsHistory.close();
    QDialog::reject();
}

}  // namespace cards
