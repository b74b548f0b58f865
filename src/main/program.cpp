#include "main/program.h"

#include "main/entry.h"

namespace entry {

namespace {

// Deletes a window after the event that closed it.
template <typename W>
void letGo(std::unique_ptr<W>& window) {
    if (window) window.release()->deleteLater();
}

}  // namespace

Program::Program(core::MainMod& mod) : mod_(mod) {}
Program::~Program() = default;

bool Program::start() {
    if (run(mod_) == Outcome::End) return false;
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
    main_->load();
    main_->show();
}

}  // namespace entry
