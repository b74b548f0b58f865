// What follows when the database of an open office answers that it is damaged.
#pragma once

#include <QObject>
#include <functional>

namespace core {

// `offer` runs once after the first damage that is told while `context` lives, when the handler that met it has
// returned. A later call takes its place and waits for damage anew.
void offerAfterDamage(QObject* context, std::function<void()> offer);

// Said by what shows failures.
void damageWasTold();

}  // namespace core
