#include "data/rowfinder.h"

#include <cmath>
#include <cstring>

#include "data/error.h"
#include "data/values/fold.h"

using namespace Qt::Literals::StringLiterals;

namespace data {
namespace {

// Reads a criterion from left to right.
class CriterionReader {
public:
    CriterionReader(QStringView text, DateOrder order) : text_(text), order_(order) {}

    FindCriterion read() {
        FindCriterion criterion;
        criterion.column = readColumn();
        criterion.op = readOperator();
        criterion.value = readValue();
        skipBlanks();
        if (at_ < text_.size()) fail(u"το τέλος του κριτηρίου"_s);
        return criterion;
    }

private:
    [[noreturn]] void fail(const QString& expected) const {
        throw Error(
            ErrorCategory::Syntax,
            u"Το κριτήριο αναζήτησης δεν είναι σωστό στον χαρακτήρα %1: περίμενα %2."_s.arg(at_ + 1).arg(expected),
            text_.toString());
    }

    void skipBlanks() {
        while (at_ < text_.size() && text_[at_].isSpace()) ++at_;
    }

    QString readColumn() {
        skipBlanks();
        if (at_ < text_.size() && text_[at_] == u'[') {
            const qsizetype end = text_.indexOf(u']', at_);
            if (end < 0) fail(u"«]»"_s);
            const QString name = text_.mid(at_ + 1, end - at_ - 1).toString();
            at_ = end + 1;
            return name;
        }
        const qsizetype start = at_;
        while (at_ < text_.size() && (text_[at_].isLetterOrNumber() || text_[at_] == u'_')) ++at_;
        if (at_ == start) fail(u"όνομα πεδίου"_s);
        return text_.mid(start, at_ - start).toString();
    }

    FindOperator readOperator() {
        static const struct {
            QStringView text;
            FindOperator op;
        } operators[] = {
            {u"<>", FindOperator::NotEqual}, {u"<=", FindOperator::LessOrEqual}, {u">=", FindOperator::GreaterOrEqual},
            {u"=", FindOperator::Equal},     {u"<", FindOperator::Less},         {u">", FindOperator::Greater},
            {u"like", FindOperator::Like}};
        skipBlanks();
        for (const auto& [word, op] : operators) {
            if (!text_.mid(at_).startsWith(word, Qt::CaseInsensitive)) continue;
            at_ += word.size();
            return op;
        }
        fail(u"σύγκριση (=, <>, <, <=, >, >=, LIKE)"_s);
    }

    QVariant readValue() {
        skipBlanks();
        if (at_ >= text_.size()) fail(u"τιμή"_s);
        const QChar first = text_[at_];
        if (first == u'\'' || first == u'"') return readQuoted(first);
        if (first == u'#') return readDate();
        const QStringView word = text_.mid(at_).trimmed();
        at_ = text_.size();
        if (word.compare(u"null", Qt::CaseInsensitive) == 0) return {};
        if (word.compare(u"true", Qt::CaseInsensitive) == 0) return true;
        if (word.compare(u"false", Qt::CaseInsensitive) == 0) return false;
        // A point is the dialect's decimal sign, a comma the user's.
        bool ok = false;
        const double number = word.toString().replace(u',', u'.').toDouble(&ok);
        if (ok && std::isfinite(number)) return number;
        at_ -= word.size();
        fail(u"αριθμό, κείμενο σε εισαγωγικά ή ημερομηνία"_s);
    }

    QString readQuoted(QChar quote) {
        QString value;
        for (++at_; at_ < text_.size(); ++at_) {
            if (text_[at_] == quote) {
                if (at_ + 1 >= text_.size() || text_[at_ + 1] != quote) {
                    ++at_;
                    return value;
                }
                ++at_;
            }
            value += text_[at_];
        }
        fail(u"εισαγωγικό που κλείνει"_s);
    }

    QDateTime readDate() {
        const qsizetype end = text_.indexOf(u'#', at_ + 1);
        const auto date = end < 0 ? std::nullopt : parseDate(text_.mid(at_ + 1, end - at_ - 1), order_);
        if (!date) fail(u"ημερομηνία ανάμεσα σε #"_s);
        at_ = end + 1;
        return *date;
    }

