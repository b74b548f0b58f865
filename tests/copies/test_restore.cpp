// What a restoring finds in the office's folder, and what stops it half way.
#include <sqlite3.h>

#include <QProcess>

#include "schema/office.h"
#include "schema/workfolder.h"

#include "copies/archive.h"
#include "copies/backup.h"
#include "copies/manifest.h"
#include "copies/restore.h"
#include "copies/unpacking.h"
#include "copies/upgradecopy.h"
#include "data/opening/databasepassword.h"
#include "data/opening/fileidentity.h"
#include "platform/filestate.h"
#include "platform/processes.h"
#include "schema/creation.h"
#include "support/cases.h"
#include "support/failure.h"
#include "support/files.h"
#include "support/officefolder.h"

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include "support/childprocess.h"
#endif

using namespace Qt::Literals::StringLiterals;
using namespace support;
using schema::Database;

namespace {

const QDateTime moment(QDate(2026, 11, 5), QTime(10, 30), Qt::UTC);
const QString dated = u".20261105-103000"_s;

// The file header's two numbers of the journal's kind.
bool isJournalAhead(const QString& file) {
    return bytesOf(file).left(20).endsWith("\2\2");
}

// An office with one card, and a copy of it from before there was any.
struct Site {
    Site() {
        copies::backupOffice(folder(), file);
        office.main.execute(u"insert into Cards (ΕΠΩΝΥΜΟ) values ('νέα')"_s);
        office.closeBoth();
    }
    QString folder() const { return office.folder(); }
    QString main() const { return office.mainFile(); }
    QStringList restore(const copies::RestoreOptions& options = {.force = true, .now = moment}) {
        return copies::restoreOffice(file, folder(), options);
    }
    // The number of cards in a sound office.
    QString cards() {
        office.openBoth();
        const QString count = firstText(office.main, u"select count(*) from Cards"_s);
        const bool sound = office.main.engine().damages().isEmpty();
        office.closeBoth();
        return sound ? count : u"damaged"_s;
    }

    ScratchOffice office;
    QTemporaryDir scratch;
    QString file = scratch.filePath(u"α.tar"_s);
};

#ifdef Q_OS_UNIX

// Another process in the midst of its work on a database; killed, it leaves its journal.
class OtherSeat {
public:
    OtherSeat(const QString& file, const char* work) {
        int ends[2];
        if (pipe(ends) != 0) qFatal("pipe");
        child_ = fork();
        if (child_ == 0) {
            alarm(60);  // it mustn't outlive a failed test
            sqlite3* database = nullptr;
            sqlite3_open(qUtf8Printable(file), &database);
            const int code = sqlite3_exec(database, work, nullptr, nullptr, nullptr);
            if (write(ends[1], &code, sizeof code) == sizeof code) pause();
            _exit(1);
        }
        int code = SQLITE_ERROR;
        if (read(ends[0], &code, sizeof code) != sizeof code || code != SQLITE_OK) qFatal("seat");
        for (const int end : ends) ::close(end);
    }
    ~OtherSeat() { kill(); }
    void kill() {
        if (child_ <= 0) return;
        ::kill(child_, SIGKILL);
        waitpid(child_, nullptr, 0);
        child_ = 0;
    }

private:
    pid_t child_ = 0;
};

constexpr char someWork[] =
    "PRAGMA journal_mode=WAL; CREATE TABLE Other (text); WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n "
    "WHERE i<2000) INSERT INTO Other SELECT hex(randomblob(200)) FROM n;";

#endif

#ifdef Q_OS_UNIX

// A place where a server could be; it answers nobody, and knows who came.
class Listener {
public:
    explicit Listener(const QString& folder) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const QByteArray path = QFile::encodeName(folder + u"/.s.PGSQL.5432"_s);
        if (path.size() >= qsizetype(sizeof address.sun_path)) qFatal("too long a path");
        memcpy(address.sun_path, path.constData(), size_t(path.size()));
        socket_ = socket(AF_UNIX, SOCK_STREAM, 0);
        if (bind(socket_, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 || listen(socket_, 9) != 0)
            qFatal("listen");
        fcntl(socket_, F_SETFL, O_NONBLOCK);
    }
    ~Listener() { ::close(socket_); }
    bool somebodyCame() const { return accept(socket_, nullptr, nullptr) >= 0; }

private:
    int socket_;
};

// The pieces of a copy taken apart, and a copy made of others that its list agrees with.
struct Pieces {
    explicit Pieces(const Site& site) : manifest(copies::unpackManifest(site.file, folder.path())) {
        copies::extractArchive(site.file, folder.path(), manifest.members.keys());
        write(path(schema::contentsFileName), manifest.toText());
    }
    QString path(const QString& name) const { return folder.filePath(name); }
    void list(const QString& name, const QString& instead = {}) {
        copies::Manifest::Member member = instead.isEmpty() ? manifest.members[name] : manifest.members.take(instead);
        member.sha256 = copies::sha256Of(path(name));
        manifest.members[name] = member;
    }
    void pack(const QString& file) {
        write(path(schema::contentsFileName), manifest.toText());
        QVector<copies::ArchiveMember> members = {{schema::contentsFileName, path(schema::contentsFileName)}};
        for (const QString& name : manifest.members.keys()) members += {name, path(name)};
        copies::writeArchive(file, members);
    }

