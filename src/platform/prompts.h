// Everything modal that the program asks or tells.
#pragma once

#include <QString>
#include <QStringList>
#include <optional>

class QWidget;

namespace platform {

enum class MessageIcon { Plain, Information, Question, Warning, Critical };
enum class SaveChoice { Save, Discard, Back };

class Prompts {
public:
    virtual ~Prompts() = default;
    // `parent` may be null everywhere.
    virtual void message(QWidget* parent, MessageIcon icon, const QString& title, const QString& text) = 0;
    virtual bool question(QWidget* parent, const QString& title, const QString& text) = 0;  // Yes/No; closing is No
    // Whether typed values are saved, given up, or gone on with; closing the box is Back.
    virtual SaveChoice askToSave(QWidget* parent, const QString& title, const QString& text) = 0;
    // One of several answers, by its index. The last one is the default and what closing the box means, so it is the
    // one that changes nothing.
    virtual int choose(QWidget* parent, const QString& title, const QString& text, const QStringList& answers) = 0;
    virtual std::optional<QString> input(QWidget* parent, const QString& title, const QString& prompt,
                                         const QString& initial) = 0;
    // `filter` in the form "Φωτογραφίες (*.bmp *.jpg)"; several separated by ";;". The dialog
    // stands on `start`, a folder or a file. Empty on a cancel.
    virtual QString openFile(QWidget* parent, const QString& title, const QString& filter,
                             const QString& start = {}) = 0;
    // Where to write. `suggested` is a name or path whose ending a name typed without one gets; a file that is there
    // was asked about. Empty on a cancel.
    virtual QString saveFile(QWidget* parent, const QString& title, const QString& suggested,
                             const QString& filter) = 0;
    virtual QString chooseFolder(QWidget* parent, const QString& title) = 0;
};

// Message boxes and file dialogs of the toolkit, with Greek buttons.
class DesktopPrompts : public Prompts {
public:
    void message(QWidget* parent, MessageIcon icon, const QString& title, const QString& text) override;
    bool question(QWidget* parent, const QString& title, const QString& text) override;
    SaveChoice askToSave(QWidget* parent, const QString& title, const QString& text) override;
    int choose(QWidget* parent, const QString& title, const QString& text, const QStringList& answers) override;
    std::optional<QString> input(QWidget* parent, const QString& title, const QString& prompt,
                                 const QString& initial) override;
    QString openFile(QWidget* parent, const QString& title, const QString& filter, const QString& start = {}) override;
    QString saveFile(QWidget* parent, const QString& title, const QString& suggested, const QString& filter) override;
    QString chooseFolder(QWidget* parent, const QString& title) override;
};

}  // namespace platform
