#include "core/conflictdialog.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QScrollArea>

#include "controls/captions.h"
#include "controls/layout.h"
#include "controls/names.h"

using namespace Qt::Literals::StringLiterals;

namespace core {

namespace {

constexpr int longestShown = 60;  // characters of a value beside its choice

QString choiceText(const QString& whose, const QString& value) {
    const QString line = value.simplified();
    const QString cut = line.size() > longestShown ? line.left(longestShown) + u"…"_s : line;
    return u"%1: %2"_s.arg(whose, cut.isEmpty() ? u"(κενό)"_s : cut).replace(u'&', u"&&"_s);
}

}  // namespace

ConflictDialog::ConflictDialog(MainMod& mod, QWidget* parent, const QString& what, const QVector<ConflictField>& fields)
    : Dialog(mod, parent, u"ConflictDialog"_s, u"Αλλαγές από άλλον χρήστη"_s, u"warning"_s),
      commands_(mod, this,
                {{u"cmdMine"_s, {}, u"Παντού η δική μου"_s, {}, [this] { choose(mine_); }},
                 {u"cmdTheirs"_s, {}, u"Παντού η δική τους"_s, {}, [this] { choose(theirs_); }},
                 {u"cmdSave"_s, u"save"_s, u"Αποθήκευση"_s, {Qt::Key_F5}, [this] { accept(); }},
                 {u"cmdBack"_s, u"exit"_s, u"Επιστροφή στη διόρθωση"_s, {}, [this] { reject(); }}}) {
    auto* said = new QLabel(
        u"Άλλος χρήστης αποθήκευσε στο μεταξύ %1. Διαλέξτε ποια τιμή θα μείνει σε κάθε πεδίο που αλλάξατε και οι δύο."_s
            .arg(what));
    said->setWordWrap(true);
    auto* area = new QScrollArea;
    area->setWidget(rows(fields));
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    auto* buttons = controls::row({});
    commands_.addButtons(buttons, {u"cmdMine"_s, u"cmdTheirs"_s});
    buttons->addStretch(1);
    commands_.addButtons(buttons, {u"cmdSave"_s, u"cmdBack"_s});
    controls::add(controls::dialogLayout(this), {said, {area, 1}, buttons});
    commands_.bindKeys(this, {u"cmdSave"_s});
    resize(760, 360);
}

QWidget* ConflictDialog::rows(const QVector<ConflictField>& fields) {
    auto* page = new QWidget;
    auto* grid = new QGridLayout(page);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(2, 1);
    for (int i = 0; i < fields.size(); ++i) {
        const ConflictField& field = fields[i];
        auto* caption = new QLabel;
        caption->setTextFormat(Qt::PlainText);
        controls::setTypedCaption(caption, field.caption);
        grid->addWidget(caption, i, 0);
        auto* group = new QButtonGroup(page);
        const auto choice = [&](const QString& array, const QString& whose, const QString& value, int column) {
            auto* button = controls::named(new QRadioButton(choiceText(whose, value)), controls::arrayName(array, i));
            button->setToolTip(value.left(1000).toHtmlEscaped());
            button->setAccessibleName(u"%1, %2"_s.arg(field.caption, button->text()));
            group->addButton(button);
            grid->addWidget(button, i, column);
            return button;
        };
        mine_ << choice(u"optMine"_s, u"η δική μου"_s, field.mine, 1);
        theirs_ << choice(u"optTheirs"_s, u"η δική τους"_s, field.theirs, 2);
        mine_.last()->setChecked(true);
    }
    grid->setRowStretch(int(fields.size()), 1);
    return page;
}

void ConflictDialog::choose(const QVector<QRadioButton*>& all) {
    for (QRadioButton* button : all) button->setChecked(true);
}

}  // namespace core
