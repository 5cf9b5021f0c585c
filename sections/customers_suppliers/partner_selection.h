#pragma once

#include <cstdint>
#include <string>

#include "core/clients.h"
#include "platform/database.h"
#include "sections/customers_suppliers/ledger.h"

/// Which log rows belong to the customers or suppliers of a filter: their own, those of the person behind
/// each, and those of what is linked to it.
namespace prot::customers_suppliers {

struct Filter {
    double mdVonNr = 0, mdBisNr = 0;
    std::int32_t mlMandantId = 0;  ///< person id of the client or office; below 1: none
    ClientKind mlMandantModus = ClientKind::client;
};

/// The condition that completes the main log query. It reads two temporary tables of the connection, which
/// sTempSQL, a batch, fills anew. Both concern the same connection, the batch first.
std::string msWHERE4809(const Ledger& ledger, const Filter& filter, Database& oDBU, std::string& sTempSQL);

/// The same condition without temporary tables.
std::string msWHERE(const Ledger& ledger, const Filter& filter, Database& oDBU);

/// The person ids of all clients, or all offices, joined with ", "; empty when there is none.
std::string msMandantId(ClientKind mlMandantModus, Database& oDBU);

}  // namespace prot::customers_suppliers
