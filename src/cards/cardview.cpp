#include "cards/cardview.h"

#include "controls/captions.h"
#include "controls/choicebox.h"
#include "controls/names.h"
#include "controls/pagearea.h"
#include "controls/theme.h"
#include "core/columnsize.h"
#include "data/values/fold.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

using controls::arrayName;
using controls::Item;
using controls::named;

namespace {

// The two columns of the first tab, top to bottom; this is also the tab order.
const QStringList basicLeft = {u"Text7(0)"_s, u"Text7(1)"_s,  u"Text7(2)"_s,  u"Combo1"_s,
                               u"Combo2"_s,   u"txtDate"_s,   u"Text7(3)"_s,  u"Combo3"_s,
                               u"Text7(4)"_s, u"Text7(18)"_s, u"Text7(19)"_s, u"Text7(15)"_s};
const QStringList basicRight = {u"Text7(5)"_s,  u"Text7(6)"_s,  u"Text7(8)"_s,  u"Text7(7)"_s,
                                u"Text7(9)"_s,  u"Text7(20)"_s, u"Text7(10)"_s, u"Text7(21)"_s,
                                u"Text7(11)"_s, u"Text7(12)"_s, u"Text7(13)"_s, u"Text7(14)"_s};

const CardField& fieldNamed(const QString& control) {
    for (const CardField& field : cardFields())
        if (field.controlName() == control) return field;
    Q_UNREACHABLE();
}

QWidget* makeControl(const CardField& field) {
    switch (field.kind) {
        case CardKind::Text:
        case CardKind::ParamText:
            return new controls::TextBox;
        case CardKind::ParamNumber:
            return new controls::NumberBox;
        case CardKind::Frequency:
        case CardKind::Amount: {
            auto* box = new controls::NumberBox;
            box->setWhenEmpty(u"0"_s);
            return box;
        }
        case CardKind::Notes:
        case CardKind::LongText:
            return new controls::MemoBox;
        case CardKind::ParamDate:
        case CardKind::BirthDate:
        case CardKind::LastMovement:
            return new controls::DateBox;
        case CardKind::ParamFlag:
            return new QCheckBox;
        case CardKind::Category:
            return new controls::ChoiceBox(false);
        case CardKind::Sex: {
            auto* choice = new controls::ChoiceBox(false);
            choice->addItems({u"Άνδρας"_s, u"Γυναίκα"_s});
            return choice;
        }
        case CardKind::ParamList:
        case CardKind::NameDay: {
            auto* choice = new controls::ChoiceBox(true);
            choice->compareBy(data::fold);
            return choice;
        }
    }
    Q_UNREACHABLE();
}

QString pickerName(const CardField& field) {
    if (field.kind == CardKind::BirthDate) return u"DTPicker1"_s;
    if (field.kind == CardKind::LastMovement) return u"DTPΤελευταία"_s;
    return arrayName(u"DTPcustDate"_s, field.index);
}

}  // namespace

CardView::CardView() {
    for (const CardField& field : cardFields()) {
        QWidget* control = named(makeControl(field), field.controlName());
        controls::setAccessibleCaption(control, field.caption);
        core::limitToColumn(control, u"Cards"_s, field.column);
        widgets_.insert(field.controlName(), control);
    }
}

void CardView::build(core::Commands& commands, const CardPanels& panels) {
    beside_ = {{u"Combo1"_s, commands.toolButton(u"Command2"_s)},
               {u"Text7(13)"_s, commands.toolButton(u"Command5"_s)},
               {u"Text7(14)"_s, commands.toolButton(u"Command6"_s)},
               {u"txtΤελευταία"_s, commands.button(u"cmdΣήμερα"_s)}};
    tabs_ = named(new QTabWidget, u"TabStrip1"_s);
    tabs_->setAccessibleName(u"Στοιχεία καρτέλας"_s);
    tabs_->setDocumentMode(true);
    struct Tab {
        CardTab tab;
        QString caption, frame;
        QWidget* page;
    };
    for (const Tab& tab : {Tab{CardTab::Basic, u"Βασικά Στοιχεία"_s, u"Frame3"_s, basicTab()},
                           Tab{CardTab::Special, u"Ειδικά Στοιχεία"_s, u"Frame4"_s, specialTab()},
                           Tab{CardTab::History, u"Ιστορικό"_s, u"Frame5"_s, historyTab(panels.history)},
                           Tab{CardTab::Notes, u"Σημειώσεις"_s, u"Frame1"_s, notesTab(commands)},
                           Tab{CardTab::Texts, u"Κείμενα"_s, u"Frame6"_s, textsTab()},
                           Tab{CardTab::Links, u"Συνδέσεις"_s, u"Frame2"_s, panels.links},
                           Tab{CardTab::Appointments, u"Συναντήσεις"_s, u"Frame7"_s, panels.appointments}}) {
        QWidget* page = new controls::PageArea(named(tab.page, tab.frame));
        pages_.insert(tab.tab, page);
        tabs_->addTab(page, tab.caption);
    }
    controls::add(controls::bareLayout(this), {header(), {tabs_, 1}});
}

