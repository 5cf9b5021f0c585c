#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/database.h"
#include "platform/forms/form.h"

/// Clients and offices: who an open item belongs to.
namespace prot::open_items {

/// The keys of the form's kind list.
enum class ClientKind : std::int64_t { client = 1, office = 2, all = 3 };

/// What the kind is called in front of a person.
std::string_view label_of(ClientKind kind);

/// One client or office.
struct Client {
    std::int32_t id = 0;  ///< Ps_Id; 0: none
    std::string number, short_name;
};

/// The client or office of that number (plain decimal text); nothing when there is none.
std::optional<Client> find_client(Database& oDBU, ClientKind kind, const std::string& number);

/// The ids of all clients or offices, of both for `all`, joined with ", ".
std::string msMandantId(Database& oDBU, ClientKind kind);

/// What a person chooses from: the same clients or offices with number and short name, ordered by number.
std::vector<Entry> client_entries(Database& oDBU, ClientKind kind);

}  // namespace prot::open_items
