#include "diary/windows.h"

#include "diary/frmalarm.h"
#include "diary/frmcalend.h"
#include "diary/frmdate.h"
#include "diary/frmdatesshow.h"
#include "diary/frmligounshow.h"
#include "diary/frmnameday.h"
#include "diary/frmthink.h"
#include "diary/frmthinkstodoshow.h"
#include "diary/frmtodayshow.h"

using namespace Qt::Literals::StringLiterals;

namespace diary {

namespace {

template <typename W>
W* found(core::Windows& windows, const QString& name) {
    return qobject_cast<W*>(windows.find(name));
}

// An editor for another row: the one that is open may have something typed in it, and stays if its user says so.
template <typename W>
W* freshEditor(core::Windows& windows, const QString& name, QWidget* opener) {
    if (!windows.unload(name)) {
        windows.front(name);
        return nullptr;
    }
    const QPointer<QWidget> focus = opener ? opener->focusWidget() : nullptr;
    W* editor = qobject_cast<W*>(windows.front(name));
    if (auto* form = qobject_cast<core::Form*>(opener); form && editor) form->waitFor(*editor, focus);
    return editor;
}

frmDate* dateEditor(core::Windows& windows, core::MainMod& mod, QWidget* opener) {
    frmDate* editor = freshEditor<frmDate>(windows, u"frmDate"_s, opener);
    if (!editor) return nullptr;
    const auto showDay = [&windows, &mod](QDate day) {
        auto* calendar = found<frmCalend>(windows, u"frmCalend"_s);
        if (calendar && calendar->day() != day) calendar->ShowDay(day);
        mod.doors.appointmentsChanged();  // the day on show is read again, with the row that is chosen
    };
    core::onSignal(mod, editor, editor, &frmDate::saved, [&windows, &mod, showDay](QDate day) {
        // Whoever came from a card goes back to it.
        if (mod.gAddressOpen) windows.unload(u"frmCalend"_s);
        showDay(day);
    });
    core::onSignal(mod, editor, editor, &frmDate::deleted, showDay);
    return editor;
}

// What can't be read leaves no editor behind, which would pass for one of a new row.
template <typename W, typename Fill>
void fillOrClose(core::Windows& windows, W* editor, Fill fill) {
    if (!editor) return;
    try {
        fill(*editor);
    } catch (...) {
        windows.unload(editor->objectName());
        throw;
    }
}

void addDrafts(core::Windows& windows, core::MainMod& mod) {
    const auto closed = [&windows](const QString& name) { return [&windows, name] { return !windows.find(name); }; };
    windows.addDrafts({u"frmDate"_s, u"συνάντηση"_s, closed(u"frmDate"_s), [&](const core::Draft& draft) {
                           fillOrClose(windows, dateEditor(windows, mod, nullptr),
                                       [&](frmDate& editor) { editor.resume(draft); });
                       }});
    windows.addDrafts({u"frmThink"_s, u"εργασία"_s, closed(u"frmThink"_s), [&](const core::Draft& draft) {
                           fillOrClose(windows, freshEditor<frmThink>(windows, u"frmThink"_s, nullptr),
                                       [&](frmThink& editor) { editor.resume(draft); });
                       }});
}

void openDoors(core::Windows& windows, core::MainMod& mod) {
    mod.doors.openAppointment = [&](qint64 aa, QWidget* opener) {
        fillOrClose(windows, dateEditor(windows, mod, opener), [aa](frmDate& editor) { editor.edit(aa); });
    };
    mod.doors.openTask = [&](qint64 aa, QWidget* opener) {
        fillOrClose(windows, freshEditor<frmThink>(windows, u"frmThink"_s, opener), [aa](frmThink& editor) {
            if (aa != 0) editor.edit(aa);
        });
    };
    mod.doors.openCalendar = [&] { windows.front(u"frmCalend"_s); };
    mod.doors.openCalendarFor = [&](qint64 code, const QString& contact) {
        if (auto* calendar = qobject_cast<frmCalend*>(windows.front(u"frmCalend"_s)))
            calendar->setContact(code, contact);
    };
    mod.doors.appointmentsChanged.add([&] {
        if (auto* calendar = found<frmCalend>(windows, u"frmCalend"_s)) calendar->refresh();
        if (auto* list = found<frmDatesShow>(windows, u"frmDatesShow"_s)) list->refresh();
        if (auto* today = found<frmTodayShow>(windows, u"frmTodayShow"_s)) today->FillList2();
    });
    mod.doors.cardsChanged.add([&] {
        if (auto* today = found<frmTodayShow>(windows, u"frmTodayShow"_s)) today->FillDue();
    });
    mod.doors.tasksChanged.add([&] {
        if (auto* list = found<frmThinksToDoShow>(windows, u"frmThinksToDoShow"_s)) list->FillList();
        if (auto* today = found<frmTodayShow>(windows, u"frmTodayShow"_s)) today->FillTasks();
    });
}

}  // namespace

void addWindows(core::Windows& windows, core::MainMod& mod) {
    windows.add(u"frmCalend"_s, [&] {
        return new frmCalend(mod, [&](const NewAppointment& start, QWidget* opener) {
            if (frmDate* editor = dateEditor(windows, mod, opener)) editor->startNew(start);
        });
    });
    windows.add(u"frmDate"_s, [&mod] { return new frmDate(mod); });
    windows.add(u"frmDatesShow"_s, [&mod] { return new frmDatesShow(mod); });
    windows.add(u"frmThink"_s, [&mod] { return new frmThink(mod); });
    windows.add(u"frmThinksToDoShow"_s, [&mod] { return new frmThinksToDoShow(mod); });
    windows.add(u"frmTodayShow"_s, [&mod] { return new frmTodayShow(mod); });
    windows.add(u"frmLigounShow"_s, [&mod] { return new frmLigounShow(mod); });
    windows.add(u"frmNameDay"_s, [&mod] { return new frmNameDay(mod); });
    // For whoever looks at all windows; the one that watches the clock is the main window's.
    windows.addDialog(u"frmAlarm"_s, [&mod](QWidget* parent) { return std::make_unique<frmAlarm>(mod, parent); });
    openDoors(windows, mod);
    addDrafts(windows, mod);
}

}  // namespace diary
