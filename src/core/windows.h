// The windows of the program by name, and those of them that are open.
#pragma once

#include <QDialog>
#include <QHash>
#include <QMap>
#include <QPointer>
#include <QStringList>
#include <functional>
#include <memory>

#include "core/drafts.h"
#include "core/form.h"

namespace core {

// What a form stands in: the main window's MDI area, or a test's plain frame.
class WindowHost {
public:
    virtual ~WindowHost() = default;
    virtual void add(Form* form) = 0;  // takes ownership
    virtual void bringToFront(Form* form) = 0;
    virtual bool isAtItsPlace(Form* form) const = 0;  // neither minimised nor maximised
    virtual QPoint position(Form* form) const = 0;
    virtual void remove(Form* form) = 0;  // deletes it
};

// A window whose drafts can be gone on with.
struct DraftKind {
    QString window;
    QString noun;                      // of what is edited in it, "καρτέλα"
    std::function<bool()> isPossible;  // at this moment, with this user's rights; else the draft waits
    std::function<void(const Draft&)> resume;
};

// Every room adds its windows here at the start of the main window. Of a form there is never more than one; a dialog is
// made anew for each showing.
class Windows {
public:
    using Factory = std::function<Form*()>;
    // A dialog with nothing chosen yet, ready to be shown.
    using DialogFactory = std::function<std::unique_ptr<QDialog>(QWidget* parent)>;

    explicit Windows(WindowHost& host) : host_(host) {}

    void add(const QString& name, Factory factory) { factories_.insert(name, std::move(factory)); }
    void addDialog(const QString& name, DialogFactory factory) { dialogs_.insert(name, std::move(factory)); }
    void addDrafts(DraftKind kind) { draftKinds_.append(std::move(kind)); }
    const QVector<DraftKind>& draftKinds() const { return draftKinds_; }
    bool knows(const QString& name) const { return factories_.contains(name) || dialogs_.contains(name); }
    QStringList forms() const { return factories_.keys(); }
    QStringList dialogs() const { return dialogs_.keys(); }

    std::unique_ptr<QDialog> dialog(const QString& name, QWidget* parent) const { return dialogs_[name](parent); }
    // Brings a form to the front, or shows a dialog over `parent` until it is closed.
    void open(const QString& name, QWidget* parent);

    // Loads the window if it isn't yet, and brings it to the front. There is never a second one.
    Form* front(const QString& name);
    Form* find(const QString& name) const;
    bool unload(const QString& name);  // false when the window refused
    // From the last opened to the first. All are asked before any of them closes; false when one of them stays.
    bool unloadAll();
    QStringList shown() const { return order_; }

private:
    WindowHost& host_;
    QMap<QString, Factory> factories_;
    QMap<QString, DialogFactory> dialogs_;
    QVector<DraftKind> draftKinds_;
    QHash<QString, QPointer<Form>> forms_;
    QStringList order_;
};

// The windows of this room.
void addWindows(Windows& windows, MainMod& mod);

}  // namespace core
