#include "core/contactnoun.h"

using namespace Qt::Literals::StringLiterals;

namespace core {

ContactNoun contactNoun(int category) {
    const QString visits = u"Εμφάνιση Επισκέψεων"_s;
    switch (category) {
        case 1:
            return {u"Επαφές"_s, u"Καρτέλα Επαφών"_s, u"Λίστα Επαφών"_s, u"Επιλογές Επαφών"_s, visits};
        case 2:
            return {u"Πελάτες"_s, u"Καρτέλα Πελατών"_s, u"Λίστα Πελατών"_s, u"Επιλογές Πελατών"_s, visits};
        case 3:
            return {u"Μέλη"_s, u"Καρτέλα Μελών"_s, u"Λίστα Μελών"_s, u"Επιλογές Μελών"_s, visits};
        case 4:
            return {u"Ασθενείς"_s, u"Καρτέλα Ασθενών"_s, u"Λίστα Ασθενών"_s, u"Επιλογές Ασθενών"_s, visits, true,
                    false};
        default:
            return {u"01"_s, u"0101"_s, u"0102"_s, u"0103"_s, u"0104"_s};
    }
}

}  // namespace core
