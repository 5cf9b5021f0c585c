#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/database.h"
#include "platform/forms/form.h"

/// Clients and offices: who the records of a section belong to.
namespace prot {

/// Whose records are meant. Each section has key numbers of its own for those that it offers.
enum class ClientKind { client, office, all_clients, all_offices, all };

/// Whether one client or office has to be named.
constexpr bool is_single(ClientKind kind) { return kind == ClientKind::client || kind == ClientKind::office; }

/// What the kind is called in front of a person.
std::string_view label_of(ClientKind kind);

/// One client or office.
struct Client {
    std::int32_t id = 0;  ///< Ps_Id; 0: none
    std::string number, short_name;
};

/// The client or office of that number (plain decimal text); nothing when there is none.
std::optional<Client> find_client(Database& oDBU, ClientKind kind, const std::string& number);

/// The ids of the clients or offices of a kind that are not in the waste basket, joined with ", "; empty when
/// there is none. columns: what the section's statement selects, Ps_Id first.
std::string client_ids(Database& oDBU, ClientKind kind, std::string_view columns);

/// What a person chooses from: the same clients or offices with number and short name, ordered by number.
std::vector<Entry> client_entries(Database& oDBU, ClientKind kind);

}  // namespace prot
