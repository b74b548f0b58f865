#include "schema/progress.h"

#include "data/error.h"

namespace schema {

void report(const Progress& progress, const QString& what, int percent) {
    if (progress && !progress(what, percent))
        throw data::Error(data::ErrorCategory::Other, QStringLiteral("Η εργασία διακόπηκε."));
}

}  // namespace schema
