// Password verifiers: Argon2id, salted, in the printable form of libsodium ("$argon2id$...").
#pragma once

#include <QString>

namespace data {

// How much work a verifier costs: Logon for people's passwords (tens of milliseconds), Light for the gate
// of a database file, which every start passes.
enum class PasswordCost { Logon, Light };

QString makeVerifier(const QString& password, PasswordCost cost = PasswordCost::Logon);
bool isVerifier(const QString& stored);
// `stored` may also be a clear text left by an older installation; then the texts are compared as they are.
bool verifyPassword(const QString& stored, const QString& password);

}  // namespace data
