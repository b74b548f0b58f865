// The face of the card: the controls of cardFields() on their tabs, without behaviour of its own.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QHash>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QWidget>

#include "cards/cardfields.h"
#include "controls/datepair.h"
#include "controls/photoview.h"

class QFormLayout;
class QStackedWidget;
class QToolButton;

namespace cards {

// The tabs' contents that aren't columns of the card; the view takes them over.
struct CardPanels {
    QWidget* history;
    QWidget* links;
    QWidget* appointments;
};

class CardView : public QWidget {
    Q_OBJECT
public:
    explicit CardView(const CardPanels& panels);

    // By control name; the field must be of that kind.
    controls::TextBox* text(const CardField& field) const { return cast<controls::TextBox>(field); }
    controls::MemoBox* memo(const CardField& field) const { return cast<controls::MemoBox>(field); }
    controls::DateBox* date(const CardField& field) const { return cast<controls::DateBox>(field); }
    QComboBox* combo(const CardField& field) const { return cast<QComboBox>(field); }
    QCheckBox* check(const CardField& field) const { return cast<QCheckBox>(field); }
    controls::DatePicker* picker(const CardField& field) const { return pickers_.value(field.controlName()); }
    QWidget* control(const CardField& field) const { return widgets_.value(field.controlName()); }
    QWidget* control(const QString& name) const { return widgets_.value(name); }

    // Caption and visibility of a parametric field; hidden ones keep their values.
    void dress(const CardField& field, const QString& caption, bool visible);
    bool isOffered(const CardField& field) const;  // not hidden by the office
    QString captionText(const CardField& field) const { return captions_.value(field.controlName())->text(); }
    void showSpecialHint();  // says so when the office has switched no parametric field on

    void selectTab(CardTab tab);
    bool isShowing(CardTab tab) const;
    void showText(int index);  // one of the six long texts

    QLabel* surname() const { return surname_; }
    QLabel* firstName() const { return firstName_; }
    QLabel* telephone() const { return telephone_; }
    QLabel* counter() const { return counter_; }
    QLabel* saveHint() const { return saveHint_; }
    QTabWidget* tabs() const { return tabs_; }
    controls::PhotoView* photo() const { return photo_; }
    QPushButton* loadPhoto() const { return loadPhoto_; }
    QPushButton* clearPhoto() const { return clearPhoto_; }
    QToolButton* categories() const { return categories_; }
    QToolButton* mail() const { return mail_; }
    QToolButton* web() const { return web_; }
    QPushButton* today() const { return today_; }  // puts today into the last visit
    QWidget* linksFrame() const { return panels_.links; }

private:
    template <typename W>
    W* cast(const CardField& field) const {
        return qobject_cast<W*>(widgets_.value(field.controlName()));
    }
    QWidget* create(const CardField& field);
    QWidget* datePairOf(const CardField& field);
    QWidget* withButton(const CardField& field, QToolButton* button);
    QToolButton* besideButton(const QString& name, const QString& icon, const QString& caption);
    QWidget* besideRow(const CardField& field);
    QLabel* caption(const CardField& field);
    QWidget* header();
    QWidget* basicTab();
    QWidget* specialTab();
    QWidget* notesTab();
    QWidget* textsTab();
    QWidget* historyTab();
    QWidget* linksTab() { return panels_.links; }
    QWidget* appointmentsTab() { return panels_.appointments; }
    void addRow(QFormLayout* form, const CardField& field);

    CardPanels panels_;
    QHash<QString, QWidget*> widgets_;
    QHash<QString, controls::DatePicker*> pickers_;
    QHash<QString, QLabel*> captions_;
    QHash<QString, QFormLayout*> forms_;
    QVector<QPushButton*> textButtons_;
    QHash<CardTab, QWidget*> pages_;
    QLabel *surname_, *firstName_, *telephone_, *counter_, *saveHint_, *textHeader_, *specialHint_;
    QTabWidget* tabs_;
    QStackedWidget* texts_;
    controls::PhotoView* photo_;
    QPushButton *loadPhoto_, *clearPhoto_, *today_;
    QToolButton *categories_, *mail_, *web_;
};

}  // namespace cards
