#pragma once

#include <cstddef>
#include <cstdint>
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

/// The programs by which the records of a section are changed, besides those that change everything.
struct Programs {
    std::string_view application;  ///< what people use
    Author job;                    ///< what works unattended, at night and now and then by day
};

/// How many authors there are, some more than once with another workstation or application.
std::size_t author_count();

/// One of them.
Author author(std::size_t number, const Programs& programs);

/// Who is likely to be at work at that moment: the unattended job at night, mostly people with a login by
/// day.
Author author_at(Moment moment, Random& random, const Programs& programs);

/// Somebody with a login.
const Author& a_person();
std::int32_t any_employee(Random& random);

}  // namespace prot::sample
