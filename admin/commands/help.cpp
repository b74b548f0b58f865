#include "admin/command.h"
#include "admin/output.h"

namespace admin {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int nameWidth = 10;

ExitCode help(const Arguments& arguments) {
    if (arguments.positional().isEmpty()) {
        out() << overview() << Qt::flush;
        return Fine;
    }
    const QString name = arguments.positional().first();
    const Command* command = findCommand(name);
    if (!command) throw UsageError{u"Άγνωστη εντολή «%1»."_s.arg(name)};
    out() << helpText(*command) << Qt::flush;
    return Fine;
}

}  // namespace

Command helpCommand() {
    return {u"help"_s, u"[ΕΝΤΟΛΗ]"_s, u"δείχνει αυτή τη βοήθεια ή τη βοήθεια μιας εντολής"_s, {}, 0, 1, {}, help};
}

const QVector<Command>& commands() {
    static const QVector<Command> all = {createCommand(), demoCommand(), sqlCommand(),    agendaCommand(),
                                         checkCommand(),  loadCommand(), backupCommand(), restoreCommand(),
                                         moveCommand(),   helpCommand()};
    return all;
}

const Command* findCommand(const QString& name) {
    for (const Command& command : commands())
        if (command.name == name) return &command;
    return nullptr;
}

QString overview() {
    QString text = u"Χρήση: dorvalist-admin ΕΝΤΟΛΗ [ΟΡΙΣΜΑΤΑ]\n\nΕντολές:\n"_s;
    for (const Command& command : commands()) text += u"  %1%2\n"_s.arg(command.name, -nameWidth).arg(command.summary);
    return text +
           u"\n  --version δείχνει την έκδοση\n\n"
           u"Κωδικοί εξόδου: 0 όλα καλά, 1 απέτυχε ή βρέθηκε πρόβλημα, 2 λάθος κλήση.\n"_s;
}

QString helpText(const Command& command) {
    QString text = u"Χρήση: dorvalist-admin %1 %2"_s.arg(command.name, command.usage);
    if (!command.options.isEmpty()) text += u" [ΕΠΙΛΟΓΕΣ]"_s;
    text += u"\n\n%1\n"_s.arg(command.help.isEmpty() ? command.summary : command.help);
    if (!command.options.isEmpty()) text += u"\nΕπιλογές:\n"_s;
    for (const Option& option : command.options) {
        const QString left = option.valueName.isEmpty() ? option.name : option.name + u' ' + option.valueName;
        text += u"  %1  %2\n"_s.arg(left, -26).arg(option.help);
    }
    return text;
}

}  // namespace admin