QWidget* CardView::holderOf(const CardField& field) {
    QWidget *control = this->control(field), *beside = beside_.value(field.controlName());
    if (auto* box = qobject_cast<controls::DateBox*>(control)) {
        auto* date = new controls::DateField(box, pickerName(field), field.caption);
        if (beside) date->add(beside);
        return date;
    }
    return beside ? controls::rowWidget({{control, 1}, beside}, 4) : control;
}

void CardView::addRow(QFormLayout* form, const CardField& field) {
    const QString name = field.controlName();
    QWidget* holder = holders_[name] = holderOf(field);
    forms_.insert(name, form);
    if (field.kind == CardKind::ParamFlag)
        form->addRow(QString(), holder);
    else
        captions_.insert(name, controls::addField(form, field.caption, control(field), holder));
}

QWidget* CardView::header() {
    // A name of any length must not push the window wider than the screen.
    surname_ = named(new controls::ElidedLabel, arrayName(u"Label1"_s, 0));
    firstName_ = named(new controls::ElidedLabel, arrayName(u"Label1"_s, 1));
    telephone_ = named(new controls::ElidedLabel, arrayName(u"Label1"_s, 2));
    counter_ = named(new QLabel, u"Label4"_s);
    saveHint_ = named(new QLabel(u"[F5] Επικύρωση"_s), u"Label31"_s);
    for (QLabel* label : {surname_, firstName_, telephone_})
        label->setFont(controls::font(u"Tahoma"_s, 14, label == surname_));
    saveHint_->setProperty("role", u"accent"_s);
    counter_->setProperty("role", u"muted"_s);
    return controls::rowWidget({{surname_, 3}, {firstName_, 3}, {telephone_, 2}, saveHint_, counter_}, 10);
}

QWidget* CardView::basicTab() {
    QFormLayout *left = controls::formLayout(), *right = controls::formLayout(), *bottom = controls::formLayout();
    for (const QString& name : basicLeft) addRow(left, fieldNamed(name));
    for (const QString& name : basicRight) addRow(right, fieldNamed(name));
    addRow(bottom, fieldNamed(u"Text7(16)"_s));
    auto* page = new QWidget;
    controls::add(controls::tabLayout(page), {controls::row({{left, 1}, {right, 1}}, 28), bottom, Item::rest()});
    return page;
}

QWidget* CardView::specialTab() {
    QFormLayout *texts = controls::formLayout(), *figures = controls::formLayout(), *choices = controls::formLayout();
    const QHash<CardKind, QFormLayout*> column = {{CardKind::ParamText, texts},
                                                  {CardKind::ParamNumber, figures},
                                                  {CardKind::ParamDate, figures},
                                                  {CardKind::ParamList, choices},
                                                  {CardKind::ParamFlag, choices}};
    // Lists stand above the check boxes, so the lists are added first.
    for (const bool flags : {false, true})
        for (const CardField& field : cardFields())
            if (column.contains(field.kind) && (field.kind == CardKind::ParamFlag) == flags)
                addRow(column.value(field.kind), field);
    specialHint_ = new QLabel(u"Το γραφείο δεν έχει ορίσει ακόμη ειδικά πεδία."_s);
    specialHint_->setProperty("role", u"muted"_s);
    specialHint_->hide();
    auto* page = new QWidget;
    controls::add(controls::tabLayout(page),
                  {controls::row({{texts, 1}, {figures, 1}, {choices, 1}}, 24), specialHint_, Item::rest()});
    return page;
}

