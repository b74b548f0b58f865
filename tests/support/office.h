// An office as the program has it open.
#pragma once

#include "support/officefolder.h"
#include "support/seat.h"

namespace support {

// Default rows, the delivered name days, Admin's password "admin"; Admin has logged on.
class Office : public OfficeFolder, public Seat {
public:
    Office() : OfficeFolder(u"admin"_s, QString::fromUtf8(DORV_REFERENCE)) {
        open(mod);
        mod.gDataPath = folder();
        mod.drafts.folder = directory_.filePath(u"drafts"_s);
        mod.gUserName = u"Admin"_s;
        mod.gUserGroup = core::groupAdministrators;
    }

    // A further seat on the same folder.
    void open(core::MainMod& seat) { openDatabases(folder(), seat.gConn, seat.gConnUsers); }

    qint64 addCard(const QString& surname, const QString& name, const QVariantMap& more = {}) {
        data::Recordset card(mod.gConn, u"Select * from cards where code=0"_s);
        card.addNew();
        card[u"επωνυμο"].setValue(surname);
        card[u"ονομα"].setValue(name);
        card[u"category"].setValue(1);
        for (auto [column, value] : more.asKeyValueRange()) card[column].setValue(value);
        card.update();
        return card[u"code"].toLong();
    }

    QVariant value(const QString& sql) { return firstValue(mod.gConn, sql); }
    QString text(const QString& sql) { return firstText(mod.gConn, sql); }
    int count(const QString& table) { return value(u"select count(*) from "_s + table).toInt(); }

    // The main database goes away, as after a fault of its disk, until it is brought back.
    void lose() { mod.gConn.close(); }
    void bringBack() {
        mod.gConnUsers.close();
        open(mod);
    }
};

// Somebody else at work on the same office.
struct OtherSeat : Seat {
    explicit OtherSeat(Office& office) {
        office.open(mod);
        mod.gUserGroup = core::groupAdministrators;
    }
};

}  // namespace support
