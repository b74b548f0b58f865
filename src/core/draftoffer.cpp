#include "core/draftoffer.h"

#include <QFile>

#include "core/drafts.h"
#include "data/values/format.h"

using namespace Qt::Literals::StringLiterals;

namespace core {

static QString questionFor(const Draft& draft, const DraftKind& kind) {
    QStringList known;
    if (!draft.title.trimmed().isEmpty()) known << draft.title.simplified().left(60);
    known << data::format(draft.time, u"dd/mm/yyyy hh:nn");
    return u"Υπάρχει %1 που δεν αποθηκεύτηκε (%2).\nΝα συνεχίσω από εκεί;"_s.arg(kind.noun, known.join(u", "_s));
}

static void offer(MainMod& mod, const Draft& draft, const DraftKind& kind, QWidget* parent) {
    const QStringList answers = {u"&Ναι, συνέχεια"_s, u"&Όχι, να διαγραφεί"_s, u"&Αργότερα"_s};
    switch (mod.services.prompts.choose(frontWindow(parent), programTitle(), questionFor(draft, kind), answers)) {
        case 0:
            attempt(mod, parent, [&] { kind.resume(draft); });
            break;
        case 1:
            QFile::remove(draft.file);
            break;
        default:
            break;
    }
}

void offerDrafts(MainMod& mod, const Windows& windows, QWidget* parent) {
    const QVector<Draft> drafts = mod.drafts.all({mod.gDataPath, mod.gUserName});
    for (const DraftKind& kind : windows.draftKinds())
        for (const Draft& draft : drafts)
            if (draft.window == kind.window && kind.isPossible()) offer(mod, draft, kind, parent);
}

}  // namespace core
