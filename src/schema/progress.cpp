#include "schema/progress.h"

#include "data/error.h"

using namespace Qt::Literals::StringLiterals;

namespace schema {

void report(const Progress& progress, const QString& what, int percent) {
    if (progress && !progress(what, percent)) throw data::Error(data::ErrorCategory::Other, u"Η εργασία διακόπηκε."_s);
}

}  // namespace schema
