// The commands of the tool: a table of rows, each with its own file under commands/.
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

#include "admin/arguments.h"

namespace admin {

enum ExitCode { Fine = 0, Failed = 1, Usage = 2 };

struct Command {
    QString name;
    QString usage;  // arguments as help shows them
    QString summary;
    QString help;
    int leastPositional;
    int mostPositional;
    QVector<Option> options;
    // Throws data::Error for a failure and UsageError for a wrong call.
    ExitCode (*run)(const Arguments&);
};

Command createCommand();
Command demoCommand();
Command sqlCommand();
Command checkCommand();
Command agendaCommand();
Command loadCommand();
Command backupCommand();
Command restoreCommand();
Command moveCommand();
Command helpCommand();

const QVector<Command>& commands();
const Command* findCommand(const QString& name);

QString overview();                        // of all commands
QString helpText(const Command& command);  // of one

}  // namespace admin
