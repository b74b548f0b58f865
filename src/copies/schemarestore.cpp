#include "copies/schemarestore.h"

#include <QFileInfo>

#include "data/error.h"
#include "data/postgres/pgengine.h"
#include "schema/databasefiles.h"

namespace copies {

using namespace Qt::Literals::StringLiterals;
using data::Error;
using data::ErrorCategory;

namespace {

// Before its first item the text sets up a session, in words that only a server of the tool's own age need know.
bool opensFirstItem(const QByteArray& line) {
    return line.startsWith("-- Name: ") || line.startsWith("-- Data for Name: ");
}

// Such a line is meant for a terminal.
bool isForTerminal(const QByteArray& line) {
    return line.startsWith("\\restrict ") || line.startsWith("\\unrestrict ");
}

constexpr char session[] =
    "SET LOCAL lock_timeout TO 0; SET LOCAL check_function_bodies TO off; SET LOCAL row_security TO off; SET LOCAL "
    "client_min_messages TO warning; SELECT pg_catalog.set_config('search_path', '', true)";

// Plays what a dump restores into an open transaction: "COPY ... FROM stdin;", the rows, "\.", other statements
// between.
class Player {
public:
    // In a function's body a line may look like the start of rows.
    Player(data::postgres::PgSchemaWork& work, bool hasRows) : work_(work), hasRows_(hasRows) {}

    void hear(const QByteArray& text) {
        qsizetype at = 0;
        for (qsizetype end; (end = text.indexOf('\n', at)) >= 0; at = end + 1) {
            line_ += QByteArrayView(text).sliced(at, end - at);
            endLine();
        }
        line_ += QByteArrayView(text).sliced(at);
    }
    // The section has ended.
    void end() {
        if (inRows_) throw Error(ErrorCategory::Corrupt, u"Το αντίγραφο τελειώνει στη μέση ενός πίνακα."_s);
        runStatements();
    }

private:
    static constexpr qsizetype piece = 1 << 20;

    void endLine() {
        if (inRows_)
            endRow();
        else if (inHead_)
            inHead_ = !opensFirstItem(line_);
        else if (hasRows_ && line_.startsWith("COPY ") && line_.endsWith(" FROM stdin;"))
            beginRows();
        else if (!isForTerminal(line_))
            statements_ += line_ + '\n';
        line_.clear();
    }
    void beginRows() {
        runStatements();
        work_.beginCopy(line_);
        inRows_ = true;
    }
    void endRow() {
        inRows_ = line_ != "\\.";
        if (inRows_) rows_ += line_ + '\n';
        if (inRows_ && rows_.size() < piece) return;
        work_.copyRows(rows_);
        rows_.clear();
        if (!inRows_) work_.endCopy();
    }
    void runStatements() {
        if (!statements_.trimmed().isEmpty()) work_.script(statements_);
        statements_.clear();
    }

    data::postgres::PgSchemaWork& work_;
    QByteArray line_, statements_, rows_;
    bool hasRows_, inHead_ = true, inRows_ = false;
};

}  // namespace

SchemaRestore::SchemaRestore(const data::ServerDescription& place, const RestoreOptions& options)
    : place_(place),
      options_(options),
      filling_(data::postgres::pgNameWith(place.schemaName(), u"_restoring"_s)),
      claim_(filled()) {
    claim_.claim(filling_);
    refuseUnlessFree(claim_);
}

SchemaRestore::~SchemaRestore() {
    if (mine_ && !kept_) data::postgres::dropPgDatabase(filled());
}

void SchemaRestore::refuseUnlessFree(data::postgres::PgSchemaWork& work) const {
    const QString name = place_.schemaName();
    if (!options_.force && work.hasObjects(name))
        throw Error(ErrorCategory::Constraint,
                    u"Το σχήμα «%1» του διακομιστή έχει ήδη πίνακες· δεν πειράχτηκε τίποτα."_s.arg(name));
    work.requireNobodyIn(name);
}

data::ServerDescription SchemaRestore::filled() const {
    data::ServerDescription server = place_;
    server.schema = filling_;
    return server;
}

// A dump can't be told another name for its schema. Whoever has that name gives it up inside the transaction, which
// nobody else sees.
void SchemaRestore::fill(const QString& dump, const QString& schemaOfDump) {
    const QString restoring = u"Επαναφορά του "_s + QFileInfo(dump).fileName();
    const GoOn goOn = [&] { return !options_.progress || options_.progress(restoring, 0); };
    data::postgres::PgSchemaWork work(filled());
    work.actAsOwnerOf(place_.schemaName());
    if (work.has(filling_)) work.drop(filling_);
    const QString hidden = data::postgres::pgNameWith(schemaOfDump, u"_hidden"_s);
    const bool nameTaken = work.has(schemaOfDump);
    if (nameTaken) work.rename(schemaOfDump, hidden);
    work.create(schemaOfDump);
    work.script(session);
    for (const QString& section : {u"pre-data"_s, u"data"_s, u"post-data"_s}) {
        Player player(work, section == u"data");
        readDump(
            options_.tools, dump, section, [&](const QByteArray& text) { player.hear(text); }, goOn);
        player.end();
    }
    work.rename(schemaOfDump, filling_);
    if (nameTaken) work.rename(hidden, schemaOfDump);
    work.commit();
    mine_ = true;
}

QString SchemaRestore::exchange(data::postgres::PgSchemaWork& work) {
    refuseUnlessFree(work);  // as oneself: a member sees more seats than the owner does
    const QString name = place_.schemaName();
    work.actAsOwnerOf(name);
    QString aside;
    if (work.hasObjects(name)) {
        const QString dated = u'_' + schema::stamp(options_.now);
        aside = data::postgres::pgNameWith(name, dated);
        for (int i = 2; work.has(aside); ++i) aside = data::postgres::pgNameWith(name, u"%1-%2"_s.arg(dated).arg(i));
        work.rename(name, aside);
    } else if (work.has(name)) {
        work.dropEmpty(name);
    }
    work.rename(filling_, name);
    work.renewFunctions(name);
    work.actAsMyself();
    return aside;
}

}  // namespace copies
