#include "core/draftkeeper.h"

#include <QFile>

#include "core/mainmod.h"
#include "data/error.h"

namespace core {

static constexpr int pauseMs = 1000;  // without a key

DraftKeeper::DraftKeeper(MainMod& mod, QString window, FieldWatch& fields, std::function<Draft()> describe)
    : mod_(mod),
      all_(mod.drafts.writers()),
      window_(std::move(window)),
      fields_(fields),
      describe_(std::move(describe)) {
    pause_.setSingleShot(true);
    pause_.setInterval(pauseMs);
    pause_.callOnTimeout([this] { write(); });
    fields_.follow([this] { pause_.start(); }, [this] { drop(); });
    all_->append(this);
}

DraftKeeper::~DraftKeeper() {
    all_->removeAll(this);
    fields_.follow({}, {});
}

void DraftKeeper::write() {
    const QVariantMap typed = fields_.typed();
    if (typed.isEmpty()) return drop();
    if (typed == written_) return;
    try {
        Draft draft = describe_();
        draft.window = window_;
        draft.typed = typed;
        draft.time = mod_.services.clock.now();
        draft.file = file_;
        mod_.drafts.write({mod_.gDataPath, mod_.gUserName}, draft);
        file_ = draft.file;
        written_ = typed;
    } catch (const data::Error& error) {
        qWarning("no draft: %s", error.what());
    }
}

void DraftKeeper::drop() {
    pause_.stop();
    if (!file_.isEmpty()) QFile::remove(file_);
    file_.clear();
    written_.clear();
}

void DraftKeeper::goOnWith(const Draft& draft) {
    file_ = draft.file;
    pause_.start();
}

}  // namespace core
