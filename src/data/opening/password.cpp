#include "data/opening/password.h"

#include <sodium.h>

#include <cstring>

#include "data/error.h"

using namespace Qt::Literals::StringLiterals;

namespace data {
namespace {

struct Cost {
    unsigned long long passes;
    size_t memory;  // bytes
};

Cost costOf(PasswordCost cost) {
    if (cost == PasswordCost::Light) return {1, 1 << 20};
    return {2, 32 << 20};
}

void ready() {
    static const int state = sodium_init();
    if (state < 0) throw Error(ErrorCategory::Other, u"Δεν ξεκίνησε η βιβλιοθήκη κρυπτογράφησης."_s);
}

// The library reads a whole field of this size.
struct Stored {
    char bytes[crypto_pwhash_STRBYTES] = {};
    bool fits;

    explicit Stored(const QString& text) {
        const QByteArray utf8 = text.toUtf8();
        fits = utf8.size() < qsizetype(sizeof bytes) && !utf8.contains('\0');
        if (fits) std::memcpy(bytes, utf8.constData(), utf8.size());
    }
};

}  // namespace

QString makeVerifier(const QString& password, PasswordCost cost) {
    ready();
    const QByteArray utf8 = password.toUtf8();
    const Cost work = costOf(cost);
    char verifier[crypto_pwhash_STRBYTES];
    if (crypto_pwhash_str_alg(verifier, utf8.constData(), utf8.size(), work.passes, work.memory,
                              crypto_pwhash_ALG_ARGON2ID13) != 0)
        throw Error(ErrorCategory::Other, u"Δεν υπάρχει αρκετή μνήμη για τον έλεγχο του κωδικού."_s);
    return QString::fromUtf8(verifier);
}

bool isVerifier(const QString& stored) {
    if (!stored.startsWith(u"$argon2id$")) return false;
    ready();
    const Stored field(stored);
    return field.fits && crypto_pwhash_str_needs_rehash(field.bytes, 1, 8192) >= 0;
}

bool verifyPassword(const QString& stored, const QString& password) {
    if (!isVerifier(stored)) return stored == password;
    const QByteArray utf8 = password.toUtf8();
    return crypto_pwhash_str_verify(Stored(stored).bytes, utf8.constData(), utf8.size()) == 0;
}

}  // namespace data