    QTemporaryDir folder;
    copies::Manifest manifest;
};

#endif

}  // namespace

class TestRestore : public QObject {
    Q_OBJECT
private slots:
#ifdef Q_OS_UNIX
    // The engine would play it into whatever stands there next.
    // As copies were before they were compressed, or as somebody made one by hand.
    void copiesPackedOtherwise() {
        const struct {
            const char* name;
            QStringList options;
            QString refusal;  // none when it is restored
            bool twice = false;
        } cases[] = {
            {"plain", {u"--format=ustar"_s}, {}},
            {"compressed by hand", {u"--zstd"_s}, {}},
            {"with something of a name it has", {u"--format=ustar"_s}, {}, true},
            {"a hole as large as many disks", {u"--sparse"_s, u"--zstd"_s}, u"έχει καταστραφεί"_s},
        };
        forEach(cases, [](const auto& one) {
            Site site;
            const Pieces pieces(site);
            QStringList arguments = {u"-C"_s, pieces.folder.path()};
            arguments << one.options << u"-cf"_s << site.file << schema::contentsFileName
                      << pieces.manifest.members.keys();
            if (!one.refusal.isEmpty()) QVERIFY(QFile::resize(pieces.path(u"dorvalistu.mdb"_s), qint64(1) << 42));
            QCOMPARE(QProcess::execute(u"tar"_s, arguments), 0);
            if (one.twice) {
                overwrite(pieces.path(u"dorvalistu.mdb"_s), "x");
                QCOMPARE(QProcess::execute(u"tar"_s,
                                           {u"-C"_s, pieces.folder.path(), u"-rf"_s, site.file, u"dorvalistu.mdb"_s}),
                         0);
            }
            if (one.refusal.isEmpty()) {
                site.restore();
                QCOMPARE(site.cards(), u"0"_s);
            } else {
                VERIFY_FAILURE(one.refusal, site.restore());
                QCOMPARE(site.cards(), u"1"_s);
            }
        });
    }

    void aCopyIsMuchSmallerThanItsOffice() {
        const Site site;
        QVERIFY(QFileInfo(site.file).size() * 3 < QFileInfo(site.main()).size());
    }

    void aJournalWithoutItsFileIsPutAside() {
        for (const bool create : {false, true}) {
            Site site;
            OtherSeat(site.main(), someWork).kill();
            QVERIFY(QFileInfo::exists(site.main() + u"-wal"_s));
            QFile::remove(site.main());
            QFile::remove(site.office.usersFile());
            if (create)
                schema::createOffice(site.folder(), {u"x"_s, {}});
            else
                QVERIFY(site.restore().isEmpty());
            QCOMPARE(site.cards(), u"0"_s);
            const QStringList aside = QDir(site.folder()).entryList({u"dorvalist.mdb.*-wal"_s});
            QCOMPARE(aside.size(), 1);
            QVERIFY(create || aside[0] == u"dorvalist.mdb"_s + dated + u"-wal"_s);
        }
    }

