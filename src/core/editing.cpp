#include "core/editing.h"

namespace core {

void Editing::guardUnsaved(const QString& what, std::function<void()> save) {
    what_ = what;
    save_ = std::move(save);
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
