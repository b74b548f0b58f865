#include "data/types.h"

using namespace Qt::Literals::StringLiterals;

namespace data {

AdoType adoType(ColumnType type) {
    switch (type) {
        case ColumnType::Autonumber:
            return AdoType::Integer;
        case ColumnType::Long:
            return AdoType::Integer;
        case ColumnType::Integer:
            return AdoType::SmallInt;
        case ColumnType::Single:
            return AdoType::Single;
        case ColumnType::Double:
            return AdoType::Double;
        case ColumnType::Text:
            return AdoType::VarWChar;
        case ColumnType::Memo:
            return AdoType::LongVarWChar;
        case ColumnType::YesNo:
            return AdoType::Boolean;
        case ColumnType::DateTime:
            return AdoType::Date;
        case ColumnType::LongBinary:
            return AdoType::LongVarBinary;
    }
    return AdoType::VarWChar;
}

QString nameKey(QStringView name) {
    // A capital sigma lowers to σ wherever it stands, so ς has to meet it.
    return name.toString().toLower().replace(QChar(u'ς'), QChar(u'σ'));
}

int TableInfo::indexOf(QStringView column) const {
    for (int i = 0; i < columns.size(); ++i)
        if (columns[i].name == column) return i;
    const QString key = nameKey(column);
    for (int i = 0; i < columns.size(); ++i)
        if (nameKey(columns[i].name) == key) return i;
    return -1;
}

const TableInfo* Catalog::find(QStringView table) const {
    const auto it = byName_.constFind(nameKey(table));
    return it == byName_.constEnd() ? nullptr : &tables_[*it];
}

void Catalog::add(TableInfo table) {
    const QString key = nameKey(table.name);
    const auto it = byName_.constFind(key);
    if (it != byName_.constEnd()) {
        tables_[*it] = std::move(table);
        return;
    }
    byName_.insert(key, int(tables_.size()));
    tables_.append(std::move(table));
}

void Catalog::clear() {
    tables_.clear();
    byName_.clear();
}

QString wordIndexName(const TableInfo& table) {
    return u'_' + table.name + u"_words"_s;
}

}  // namespace data
