// The frame of a child window inside the main window.
#pragma once

#include <QMdiSubWindow>
#include <functional>

#include "core/form.h"

namespace entry {

class FormFrame : public QMdiSubWindow {
    Q_OBJECT
public:
    // `close` unloads the form; it is called when the user closes the frame.
    FormFrame(core::Form* form, std::function<void()> close);
    core::Form* form() const { return form_; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    core::Form* form_;
    std::function<void()> close_;
};

}  // namespace entry
