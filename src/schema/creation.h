// Making a new office.
#pragma once

#include <QString>
#include <optional>

#include "data/opening/serverdescription.h"

namespace schema {

// Creates both databases with their tables, indexes and default rows, the groups and the Admin password; the
// folder is made if it isn't there. Refuses (data::Error) a folder that holds either file already. On a failure no file
// stays behind. `reference` loads name days, medicines and dictionary terms from the delivered files.
struct NewOffice {
    QString adminPassword;
    QString referenceFolder;  // empty: no reference data
    // With a server, both databases are made there, in the schemas NAME and NAMEu of its description ("dorvalist" when
    // it names none), which must not hold tables yet; the two files say where they are. Its password isn't the files'
    // business unless it is given here.
    std::optional<data::ServerDescription> server = {};
};
void createOffice(const QString& folder, const NewOffice& options);

}  // namespace schema
