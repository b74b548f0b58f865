// An office with a diary in it, and the main window with the diary's windows.
#pragma once

#include "main/mdimain.h"
#include "support/driver.h"
#include "support/office.h"

namespace support {

inline QDateTime day(int year, int month, int ofMonth) {
    return QDateTime(QDate(year, month, ofMonth), QTime(0, 0), Qt::UTC);
}
inline QDateTime at(const char* time) {
    return QDateTime(QDate(1899, 12, 30), QTime::fromString(time, "hh:mm"), Qt::UTC);
}

// Maria has logged on.
struct DiaryOffice : Office {
    DiaryOffice() {
        desk.setOwner();
        mod.gUserName = "Μαρία";
    }
    qint64 add(const QString& table, QVariantMap values, const QVariantMap& more) {
        values.insert(more);
        data::Recordset row(mod.gConn, data::Sql("select * from ? where aa=0", data::Sql::name(table)));
        row.addNew();
        for (auto [column, value] : values.asKeyValueRange()) row[column].setValue(value);
        row.update();
        return row[u"aa"].toLong();
    }
    qint64 addDate(const QDateTime& day, const char* start, const QString& subject, const QVariantMap& more = {}) {
        return add("Dates",
                   {{"Day", day}, {"Start", at(start)}, {"End", at("23:59")}, {"Subject", subject}, {"User", "Μαρία"}},
                   more);
    }
    qint64 addTask(const QString& subject, const QString& priority, const QVariantMap& more = {}) {
        return add("ThinksToDo", {{"Subject", subject}, {"Priority", priority}, {"User", "Μαρία"}}, more);
    }
    void addUser(const QString& name) {
        mod.gConnUsers.execute(data::Sql(u"insert into Users (UserName,[Group]) values (?,2)"_s, name));
    }
    void restrict() { mod.gUserGroup = core::groupRestricted; }
};

// The windows that open by themselves stay away unless a test asks for them.
struct DiarySite : DiaryOffice {
    DiarySite() {
        desk.settings.setValue("Options", "frmTodayShowStart", "0");
        desk.settings.setValue("Options", "frmNameDayStart", "0");
    }
    void logOn() {
        main.reset();
        main = std::make_unique<entry::MDIMain>(mod);
        main->load();
        activate(*main);
    }
    // In front; opened when it isn't yet.
    Driver window(const QString& name) {
        if (!main) logOn();
        core::Form* form = main->windows().front(name);
        settle();
        return Driver(*form);
    }
    // What some other window opened.
    Driver opened(const QString& name) {
        settle();
        if (!isOpen(name)) qFatal("%s isn't open", qPrintable(name));
        return Driver(*main->windows().find(name));
    }
    bool isOpen(const QString& name) { return main->windows().find(name); }
    void activateRow(const Driver& window, int row, const QString& list = "ListView1") {
        window.list(list)->selectRow(row);
        emit window.list(list)->rowActivated(row);
        settle();
    }
    // Windows close, and are deleted, by events.
    static void settle() {
        QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QApplication::processEvents();
    }
    bool wasTold(const QString& text) const { return desk.prompts.wasShown(text); }

    std::unique_ptr<entry::MDIMain> main;
};

}  // namespace support
