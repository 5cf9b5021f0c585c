#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "apps/protcsv/sample/sample_moments.h"

/// Who changes master data in a sample database, where, and with which application.
namespace prot::sample {

struct Author {
    std::string_view user;         ///< dcUser; begins with _UNBEKANNT_ when nobody was logged in
    std::string_view system_user;  ///< dcSystemUser, the database login
    std::int32_t employee;         ///< key for flMitarbeiter; 0 when nobody was logged in
    std::string_view workstation;  ///< dcWorkstation
    std::string_view application;  ///< dcApplication
};

/// All of them, some more than once with another workstation or application.
std::span<const Author> authors();

/// Who is likely to be at work at that moment: the unattended job at night, mostly people with a login by
/// day.
const Author& author_at(Moment moment, Random& random);

}  // namespace prot::sample
