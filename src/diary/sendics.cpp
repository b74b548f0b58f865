#include "diary/sendics.h"

#include <QDir>
#include <QSaveFile>
#include <QUrlQuery>

#include "core/guard.h"
#include "platform/folders.h"
#include "schema/identity.h"

using namespace Qt::Literals::StringLiterals;

namespace diary {

namespace {

// Mail programs take the letter as one word of their call, which has its limits; the file has it all.
constexpr int mostLetters = 4000;

enum class Readers { AsUsual, OwnerAlone };

QString titleOf(const QVector<Appointment>& appointments, const Wanted& wanted) {
    const auto text = [](QDate day) { return day.toString(u"dd-MM-yyyy"_s); };
    if (wanted.aa) return u"Συνάντηση "_s + text(appointments.first().day);
    if (wanted.from == wanted.to) return u"Συναντήσεις "_s + text(*wanted.from);
    return u"Συναντήσεις %1 έως %2"_s.arg(text(*wanted.from), text(*wanted.to));
}

// Empty after saying so.
QVector<Appointment> readOrTell(core::MainMod& mod, QWidget* parent, const Wanted& wanted) {
    const QVector<Appointment> found = readAppointments(mod.gConn, wanted);
    if (found.isEmpty())
        core::complain(mod, parent,
                       wanted.aa ? u"Η συγκεκριμένη συνάντηση έχει ακυρωθεί !"_s
                                 : u"Δεν υπάρχουν συναντήσεις σε αυτό το διάστημα."_s);
    return found;
}

void writeIcs(core::MainMod& mod, const QVector<Appointment>& appointments, const QString& path, Readers readers) {
    const QByteArray text = icsText(appointments, schema::officeIdentity(mod.gConn), mod.services.clock.now());
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) data::failWriting(file);
    if (readers == Readers::OwnerAlone) file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    if (file.write(text) != text.size() || !file.commit()) data::failWriting(file);
}

QString shortened(const QString& text) {
    if (text.size() <= mostLetters) return text;
    const int whole = text[mostLetters - 1].isHighSurrogate() ? mostLetters - 1 : mostLetters;
    return text.left(whole) + u'…';
}

QUrl mailTo(const QString& subject, QString body) {
    const auto encoded = [](const QString& text) { return QString::fromLatin1(QUrl::toPercentEncoding(text)); };
    QUrlQuery query;
    query.addQueryItem(u"subject"_s, encoded(subject));
    query.addQueryItem(u"body"_s, encoded(body.replace(u'\n', u"\r\n"_s)));
    QUrl url(u"mailto:"_s);
    url.setQuery(query);
    return url;
}

}  // namespace

void saveIcs(core::MainMod& mod, QWidget* parent, const Wanted& wanted) {
    const QVector<Appointment> appointments = readOrTell(mod, parent, wanted);
    if (appointments.isEmpty()) return;
    const QString path =
        mod.services.prompts.saveFile(parent, u"Αποθήκευση σε αρχείο .ics"_s, titleOf(appointments, wanted) + u".ics"_s,
                                      u"Ημερολόγια iCalendar (*.ics)"_s);
    if (path.isEmpty()) return;
    writeIcs(mod, appointments, path, Readers::AsUsual);
    mod.doors.say(u"Συναντήσεις που γράφτηκαν: %1 · %2"_s.arg(appointments.size()).arg(path));
}

void mailIcs(core::MainMod& mod, QWidget* parent, const Wanted& wanted) {
    const QVector<Appointment> appointments = readOrTell(mod, parent, wanted);
    if (appointments.isEmpty()) return;
    const QString title = titleOf(appointments, wanted), body = shortened(letterText(appointments)),
                  path = QDir(platform::workFolder()).filePath(title + u".ics"_s);
    writeIcs(mod, appointments, path, Readers::OwnerAlone);
    platform::Shell& shell = mod.services.shell;
    if (shell.writeMail(title, body, path)) return;
    if (!shell.openUrl(mailTo(title, body)))
        return core::complain(mod, parent, u"Το σύστημα δεν έχει πρόγραμμα ηλεκτρονικού ταχυδρομείου."_s);
    mod.doors.say(u"Το αρχείο για επισύναψη είναι το "_s + path);
}

}  // namespace diary