QWidget* CardView::notesTab(core::Commands& commands) {
    const CardField& notes = fieldNamed(u"Text7(17)"_s);
    photo_ = named(new controls::PhotoView, u"Image1"_s);
    auto* photo = controls::column({{photo_, 1}, commands.button(u"Command1"_s), commands.button(u"Command3"_s)});
    auto* page = new QWidget;
    controls::add(controls::tabLayout(page), {controls::captionOf(notes.caption, memo(notes)),
                                              {controls::row({{memo(notes), 2}, {photo, 1}}, 16), 1}});
    return page;
}

QWidget* CardView::textsTab() {
    textHeader_ = named(new controls::ElidedLabel, u"lblMemeHeader"_s);
    textHeader_->setFont(controls::font(u"Tahoma"_s, 11, true));
    auto* buttons = controls::column({});
    texts_ = new QStackedWidget;
    for (int i = 0; i < 6; ++i) {
        auto* button = named(new QPushButton(u"Κειμενο %1"_s.arg(i + 1)), arrayName(u"cmdMemo"_s, i));
        button->setCheckable(true);
        button->setAutoExclusive(true);
        connect(button, &QPushButton::clicked, this, [this, i] { showText(i); });
        textButtons_.append(button);
        buttons->addWidget(button);
        texts_->addWidget(control(arrayName(u"txtMemo"_s, i)));
    }
    buttons->addStretch(1);
    auto* page = new QWidget;
    controls::add(controls::tabLayout(page),
                  {{controls::row({buttons, {controls::column({textHeader_, {texts_, 1}}), 1}}, 16), 1}});
    return page;
}

QWidget* CardView::historyTab(QWidget* history) {
    auto* visits = controls::row({}, 24);
    for (const CardField& field : cardFields()) {
        if (field.tab != CardTab::History) continue;
        QFormLayout* form = controls::formLayout();
        addRow(form, field);
        visits->addLayout(form);
        visits->setAlignment(form, Qt::AlignVCenter);
    }
    auto* page = new QWidget;
    controls::add(controls::tabLayout(page), {{history, 1}, visits});
    return page;
}

void CardView::dress(const CardField& field, const QString& caption, bool visible) {
    QWidget* widget = control(field);
    // A field that the office left without a name is still told from the next one.
    const bool text = field.kind == CardKind::LongText;
    const QString spoken = u"%1 %2"_s.arg(text ? u"Κειμενο"_s : u"Πεδίο"_s).arg(field.index + 1);
    widget->setAccessibleName(caption.isEmpty() ? spoken : caption);
    if (text) textButtons_[field.index]->setAccessibleName(widget->accessibleName());
    typed_.insert(field.controlName(), caption);
    if (QLabel* label = captions_.value(field.controlName())) controls::setTypedCaption(label, caption);
    if (auto* box = qobject_cast<QCheckBox*>(widget)) controls::setTypedCaption(box, caption);
    if (field.kind == CardKind::LongText) {
        controls::setTypedCaption(textButtons_[field.index], caption);
        return;
    }
    if (QFormLayout* form = forms_.value(field.controlName()))
        form->setRowVisible(holders_.value(field.controlName()), visible);
}

QString CardView::captionText(const CardField& field) const {
    const QString name = field.controlName();
    return typed_.value(name, captions_.value(name)->text());
}

bool CardView::isOffered(const CardField& field) const {
    return !holders_.value(field.controlName())->isHidden();
}

void CardView::showSpecialHint() {
    const bool any = std::any_of(cardFields().begin(), cardFields().end(), [this](const CardField& field) {
        return field.tab == CardTab::Special && isOffered(field);
    });
    specialHint_->setVisible(!any);
}

void CardView::selectTab(CardTab tab) {
    tabs_->setCurrentWidget(pages_.value(tab));
}

void CardView::showField(const CardField& field) {
    selectTab(field.tab);
    if (field.kind == CardKind::LongText) showText(field.index);
}

bool CardView::isShowing(CardTab tab) const {
    return tabs_->currentWidget() == pages_.value(tab);
}

void CardView::showText(int index) {
    texts_->setCurrentIndex(index);
    textButtons_[index]->setChecked(true);
    const QString button = textButtons_[index]->text();
    textHeader_->setText(u" "_s + typed_.value(arrayName(u"txtMemo"_s, index), button));
}

}  // namespace cards
