// The copy of the data that the program makes by itself once a day, and the one that a user asks for.
#pragma once

#include <QObject>
#include <QPointer>
#include <QThread>
#include <QWidget>
#include <atomic>
#include <memory>

#include "copies/servertools.h"
#include "core/backupfolder.h"
#include "core/mainmod.h"

namespace core {

// Copies in a thread of its own with connections of its own; the windows stay alive. One copy at a time.
class DailyBackup : public QObject {
    Q_OBJECT
public:
    explicit DailyBackup(MainMod& mod);
    ~DailyBackup() override;  // breaks a running copy off, which leaves no file, and waits for that

    // Copies unless the folder has the office's copy of the day already, by whichever seat, or the data are on a server
    // whose programs aren't installed here. Says nothing unless it fails, and then tries again at the next start;
    // copies of the future are told of once.
    void startIfDue(QWidget* parent);
    // Ends in a message.
    void startByHand(QWidget* parent);
    void chooseFolder(QWidget* parent);
    // Breaks a running copy off without a word, and without waiting for its last step.
    void stop();
    // Where the programs are that copy a server's databases.
    std::function<copies::ServerTools()> findTools = copies::findServerTools;
    bool isRunning() const { return thread_ != nullptr; }

signals:
    void finished();  // after any message

private:
    struct Work;
    void start(BackupKind kind, QWidget* parent);
    void end();
    void tell(const Work& work);

    MainMod& mod_;
    std::shared_ptr<Work> work_;
    std::unique_ptr<QThread> thread_;
    QPointer<QWidget> parent_;
};

}  // namespace core
