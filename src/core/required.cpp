#include "core/required.h"

#include "data/error.h"

using namespace Qt::Literals::StringLiterals;

namespace core {

controls::Days required(const controls::Period& period, const QString& of) {
    if (const auto days = period.days()) return *days;
    throw data::Error(data::ErrorCategory::Type, u"Η περίοδος %1 δεν είναι σωστή."_s.arg(of));
}

}  // namespace core
