#include "copies/servertools.h"

#include <QFile>
#include <QProcess>

#include "data/error.h"
#include "data/postgres/pgschemas.h"
#include "platform/serverprograms.h"

namespace copies {
namespace {

using namespace Qt::Literals::StringLiterals;
using data::Error;
using data::ErrorCategory;
using data::failWriting;

constexpr int glanceMs = 100;
constexpr qsizetype longestComplaint = 2000;

void requireFound(const ServerTools& tools) {
    if (!tools.found())
        throw Error(ErrorCategory::Other,
                    u"Το αντίγραφο μιας βάσης σε διακομιστή χρειάζεται τα προγράμματα pg_dump και "
                    u"pg_restore. Εγκαταστήστε τα (πακέτο postgresql-client)."_s);
}

// The password goes through the environment, since a command line can be read by everybody. What a seat or a role sets
// for other programs must not decide in which letters a copy is written.
QProcessEnvironment environmentFor(const data::ServerDescription& server) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"PGCLIENTENCODING"_s, u"UTF8"_s);
    if (!server.password.isEmpty()) environment.insert(u"PGPASSWORD"_s, server.password);
    return environment;
}

// Until the program ends; returns what it complained of.
QByteArray watch(QProcess& process, const GoOn& goOn, const Hear& hear) {
    QByteArray complaint;
    bool ended = !process.waitForStarted();
    while (!ended) {
        ended = process.waitForFinished(hear ? 0 : glanceMs) || process.state() == QProcess::NotRunning;
        if (hear && !ended) process.waitForReadyRead(glanceMs);
        if (hear) hear(process.readAllStandardOutput());
        complaint = (complaint + process.readAllStandardError()).left(longestComplaint);
        if (goOn && !goOn()) throw Error(ErrorCategory::Other, u"Η εργασία διακόπηκε."_s);
    }
    return complaint;
}

void run(const QString& program, const QStringList& arguments, const data::ServerDescription& server, const GoOn& goOn,
         const Hear& hear = {}) {
    QProcess process;
    process.setProcessEnvironment(environmentFor(server));
    process.start(program, arguments, QIODevice::ReadOnly);
    QByteArray complaint;
    try {
        complaint = watch(process, goOn, hear);
    } catch (...) {
        process.kill();
        process.waitForFinished();
        throw;
    }
    if (process.error() == QProcess::FailedToStart) complaint = process.errorString().toLocal8Bit();
    if (process.error() == QProcess::FailedToStart || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0)
        throw Error(ErrorCategory::Other, u"Το πρόγραμμα «%1» απέτυχε."_s.arg(program))
            .withDetails(QString::fromLocal8Bit(complaint).trimmed());
}

// Reads what a dump restores as text: each table's rows stand between "COPY schema.table (...) FROM stdin;" and "\.",
// one a line.
class RowCounter {
public:
    void hear(const QByteArray& output) {
        qsizetype at = 0;
        while (at < output.size()) {
            const qsizetype end = output.indexOf('\n', at), stop = end < 0 ? output.size() : end;
            line_ += output.mid(at, qMin(stop - at, longestHead - line_.size()));
            if (end >= 0) endLine();
            at = stop + 1;
        }
    }
    const RowCounts& counts() const { return counts_; }

private:
    static constexpr qsizetype longestHead = 1 << 14;  // a row's data may be long, a table's columns are not

    void endLine() {
        if (!inTable_) {
            inTable_ = line_.startsWith("COPY ");
            if (inTable_) counts_.insert(table_ = tableOf(line_), 0);
        } else if (line_ == "\\.") {
            inTable_ = false;
        } else {
            ++counts_[table_];
        }
        line_.clear();
    }

    // Of "COPY schema."ta""ble" (": the second name.
    static QString tableOf(const QByteArray& line) {
        QString name;
        bool quoted = false;
        for (const QChar character : QString::fromUtf8(line.mid(5))) {
            if (character == u'"') quoted = !quoted;
            if (!quoted && character == u'.') {
                name.clear();
                continue;
            }
            if (!quoted && character == u' ') break;
            name += character;
        }
        if (!name.startsWith(u'"')) return name;
        return name.mid(1, name.size() - 2).replace(u"\"\""_s, u"\""_s);
    }

    QByteArray line_;
    QString table_;
    bool inTable_ = false;
    RowCounts counts_;
};

// Of a dump's list of contents. The schema itself is there already, its remarks and rights are the new place's
// business. An index may need functions by their plain names or an extension, which the program has to look after;
// those of the rows' identities need neither.
bool isRestored(const QByteArray& line) {
    if (line.contains(" SCHEMA - ") || line.contains(" - SCHEMA ")) return false;
    if (line.contains(" COMMENT ") && line.contains(" INDEX ")) return false;
    return !line.contains(" INDEX ") || line.contains("_rows ");
}

}  // namespace

ServerTools findServerTools() {
    return {platform::serverProgram(u"pg_dump"_s), platform::serverProgram(u"pg_restore"_s)};
}

void dumpSchema(const ServerTools& tools, const data::ServerDescription& server, const QString& snapshot,
                const QString& file, const GoOn& goOn) {
    requireFound(tools);
    QFile mine(file);  // pg_dump would let everybody read it
    if (!mine.open(QIODevice::WriteOnly)) failWriting(mine);
    mine.setPermissions(QFile::ReadOwner | QFile::WriteOwner);  // fails only where a file system has no rights
    mine.close();
    const QString pattern = u'"' + server.schemaName().replace(u'"', u"\"\""_s) + u'"';
    run(tools.dump,
        {u"--format=custom"_s, u"--encoding=UTF8"_s, u"--no-password"_s, u"--lock-wait-timeout=10000"_s,
         u"--schema="_s + pattern, u"--snapshot="_s + snapshot, u"--file="_s + file,
         u"--dbname="_s + data::postgres::pgConnectionText(server)},
        server, goOn);
}

RowCounts rowsInDump(const ServerTools& tools, const QString& file, const GoOn& goOn) {
    requireFound(tools);
    RowCounter counter;
    run(tools.restore, {u"--data-only"_s, u"--file=-"_s, file}, {}, goOn,
        [&](const QByteArray& output) { counter.hear(output); });
    return counter.counts();
}

void readDump(const ServerTools& tools, const QString& file, const QString& section, const Hear& hear,
              const GoOn& goOn) {
    requireFound(tools);
    QByteArray all;
    run(tools.restore, {u"--list"_s, file}, {}, goOn, [&](const QByteArray& output) { all += output; });
    QByteArray wanted;
    for (const QByteArray& line : all.split('\n'))
        if (isRestored(line)) wanted += line + '\n';
    QFile list(file + u".list"_s);
    if (!list.open(QIODevice::WriteOnly) || list.write(wanted) != wanted.size() || !list.flush()) failWriting(list);
    run(tools.restore,
        {u"--no-owner"_s, u"--no-privileges"_s, u"--section="_s + section, u"--use-list="_s + list.fileName(),
         u"--file=-"_s, file},
        {}, goOn, hear);
}

}  // namespace copies
