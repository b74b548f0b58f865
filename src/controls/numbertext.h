// Numbers that come into a box as a whole, by paste or drop.
#pragma once

#include <QString>
#include <optional>

namespace controls::detail {

// A number as a number box shows it, "-1234,56", from Greek form (1.234,56) or plain form (1234.56); the euro sign and
// blanks around it don't count. Three figures behind a single point are thousands, as in Greek form. Nothing for
// anything else.
std::optional<QString> numberText(QString text);

struct BroughtIn {
    QString text;
    int cursor;  // behind the piece that came in
};
// The text of the box once the piece of `edited` that `before` didn't have, which ends at `cursor`, is written as a
// number. Nothing when that piece is no number, or no number comes of it where it stands.
std::optional<BroughtIn> withNumberBroughtIn(const QString& before, const QString& edited, int cursor);

}  // namespace controls::detail
