#include "core/browsemod.h"
#include "core/contactnoun.h"
#include "core/placement.h"
#include "core/windows.h"
#include "support/office.h"
#include "support/seat.h"

using namespace Qt::Literals::StringLiterals;

using core::Form;

namespace {

class SampleForm : public Form {
public:
    SampleForm(core::MainMod& mod, const QString& name, QStringList& log)
        : Form(mod, name, name, {name, 150, 300}), log_(log) {}
    bool refuses = false;

protected:
    void onLoad() override {
        log_ << "load " + objectName();
        if (objectName() == "frmBroken") throw data::Error(data::ErrorCategory::Connection, u"χωρίς σύνδεση"_s);
    }
    bool queryUnload() override { return !refuses; }
    void onUnload() override { log_ << "unload " + objectName(); }

private:
    QStringList& log_;
};

class PlainHost : public core::WindowHost {
public:
    void add(Form* form) override { forms << form; }
    void bringToFront(Form* form) override { front = form; }
    bool isAtItsPlace(Form*) const override { return !minimised; }
    QPoint position(Form*) const override { return {40, 50}; }
    void remove(Form* form) override {
        forms.removeAll(form);
        delete form;
    }
    QList<Form*> forms;
    Form* front = nullptr;
    bool minimised = false;
};

}  // namespace

class TestCore : public QObject {
    Q_OBJECT
private slots:
    void dosGreek() {
        const std::pair<const char*, QByteArray> cases[] = {
            {"ΑΩΡΣΤ", "\x80\x97\x90\x91\x92"},
            {"αρςστωά", "\x98\xA8\xAA\xA9\xAB\xE0\xE1"},
            {"έήίόύώ", "\xE2\xE3\xE5\xE6\xE7\xE9"},
            {"ϊΐΰϋ", "\xE4\xE4\xE4\xE8"},  // with a dialytika they fall together
            {"12, a€", "12, a?"}};
        for (const auto& [text, bytes] : cases) QCOMPARE(core::AnsiToDos(text), bytes);
    }

    void phonesOfACard() {
        support::Office office;
        const qint64 code =
            office.addCard("Α", "Β", {{"ΚΙΝΗΤΟ", "697"}, {"τηλεφωνο4", "4"}, {"τηλεφωνο1", "1"}, {"τηλεφωνο3", ""}});
        QCOMPARE(office.mod.GetPhones(code), "1, 4, 697");
        QCOMPARE(office.mod.GetPhones(code + 1), QString());
    }

    void folderIsAskedByName() {
        support::Seat seat;
        auto& [desk, mod] = seat;
        desk.prompts.answerFolder("/somewhere");
        core::GivePath(mod, "dorvalist.mdb");
        QCOMPARE(mod.gDataPath, "/somewhere");
        QCOMPARE(desk.prompts.lastTitle(), "Επιλογή Υποκαταλόγου dorvalist.mdb ...");
    }

    void nounsNameTheMenus() {
        for (const int category : {0, -1, 5}) QCOMPARE(core::contactNoun(category).query, "0103");
        for (const int category : {0, 1, 2, 3, 4, 5}) {
            QCOMPARE(core::contactNoun(category).medical, category == 4);
            QCOMPARE(core::contactNoun(category).changeable, category != 4);
        }
    }

    void storedPlacesComeBackOnScreen() {
        const QRect screen(0, 0, 1000, 700);
        QCOMPARE(core::fitInto({50, 60, 300, 200}, screen), QRect(50, 60, 300, 200));
        QCOMPARE(core::fitInto({5000, -900, 300, 200}, screen), QRect(700, 0, 300, 200));
        QCOMPARE(core::fitInto({-20, 10, 3000, 2000}, screen), screen);
    }

    void oneInstanceOfEachWindow() {
        support::Seat seat;
        auto& [desk, mod] = seat;
        PlainHost host;
        core::Windows windows(host);
        QStringList log;
        for (const QString name : {"frmA", "frmB"})
            windows.add(name, [&, name] { return new SampleForm(mod, name, log); });
        Form* a = windows.front("frmA");
        windows.front("frmB");
        QCOMPARE(windows.front("frmA"), a);
        QCOMPARE(host.front, a);
        QCOMPARE(host.forms.size(), 2);

        // All are asked before any is closed.
        static_cast<SampleForm*>(windows.find("frmA"))->refuses = true;
        QVERIFY(!windows.unloadAll());
        QCOMPARE(log, QStringList({"load frmA", "load frmB"}));
        QVERIFY(windows.unload("frmB"));
        QCOMPARE(log.last(), "unload frmB");
        QCOMPARE(windows.shown(), QStringList{"frmA"});
        QCOMPARE(desk.settings.number("Settings", "frmBLeft", 0), 600);

        // A minimised window keeps its older place in the store.
        static_cast<SampleForm*>(windows.find("frmA"))->refuses = false;
        host.minimised = true;
        QVERIFY(windows.unloadAll());
        QVERIFY(!desk.settings.contains("Settings", "frmALeft"));
        QVERIFY(host.forms.isEmpty());
    }

    void aFailureAtLoadEndsInTheGeneralBox() {
        support::Seat seat;
        auto& [desk, mod] = seat;
        PlainHost host;
        core::Windows windows(host);
        QStringList log;
        windows.add("frmBroken", [&] { return new SampleForm(mod, "frmBroken", log); });
        QVERIFY(windows.front("frmBroken"));
        QCOMPARE(desk.prompts.lastTitle(), "Μήνυμα λάθους");
        QCOMPARE(desk.prompts.lastText(), "Dorvalist Error: χωρίς σύνδεση");
    }
};

QTEST_MAIN(TestCore)
#include "test_core.moc"
