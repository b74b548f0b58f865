#include "demo/person.h"

#include "demo/latin.h"
#include "demo/lists.h"
#include "demo/portrait.h"
#include "demo/words.h"

namespace demo {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr quint64 purposePerson = 1;
constexpr int columnWidth = 30;   // names, addresses and telephones of Cards
constexpr int addressWidth = 40;  // e-mail and web addresses
constexpr int telephoneDigits = 10;
constexpr int photosAmongFirst = 1000;
constexpr int photoEvery = 20;

// Joins what was drawn from left to right; the operands of + come in any order.
QString inOrder(std::initializer_list<QString> parts) {
    return QStringList(parts).join(QString());
}

QString digits(Random& random, int count) {
    QString text;
    for (int i = 0; i < count; ++i) text += QChar(u'0' + random.below(10));
    return text;
}

QString landline(Random& random, const QString& areaCode) {
    const int rest = telephoneDigits - int(areaCode.size());
    return inOrder({areaCode, QChar(u'2' + random.below(8)), digits(random, rest - 1)});
}

QString mobile(Random& random) {
    return inOrder({u"69"_s, QChar(u'3' + random.below(7)), digits(random, 7)});
}

QString streetAndNumber(Random& random) {
    return inOrder({random.pick(streets()), u" "_s, QString::number(random.between(1, 180))});
}

// Nine digits whose check digit is wrong on purpose: nobody's number.
QString taxNumber(Random& random) {
    const QString eight = inOrder({QChar(u'0' + random.below(2)), digits(random, 7)});
    int sum = 0;
    for (int i = 0; i < 8; ++i) sum += (eight[i].unicode() - u'0') << (8 - i);
    const int right = sum % 11 % 10;
    return eight + QChar(u'0' + (right + random.between(1, 9)) % 10);
}

void drawName(Person& person, Random& random, const World& world) {
    person.man = random.chance(52);
    const Surname& surname = random.pickCommon(surnames());
    person.last = person.man ? surname.man : surname.woman;
    person.first = person.man ? random.pickCommon(maleNames()).name : random.pickCommon(femaleNames());
    person.father = random.pickCommon(maleNames()).genitive;
    const Occupation& occupation = random.pickCommon(occupations());
    person.occupation = person.man ? occupation.man : occupation.woman;
    person.birth = world.today.addDays(-random.between(20 * 365, 80 * 365));
    const auto feast = world.nameDays.constFind(person.first);
    if (feast == world.nameDays.cend()) return;
    person.nameDay = QDate(world.today.year(), feast->month(), feast->day());
    // What the card's combo shows and stores: the name, three blanks, day and month.
    person.nameDayLine = person.first + u"   "_s + feast->toString(u"dd'/'MM"_s);
}

void drawAddress(Person& person, Random& random) {
    const Place& place = random.pickCommon(places());
    person.birthPlace = random.pickCommon(places()).town;
    person.town = place.town;
    person.district = place.district;
    person.postalCode = place.postalPrefix + digits(random, 2);
    person.street = streetAndNumber(random);
    if (random.chance(85)) person.home = landline(random, place.areaCode);
    if (random.chance(60)) person.work = landline(random, place.areaCode);
    if (random.chance(10)) person.secondHome = landline(random, place.areaCode);
    if (random.chance(10)) person.secondWork = landline(random, place.areaCode);
    if (random.chance(80) || person.home.isEmpty()) person.mobile = mobile(random);
    if (random.chance(15)) person.fax = landline(random, place.areaCode);
}

void drawCompany(Person& person, Random& random) {
    if (!random.chance(45)) return;
    const QString name = random.chance(30) ? person.last : random.pickCommon(surnames()).man;
    person.company = inOrder({random.pick(companyTrades()).arg(name), u" "_s, random.pick(companyForms())});
    if (person.company.size() > columnWidth) person.company = name;
    person.workStreet = streetAndNumber(random);
    if (!random.chance(30)) return;
    const QString url = u"www."_s + latinName(name) + u".example.com"_s;
    if (url.size() <= addressWidth) person.url = url;
}

void drawEmail(Person& person, Random& random, int number) {
    static const QVector<QString> hosts = {u"@example.com"_s, u"@example.org"_s, u"@example.net"_s};
    if (!random.chance(70)) return;
    const QString host = random.pick(hosts), first = latinName(person.first), last = latinName(person.last);
    const QString tail = (number > 500 ? QString::number(number) : QString()) + host;
    person.email = first + u'.' + last + tail;
    if (person.email.size() > addressWidth) person.email = first.left(1) + u'.' + last + tail;
    if (person.email.size() > addressWidth) person.email = last.left(addressWidth - tail.size()) + tail;
}

void drawBusiness(Person& person, Random& random, const World& world) {
    // Most are plain contacts and customers.
    static const QVector<int> shares = {1, 1, 1, 2, 2, 2, 2, 3, 4, 5};
    person.category = random.pick(shares);
    const bool customer = person.category != 1;
    if (customer || random.chance(20)) {
        person.taxNumber = taxNumber(random);
        person.taxOffice = random.pick(taxOffices());
        person.seller = random.pick(sellers());
        person.discount = random.below(5) * 5;
        person.creditLimit = random.between(1, 20) * 500;
        person.payment = random.pickCommon(lookupLists()[0].values);
        person.contract = world.today.addDays(-random.below(3 * 365));
    }
    person.source = random.pick(lookupLists()[1].values);
    person.newsletter = random.chance(40);
    person.invoices = customer && random.chance(70);
    if (random.chance(customer ? 45 : 10)) person.movements = makeMovements(random, world.today);
}

// A third is visited regularly; every eighth of these falls due within the week.
void drawVisits(Person& person, Random& random, const World& world) {
    static const QVector<int> frequencies = {30, 60, 90, 180, 365};
    if (!person.movements.isEmpty()) person.lastMovement = person.movements.last().day;
    if (!random.chance(33)) return;
    person.frequencyDays = random.pick(frequencies);
    person.amountDue = random.between(1, 30) * 10;
    if (random.chance(12))
        person.lastMovement = world.today.addDays(random.below(8) - int(person.frequencyDays));
    else if (person.lastMovement.isNull())
        person.lastMovement = world.today.addDays(-random.below(300));
}

QString paragraphs(Random& random, int sentences) {
    QString text;
    for (int i = 0; i < sentences; ++i) {
        if (i > 0) text += i % 3 == 0 ? u"\r\n"_s : u" "_s;
        text += random.pick(longNotes());
    }
    return text;
}

void drawTexts(Person& person, Random& random) {
    if (random.chance(25)) person.notes = random.pick(cardNotes());
    if (random.chance(8)) person.cardNotes = random.pick(cardNotes());
    if (random.chance(6)) person.longText = paragraphs(random, random.between(2, 12));
    if (random.chance(6)) person.preferences = paragraphs(random, random.between(1, 3));
    if (random.chance(15))
        person.recommendedBy = inOrder({random.pick(surnames()).man, u" "_s, random.pick(maleNames()).name});
}

}  // namespace

qint64 Person::balanceCents() const {
    qint64 balance = 0;
    for (const Movement& movement : movements) balance += movement.debitCents - movement.creditCents;
    return balance;
}

Person makePerson(const World& world, int number) {
    Random random(world.seed, purposePerson, quint64(number));
    Person person;
    drawName(person, random, world);
    drawAddress(person, random);
    drawCompany(person, random);
    drawEmail(person, random, number);
    drawBusiness(person, random, world);
    drawVisits(person, random, world);
    drawTexts(person, random);
    if (number < photosAmongFirst && number % photoEvery == 0) person.photo = portrait(random, person.man);
    return person;
}

}  // namespace demo
