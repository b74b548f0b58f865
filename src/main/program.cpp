#include "main/program.h"

#include <QTimer>

#include "main/entry.h"

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
}
Program::~Program() = default;

bool Program::start() {
    opening_ = true;
    const Outcome outcome = run(mod_);
    opening_ = false;
    if (lost_) seatLost();
    if (outcome == Outcome::End) return false;
    showLogon();
    return true;
}

void Program::showLogon() {
    logon_ = std::make_unique<users::frmLogon>(mod_);
    connect(logon_.get(), &QDialog::accepted, this, &Program::showMain);
    connect(logon_.get(), &QDialog::rejected, this, &Program::finished);
    logon_->show();
}

void Program::showMain() {
    letGo(logon_);
    main_ = std::make_unique<MDIMain>(mod_);
    connect(main_.get(), &MDIMain::exited, this, &Program::finished);
    connect(main_.get(), &MDIMain::loggedOff, this, [this] {
        letGo(main_);
        showLogon();
    });
    core::onSignal(mod_, main_.get(), main_.get(), &MDIMain::backupWanted,
                   [this] { backup_.startByHand(main_.get()); });
    core::onSignal(mod_, main_.get(), main_.get(), &MDIMain::backupFolderWanted,
                   [this] { backup_.chooseFolder(main_.get()); });
    main_->load();
    main_->show();
    // After the window's first painting.
    QTimer::singleShot(0, this, [this] { backup_.startIfDue(main_.get()); });
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