    // A process that closes a file gives up all its locks on it; without them a restoring would find nobody there.
    void lookingAtAnOpenFileKeepsItsLocks() {
        Site site;
        site.office.openBoth();
        for (int i = 0; i < 3; ++i) QCOMPARE(data::identifyFile(site.main()).kind, data::FileKind::Main);
        QVERIFY(platform::isLocked(site.main()));
    }

    void aSeatAtWorkIsNoticed() {
        const struct {
            const char* name;
            bool damaged, gone;
        } cases[] = {{"sound", false, false}, {"damaged head", true, false}, {"file removed", false, true}};
        forEach(cases, [](const auto& one) {
            Site site;
            OtherSeat seat(site.main(), "BEGIN IMMEDIATE; CREATE TABLE Other (text)");
            if (one.damaged) overwrite(site.main(), QByteArray(4096, '\x5A'));
            if (one.gone) QFile::remove(site.main());
            VERIFY_FAILURE(u"Κάποιος δουλεύει", site.restore());
            QCOMPARE(QFileInfo::exists(site.main()), !one.gone);
            seat.kill();
            site.restore();
            QCOMPARE(site.cards(), u"0"_s);
        });
    }

    // With everything ready for the exchange.
    void aKilledRestoringLeavesTheOffice() {
        Site site;
        int steps = 0;
        copies::restoreOffice(site.file, site.scratch.filePath(u"δοκιμή"_s),
                              {.progress = [&](const QString&, int) { return ++steps > 0; }});
        const int result = runInChild([&] {
            int step = 0;
            site.restore({.force = true,
                          .progress = [&](const QString&, int) { return ++step < steps || ::raise(SIGKILL) == 0; }});
            return 0;
        });
        QCOMPARE(result, -SIGKILL);
        QCOMPARE(site.cards(), u"1"_s);
    }

    void theOwnerAndTheRightsStay() {
        if (geteuid() != 0) QSKIP("Only root can give a file away.");
        Site site;
        constexpr uid_t somebody = 12345;
        QVERIFY(chown(qUtf8Printable(site.main()), somebody, somebody) == 0 &&
                chmod(qUtf8Printable(site.main()), 0660) == 0);
        QFile::remove(site.office.usersFile());
        QVERIFY(chown(qUtf8Printable(site.folder()), somebody, somebody + 1) == 0);
        site.restore();
        struct stat main, users;
        QVERIFY(stat(qUtf8Printable(site.main()), &main) == 0 &&
                stat(qUtf8Printable(site.office.usersFile()), &users) == 0);
        QCOMPARE(main.st_uid, somebody);
        QCOMPARE(main.st_mode & 0777, mode_t(0660));
        QCOMPARE(users.st_gid, gid_t(somebody + 1));
    }
#endif

    void whatCannotBeAskedIsRefused() {
        Site site;
        site.office.openBoth();
        data::setDatabasePassword(site.office.users.engine(), u"another"_s);
        site.office.closeBoth();
        VERIFY_FAILURE(u"κωδικός", site.restore());
        QCOMPARE(QDir(site.folder()).entryList(QDir::Files | QDir::Hidden).size(), 2);
    }

