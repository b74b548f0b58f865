// What was being typed when the program or the machine went away.
//
// A window under edit writes a draft of what differs about a second after the last key, and at once when the system
// ends the program. A save, a cancel and a closing question answered so take it away. What is left is offered at the
// next logon of the same user to the same office, to whom alone it belongs.
//
// A draft is a file of its own in the user's work folder, readable by nobody else. One that isn't understood is passed
// over, and so is one that another running program is writing.
#pragma once

#include <QDateTime>
#include <QVariantMap>
#include <memory>

namespace data {
class Recordset;
}

namespace core {

struct Draft {
    QString window;  // its name
    QString title;   // what its user knows the row by
    bool isNew = false;
    QVariantMap key;    // which row, and of what, in the window's own names
    QVariantMap row;    // of a change: the row as it was read, by column
    QVariantMap typed;  // by the names of the fields
    QDateTime time;
    QString file;  // where it lies
};

// Whose they are: the office by its folder, and the name of the user who has logged on.
struct DraftOwner {
    QString office, user;
};

class Drafts {
public:
    // A window under edit.
    class Writer {
    public:
        virtual ~Writer() = default;
        virtual void write() = 0;
    };

    QString folder;  // when it isn't one in the user's work folder

    QVector<Draft> all(const DraftOwner& of) const;  // the oldest first
    // Into its file, which it gets when it has none. A disk that doesn't take it costs the draft and nothing else.
    void write(const DraftOwner& of, Draft& draft) const;

    // Of every window under edit, at once.
    void writeAll() const;

    // Shared, since a closed window is deleted some events later, perhaps after the state of the run.
    using Writers = QVector<Writer*>;
    const std::shared_ptr<Writers>& writers() const { return writers_; }

private:
    std::shared_ptr<Writers> writers_ = std::make_shared<Writers>();
};

// A row for Draft::row: these columns, or all without any. Of a photo only its digest, since the draft is written
// again at every pause.
QVariantMap draftRow(data::Recordset& row, const QStringList& columns = {});
// `now` stands as the draft's row was read; without a row it gets one, to be saved as a new one.
void readAsDrafted(data::Recordset& now, const QVariantMap& row);

}  // namespace core
