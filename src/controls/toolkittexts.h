// The toolkit's own words in Greek: context menus, window menus, file and folder dialogs.
#pragma once

class QApplication;

namespace controls {

// The toolkit ships no Greek translation. Installs one for the words that this program's windows bring to the screen.
void speakGreek(QApplication& app);

}  // namespace controls
