// The draft of one window under edit.
#pragma once

#include <QTimer>

#include "core/drafts.h"
#include "core/fieldwatch.h"

namespace core {

class MainMod;

class DraftKeeper : public Drafts::Writer {
public:
    // `describe` gives all but what is typed, whenever something is.
    DraftKeeper(MainMod& mod, QString window, FieldWatch& fields, std::function<Draft()> describe);
    ~DraftKeeper() override;  // leaves the file
    Q_DISABLE_COPY_MOVE(DraftKeeper)

    void write() override;              // when something differs
    void drop();                        // it is saved or given up
    void goOnWith(const Draft& draft);  // its file is this window's from here on

private:
    MainMod& mod_;
    const std::shared_ptr<Drafts::Writers> all_;
    const QString window_;
    FieldWatch& fields_;
    const std::function<Draft()> describe_;
    QTimer pause_;
    QString file_;
    QVariantMap written_;
};

}  // namespace core
