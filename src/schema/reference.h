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

}  // namespace schema
