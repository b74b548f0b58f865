#include "controls/resources.h"

#include <QDir>

// The macro must not stand inside a namespace.
static void initialise() {
    Q_INIT_RESOURCE(controls);
}

namespace controls {

void registerResources() {
    static const bool once = (initialise(), true);
    Q_UNUSED(once);
}

}  // namespace controls
