// Reference data that the program only reads: name days, medicines, dictionary terms.
#pragma once

#include <QString>
#include <QVector>

#include "data/connection.h"

namespace schema {

struct ReferenceKind {
    QString name;   // what the command line calls it; NAME.tsv is the delivered file
    QString table;  // filled column by column from the file's cells
    QString about;
};
const QVector<ReferenceKind>& referenceKinds();
const ReferenceKind* findReferenceKind(QStringView name);

struct LoadCounts {
    int added = 0;
    int alreadyThere = 0;  // rows of the file that the table had
};

// Loads a file of the form of the delivered ones. A bad line rejects the whole file: data::Error names the line and
// nothing is changed. `replace` empties the table first.
LoadCounts loadReference(data::Connection& connection, const ReferenceKind& kind, const QString& file,
                         bool replace = false);

// For an office of the version before: adds the name days that the delivered file got with `version` and that the table
// lacks, and tells how many. Rows that the office changed, deleted or added itself stay as they are, and an empty table
// stays empty. The file is compiled in, so that an upgrade needs nothing but the program. A transaction is the
// caller's.
int addNameDaysSince(data::Connection& connection, int version);

}  // namespace schema
