// Letters through the system's own program, which a script stands in for.
#include <QTemporaryDir>

#include "platform/shell.h"
#include "support/files.h"

class TestShell : public QObject {
    Q_OBJECT
private slots:
    void aLetterReachesTheMailProgramWhole() {
        const QTemporaryDir scratch;
        qputenv("PATH", scratch.path().toUtf8());
        platform::DesktopShell shell;
        QVERIFY(!shell.writeMail("α", "β", "/γ"));
        const QString program = scratch.filePath("xdg-email"), words = scratch.filePath("words");
        support::write(program, "#!/bin/sh\nprintf '%s|' \"$@\" >'" + words.toUtf8() + ".part'\n/bin/mv '" +
                                    words.toUtf8() + ".part' '" + words.toUtf8() + "'\n");
        QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        QVERIFY(shell.writeMail("Θέμα; $HOME", "Γραμμή 1\n\"δύο\"", "/a b/Συναντήσεις.ics"));
        QTRY_VERIFY(QFile::exists(words));
        // Where the program was started from is no place of a file.
        QDir::setCurrent(scratch.path());
        QVERIFY(shell.exists(words) && !shell.exists("words"));
        QCOMPARE(QString::fromUtf8(support::bytesOf(words)),
                 "--utf8|--subject|Θέμα; $HOME|--body|Γραμμή 1\n\"δύο\"|--attach|/a b/Συναντήσεις.ics|");
    }
};

QTEST_GUILESS_MAIN(TestShell)
#include "test_shell.moc"
