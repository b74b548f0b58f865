#include "diary/planner.h"

using namespace Qt::Literals::StringLiterals;

namespace diary {

QString slotText(int slot) {
    return QTime(slot / 2, slot % 2 * 30).toString(u"HH:mm"_s);
}

SlotTimes timesOf(int slot) {
    return {slotText(slot), slot == slotsOfDay - 1 ? u"23:59"_s : slotText(slot + 1),
            slotText(slot > 0 ? slot - 1 : slot)};
}

QVector<int> takenSlots(QTime start, QTime end) {
    QVector<int> taken;
    const QString from = start.toString(u"HH:mm"_s), to = end.toString(u"HH:mm"_s);
    for (int slot = 0; slot < slotsOfDay; ++slot)
        if (const QString text = slotText(slot); text >= from && text < to) taken << slot;
    return taken;
}

}  // namespace diary
