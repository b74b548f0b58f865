// The toolkit brings no Greek translation of its own texts: the menus of boxes, the file dialog, standard buttons.
#pragma once

class QCoreApplication;

namespace controls {

// Installs them once; further calls do nothing.
void useGreekToolkitTexts(QCoreApplication& app);

}  // namespace controls
