// A long list read in pieces, so that its window stays alive meanwhile.
#pragma once

#include <QTimer>
#include <QWidget>
#include <functional>
#include <optional>

#include "core/mainmod.h"

namespace core {

// One reading at a time. What `step` throws as data::Error ends the reading in `failed`; anything else, and what `done`
// and `failed` throw, goes to the caller of start() or finishNow(), or ends in the window's error box.
class Pieces : public QObject {
    Q_OBJECT
public:
    struct Work {
        std::function<bool()> step;  // reads the next piece; false when there is none left
        std::function<void()> done;
        std::function<void(const data::Error&)> failed;
    };

    Pieces(MainMod& mod, QWidget* window);

    // Ends a reading under way without a word. The first milliseconds run at once, so that a short list never shows
    // an empty window.
    void start(Work work);
    // The rest at once; false after a failure.
    bool finishNow();
    void stop();
    bool isRunning() const { return work_.has_value(); }

private:
    bool readOn(int milliseconds);
    std::optional<Work> end();

    QWidget* window_;
    QTimer next_;
    std::optional<Work> work_;
};

}  // namespace core
