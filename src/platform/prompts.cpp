#include "platform/prompts.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;

namespace platform {

namespace {

// What a plain box shows without outgrowing a small screen, in characters and lines.
constexpr int longestText = 1500;
constexpr int mostLines = 25;
// Characters that a scrolling box lays out without a noticeable pause.
constexpr int mostShown = 20000;

QMessageBox::Icon boxIcon(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Plain:
            return QMessageBox::NoIcon;
        case MessageIcon::Information:
            return QMessageBox::Information;
        case MessageIcon::Question:
            return QMessageBox::Question;
        case MessageIcon::Warning:
            return QMessageBox::Warning;
        case MessageIcon::Critical:
            return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

bool isLong(const QString& text) {
    return text.size() > longestText || text.count(u'\n') > mostLines;
}

// The same question or message over a text that must scroll. Returns whether the accepting button was pressed.
bool askScrolling(QWidget* parent, const QString& title, const QString& text, const QStringList& buttons) {
    QDialog dialog(parent);
    dialog.setWindowTitle(title);
    auto* view = new QPlainTextEdit(&dialog);
    view->setReadOnly(true);
    view->setAccessibleName(title);
    view->setPlainText(text.size() > mostShown ? text.left(mostShown) + u'…' : text);
    view->setTabChangesFocus(true);
    auto* row = new QDialogButtonBox(&dialog);
    row->addButton(buttons.value(0), buttons.size() > 1 ? QDialogButtonBox::YesRole : QDialogButtonBox::AcceptRole);
    if (buttons.size() > 1) row->addButton(buttons.value(1), QDialogButtonBox::NoRole)->setDefault(true);
    QObject::connect(row, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(row, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(view);
    layout->addWidget(row);
    dialog.resize(640, 420);
    row->buttons().constLast()->setFocus();
    return dialog.exec() == QDialog::Accepted;
}

void dressInGreek(QFileDialog& dialog, const QString& accept) {
    dialog.setLabelText(QFileDialog::LookIn, u"Θέση:"_s);
    dialog.setLabelText(QFileDialog::FileName, u"Όνομα:"_s);
    dialog.setLabelText(QFileDialog::FileType, u"Τύπος:"_s);
    dialog.setLabelText(QFileDialog::Accept, accept);
    dialog.setLabelText(QFileDialog::Reject, u"Άκυρο"_s);
}

QString chosen(QFileDialog& dialog) {
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

}  // namespace

void DesktopPrompts::message(QWidget* parent, MessageIcon icon, const QString& title, const QString& text) {
    if (isLong(text)) {
        askScrolling(parent, title, text, {u"Εντάξει"_s});
        return;
    }
    QMessageBox box(boxIcon(icon), title, text, QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    box.setEscapeButton(box.addButton(u"Εντάξει"_s, QMessageBox::AcceptRole));
    box.exec();
}

bool DesktopPrompts::question(QWidget* parent, const QString& title, const QString& text) {
    const QString yes = u"&Ναι"_s;
    const QString no = u"Ό&χι"_s;
    if (isLong(text)) return askScrolling(parent, title, text, {yes, no});
    QMessageBox box(QMessageBox::Question, title, text, QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    const QPushButton* yesButton = box.addButton(yes, QMessageBox::YesRole);
    QPushButton* noButton = box.addButton(no, QMessageBox::NoRole);
    // Most questions ask before something is deleted, so a hasty Enter must leave things as they were.
    box.setDefaultButton(noButton);
    box.setEscapeButton(noButton);
    box.exec();
    return box.clickedButton() == yesButton;
}

SaveChoice DesktopPrompts::askToSave(QWidget* parent, const QString& title, const QString& text) {
    QMessageBox box(QMessageBox::Question, title, text, QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    const QPushButton* save = box.addButton(u"&Αποθήκευση"_s, QMessageBox::YesRole);
    const QPushButton* discard = box.addButton(u"&Χωρίς αποθήκευση"_s, QMessageBox::NoRole);
    QPushButton* back = box.addButton(u"&Επιστροφή"_s, QMessageBox::RejectRole);
    // A hasty Enter loses nothing and stores nothing.
    box.setDefaultButton(back);
    box.setEscapeButton(back);
    box.exec();
    if (box.clickedButton() == save) return SaveChoice::Save;
    return box.clickedButton() == discard ? SaveChoice::Discard : SaveChoice::Back;
}

int DesktopPrompts::choose(QWidget* parent, const QString& title, const QString& text, const QStringList& answers) {
    QMessageBox box(QMessageBox::Question, title, text, QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    QList<QAbstractButton*> buttons;
    // Of one role they stand in their order.
    for (const QString& answer : answers) buttons << box.addButton(answer, QMessageBox::ActionRole);
    box.setDefaultButton(qobject_cast<QPushButton*>(buttons.last()));
    box.setEscapeButton(buttons.last());
    box.exec();
    const qsizetype pressed = buttons.indexOf(box.clickedButton());
    return int(pressed < 0 ? answers.size() - 1 : pressed);
}

std::optional<QString> DesktopPrompts::input(QWidget* parent, const QString& title, const QString& prompt,
                                             const QString& initial) {
    QInputDialog dialog(parent);
    dialog.setWindowTitle(title);
    dialog.setLabelText(prompt);
    if (auto* label = dialog.findChild<QLabel*>()) label->setTextFormat(Qt::PlainText);
    dialog.setTextValue(initial);
    dialog.setOkButtonText(u"Εντάξει"_s);
    dialog.setCancelButtonText(u"Άκυρο"_s);
    constexpr int buttons = 140;  // what a title shares its bar with
    dialog.setMinimumWidth(dialog.fontMetrics().horizontalAdvance(title) + buttons);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.textValue();
}

QString DesktopPrompts::openFile(QWidget* parent, const QString& title, const QString& filter, const QString& start) {
    const QFileInfo where(start);
    QFileDialog dialog(parent, title, start.isEmpty() || where.isDir() ? start : where.path(), filter);
    dialog.setFileMode(QFileDialog::ExistingFile);
    if (!start.isEmpty() && !where.isDir()) dialog.selectFile(where.fileName());
    dressInGreek(dialog, u"Άνοιγμα"_s);
    return chosen(dialog);
}

QString DesktopPrompts::saveFile(QWidget* parent, const QString& title, const QString& suggested,
                                 const QString& filter) {
    QFileDialog dialog(parent, title, QString(), filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setDefaultSuffix(QFileInfo(suggested).suffix());
    dialog.selectFile(suggested);
    dressInGreek(dialog, u"Αποθήκευση"_s);
    return chosen(dialog);
}

QString DesktopPrompts::chooseFolder(QWidget* parent, const QString& title) {
    QFileDialog dialog(parent, title);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dressInGreek(dialog, u"Επιλογή"_s);
    return chosen(dialog);
}

}  // namespace platform
