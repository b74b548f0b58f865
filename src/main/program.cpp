#include "main/program.h"

#include <QDir>
#include <QGuiApplication>
#include <QTimer>

#include "core/damage.h"
#include "core/draftoffer.h"
#include "core/guard.h"
#include "core/workprogress.h"
#include "data/values/format.h"
#include "main/entry.h"
#include "main/frmrestore.h"

using namespace Qt::Literals::StringLiterals;

namespace entry {

namespace {

// Deletes a window after the event that closed it.
template <typename W>
void letGo(std::unique_ptr<W>& window) {
    if (window) window.release()->deleteLater();
}

}  // namespace

Program::Program(core::MainMod& mod) : mod_(mod), backup_(mod) {
    connect(&mod_.gSeat, &copies::SeatLock::lost, this, &Program::seatLost);
    // Whoever sets a value may be in the midst of anything.
    mod_.services.settings.refused = [this](const QString& file) {
        QTimer::singleShot(0, this, [this, file] { settingsRefused(file); });
    };
    connect(&endRequests_, &platform::EndRequests::asked, this, &Program::endNow);
    // The session may end the program next, without another word.
    connect(qApp, &QGuiApplication::commitDataRequest, this, [this] { mod_.drafts.writeAll(); });
}

Program::~Program() {
    mod_.services.settings.refused = {};
}

bool Program::start() {
    Outcome outcome = Outcome::End;
    whileOpening([&] { outcome = run(mod_); });
    if (outcome == Outcome::End || ending_) return false;
    showLogon();
    return true;
}

// A seat that is lost meanwhile is told at the end.
void Program::whileOpening(const std::function<void()>& work) {
    opening_ = true;
    work();
    opening_ = false;
    if (lost_) seatLost();
}

void Program::showLogon() {
    logon_ = std::make_unique<users::frmLogon>(mod_);
    connect(logon_.get(), &QDialog::accepted, this, &Program::showMain);
    connect(logon_.get(), &QDialog::rejected, this, &Program::finished);
    connect(logon_.get(), &users::frmLogon::retryWanted, this, [this] {
        logon_->setEnabled(false);
        whileOpening([this] { openAgain(mod_); });
        logon_->setEnabled(true);
        logon_->showRetry();
    });
    logon_->show();
}

void Program::showMain() {
    letGo(logon_);
    main_ = std::make_unique<MDIMain>(mod_);
    connect(main_.get(), &MDIMain::exited, this, &Program::finished);
    connect(main_.get(), &MDIMain::loggedOff, this, [this] {
        letGo(main_);
        if (!restoring_.file.isEmpty())
            whileOpening([this] { restoreAndReopen(mod_, restoring_.file, restoring_.made); });
        restoring_ = {};
        showLogon();
    });
    core::onSignal(mod_, main_.get(), main_.get(), &MDIMain::backupWanted,
                   [this] { backup_.startByHand(main_.get()); });
    core::onSignal(mod_, main_.get(), main_.get(), &MDIMain::backupFolderWanted,
                   [this] { backup_.chooseFolder(main_.get()); });
    core::onSignal(mod_, main_.get(), main_.get(), &MDIMain::restoreWanted, [this] { chooseAndRestore(); });
    core::offerAfterDamage(main_.get(), [this] { offerRestore(); });
    main_->load();
    main_->show();
    // After the window's first painting.
    QTimer::singleShot(0, main_.get(), [this] {
        backup_.startIfDue(main_.get());
        core::offerDrafts(mod_, main_->windows(), main_.get());
    });
}

// Nobody may be there to answer a question, so none is asked, and those that stand are left. What is typed becomes a
// draft.
void Program::endNow() {
    ending_ = true;
    mod_.drafts.writeAll();
    QCoreApplication::exit(0);
}

void Program::settingsRefused(const QString& file) {
    core::tell(mod_, core::frontWindow(main_.get()),
               u"Οι ρυθμίσεις δεν γράφονται στο αρχείο\n%1\nΌ,τι αλλάζει σε αυτές ισχύει μέχρι να κλείσει το "
               "πρόγραμμα."_s.arg(QDir::toNativeSeparators(file)));
}

void Program::offerRestore() {
    // The day's copy reads the same damage; what it says comes first.
    if (backup_.isRunning()) {
        connect(&backup_, &core::DailyBackup::finished, this, &Program::offerRestore,
                Qt::ConnectionType(Qt::QueuedConnection | Qt::SingleShotConnection));
        return;
    }
    if (!main_) return;
    if (core::ask(
            mod_, core::frontWindow(main_.get()),
            u"Η βάση δεδομένων έχει βλάβη. Ό,τι γραφτεί τώρα μπορεί να χαθεί.\nΝα ανοίξει η λίστα με τα αντίγραφα "
            "ασφαλείας, για να επαναφερθεί το τελευταίο καλό;"_s))
        chooseAndRestore();
}

// The windows close first, as at a log-off: none may go on with rows of the old data.
void Program::chooseAndRestore() {
    if (backup_.isRunning())
        return core::tell(mod_, main_.get(), u"Γίνεται ένα αντίγραφο ασφαλείας. Δοκιμάστε ξανά σε λίγο."_s);
    QVector<core::ListedBackup> copies;
    const QString folder = core::backupFolder(mod_.services.settings);
    core::inBackground(main_.get(), u"Ελέγχονται τα αντίγραφα ασφαλείας"_s, [&](const core::Tell& tell) {
        copies = core::listBackups(folder, mod_.gDataPath, [&](const QString& file) { tell(file, -1); });
    });
    frmRestore dialog(mod_, main_.get(), copies);
    if (dialog.exec() != QDialog::Accepted) return;
    const core::ListedBackup chosen = dialog.chosen();
    if (!core::ask(
            mod_, main_.get(),
            u"Να επαναφερθεί το γραφείο όπως ήταν στις %1; Ό,τι γράφτηκε μετά από τότε δεν θα υπάρχει. Τα τωρινά "
            "αρχεία θα κρατηθούν δίπλα του. Τα παράθυρα κλείνουν και το γραφείο ανοίγει πάλι από την είσοδο."_s.arg(
                data::format(chosen.made, u"dd/mm/yyyy hh:nn"))))
        return;
    restoring_ = chosen;
    main_->logOff();
    if (main_) restoring_ = {};  // a window stayed open
}

// Nothing more may reach the files: somebody else works on them without knowing of this seat. While they are being
// opened they belong to another thread.
void Program::seatLost() {
    lost_ = opening_;
    if (opening_) return;
    backup_.stop();
    mod_.gConn.close();
    mod_.gConnUsers.close();
    mod_.services.prompts.message(core::frontWindow(main_.get()), platform::MessageIcon::Critical, core::programTitle(),
                                  u"Χάθηκε η επαφή με τον φάκελο των δεδομένων στο δίκτυο ή τον πήρε "
                                  "άλλη θέση. Τα αρχεία έκλεισαν. Ξεκινήστε πάλι το πρόγραμμα."_s);
}

}  // namespace entry
