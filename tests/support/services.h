// Stand-ins for the doors to the operating system. A test takes them all in one line:
//     support::Desk desk;
//     frmAddress form(desk.services);
#pragma once

#include <QTest>
#include <QtCore/QtCore>
#include <deque>

#include "platform/services.h"
#include "support/pageimage.h"

namespace support {

using namespace Qt::Literals::StringLiterals;

class MemorySettings : public platform::Settings {
public:
    QString value(const QString& section, const QString& key, const QString& fallback) const override {
        return values_.value(pathOf(section, key), fallback);
    }
    void setValue(const QString& section, const QString& key, const QString& value) override {
        values_.insert(pathOf(section, key), value);
    }
    bool contains(const QString& section, const QString& key) const { return values_.contains(pathOf(section, key)); }

private:
    static QString pathOf(const QString& section, const QString& key) {
        return (section + QChar(0) + key).toCaseFolded();
    }
    QHash<QString, QString> values_;
};

// Stands still until a test moves it: Thursday 5 November 2026, 10:30.
class HandClock : public platform::Clock {
public:
    QDateTime now() const override { return now_; }
    void set(QDate date, QTime time = QTime(10, 30)) { now_ = QDateTime(date, time, Qt::UTC); }
    void advance(qint64 seconds) { now_ = now_.addSecs(seconds); }

private:
    QDateTime now_ = QDateTime(QDate(2026, 11, 5), QTime(10, 30), Qt::UTC);
};

// Keeps what was told and answers what was asked from queues filled beforehand. A question that no answer waits for
// fails the test and counts as No or Cancel; so does an answer that nobody asked for.
class RecordingPrompts : public platform::Prompts {
public:
    struct Shown {
        platform::MessageIcon icon;
        QString title;
        QString text;  // the filter of an openFile, the suggested name of a saveFile
    };

    ~RecordingPrompts() override {
        if (!QTest::currentTestFailed() &&
            !(answers_.empty() && saves_.empty() && choices_.empty() && inputs_.empty() && files_.empty() && folders_.empty()))
            QTest::qFail("an answer was left that nobody asked for", __FILE__, __LINE__);
    }

    void answer(bool yes) { answers_.push_back(yes); }
    // To a question whether typed values are saved; answer(true) gives them up, answer(false) goes back to them.
    void answerSave() { saves_.push_back(true); }
    // The text of the answer, or its beginning.
    void answerChoice(const QString& answer) { choices_.push_back(answer); }
    void answerInput(const QString& typed) { inputs_.push_back(typed); }
    void answerFile(const QString& path) { files_.push_back(path); }
    void answerFolder(const QString& path) { folders_.push_back(path); }

    const QList<Shown>& shown() const { return shown_; }
    int count() const { return int(shown_.size()); }
    bool isEmpty() const { return shown_.isEmpty(); }
    // The last one's; empty when there was none.
    QString lastText() const { return shown_.isEmpty() ? QString() : shown_.last().text; }
    QString lastTitle() const { return shown_.isEmpty() ? QString() : shown_.last().title; }
    bool wasShown(const QString& text) const {
        return std::any_of(shown_.begin(), shown_.end(), [&](const Shown& s) { return s.text == text; });
    }
    void clear() { shown_.clear(); }
    QString startPath;  // where the last file dialog began

    void message(QWidget*, platform::MessageIcon icon, const QString& title, const QString& text) override {
        shown_.append({icon, title, text});
    }
    bool question(QWidget*, const QString& title, const QString& text) override {
        shown_.append({platform::MessageIcon::Question, title, text});
        return taken(answers_);
    }
    platform::SaveChoice askToSave(QWidget*, const QString& title, const QString& text) override {
        shown_.append({platform::MessageIcon::Question, title, text});
        if (!saves_.empty()) {
            saves_.pop_front();
            return platform::SaveChoice::Save;
        }
        return taken(answers_) ? platform::SaveChoice::Discard : platform::SaveChoice::Back;
    }
    int choose(QWidget*, const QString& title, const QString& text, const QStringList& answers) override {
        shown_.append({platform::MessageIcon::Question, title, text});
        const QString wanted = taken(choices_);
        for (int i = 0; i < answers.size(); ++i)
            if (!wanted.isEmpty() && QString(answers[i]).remove(u'&').startsWith(wanted)) return i;
        QTest::qFail(qUtf8Printable(u"no such answer: \"%1\""_s.arg(wanted)), __FILE__, __LINE__);
        return int(answers.size()) - 1;
    }
    std::optional<QString> input(QWidget*, const QString& title, const QString& prompt, const QString&) override {
        shown_.append({platform::MessageIcon::Plain, title, prompt});
        const QString typed = taken(inputs_);
        return typed.isNull() ? std::nullopt : std::optional(typed);
    }
    QString openFile(QWidget*, const QString& title, const QString& filter, const QString& start) override {
        startPath = start;
        shown_.append({platform::MessageIcon::Plain, title, filter});
        return taken(files_);
    }
    QString saveFile(QWidget*, const QString& title, const QString& suggested, const QString&) override {
        shown_.append({platform::MessageIcon::Plain, title, suggested});
        return taken(files_);
    }
    QString chooseFolder(QWidget*, const QString& title) override {
        shown_.append({platform::MessageIcon::Plain, title, QString()});
        return taken(folders_);
    }

private:
    // The next answer to what was just shown, or none and a failed test.
    template <typename T>
    T taken(std::deque<T>& queue) {
        if (queue.empty()) {
            const QString report = u"Unexpected \"%1\": %2"_s.arg(lastTitle(), lastText());
            QTest::qFail(qUtf8Printable(report), __FILE__, __LINE__);
            return {};
        }
        T first = std::move(queue.front());
        queue.pop_front();
        return first;
    }

