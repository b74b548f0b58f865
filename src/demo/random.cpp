#include "demo/random.h"

namespace demo {
namespace {

constexpr quint64 goldenGamma = 0x9E3779B97F4A7C15;

quint64 mix(quint64 z) {
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EB;
    return z ^ (z >> 31);
}

}  // namespace

Random::Random(quint64 seed, quint64 purpose, quint64 number)
    : state_(mix(mix(mix(seed + goldenGamma) + purpose + goldenGamma) + number + goldenGamma)) {}

quint64 Random::next() {
    return mix(state_ += goldenGamma);
}

int Random::below(int bound) {
    if (bound < 1) return 0;
    return int(((next() >> 32) * quint64(bound)) >> 32);
}

int Random::between(int first, int last) {
    return first + below(last - first + 1);
}

}  // namespace demo
