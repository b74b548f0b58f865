// The commands of a window as one table, from which its buttons, tool bar, pop-up menu and keys are made.
#pragma once

#include <QAction>
#include <QBoxLayout>
#include <QMenu>
#include <QPushButton>
#include <QToolBar>
#include <QToolButton>

#include "controls/picturebutton.h"
#include "core/mainmod.h"

namespace core {

struct Command {
    QString name;  // of its button
    QString icon;  // of controls::icon(); empty for none
    QString caption;
    QList<QKeySequence> keys;
    std::function<void()> run;
    std::function<bool()> enabled = {};  // null: always
    bool onRow = false;                  // in a pop-up: only over a row of the list
    QString menuName = {};               // of its entry in menus and tool bars, when it differs from the button's
    QString menuCaption = {};            // likewise
};

// Runs commands under the general error box over `window`. A command that isn't enabled runs by no key either.
class Commands : public QObject {
    Q_OBJECT
public:
    Commands(MainMod& mod, QWidget* window, QVector<Command> commands);

    // Asks every command again whether it is enabled; to be called when what they look at has changed.
    void refresh();
    void run(const QString& name);

    // Each makes one more widget for a command, by its name, which is the window's from then on; without names, all.
    QPushButton* button(const QString& name);
    controls::PictureButton* picture(const QString& name);  // its keys stand in the tool tip
    QToolButton* toolButton(const QString& name);           // the icon alone, for a place beside a field
    QAction* action(const QString& name) const;
    void addButtons(QBoxLayout* layout, const QStringList& names = {});
    void addPictures(QBoxLayout* layout, const QStringList& names = {});
    QToolBar* toolBar(const QString& objectName, const QStringList& names = {});
    QMenu* menu(const QString& objectName, const QStringList& names = {});

    // Pictures made after this play the delivered sounds, under the mouse and when pressed.
    void soundPictures() { sounds_ = true; }

    // Where the keys count: while the focus is inside `widget`. Without a call they are told in tool tips alone.
    void bindKeys(QWidget* widget, const QStringList& names = {});

    // Opens a menu that was made here, and doesn't wait for it; `row` is the list's row under it, -1 beside the rows.
    void popUp(QMenu* menu, int row, QPoint globalPosition);

private:
    struct Entry {
        Command command;
        QAction* action;
    };
    Entry& entry(const QString& name);
    QStringList orAll(const QStringList& names) const;
    void follow(QAbstractButton* button, QAction* action);

    MainMod& mod_;
    QWidget* window_;
    QVector<Entry> entries_;
    bool sounds_ = false;
};

}  // namespace core
