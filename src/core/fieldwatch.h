// What a user has typed since a form was filled: the one answer to "would anything be lost?".
#pragma once

#include <QPointer>
#include <QVariant>
#include <QWidget>
#include <functional>

namespace core {

class FieldWatch {
public:
    void watch(QWidget* field);                     // a field that controls::fieldValue() knows
    void watchAll(const QWidget* container);        // every such field inside
    void watch(std::function<QVariant()> content);  // anything else, such as a photo

    // Now nothing is typed yet. Until the first call, and after forget(), nothing counts as changed.
    void remember();
    void remember(const QWidget* field);  // the same for one field
    void forget() { remembering_ = false; }
    bool isRemembering() const { return remembering_; }
    bool isChanged() const;
    bool isChanged(const QWidget* field) const;

private:
    struct Watched {
        QPointer<QWidget> field;  // null for what is watched by a function
        std::function<QVariant()> content;
        QVariant remembered;
    };
    bool differs(const Watched& watched) const;

    QVector<Watched> watched_;
    bool remembering_ = false;
};

}  // namespace core
