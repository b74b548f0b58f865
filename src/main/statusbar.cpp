#include "main/statusbar.h"

#include "controls/names.h"
#include "controls/theme.h"
#include "data/values/format.h"

using namespace Qt::Literals::StringLiterals;

namespace entry {

StatusBar::StatusBar(const platform::Clock& clock) : clock_(clock) {
    setObjectName(u"StatusBar1"_s);
    setContentsMargins(8, 0, 8, 0);
    for (int number = 1; number <= 5; ++number) {
        auto* panel = controls::named(new QLabel, u"Panel%1"_s.arg(number));
        panel->setTextFormat(Qt::PlainText);
        panel->setAlignment(Qt::AlignCenter);
        addWidget(panel, number == 3 || number == 4);
        panels_.append(panel);
    }
    panel(5)->setMinimumWidth(controls::toPixels(3000));
    connect(&timer_, &QTimer::timeout, this, &StatusBar::tick);
    timer_.start(1000);
    tick();
}

void StatusBar::setUser(const QString& name) {
    panel(5)->setText(u"Χρήστης: "_s + name);
}

void StatusBar::say(const QString& text) {
    constexpr int readable = 30'000;  // milliseconds
    showMessage(text, readable);
}

void StatusBar::tick() {
    const QDateTime now = clock_.now();
    panel(1)->setText(data::format(now, u"dd/mm/yyyy"));
    panel(2)->setText(data::format(now, u"hh:nn"));
}

}  // namespace entry
