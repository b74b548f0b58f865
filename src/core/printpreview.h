// The preview that every print command shows first.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QSpinBox>

#include "core/commands.h"
#include "core/dialog.h"
#include "core/pageview.h"
#include "core/printjob.h"

namespace core {

// Enter prints, except on another button and in a box.
class PrintPreview : public Dialog {
    Q_OBJECT
public:
    // Draws the job for the paper that was used last. Throws what the drawing throws, PrintStopped when the user
    // stopped it.
    PrintPreview(MainMod& mod, QWidget* parent, const PrintJob& job);

    bool isDelivered() const { return delivered_; }  // printed, or written as PDF

private:
    QVector<Command> commands();
    QLayout* targetRow(QWidget* print);
    QLayout* viewRow();
    void wire();
    void listPrinters();
    void redraw();
    void showPage(int page);
    void changeZoom(bool larger);
    void print();
    void writePdf();
    void deliver(const QString& caption, const std::function<bool(const platform::PageStep&)>& work);

    PrintJob job_;
    platform::PageSetup setup_;
    std::shared_ptr<const platform::PrintDocument> document_;
    bool delivered_ = false;

    PageView* view_;
    QComboBox *printers_, *paper_, *orientation_, *zoom_;
    QSpinBox *copies_, *page_;
    QLabel* pageCount_;
    QCheckBox* direct_;
    Commands commands_;
};

}  // namespace core
