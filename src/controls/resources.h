#pragma once

namespace controls {

// The compiled-in icons and style sheet: those of a static library register only when asked to. Cheap to repeat.
void registerResources();

}  // namespace controls
