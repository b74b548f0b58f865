// What a user has typed since a form was filled: the one answer to "would anything be lost?".
#pragma once

#include <QObject>
#include <QPointer>
#include <QVariant>
#include <QWidget>
#include <functional>

namespace core {

class FieldWatch {
public:
    void watch(QWidget* field);               // a field that controls::fieldValue() knows
    void watchAll(const QWidget* container);  // every such field inside
    // Anything else, such as a photo; whoever changes it says so with touch(). Under its name it is put back.
    void watch(const QString& name, std::function<QVariant()> content, std::function<void(const QVariant&)> putBack);
    void touch() const;

    // Told of every change of a field, and of every remember() and forget(): what was typed is saved or given up.
    void follow(std::function<void()> changed, std::function<void()> settled);

    // Now nothing is typed yet. Until the first call, and after forget(), nothing counts as changed.
    void remember();
    void remember(const QWidget* field);  // the same for one field
    void forget();
    bool isRemembering() const { return remembering_; }
    bool isChanged() const;
    bool isChanged(const QWidget* field) const;

    // What differs, by the fields' names; never what is typed in secret.
    QVariantMap typed() const;
    // As if it were typed into the fields of these names once more.
    void put(const QVariantMap& typed) const;

private:
    struct Watched {
        QPointer<QWidget> field;  // null for what is watched by a function
        QString name;
        std::function<QVariant()> content;
        std::function<void(const QVariant&)> putBack;
        QVariant remembered;
    };
    bool differs(const Watched& watched) const;

    QVector<Watched> watched_;
    QObject alive_;  // no field tells a watch that is gone
    std::function<void()> changed_, settled_;
    bool remembering_ = false;
};

}  // namespace core
