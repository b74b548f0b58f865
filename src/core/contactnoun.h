// How the office calls its contacts, chosen by the setting "Category".
#pragma once

#include <QString>
#include <QStringList>

namespace core {

struct ContactNoun {
    // Captions of mnuAddress, mnuCards, mnuList, mnuQuery, mnuLigoun.
    QString address, cards, list, query, visits;
    bool medical = false;    // the medicine and dictionary lists are reachable
    bool changeable = true;  // the menu that changes the noun is shown
};

// 1 contacts, 2 customers, 3 members, 4 patients; anything else gives captions that show the setting is wrong.
ContactNoun contactNoun(int category);

}  // namespace core
