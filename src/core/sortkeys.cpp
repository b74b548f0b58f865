#include "core/sortkeys.h"

using namespace Qt::Literals::StringLiterals;

namespace core {

namespace {

const std::pair<QString, QString MainMod::*> kept[] = {
    {u"SqlOrdr"_s, &MainMod::gSqlOrdr}, {u"SqlOrdr1"_s, &MainMod::gSqlOrdr1}, {u"SqlOrdr2"_s, &MainMod::gSqlOrdr2}};

}  // namespace

SortKeys SortKeys::ofAppointments(MainMod& mod) {
    return {mod,
            u"DateQuery"_s,
            {u"Day"_s, u"Start"_s, u"End"_s},
            {u"Subject"_s, u"Location"_s, u"Day"_s, u"Start"_s, u"end"_s}};
}

void SortKeys::load() {
    for (size_t i = 0; i < defaults_.size(); ++i)
        mod_.*kept[i].second = mod_.services.settings.value(section_, kept[i].first, defaults_[i]);
}

void SortKeys::click(int column) {
    if (column >= heads_.size()) return;
    mod_.gSqlOrdr2 = mod_.gSqlOrdr1;
    mod_.gSqlOrdr1 = mod_.gSqlOrdr;
    mod_.gSqlOrdr = heads_[column];
}

void SortKeys::store(const QString& section) {
    for (const auto& [key, value] : kept)
        mod_.services.settings.setValue(section.isEmpty() ? section_ : section, key, mod_.*value);
}

}  // namespace core
