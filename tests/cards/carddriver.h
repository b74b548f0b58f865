// Drives the card by control names, as a user would.
#pragma once

#include <QCheckBox>
#include <QTabWidget>

#include "cards/frmaddress.h"
#include "support/driver.h"
#include "support/office.h"

namespace support {

// The boxes and the buttons of the card that the tests speak of most.
namespace card {
inline const QString surname = "Text7(0)", firstName = "Text7(1)", profession = "Text7(4)", city = "Text7(8)",
                     phone = "Text7(9)", mail = "Text7(13)", remark = "Text7(16)", notes = "Text7(17)";
enum Button { Previous = 1, Next = 3, AddNew = 5, Edit = 6, Delete = 7, Save = 9, Cancel = 10, Exit = 11, Print = 12 };
inline const QString browsing = "1 2 3 5 6 7 11 12", editing = "9 10 12", reading = "1 2 3 11 12";
}  // namespace card

struct CardOffice : Office {
    qint64 addMovement(qint64 card, const QString& day, const QString& reason, double debit, double credit,
                       const QString& notes = {}) {
        data::Recordset row(mod.gConn, "select * from History where aa=0");
        row.addNew();
        row[u"codecards"].setValue(card);
        row[u"ΗΜΕΡΟΜΗΝΙΑ"].setValue(QDateTime::fromString(day + "Z", Qt::ISODate));
        row[u"ΑΙΤΙΟΛΟΓΙΑ"].setValue(reason);
        row[u"ΧΡΕΩΣΗ"].setValue(debit);
        row[u"ΠΙΣΤΩΣΗ"].setValue(credit);
        if (!notes.isNull()) row[u"notes"].setValue(notes);
        row.update();
        return row[u"aa"].toLong();
    }
    qint64 addLink(qint64 card, const QString& description, const QString& path) {
        data::Recordset row(mod.gConn, "select * from Links where aa=0");
        row.addNew();
        row[u"codecards"].setValue(card);
        row[u"ΠΕΡΙΓΡΑΦΗ"].setValue(description);
        row[u"ΣΥΝΔΕΣΗ"].setValue(path);
        row.update();
        return row[u"aa"].toLong();
    }
    // A file of these bytes beside the office.
    QString file(const QString& name, const QByteArray& bytes = "x") const {
        QFile made(directory_.filePath(name));
        if (!made.open(QIODevice::WriteOnly) || made.write(bytes) != bytes.size()) qFatal("scratch file");
        return made.fileName();
    }
};

inline QByteArray pictureBytes(QSize size, const char* format = "BMP") {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, format);
    return bytes;
}

struct CardDriver : Driver {
    explicit CardDriver(core::MainMod& mod) : Driver(form), form(mod) {
        form.load();
        form.resize(960, 640);
        activate(form);
    }

    QString counter() const { return shown("Label4"); }
    void openTab(const QString& caption) const {
        auto* tabs = find<QTabWidget>("TabStrip1");
        for (int i = 0; i < tabs->count(); ++i)
            if (tabs->tabText(i) == caption) return tabs->setCurrentIndex(i);
        qFatal("no tab %s", qPrintable(caption));
    }
    QString tab() const {
        return find<QTabWidget>("TabStrip1")->tabText(find<QTabWidget>("TabStrip1")->currentIndex());
    }
    bool isLocked() const { return find<QLineEdit>(card::surname)->isReadOnly() && !form.isEditing(); }
    void press(card::Button button) const { click(QString("lblClick(%1)").arg(button)); }
    // Begins a change, types, and saves.
    void change(std::initializer_list<std::pair<QString, QString>> typed) const {
        press(card::Edit);
        for (const auto& [box, text] : typed) type(box, text);
        press(card::Save);
    }
    // Those that can be pressed.
    QString buttons() const {
        QStringList enabled;
        for (int i = 1; i <= 12; ++i)
            if (const auto* button = form.findChild<QAbstractButton*>(QString("lblClick(%1)").arg(i));
                button && button->isEnabled())
                enabled << QString::number(i);
        return enabled.join(' ');
    }

    cards::frmAddress form;
};

// An office with these cards, and its card window open on the first of them.
struct CardRow {
    QString surname, firstName;
    QVariantMap more = {};
};
class CardSite : public CardOffice, public CardDriver {
public:
    CardSite(std::initializer_list<CardRow> rows) : CardDriver(with(rows)) {}

private:
    core::MainMod& with(std::initializer_list<CardRow> rows) {
        for (const CardRow& row : rows) addCard(row.surname, row.firstName, row.more);
        return mod;
    }
};

}  // namespace support
