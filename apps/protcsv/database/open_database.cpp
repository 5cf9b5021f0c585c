#include "apps/protcsv/database/open_database.h"

#include <utility>

#include "platform/portable/odbc/odbc_database.h"
#include "platform/portable/odbc/odbc_drivers.h"
#include "platform/portable/sqlite/sqlite_database.h"

namespace prot {

namespace {

bool only_reads(const Options& options) { return options.command != Command::delete_log || options.dry_run; }

std::unique_ptr<HostDatabase> open_file(const Options& options) {
    const auto access = only_reads(options) ? SqliteAccess::read_only : SqliteAccess::read_write;
    const auto reading = options.threads > 1 ? SqliteReading::ahead : SqliteReading::on_demand;
    return open_sqlite_database(options.database.file, access, reading);
}

OdbcCertificate certificate_of(const Options& options) {
    return options.trust_certificate ? OdbcCertificate::trusted : OdbcCertificate::checked;
}

}  // namespace

std::unique_ptr<HostDatabase> open_database(const Options& options) {
    if (!options.database.odbc) return open_file(options);
    OdbcSource source;
    source.connection = *options.database.odbc;
    complete(source.connection, driver_of(source.connection), certificate_of(options));
    source.access = only_reads(options) ? OdbcAccess::read_only : OdbcAccess::read_write;
    source.login_seconds = options.login_seconds;
    source.statement_seconds = options.statement_seconds;
    source.lock_seconds = options.lock_seconds;
    return open_odbc_database(std::move(source));
}

std::string_view encryption_of(const Options& options) {
    if (!options.database.odbc) return {};
    ConnectionString connection = *options.database.odbc;
    switch (complete(connection, driver_of(connection), certificate_of(options))) {
        case OdbcEncryption::asked_for:
            return "yes";
        case OdbcEncryption::turned_off:
            return "no";
        case OdbcEncryption::not_asked_for:
            return "not asked for";
        case OdbcEncryption::unnecessary:
            break;
    }
    return {};
}

}  // namespace prot
