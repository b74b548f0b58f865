// An office as the program has it open.
#pragma once

#include "core/mainmod.h"
#include "support/officefolder.h"
#include "support/services.h"

namespace support {

// Default rows, the delivered name days, Admin's password "admin"; Admin has logged on.
class Office : public OfficeFolder {
public:
    Office() : OfficeFolder(u"admin"_s, QString::fromUtf8(DORV_REFERENCE)) {
        open(mod);
        mod.gDataPath = folder();
        mod.gUserName = u"Admin"_s;
        mod.gUserGroup = core::groupAdministrators;
    }

    // A further seat on the same folder.
    void open(core::MainMod& seat) { OfficeFolder::open(seat.gConn, seat.gConnUsers); }

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

    Desk desk;
    core::MainMod mod{desk.services};
};

}  // namespace support
