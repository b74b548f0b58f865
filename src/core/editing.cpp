#include "core/editing.h"

namespace core {

void Editing::guardUnsaved(const QString& what, std::function<void()> save) {
    what_ = what;
    save_ = std::move(save);
}

void Editing::keepDraft(std::function<Draft()> describe) {
    draft_ = std::make_unique<DraftKeeper>(mod_, self()->objectName(), fields_, std::move(describe));
}

void Editing::goOnWith(const Draft& draft) {
    fields_.put(draft.typed);
    if (draft_) draft_->goOnWith(draft);
}

void Editing::dropDraft() {
    if (draft_) draft_->drop();
}

bool Editing::mayLose() {
    if (!fields_.isChanged()) return true;
    switch (askToSave(what_)) {
        case platform::SaveChoice::Back:
            return false;
        case platform::SaveChoice::Discard:
            return true;
        case platform::SaveChoice::Save:
            break;
    }
    save_();
    return !fields_.isChanged();
}

}  // namespace core
