#include "data/smallrows.h"

namespace data {

TextRows textRows(Engine& engine, const QByteArray& sql, const QVector<QVariant>& parameters) {
    TextRows sink;
    engine.query(sql, parameters, &sink);
    return sink;
}

}  // namespace data
