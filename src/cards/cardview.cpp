#include "cards/cardview.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QStackedWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include "controls/choicebox.h"
#include "controls/names.h"
#include "controls/theme.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

using controls::arrayName;
using controls::named;

namespace {

struct TabDef {
    CardTab tab;
    QString caption;
    QString frame;
};

// The strip in its order.
const TabDef tabDefs[] = {
    {CardTab::Basic, u"Βασικά Στοιχεία"_s, u"Frame3"_s},
    {CardTab::Special, u"Ειδικά Στοιχεία"_s, u"Frame4"_s},
    {CardTab::History, u"Ιστορικό"_s, u"Frame5"_s},
    {CardTab::Notes, u"Σημειώσεις"_s, u"Frame1"_s},
    {CardTab::Texts, u"Κείμενα"_s, u"Frame6"_s},
    {CardTab::Links, u"Συνδέσεις"_s, u"Frame2"_s},
    {CardTab::Appointments, u"Συναντήσεις"_s, u"Frame7"_s},
};

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

QFormLayout* formLayout() {
    auto* form = new QFormLayout;
    form->setContentsMargins(0, 0, 0, 0);
    form->setHorizontalSpacing(10);
    form->setVerticalSpacing(6);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    return form;
}

// Asks for as much room as its page wants; the toolkit's own stops at a few lines.
class PageArea : public QScrollArea {
public:
    QSize sizeHint() const override { return widget()->sizeHint() + QSize(2 * frameWidth(), 2 * frameWidth()); }
};

QWidget* scrolled(QWidget* page) {
    auto* area = new PageArea;
    area->setWidget(page);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    return area;
}

}  // namespace

CardView::CardView(const CardPanels& panels) : panels_(panels) {
    for (const CardField& field : cardFields()) widgets_.insert(field.controlName(), create(field));

    tabs_ = named(new QTabWidget, u"TabStrip1"_s);
    tabs_->setAccessibleName(u"Στοιχεία καρτέλας"_s);
    tabs_->setDocumentMode(true);
    using Builder = QWidget* (CardView::*)();
    const QHash<CardTab, Builder> builders = {{CardTab::Basic, &CardView::basicTab},
                                              {CardTab::Special, &CardView::specialTab},
                                              {CardTab::History, &CardView::historyTab},
                                              {CardTab::Notes, &CardView::notesTab},
                                              {CardTab::Texts, &CardView::textsTab},
                                              {CardTab::Links, &CardView::linksTab},
                                              {CardTab::Appointments, &CardView::appointmentsTab}};
    for (const TabDef& def : tabDefs) {
        QWidget* frame = named((this->*builders.value(def.tab))(), def.frame);
        QWidget* page = scrolled(frame);
        pages_.insert(def.tab, page);
        tabs_->addTab(page, def.caption);
    }

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addWidget(header());
    layout->addWidget(tabs_, 1);
}

QWidget* CardView::create(const CardField& field) {
    QWidget* widget = nullptr;
    switch (field.kind) {
        case CardKind::Text:
        case CardKind::ParamText:
            widget = new controls::TextBox;
            break;
        case CardKind::ParamNumber:
            widget = new controls::NumberBox;
            break;
        case CardKind::Frequency:
        case CardKind::Amount: {
            auto* box = new controls::NumberBox;
            box->setWhenEmpty(u"0"_s);
            widget = box;
            break;
        }
        case CardKind::Notes:
        case CardKind::LongText:
            widget = new controls::MemoBox;
            break;
        case CardKind::ParamDate:
        case CardKind::BirthDate:
        case CardKind::LastMovement:
            widget = new controls::DateBox;
            break;
        case CardKind::ParamFlag:
            widget = new QCheckBox;
            break;
        case CardKind::Category:
        case CardKind::Sex:
            widget = new controls::ChoiceBox(false);
            break;
        case CardKind::ParamList:
        case CardKind::NameDay:
            widget = new controls::ChoiceBox(true);
            break;
    }
    if (field.kind == CardKind::Sex) qobject_cast<QComboBox*>(widget)->addItems({u"Άνδρας"_s, u"Γυναίκα"_s});
    controls::setAccessibleCaption(widget, field.caption);
    return named(widget, field.controlName());
}

QLabel* CardView::caption(const CardField& field) {
    auto* label = new QLabel(field.caption);
    if (!field.captionColumn.isEmpty()) label->setTextFormat(Qt::PlainText);
    captions_.insert(field.controlName(), label);
    controls::tie(label, control(field));
    return label;
}

