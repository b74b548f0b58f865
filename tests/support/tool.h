// The command-line tool as its users meet it: a process with words, streams and an exit code.
#pragma once

#include <QProcess>

namespace support {

using namespace Qt::Literals::StringLiterals;

struct ToolRun {
    int code;  // -1 for a tool that didn't end by itself
    QString out, err;
};

// `input` is what the tool reads from its standard input, `environment` what is set besides the test's own.
inline ToolRun runTool(const QStringList& words, const QByteArray& input = {},
                       const QMap<QString, QString>& environment = {}) {
    QProcess process;
    QProcessEnvironment all = QProcessEnvironment::systemEnvironment();
    for (const auto& [name, value] : environment.asKeyValueRange()) all.insert(name, value);
    process.setProcessEnvironment(all);
    process.start(QString::fromUtf8(DORV_PROGRAM), words);
    process.write(input);
    process.closeWriteChannel();
    const bool ended = process.waitForFinished(120'000) && process.exitStatus() == QProcess::NormalExit;
    return {ended ? process.exitCode() : -1, QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

// The words of an option that gives a server.
inline QStringList serverOption(const data::ServerDescription& server) {
    return {u"--server"_s,
            u"host='%1' database=%2 user=%3 schema=%4"_s.arg(server.host, server.database, server.user, server.schema)};
}

}  // namespace support
