// The preview that every print command shows first.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QSpinBox>

#include "core/mainmod.h"
#include "core/pageview.h"
#include "core/printjob.h"

class QHBoxLayout;
class QPushButton;
class QToolButton;

namespace core {

class PrintPreview : public QDialog {
    Q_OBJECT
public:
    // Draws the job for the paper that was used last. Throws what the drawing throws, PrintStopped when the user
    // stopped it.
    PrintPreview(MainMod& mod, QWidget* parent, const PrintJob& job);

    bool isDelivered() const { return delivered_; }  // printed, or written as PDF

protected:
    // Enter in a box moves on, on a page button presses it; anywhere else it prints.
    void keyPressEvent(QKeyEvent* event) override;

private:
    QHBoxLayout* targetRow();
    QHBoxLayout* viewRow();
    QToolButton* pageButton(const QString& name, const QString& icon, const QString& caption);
    QLabel* captionOf(const QString& caption, QWidget* field);
    void wire();
    void listPrinters();
    void redraw();
    void showPage(int page);
    void changeZoom(bool larger);
    void print();
    void writePdf();
    void deliver(const QString& caption, const std::function<bool(const platform::PageStep&)>& work);

    MainMod& mod_;
    PrintJob job_;
    platform::PageSetup setup_;
    std::shared_ptr<const platform::PrintDocument> document_;
    bool delivered_ = false;

    PageView* view_;
    QComboBox *printers_, *paper_, *orientation_, *zoom_;
    QSpinBox *copies_, *page_;
    QLabel* pageCount_;
    QPushButton *print_, *pdf_, *close_;
    QToolButton *first_, *previous_, *next_, *last_;
    QCheckBox* direct_;
};

}  // namespace core