QWidget* CardView::datePairOf(const CardField& field) {
    static const QHash<QString, QString> pickerNames = {{u"txtDate"_s, u"DTPicker1"_s},
                                                        {u"txtΤελευταία"_s, u"DTPΤελευταία"_s}};
    auto* picker = named(new controls::DatePicker,
                         field.index < 0 ? pickerNames.value(field.array) : arrayName(u"DTPcustDate"_s, field.index));
    controls::setAccessibleCaption(picker, u"Ημερολόγιο: "_s + field.caption);
    pickers_.insert(field.controlName(), picker);
    controls::pairUp(date(field), picker);
    auto* pair = new QWidget;
    auto* layout = new QHBoxLayout(pair);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(date(field));
    layout->addWidget(picker);
    if (field.kind == CardKind::LastMovement) {
        today_ = named(new QPushButton(u"Σήμερα"_s), u"cmdΣήμερα"_s);
        layout->addWidget(today_);
    }
    layout->addStretch(1);
    return pair;
}

void CardView::addRow(QFormLayout* form, const CardField& field) {
    QWidget* holder = control(field);
    if (qobject_cast<controls::DateBox*>(holder)) holder = datePairOf(field);
    if (QWidget* row = besideRow(field)) holder = row;
    if (field.kind == CardKind::ParamFlag)
        form->addRow(QString(), holder);
    else
        form->addRow(caption(field), holder);
    forms_.insert(field.controlName(), form);
}

