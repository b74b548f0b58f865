// The face of the card: the controls of cardFields() on their tabs, without behaviour of its own.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QHash>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabWidget>
#include <QWidget>

#include "cards/cardfields.h"
#include "controls/datefield.h"
#include "controls/photoview.h"
#include "core/commands.h"

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
    // The fields alone, so that commands can look at them; build() lays them out with the buttons of the commands.
    CardView();
    void build(core::Commands& commands, const CardPanels& panels);

    // By control name; the field must be of that kind.
    controls::TextBox* text(const CardField& field) const { return cast<controls::TextBox>(field, widgets_); }
    controls::MemoBox* memo(const CardField& field) const { return cast<controls::MemoBox>(field, widgets_); }
    controls::DateBox* date(const CardField& field) const { return cast<controls::DateBox>(field, widgets_); }
    QComboBox* combo(const CardField& field) const { return cast<QComboBox>(field, widgets_); }
    QCheckBox* check(const CardField& field) const { return cast<QCheckBox>(field, widgets_); }
    // The date with its calendar; nothing else has one.
    controls::DateField* dateField(const CardField& field) const { return cast<controls::DateField>(field, holders_); }
    QWidget* control(const CardField& field) const { return control(field.controlName()); }
    QWidget* control(const QString& name) const { return widgets_.value(name); }

    // Caption and visibility of a parametric field; hidden ones keep their values.
    void dress(const CardField& field, const QString& caption, bool visible);
    bool isOffered(const CardField& field) const;  // not hidden by the office
    QString captionText(const CardField& field) const;  // as the office typed it
    void showSpecialHint();  // says so when the office has switched no parametric field on

    void selectTab(CardTab tab);
    bool isShowing(CardTab tab) const;
    void showField(const CardField& field);  // brings its tab to the front, and its text among the six
    void showText(int index);                // one of the six long texts

    QLabel* surname() const { return surname_; }
    QLabel* firstName() const { return firstName_; }
    QLabel* telephone() const { return telephone_; }
    QLabel* counter() const { return counter_; }
    QLabel* saveHint() const { return saveHint_; }
    QTabWidget* tabs() const { return tabs_; }
    controls::PhotoView* photo() const { return photo_; }

private:
    using Widgets = QHash<QString, QWidget*>;
    template <typename W>
    W* cast(const CardField& field, const Widgets& from) const {
        return qobject_cast<W*>(from.value(field.controlName()));
    }
    QWidget* holderOf(const CardField& field);
    void addRow(QFormLayout* form, const CardField& field);
    QWidget* header();
    QWidget* basicTab();
    QWidget* specialTab();
    QWidget* notesTab(core::Commands& commands);
    QWidget* textsTab();
    QWidget* historyTab(QWidget* history);

    Widgets widgets_;  // by control name
    Widgets beside_;   // the button that belongs to a field
    Widgets holders_;  // what stands in the row of a form: the field, alone or with what is beside it
    QHash<QString, QLabel*> captions_;
    QHash<QString, QString> typed_;  // captions of parametric fields
    QHash<QString, QFormLayout*> forms_;
    QVector<QPushButton*> textButtons_;
    QHash<CardTab, QWidget*> pages_;
    QLabel *surname_, *firstName_, *telephone_, *counter_, *saveHint_, *textHeader_, *specialHint_;
    QTabWidget* tabs_;
    QStackedWidget* texts_;
    controls::PhotoView* photo_;
};

}  // namespace cards
