// Reports in bands: what stands at the head of the report, of each page and of each group, once for each row, and at
// the foot of each page. A report is data; where its texts lie on paper is worked out as it is drawn.
#pragma once

#include <QVector>

#include "core/mainmod.h"
#include "core/printheading.h"
#include "core/printjob.h"
#include "data/recordset.h"

namespace core {

constexpr double reportTextSize = 9;  // points

// A text at a place: `text` as it stands, followed by the value of `field`, a column of the rows or "page".
struct ReportItem {
    double x = 0, width = 100;  // in hundredths of the room between the margins
    QString text = {};
    QString field = {};
    platform::PrintFont font = {.size = reportTextSize};
    Qt::Alignment align = Qt::AlignLeft;
    // Goes on in further lines where it is too long, over as many pages as it takes; otherwise it is cut.
    bool grows = true;
};

// Beside each other; the next line begins below the longest. A line without any text takes no room.
using ReportLine = QVector<ReportItem>;

struct ReportBand {
    QVector<ReportLine> lines = {};
    double before = 0, after = 0;  // twips left free
    bool ruled = false;            // with a line below
};

struct Report {
    QString title = {};  // of the preview, not printed
    QString about = {};  // the surname that it is about, for the name of a file
    ReportBand head = {};
    ReportBand pageHead = {};   // on the first page below the report's
    ReportBand groupHead = {};  // again on each page that the group goes on
    ReportBand detail = {};
    ReportBand pageFoot = pageNumber();
    QString groupBy = {};  // the field whose change begins a group; the rows come in its order
    QStringList fields = {};
    QVector<QStringList> rows = {};

    static ReportBand pageNumber();  // "Σελίδα: 1" at the right
};

// The owner's four details below each other, those that there are, and a title.
ReportBand ownerBand(const OwnerDetails& owner, const QString& title = {});
ReportLine titleLine(const QString& title);

// The columns of a statement as fields of a report; a pattern is one of data::format.
struct ReportColumn {
    QString name;
    QString pattern = {};
};
void fillReport(Report& report, data::Recordset rows, const QVector<ReportColumn>& columns);

// A row stays on one page where that can hold it; what is longer goes on behind the page's break.
void drawReport(platform::Printer& printer, const Report& report, const PrintStep& step);

// By the road of every print command. True when printed.
bool printReport(MainMod& mod, QWidget* parent, const Report& report);

}  // namespace core
