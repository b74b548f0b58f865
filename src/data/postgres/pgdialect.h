// Stored forms: a date is `timestamp(0)`, a flag `boolean`, a text `varchar(n)` or `text` with COLLATE "C". An
// autonumber is a `bigint` identity; a table without one gets the hidden column `_row`. Names that begin with `_` are
// no business of the catalog. A name over 63 bytes is cut, and its comment keeps the whole.
#pragma once

#include "data/dialect/enginedialect.h"

namespace data::postgres {

// Stored types: bigint identity (Autonumber), integer (Long), smallint (Integer), real (Single), double precision,
// varchar(n) (Text), text (Memo), boolean (YesNo), timestamp(0) (DateTime), bytea. Texts compare by their bytes.
// A table without an autonumber gets the hidden identity column "_row".
const dialect::EngineDialect& pgDialect();

// A name that is longer than the server keeps is cut and carries a hash of itself; its full form is the comment.
QByteArray pgName(QStringView name);

}  // namespace data::postgres
