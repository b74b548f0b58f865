// What a window does with typed values that nobody has saved.
#pragma once

#include "core/fieldwatch.h"
#include "core/guarded.h"

namespace core {

// The icon of a window that names none.
inline const QString usualSymbol = QStringLiteral("dorvalist");

// A base beside QWidget, for windows in which something is typed and saved.
class Editing : protected Guarded {
protected:
    using Guarded::Guarded;

    // Once the fields are watched: what has changes ("Η κίνηση έχει αλλαγές που δεν αποθηκεύτηκαν.") and how they are
    // saved. A save that succeeds remembers or forgets the fields.
    void guardUnsaved(const QString& what, std::function<void()> save);

    // True at once when nothing was changed; otherwise asks whether to save, to go on without, or to go back to what
    // was typed. False after going back and after a save that failed.
    bool mayLose();

    FieldWatch fields_;  // the fields that are being edited

private:
    QString what_;
    std::function<void()> save_;
};

}  // namespace core