QToolButton* CardView::besideButton(const QString& name, const QString& icon, const QString& caption) {
    auto* button = named(new QToolButton, name);
    button->setIcon(controls::icon(icon));
    button->setToolTip(caption);
    button->setAccessibleName(caption);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

QWidget* CardView::withButton(const CardField& field, QToolButton* button) {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(control(field), 1);
    layout->addWidget(button);
    return row;
}

// The field with the button that belongs to it; null for a field without one.
QWidget* CardView::besideRow(const CardField& field) {
    struct Beside {
        QString control, name, icon, caption;
        QToolButton*& button;
    };
    for (const Beside& beside :
         {Beside{u"Combo1"_s, u"Command2"_s, u"category"_s, u"Κατηγορίες Καρτέλας"_s, categories_},
          Beside{u"Text7(13)"_s, u"Command5"_s, u"mail"_s, u"Συνταξή και αποστολή e-mail"_s, mail_},
          Beside{u"Text7(14)"_s, u"Command6"_s, u"web"_s, u"Μετάβαση στη σελίδα"_s, web_}}) {
        if (field.controlName() != beside.control) continue;
        beside.button = besideButton(beside.name, beside.icon, beside.caption);
        return withButton(field, beside.button);
    }
    return nullptr;
}

QWidget* CardView::header() {
    surname_ = named(new QLabel, arrayName(u"Label1"_s, 0));
    firstName_ = named(new QLabel, arrayName(u"Label1"_s, 1));
    telephone_ = named(new QLabel, arrayName(u"Label1"_s, 2));
    counter_ = named(new QLabel, u"Label4"_s);
    saveHint_ = named(new QLabel(u"[F5] Επικύρωση"_s), u"Label31"_s);
    for (QLabel* label : {surname_, firstName_, telephone_}) {
        label->setTextFormat(Qt::PlainText);
        label->setFont(controls::font(u"Tahoma"_s, 14, label == surname_));
        // A name of any length must not push the window wider than the screen.
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    }
    saveHint_->setProperty("role", u"accent"_s);
    counter_->setProperty("role", u"muted"_s);
    auto* bar = new QWidget;
    auto* layout = new QHBoxLayout(bar);
    layout->setContentsMargins(2, 0, 2, 0);
    layout->setSpacing(10);
    layout->addWidget(surname_, 3);
    layout->addWidget(firstName_, 3);
    layout->addWidget(telephone_, 2);
    layout->addWidget(saveHint_);
    layout->addWidget(counter_);
    return bar;
}

QWidget* CardView::basicTab() {
    auto* page = new QWidget;
    auto* grid = new QGridLayout(page);
    grid->setContentsMargins(14, 14, 14, 14);
    grid->setHorizontalSpacing(28);
    QFormLayout *left = formLayout(), *right = formLayout(), *bottom = formLayout();
    for (const QString& name : basicLeft) addRow(left, fieldNamed(name));
    for (const QString& name : basicRight) addRow(right, fieldNamed(name));
    addRow(bottom, fieldNamed(u"Text7(16)"_s));
    grid->addLayout(left, 0, 0);
    grid->addLayout(right, 0, 1);
    grid->addLayout(bottom, 1, 0, 1, 2);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(2, 1);
    return page;
}

QWidget* CardView::specialTab() {
    auto* page = new QWidget;
    auto* layout = new QGridLayout(page);
    layout->setContentsMargins(14, 14, 14, 14);
    layout->setHorizontalSpacing(24);
    QFormLayout *texts = formLayout(), *figures = formLayout(), *choices = formLayout();
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
    int index = 0;
    for (QFormLayout* form : {texts, figures, choices}) {
        layout->addLayout(form, 0, index);
        layout->setColumnStretch(index++, 1);
    }
    layout->addWidget(specialHint_, 1, 0, 1, 3, Qt::AlignTop);
    layout->setRowStretch(1, 1);
    return page;
}

QWidget* CardView::notesTab() {
    auto* page = new QWidget;
    auto* grid = new QGridLayout(page);
    grid->setContentsMargins(14, 14, 14, 14);
    grid->setHorizontalSpacing(16);
    photo_ = named(new PhotoView, u"Image1"_s);
    loadPhoto_ = named(new QPushButton(controls::icon(u"photo-add"_s), u"Εισαγωγή Φωτογραφίας"_s), u"Command1"_s);
    clearPhoto_ = named(new QPushButton(controls::icon(u"photo-remove"_s), u"Διαγραφή Φωτογραφίας"_s), u"Command3"_s);
    const CardField& notes = fieldNamed(u"Text7(17)"_s);
    grid->addWidget(caption(notes), 0, 0, Qt::AlignLeft);
    grid->addWidget(memo(notes), 1, 0, 3, 1);
    grid->addWidget(photo_, 1, 1);
    grid->addWidget(loadPhoto_, 2, 1);
    grid->addWidget(clearPhoto_, 3, 1);
    grid->setColumnStretch(0, 2);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(1, 1);
    return page;
}

QWidget* CardView::textsTab() {
    auto* page = new QWidget;
    auto* grid = new QGridLayout(page);
    grid->setContentsMargins(14, 14, 14, 14);
    grid->setHorizontalSpacing(16);
    textHeader_ = named(new QLabel, u"lblMemeHeader"_s);
    textHeader_->setTextFormat(Qt::PlainText);
    textHeader_->setFont(controls::font(u"Tahoma"_s, 11, true));
    grid->addWidget(textHeader_, 0, 1);
    auto* buttons = new QVBoxLayout;
    buttons->setSpacing(8);
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
    grid->addLayout(buttons, 1, 0);
    grid->addWidget(texts_, 1, 1);
    grid->setColumnStretch(1, 1);
    return page;
}

QWidget* CardView::historyTab() {
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(14, 14, 14, 14);
    layout->setSpacing(12);
    layout->addWidget(panels_.history, 1);
    auto* visits = new QHBoxLayout;
    visits->setSpacing(24);
    for (const CardField& field : cardFields()) {
        if (field.tab != CardTab::History) continue;
        QFormLayout* form = formLayout();
        addRow(form, field);
        visits->addLayout(form);
        visits->setAlignment(form, Qt::AlignVCenter);
    }
    layout->addLayout(visits);
    return page;
}

void CardView::dress(const CardField& field, const QString& caption, bool visible) {
    QWidget* widget = control(field);
    // A field that the office left without a name is still told from the next one.
    const bool text = field.kind == CardKind::LongText;
    const QString spoken = u"%1 %2"_s.arg(text ? u"Κειμενο"_s : u"Πεδίο"_s).arg(field.index + 1);
    widget->setAccessibleName(caption.isEmpty() ? spoken : caption);
    if (text) textButtons_[field.index]->setAccessibleName(widget->accessibleName());
    if (QLabel* label = captions_.value(field.controlName())) label->setText(caption);
    if (auto* box = qobject_cast<QCheckBox*>(widget)) box->setText(QString(caption).replace(u'&', u"&&"_s));
    if (field.kind == CardKind::LongText) {
        textButtons_[field.index]->setText(QString(caption).replace(u'&', u"&&"_s));
        return;
    }
    if (QFormLayout* form = forms_.value(field.controlName()))
        form->setRowVisible(qobject_cast<controls::DateBox*>(widget) ? widget->parentWidget() : widget, visible);
}

bool CardView::isOffered(const CardField& field) const {
    // A date stands in a row with its calendar, and the row is what is hidden.
    const bool inRow = qobject_cast<controls::DateBox*>(control(field));
    return !control(field)->isHidden() && !(inRow && control(field)->parentWidget()->isHidden());
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

bool CardView::isShowing(CardTab tab) const {
    return tabs_->currentWidget() == pages_.value(tab);
}

void CardView::showText(int index) {
    texts_->setCurrentIndex(index);
    textButtons_[index]->setChecked(true);
    textHeader_->setText(u" "_s + textButtons_[index]->text().replace(u"&&"_s, u"&"_s));
}

}  // namespace cards
