#include "data/sqlite/wordindex.h"

#include "data/dialect/enginedialect.h"

using namespace Qt::Literals::StringLiterals;

namespace data::sqlite {

using dialect::quotedIdentifier;
namespace {

using List = QByteArrayList;

List indexed(const List& columns, const QByteArray& row) {
    List out;
    for (const QByteArray& column : columns) out << "jet_wordtext(" + row + column + ')';
    return out;
}

std::pair<QString, QByteArray> trigger(const QString& name, const QByteArray& event, const QByteArray& table,
                                       const QByteArray& body) {
    return {name, "CREATE TRIGGER " + quotedIdentifier(name) + " AFTER " + event + " ON " + table + " BEGIN " + body +
                      " END"};
}

List quoted(const TableInfo& table, const QVector<int>& columns) {
    List names;
    for (const int column : columns) names << quotedIdentifier(table.columns[column].name);
    return names;
}

QByteArray adding(const TableInfo& table, const List& names) {
    return "INSERT INTO " + quotedIdentifier(wordIndexName(table)) + "(rowid," + names.join(',') + ") ";
}

}  // namespace

std::vector<std::pair<QString, QByteArray>> wordTriggers(const TableInfo& table, const QVector<int>& columns) {
    const List names = quoted(table, columns);
    const QString name = wordIndexName(table);
    const QByteArray index = quotedIdentifier(name), list = names.join(','), source = quotedIdentifier(table.name),
                     row = quotedIdentifier(table.rowIdentity);
    const QByteArray adds = adding(table, names) + "VALUES (new." + row + ',' + indexed(names, "new.").join(',') + ");";
    const QByteArray takes = "INSERT INTO " + index + '(' + index + ",rowid," + list + ") VALUES ('delete',old." + row +
                             ',' + indexed(names, "old.").join(',') + ");";
    return {trigger(name + u"_added"_s, "INSERT", source, adds), trigger(name + u"_deleted"_s, "DELETE", source, takes),
            trigger(name + u"_changed"_s, "UPDATE OF " + list, source, takes + ' ' + adds)};
}

QByteArray wordIndexScript(const TableInfo& table, const QVector<int>& columns) {
    const List names = quoted(table, columns);
    const QByteArray index = quotedIdentifier(wordIndexName(table));
    QByteArray script = "CREATE VIRTUAL TABLE " + index + " USING fts5(" + names.join(',') +
                        ", content='', detail=none, columnsize=0, tokenize='trigram case_sensitive 1');\n" +
                        adding(table, names) + "SELECT " + quotedIdentifier(table.rowIdentity) + ',' +
                        indexed(names, {}).join(',') + " FROM " + quotedIdentifier(table.name) + ";\n";
    for (const auto& [name, sql] : wordTriggers(table, columns)) script += sql + ";\n";
    return script;
}

// Each piece becomes the trigrams that it is made of; rows that hold them in another order are sorted out afterwards.
QString wordQuery(const std::vector<QStringList>& alternatives) {
    QStringList any;
    for (const QStringList& pieces : alternatives) {
        QStringList all;
        for (const QString& piece : pieces) {
            const QList<uint> points = piece.toUcs4();
            for (qsizetype i = 0; i + 3 <= points.size(); ++i) {
                QString trigram = QString::fromUcs4(reinterpret_cast<const char32_t*>(points.constData()) + i, 3);
                trigram = u'"' + trigram.replace(u'"', u"\"\""_s) + u'"';
                if (!all.contains(trigram)) all += trigram;
            }
        }
        constexpr qsizetype enough = 16;  // more only cost; those from the whole length tell most
        QStringList chosen;
        for (qsizetype i = 0; i < qMin(all.size(), enough); ++i)
            chosen += all[all.size() <= enough ? i : i * all.size() / enough];
        any += u'(' + chosen.join(u" AND "_s) + u')';
    }
    return any.join(u" OR "_s);
}

}  // namespace data::sqlite
