#include "core/damage.h"

#include <QPointer>
#include <utility>

namespace core {
namespace {

struct Offer {
    QPointer<QObject> context;
    std::function<void()> run;
};

Offer& waiting() {
    static Offer offer;
    return offer;
}

}  // namespace

void offerAfterDamage(QObject* context, std::function<void()> offer) {
    waiting() = {context, std::move(offer)};
}

void damageWasTold() {
    const Offer offer = std::exchange(waiting(), {});
    if (offer.context && offer.run) QMetaObject::invokeMethod(offer.context, offer.run, Qt::QueuedConnection);
}

}  // namespace core
