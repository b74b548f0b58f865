// The open child windows: one instance of each, known by name.
#pragma once

#include <QHash>
#include <QPointer>
#include <QStringList>
#include <functional>

#include "core/form.h"

namespace core {

// What a form stands in: the main window's MDI area, or a test's plain frame.
class WindowHost {
public:
    virtual ~WindowHost() = default;
    virtual void add(Form* form) = 0;  // takes ownership
    virtual void bringToFront(Form* form) = 0;
    virtual bool isMinimised(Form* form) const = 0;
    virtual QPoint position(Form* form) const = 0;
    virtual void remove(Form* form) = 0;  // deletes it
};

class Windows {
public:
    using Factory = std::function<Form*()>;

    explicit Windows(WindowHost& host) : host_(host) {}

    void add(const QString& name, Factory factory) { factories_.insert(name, std::move(factory)); }
    bool knows(const QString& name) const { return factories_.contains(name); }

    // Loads the window if it isn't yet, and brings it to the front. There is never a second one.
    Form* front(const QString& name);
    Form* find(const QString& name) const;
    bool unload(const QString& name);  // false when the window refused
    bool unloadAll();                  // from the last opened to the first; stops at a refusal
    QStringList open() const { return order_; }

private:
    WindowHost& host_;
    QHash<QString, Factory> factories_;
    QHash<QString, QPointer<Form>> forms_;
    QStringList order_;
};

}  // namespace core
