#include "core/customfields.h"

using namespace Qt::Literals::StringLiterals;

namespace core {

CustomFields::CustomFields(data::Connection& connection)
    : row_(connection, u"Select * from customfields where id=1"_s) {}

}  // namespace core
