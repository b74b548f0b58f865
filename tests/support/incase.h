// Names the case at hand of those that a test function loops over:
//     for (const Case& c : cases) {
//         const support::InCase in(c.name);
#pragma once

#include <QTest>

namespace support {

// Lives as long as the case is under test, and names it behind what failed there.
class InCase {
public:
    explicit InCase(const QString& name) : name_(name), failedBefore_(QTest::currentTestFailed()) {}
    ~InCase() {
        if (std::uncaught_exceptions() || (QTest::currentTestFailed() && !failedBefore_))
            qWarning("in the case \"%s\"", qPrintable(name_.left(100)));
    }
    Q_DISABLE_COPY_MOVE(InCase)

private:
    const QString name_;
    const bool failedBefore_;
};

}  // namespace support
