#include "cards/journal.h"

#include "data/recordset.h"
#include "data/values/format.h"

using namespace Qt::Literals::StringLiterals;

namespace cards {

namespace {

// A piece is to take about this long.
constexpr double shortPieceMs = 5, longPieceMs = 12;
constexpr int mostDays = 92;  // behind a quiet year a busy one may begin
// When the days of the longer of two pieces cost less than this of those of the shorter, the cost isn't the days'.
constexpr double muchCheaper = 0.75;

// The day of the first or the last movement, not valid when there is none.
QDate outermostDay(data::Connection& connection, const QString& statement) {
    data::Recordset found(connection, statement);
    return found.field(0).toDate().date();
}

}  // namespace

QString journalStatement(const JournalFilter& filter, QDate from, QDate to) {
    using data::Sql;
    return Sql(
        u"SELECT History.ΗΜΕΡΟΜΗΝΙΑ, Cards.code, Cards.ΕΠΩΝΥΜΟ, Cards.ΟΝΟΜΑ, History.ΑΙΤΙΟΛΟΓΙΑ, "
        "History.ΧΡΕΩΣΗ, History.ΠΙΣΤΩΣΗ FROM Cards INNER JOIN History ON Cards.code = "
        "History.codecards where (ΗΜΕΡΟΜΗΝΙΑ between ? and ?) {and ΑΙΤΙΟΛΟΓΙΑ like ?} {and category=?} "
        "ORDER BY ΗΜΕΡΟΜΗΝΙΑ"_s,
        from, data::wallClock(to, QTime(23, 59, 59)),
        filter.reason.isEmpty() ? Sql::Value(std::nullopt) : Sql::inside(filter.reason), filter.category);
}

void PieceLength::took(double milliseconds) {
    const double day = milliseconds / days_;
    const bool unknown = daysBefore_ == 0;
    const bool longerPays = (days_ > daysBefore_ && day < dayBefore_ * muchCheaper) ||
                            (days_ < daysBefore_ && dayBefore_ < day * muchCheaper);
    daysBefore_ = days_;
    dayBefore_ = day;
    if (milliseconds < shortPieceMs || unknown || longerPays)
        days_ = std::min(days_ * 2, mostDays);
    else if (milliseconds > longPieceMs)
        days_ = std::max(int(days_ * longPieceMs / milliseconds), 1);
}

JournalReader::JournalReader(data::Connection& connection, const JournalFilter& filter)
    : connection_(connection), filter_(filter), next_(filter.from) {
    options_.accessPath = connection.accessPath(journalStatement(filter, filter.from, filter.to));
    if (options_.accessPath == data::AccessPath::WordIndex) return;
    // Centuries without a movement aren't walked through.
    next_ = std::max(filter.from, outermostDay(connection, u"select min(ΗΜΕΡΟΜΗΝΙΑ) from History"_s));
    filter_.to = std::min(filter.to, outermostDay(connection, u"select max(ΗΜΕΡΟΜΗΝΙΑ) from History"_s));
}

bool JournalReader::step() {
    if (next_ > filter_.to) return false;
    // A piece would look up the same words in the whole table as all of them together.
    const bool atOnce = options_.accessPath == data::AccessPath::WordIndex;
    QElapsedTimer clock;
    clock.start();
    const QDate last = atOnce ? filter_.to : std::min(next_.addDays(piece_.days() - 1), filter_.to);
    read(next_, last);
    next_ = last.addDays(1);
    piece_.took(double(clock.nsecsElapsed()) / 1e6);
    return next_ <= filter_.to;
}

void JournalReader::read(QDate from, QDate to) {
    QDateTime day;
    QString shownDay;
    for (data::Recordset rows(connection_, journalStatement(filter_, from, to), options_); !rows.eof();
         rows.moveNext()) {
        const QDateTime ofRow = rows.field(0).toDate();
        if (ofRow != day) {
            day = ofRow;
            shownDay = data::dayText(day);
        }
        const Money debit = Money::of(rows.field(5).toDouble()), credit = Money::of(rows.field(6).toDouble());
        debit_ += debit;
        credit_ += credit;
        rows_.append(
            {{shownDay, rows.field(2).text(), rows.field(3).text(), rows.field(4).text(), debit.text(), credit.text()},
             rows.field(1).toLong()});
    }
}

}  // namespace cards