    void aRefusalLeavesTheJournalAhead() {
        Site site;
        sqlite3* lock = nullptr;
        QCOMPARE(sqlite3_open(qUtf8Printable(site.office.usersFile()), &lock), SQLITE_OK);
        QCOMPARE(sqlite3_exec(lock, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
        VERIFY_FAILURE(u"Κάποιος δουλεύει με το «dorvalistu.mdb»", site.restore());
        sqlite3_close(lock);
        QVERIFY(isJournalAhead(site.main()));
        QVERIFY(isJournalAhead(site.office.usersFile()));
        QCOMPARE(QDir(site.folder()).entryList(QDir::Files | QDir::Hidden).size(), 2);
        QCOMPARE(site.cards(), u"1"_s);
    }

    // A move holds the old office still, and may end on its way.
    void holdingStillLeavesTheJournalAhead() {
        Site site;
        data::Connection source;
        schema::openAsItIs(source, schema::connectionString(Database::Main, site.main()));
        source.engine().holdStill();
        QVERIFY(!isJournalAhead(site.main()));
        source.close();
        QVERIFY(isJournalAhead(site.main()));
    }

    void aServersPlaceIsNotTakenUnasked() {
        Site site;
        data::ServerDescription server;
        server.host = u"/nowhere"_s;
        for (const QString& file : {site.main(), site.office.usersFile()}) {
            QFile::remove(file);
            data::writeServerDescription(file, server);
        }
        VERIFY_FAILURE(u"--as-files", site.restore());
        QCOMPARE(data::readServerDescription(site.main()).host, server.host);
        const QStringList aside = site.restore({.force = true, .asFiles = true, .now = moment});
        QCOMPARE(aside, QStringList({site.main() + dated, site.office.usersFile() + dated}));
        QCOMPARE(data::readServerDescription(aside[0]).host, server.host);
        QCOMPARE(site.cards(), u"0"_s);
    }

    void aCopyReplacesNothingOfTheOffice() {
        const struct {
            const char* name;
            QString file;
        } cases[] = {
            {"database", u"dorvalist.mdb"_s},
            {"users, by a way around", u"../office/dorvalistu.mdb"_s},
            {"a journal to come", u"dorvalist.mdb-wal"_s},
            {"a folder", u"../office"_s},
            {"a link", u"link"_s},
        };
        Site site;
        const QDir folder(site.folder());
        QFile::link(site.file, folder.filePath(u"link"_s));
        forEach(cases, [&](const auto& one) {
            VERIFY_FAILURE(u"άλλο όνομα",
                           copies::backupOffice(site.folder(), folder.filePath(one.file), {.replace = true}));
            QCOMPARE(site.cards(), u"1"_s);
        });
    }

#ifdef Q_OS_UNIX
    // A copy that came from elsewhere, made to look like one of files.
    void whatIsNotOfTheListedKindIsRefused() {
        const QString main = u"dorvalist.mdb"_s, users = u"dorvalistu.mdb"_s, dump = u"dorvalist.dump"_s;
        QTemporaryDir server;
        const Listener listener(server.path());
        const QByteArray description = "host = " + server.path().toUtf8() + "\ndatabase = x\n";
        const struct {
            const char* name;
            QString member, instead;
            QByteArray bytes;
        } cases[] = {
            {"the main database on a server", main, {}, description},
            {"the users' on a server", users, {}, description},
            {"a description as a dump", dump, main, description},
            {"no database", main, {}, QByteArray("SQLite format 3\0", 16) + QByteArray(4080, '\0')},
            {"nothing", users, {}, {}},
        };
        forEach(cases, [&](const auto& one) {
            Site site;
            Pieces pieces(site);
            write(pieces.path(one.member), one.bytes);
            pieces.list(one.member, one.instead);
            pieces.pack(site.file);
            const QString says = u"«%1» μέσα στο αντίγραφο δεν είναι"_s.arg(one.member);
            VERIFY_FAILURE(says, copies::checkBackup(site.file));
            VERIFY_FAILURE(says, site.restore());
            QVERIFY(!listener.somebodyCame());
            QCOMPARE(site.cards(), u"1"_s);
        });
    }
#endif

#ifdef Q_OS_UNIX
    // Under the most open mask there is.
    void whatIsMadeIsClosedToOthers() {
        struct Mask {
            const mode_t before = umask(0);
            ~Mask() { umask(before); }
        } const mask;
        const struct {
            const char* name;
            mode_t folder, wanted;
        } cases[] = {{"one user's", 0755, 0600}, {"everybody's", 0757, 0600}, {"a group's", 0775, 0660}};
        forEach(cases, [&](const auto& one) {
            QTemporaryDir scratch;
            const QString office = scratch.filePath(u"office"_s), other = scratch.filePath(u"other"_s);
            for (const QString& folder : {office, other}) {
                QDir().mkpath(folder);
                QCOMPARE(chmod(qUtf8Printable(folder), one.folder), 0);
            }
            schema::createOffice(office, {u"admin"_s, {}});
            data::Connection main;
            copies::openUpgraded(main, schema::connectionString(Database::Main, schema::mainDatabasePath(office)));
            main.execute(u"insert into Cards (ΕΠΩΝΥΜΟ) values ('νέα')"_s);
            const QString copy = office + u"/α.tar"_s;
            copies::backupOffice(office, copy);
            copies::restoreOffice(copy, other);
            QFile::setPermissions(schema::mainDatabasePath(other), QFile::Permissions(0x6666));
            copies::restoreOffice(copy, other, {.force = true, .databases = {Database::Users}});
            data::ServerDescription server;
            server.password = u"x"_s;
            data::writeServerDescription(office + u"/server.mdb"_s, server);
            const QString kept =
                copies::copyBeforeUpgrade(main, Database::Main, schema::mainDatabasePath(office), moment);
            for (const QString& file : {schema::mainDatabasePath(office), schema::mainDatabasePath(office) + u"-wal"_s,
                                        schema::mainDatabasePath(office) + u"-shm"_s, schema::usersDatabasePath(office),
                                        copy, schema::usersDatabasePath(other), office + u"/server.mdb"_s, kept}) {
                struct stat state;
                QVERIFY2(stat(qUtf8Printable(file), &state) == 0, qPrintable(file));
                QVERIFY2((state.st_mode & 0777) == one.wanted,
                         qPrintable(file + u' ' + QString::number(state.st_mode, 8)));
            }
            copies::restoreOffice(copy, other, {.force = true});
            QCOMPARE(QFile::permissions(schema::mainDatabasePath(other)) & 0xF, QFile::Permissions());
        });
    }
#endif

    // The journal's index is what an opening makes first.
    void aFullDiskIsCalledSo() {
        Site site;
        const int result = runInChild([&] {
            signal(SIGXFSZ, SIG_IGN);
            const rlimit most{4096, 4096};
            setrlimit(RLIMIT_FSIZE, &most);
            return failureOf([&] { site.office.openBoth(); }).contains(u"γεμάτος") ? 1 : 0;
        });
        QCOMPARE(result, 1);
    }

    // What nobody of this program put there stays, and so does its folder.
    void abandonedWorkGoesAway() {
        QTemporaryDir folder;
        const QDir here(folder.path());
        for (const QString& name : {u".dorvalist-work-aaaaaa"_s, u".dorvalist-work-bbbbbb"_s,
                                    u".dorvalist-work-ccccc"_s, u".dorvalist-other"_s}) {
            here.mkdir(name);
            overwrite(here.filePath(name + u"/dorvalist.mdb-wal"_s), "x");
            overwrite(here.filePath(name + u"/packed.tar.Ab12Cd"_s), "x");
        }
        overwrite(here.filePath(u".dorvalist-work-bbbbbb/letter.txt"_s), "x");
        const auto left = [&] { return here.entryList(QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot).size(); };
        // A child that has ended, and this very process.
        const pid_t child = fork();
        if (child == 0) _exit(0);
        waitpid(child, nullptr, 0);
        const QByteArray mine = platform::processMark();
        here.mkdir(u".dorvalist-work-dddddd"_s);
        overwrite(here.filePath(u".dorvalist-work-dddddd/process"_s),
                  mine.left(mine.chopped(1).lastIndexOf('\n') + 1) + QByteArray::number(child) + '\n');
        overwrite(here.filePath(u".dorvalist-work-aaaaaa/process"_s), mine);
        schema::dropAbandonedWork(folder.path());
        QCOMPARE(left(), 4);
        QVERIFY(!here.exists(u".dorvalist-work-dddddd"_s));
        schema::dropAbandonedWork(folder.path(), QDateTime::currentDateTime().addDays(2));
        QCOMPARE(left(), 3);
        QVERIFY(here.exists(u".dorvalist-work-bbbbbb/letter.txt"_s));
        QVERIFY(!here.exists(u".dorvalist-work-bbbbbb/packed.tar.Ab12Cd"_s));
    }
};

QTEST_GUILESS_MAIN(TestRestore)
#include "test_restore.moc"
