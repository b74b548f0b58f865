#include <QCoreApplication>

#include "admin/command.h"
#include "admin/output.h"
#include "data/error.h"

namespace {

using namespace Qt::Literals::StringLiterals;
using admin::err;

int usageFailure(const QString& text, const admin::Command* command) {
    err() << text << Qt::endl << Qt::endl;
    err() << (command ? admin::helpText(*command) : admin::overview()) << Qt::flush;
    return admin::Usage;
}

int run(QStringList words) {
    if (words.isEmpty()) return usageFailure(u"Λείπει η εντολή."_s, nullptr);
    QString name = words.takeFirst();
    if (name == u"--version") {
        admin::out() << u"dorvalist-admin "_s << QString::fromUtf8(DORV_VERSION) << Qt::endl;
        return admin::Fine;
    }
    if (name == u"--help" || name == u"-h") name = u"help"_s;
    const admin::Command* command = admin::findCommand(name);
    if (!command) return usageFailure(u"Άγνωστη εντολή «%1»."_s.arg(name), nullptr);
    if (words.value(0) == u"--help") {
        words = {name};
        command = admin::findCommand(u"help"_s);
    }
    try {
        return command->run(
            admin::Arguments(words, command->options, command->leastPositional, command->mostPositional));
    } catch (const admin::UsageError& error) {
        return usageFailure(error.text, command);
    } catch (const data::Error& error) {
        err() << error.text() << Qt::endl;
        if (!error.details().isEmpty() && error.details() != error.text()) err() << error.details() << Qt::endl;
        if (name == u"sql" && !error.statement().isEmpty()) err() << error.statement() << Qt::endl;
    } catch (const std::exception& error) {
        err() << u"Απρόσμενο σφάλμα: "_s << QString::fromUtf8(error.what()) << Qt::endl;
    }
    return admin::Failed;
}

}  // namespace

int main(int argc, char* argv[]) {
    const QCoreApplication application(argc, argv);
    return run(QCoreApplication::arguments().mid(1));
}
