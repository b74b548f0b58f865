#include "main/frmrestore.h"

#include <QDir>
#include <QLocale>

#include "controls/layout.h"
#include "controls/theme.h"
#include "data/values/format.h"

using namespace Qt::Literals::StringLiterals;

namespace entry {

namespace {

const QVector<controls::ListColumn> columns = {{u"C1"_s, u"Ημερομηνία"_s, 1900},
                                               {u"C2"_s, u"Καρτέλες"_s, 1100, true},
                                               {u"C3"_s, u"Μέγεθος (KB)"_s, 1400, true},
                                               {u"C4"_s, u"Κατάσταση"_s, 4200}};

QStringList cellsOf(const core::ListedBackup& copy) {
    const QLocale greek(QLocale::Greek, QLocale::Greece);
    const bool good = copy.fault.isEmpty();
    return {data::format(copy.made, u"dd/mm/yyyy hh:nn"), good ? greek.toString(copy.cards) : QString(),
            greek.toString((copy.bytes + 1023) / 1024), good ? u"Καλό"_s : copy.fault};
}

}  // namespace

frmRestore::frmRestore(core::MainMod& mod, QWidget* parent, const QVector<core::ListedBackup>& copies)
    : Dialog(mod, parent, u"frmRestore"_s, u"Επαναφορά αντιγράφου"_s, u"restore"_s),
      copies_(copies),
      ListView1(new core::StoredList(mod.services.settings, u"ListView1"_s, u"Αντίγραφα ασφαλείας"_s, u"frmRestore"_s,
                                     columns)),
      commands_(mod, this,
                {{u"Command1"_s, {}, u"Επαναφορά"_s, {}, [this] { accept(); }, [this] { return isGood(); }},
                 {u"Command2"_s, {}, u"Κλείσιμο"_s, {}, [this] { reject(); }}}) {
    QVector<controls::ListRow> rows;
    for (int i = 0; i < copies_.size(); ++i) rows += {cellsOf(copies_[i]), i, {}};
    ListView1->setRows(rows);
    connect(ListView1->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { commands_.refresh(); });
    connect(ListView1, &controls::ListView::rowActivated, this, [this] { commands_.run(u"Command1"_s); });
    auto* about = new QLabel(
        copies_.isEmpty() ? u"Δεν υπάρχουν αντίγραφα ασφαλείας αυτού του γραφείου στον φάκελο αντιγράφων."_s
                          : u"Ελέγχθηκε κάθε αντίγραφο. Διαλέξτε ποιο θα πάρει τη θέση των τωρινών δεδομένων:"_s);
    about->setWordWrap(true);
    QPushButton *restore = commands_.button(u"Command1"_s), *close = commands_.button(u"Command2"_s);
    controls::add(controls::dialogLayout(this),
                  {about, {ListView1, 1}, controls::row({controls::Item::rest(), restore, close})});
    resize(controls::toPixels(9200), controls::toPixels(5200));
    for (int i = 0; i < copies_.size() && !isGood(); ++i) ListView1->selectRow(i);
    commands_.refresh();
}

bool frmRestore::isGood() const {
    const QVariant tag = ListView1->currentTag();
    return tag.isValid() && copies_[tag.toInt()].fault.isEmpty();
}

core::ListedBackup frmRestore::chosen() const {
    return copies_.value(ListView1->currentTag().toInt());
}

}  // namespace entry