    QStringView text_;
    DateOrder order_;
    qsizetype at_ = 0;
};

QByteArray foldedUtf8(const QString& text) {
    const QByteArray utf8 = text.toUtf8();
    return foldUtf8(utf8.constData(), utf8.size());
}

qsizetype characterSize(const char* at, const char* end) {
    qsizetype size = 1;
    while (at + size < end && (static_cast<unsigned char>(at[size]) & 0xC0) == 0x80) ++size;
    return size;
}

// The value as a number that cells of the column compare with.
double numberFor(const QVariant& value, const ColumnInfo& column) {
    const auto misfit = [&column] {
        return Error(ErrorCategory::Type, u"Η τιμή της αναζήτησης δεν ταιριάζει με το πεδίο «%1»."_s.arg(column.name));
    };
    if (value.typeId() == QMetaType::QDateTime) return double(dateToSeconds(value.toDateTime()));
    if (value.typeId() == QMetaType::QString) {
        if (column.type == ColumnType::DateTime) {
            if (const auto date = parseDate(value.toString())) return double(dateToSeconds(*date));
        } else if (const auto number = parseNumber(value.toString())) {
            return *number;
        }
        throw misfit();
    }
    if (value.typeId() == QMetaType::Bool)
        return column.type == ColumnType::YesNo ? value.toBool() : -int(value.toBool());
    if (column.type == ColumnType::YesNo) return value.toDouble() != 0;
    return column.type == ColumnType::DateTime ? value.toDouble() * 86400 : value.toDouble();
}

}  // namespace

FindCriterion parseCriterion(const QString& text, DateOrder order) {
    return CriterionReader(text, order).read();
}

bool matchesPattern(const char* text, qsizetype size, const QByteArray& pattern) {
    const char *t = text, *textEnd = text + size, *p = pattern.constData(), *patternEnd = p + pattern.size();
    const char *retryText = nullptr, *retryPattern = nullptr;
    while (t < textEnd) {
        if (p < patternEnd && *p == '%') {
            retryPattern = ++p;
            retryText = t;
        } else if (p < patternEnd && *p == '_') {
            ++p;
            t += characterSize(t, textEnd);
        } else if (p < patternEnd && *p == *t) {
            ++p;
            ++t;
        } else if (retryPattern) {  // the last % takes one character more
            retryText += characterSize(retryText, textEnd);
            t = retryText;
            p = retryPattern;
        } else {
            return false;
        }
    }
    while (p < patternEnd && *p == '%') ++p;
    return p == patternEnd;
}

CellMatcher::CellMatcher(const FindCriterion& criterion, const ColumnInfo& column)
    : op_(criterion.op), type_(column.type) {
    null_ = !criterion.value.isValid();
    if (null_) return;
    if (isText(type_) || op_ == FindOperator::Like) {
        folded_ = foldedUtf8(valueText(criterion.value));
        return;
    }
    number_ = numberFor(criterion.value, column);
    isWhole_ = std::fabs(number_) < 9e15 && number_ == std::floor(number_);
    if (isWhole_) whole_ = qint64(number_);
}

bool CellMatcher::holds(int comparison) const {
    switch (op_) {
        case FindOperator::Equal:
            return comparison == 0;
        case FindOperator::NotEqual:
            return comparison != 0;
        case FindOperator::Less:
            return comparison < 0;
        case FindOperator::LessOrEqual:
            return comparison <= 0;
        case FindOperator::Greater:
            return comparison > 0;
        case FindOperator::GreaterOrEqual:
            return comparison >= 0;
        case FindOperator::Like:
            break;
    }
    return false;
}

bool CellMatcher::matchesText(const Cell& cell) {
    const char* bytes = cell.bytes;
    qsizetype size = cell.size;
    QByteArray written;
    if (cell.kind != CellKind::Text) {
        written = valueText(cellValue(cell, type_)).toUtf8();
        bytes = written.constData();
        size = written.size();
    }
    if (scratch_.size() < size * 3 / 2) scratch_.resize(size * 3 / 2);
    char* const folded = scratch_.data();
    const qsizetype length = foldUtf8Into(bytes, size, folded);
    if (op_ == FindOperator::Like) return matchesPattern(folded, length, folded_);
    const int common = std::memcmp(folded, folded_.constData(), std::min(length, folded_.size()));
    return holds(common != 0 ? common : length < folded_.size() ? -1 : length > folded_.size());
}

bool CellMatcher::matches(const Cell& cell) {
    if (null_ || cell.kind == CellKind::Null) {
        if (null_ && op_ == FindOperator::Equal) return cell.kind == CellKind::Null;
        return null_ && op_ == FindOperator::NotEqual && cell.kind != CellKind::Null;
    }
    if (isText(type_) || op_ == FindOperator::Like) return matchesText(cell);
    if (cell.kind == CellKind::Integer && isWhole_) return holds(cell.integer < whole_ ? -1 : cell.integer > whole_);
    const double number = cell.kind == CellKind::Integer ? double(cell.integer)
                          : cell.kind == CellKind::Real  ? cell.real
                                                         : std::nan("");
    if (std::isnan(number)) return false;
    return holds(number < number_ ? -1 : number > number_);
}

}  // namespace data
