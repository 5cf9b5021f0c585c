#pragma once

#include <cstdint>
#include <span>
#include <string_view>

/// What the clients and offices of a sample database are called.
namespace prot::sample {

/// Which fiscal years a client has.
enum class Years { calendar, summer, founded_2023, group, planned, none, as_it_falls };

/// Somebody whom every sample database knows.
struct KnownClient {
    std::int32_t number;
    std::string_view short_name, name;
    Years years = Years::as_it_falls;
    bool office = false;
    bool discarded = false;
};

std::span<const KnownClient> known_clients();

/// Parts of the names of all others.
std::span<const std::string_view> trades();
std::span<const std::string_view> families();
std::span<const std::string_view> company_forms();

}  // namespace prot::sample