    QList<Shown> shown_;
    std::deque<bool> answers_, saves_;
    std::deque<QString> files_, folders_, choices_, inputs_;
};

class RecordingSound : public platform::Sound {
public:
    void play(const QString& waveFile) override { played.append(waveFile); }
    void beep() override { ++beeps; }

    QStringList played;
    int beeps = 0;
};

// A system with one printer, until a test takes it away, which keeps what it was sent. PDF files are the real thing.
class RecordingPrinters : public platform::SystemPrinters {
public:
    struct Sent {
        QString printer, title;
        int copies;
        platform::PageSetup setup;
        QVector<QStringList> pages;  // the texts of each
        QImage firstPage;

        QStringList texts() const {
            QStringList all;
            for (const QStringList& page : pages) all += page;
            return all;
        }
    };

    QStringList installed{u"Γραφείο"_s};
    // What goes wrong with every print from now on: what the printer says, any other failure, or where the user stops
    // it.
    QString failure;
    std::function<void()> fault;
    int stopsAtPage = -1;
    QVector<Sent> sent;

    QStringList names() const override { return installed; }
    QString defaultName() const override { return installed.value(0); }
    bool print(const platform::PrintDocument& document, const QString& printer, int copies,
               const platform::PageStep& step) override {
        if (fault) fault();
        if (!failure.isEmpty()) throw platform::PrintError(failure);
        if (!installed.contains(printer)) throw platform::PrintError(u"Δεν υπάρχει: "_s + printer);
        Sent now{printer, document.title(), copies, document.setup(), {}, pageImage(document)};
        for (int page = 0; page < document.pageCount(); ++page) {
            if (page == stopsAtPage || (step && !step(page))) return false;
            now.pages.append(document.texts(page));
        }
        sent.append(now);
        return true;
    }
};

// Keeps what was opened. Files exist as on the disk; what is named in `missingPrograms` nothing can open.
class RecordingShell : public platform::DesktopShell {
public:
    bool openFile(const QString& path) override {
        opened.append(path);
        return !missingPrograms.contains(path);
    }
    bool openUrl(const QUrl& url) override {
        opened.append(url.toString(QUrl::FullyEncoded));
        return !missingPrograms.contains(url.toString(QUrl::FullyEncoded));
    }
    bool writeMail(const QString& subject, const QString& body, const QString& file) override {
        if (attaches) mails.append({subject, body, file});
        return attaches;
    }

    QStringList opened, missingPrograms;
    bool attaches = true;        // whether mails can carry files
    QVector<QStringList> mails;  // subject, body and file of each
};

// Keeps what the desktop was asked to show; a test presses the buttons.
class RecordingNotifier : public platform::Notifier {
public:
    struct Shown {
        QString title, text;
        Button button;
    };
    QVector<Shown> shown;

    void notify(const QString& title, const QString& text, const Button& button) override {
        shown.append({title, text, button});
    }
};

// All of them, and the Services that a window takes. Lives longer than the windows that use it.
struct Desk {
    MemorySettings settings;
    HandClock clock;
    RecordingPrompts prompts;
    RecordingSound sound;
    RecordingShell shell;
    RecordingPrinters printers;
    RecordingNotifier notifier;
    platform::Services services{settings, clock, prompts, sound, shell, printers, notifier};

    // The office's owner, whose details head what is printed.
    const QStringList owner{u"Γραφείο Α"_s, u"Ερμού 12"_s, u"210 1234567"_s, u"info@example.gr"_s};
    void setOwner() {
        const char* keys[] = {"Name", "Address", "Phone", "Email"};
        for (int i = 0; i < owner.size(); ++i) settings.setValue("Settings", keys[i], owner[i]);
    }

    // Prints go straight to the printer: a test that wants to see the preview switches it on.
    Desk() { settings.setValue(u"Options"_s, u"PrintPreview"_s, u"0"_s); }
    Q_DISABLE_COPY_MOVE(Desk)
};

}  // namespace support
