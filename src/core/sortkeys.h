// The three columns by which a list of the diary was sorted last, the newest choice first.
#pragma once

#include <array>

#include "core/mainmod.h"

namespace core {

// They are shared by all those lists, kept per section of the settings, and move with each click on a head; the lists'
// own order has never followed them.
class SortKeys {
public:
    // `heads` are the names by column; a click on a column behind the last one moves nothing.
    SortKeys(MainMod& mod, const QString& section, std::array<QString, 3> defaults, QStringList heads)
        : mod_(mod), section_(section), defaults_(std::move(defaults)), heads_(std::move(heads)) {}

    void load();
    void click(int column);
    void store(const QString& section = {});  // where they were read, unless said otherwise

    static SortKeys ofAppointments(MainMod& mod);

private:
    MainMod& mod_;
    QString section_;
    std::array<QString, 3> defaults_;
    QStringList heads_;
};

}  // namespace core
