// Alike cases in one test function: an array of structs, told apart by their member `name`, or `sql` where that says
// all.
#pragma once

#include <QtTest>

namespace support {

using namespace Qt::Literals::StringLiterals;

inline QString caseText(const char* utf8) {
    return QString::fromUtf8(utf8);
}
inline QString caseText(QStringView text) {
    return text.toString();
}

template <typename Case>
QString caseName(const Case& one) {
    if constexpr (requires { one.name; })
        return caseText(one.name);
    else if constexpr (requires { one.sql; })
        return caseText(one.sql);
    else
        return caseText(one.text);
}

// Lives as long as a case is under test, in a loop or a block of its own; its name follows the failure.
class InCase {
public:
    explicit InCase(const QString& name) : name_(name), failedBefore_(QTest::currentTestFailed()) {}
    ~InCase() {
        if (std::uncaught_exceptions() || (QTest::currentTestFailed() && !failedBefore_))
            qWarning().noquote() << "in the case" << name_.left(100);
    }
    Q_DISABLE_COPY_MOVE(InCase)

private:
    const QString name_;
    const bool failedBefore_;
};

// Runs `check` on one after the other, up to the first that fails or throws; its name follows the failure.
template <typename Cases, typename Check>
void forEach(const Cases& cases, Check check) {
    for (const auto& one : cases) {
        const InCase in(caseName(one));
        try {
            check(one);
        } catch (const std::exception& error) {
            QTest::qFail(error.what(), __FILE__, __LINE__);
        }
        if (QTest::currentTestFailed()) return;
    }
}

// For a collection of many: `fault` says what is wrong with one, "" for nothing. All that are wrong are told; gives
// their number.
template <typename Cases, typename Fault>
int countFaults(const Cases& cases, Fault fault) {
    int count = 0;
    for (const auto& one : cases) {
        QString found;
        try {
            found = fault(one);
        } catch (const std::exception& error) {
            found = QString::fromUtf8(error.what());
        }
        if (found.isEmpty()) continue;
        ++count;
        qWarning().noquote() << caseName(one) + u": "_s + found;
    }
    return count;
}

}  // namespace support
