#include "core/contactnoun.h"

namespace core {

ContactNoun contactNoun(int category) {
    const QString visits = QStringLiteral("Εμφάνιση Επισκέψεων");
    switch (category) {
        case 1:
            return {QStringLiteral("Επαφές"), QStringLiteral("Καρτέλα Επαφών"), QStringLiteral("Λίστα Επαφών"),
                    QStringLiteral("Επιλογές Επαφών"), visits};
        case 2:
            return {QStringLiteral("Πελάτες"), QStringLiteral("Καρτέλα Πελατών"), QStringLiteral("Λίστα Πελατών"),
                    QStringLiteral("Επιλογές Πελατών"), visits};
        case 3:
            return {QStringLiteral("Μέλη"), QStringLiteral("Καρτέλα Μελών"), QStringLiteral("Λίστα Μελών"),
                    QStringLiteral("Επιλογές Μελών"), visits};
        case 4:
            return {QStringLiteral("Ασθενείς"),
                    QStringLiteral("Καρτέλα Ασθενών"),
                    QStringLiteral("Λίστα Ασθενών"),
                    QStringLiteral("Επιλογές Ασθενών"),
                    visits,
                    true,
                    false};
        default:
            return {QStringLiteral("01"), QStringLiteral("0101"), QStringLiteral("0102"), QStringLiteral("0103"),
                    QStringLiteral("0104")};
    }
}

}  // namespace core
