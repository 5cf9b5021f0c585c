#pragma once

#include <optional>
#include <ostream>
#include <string>

#include "core/section_table.h"
#include "tests/unit/support/fakes.h"

namespace prot {

/// How gtest names a section that fails; its bytes would differ from run to run.
inline void PrintTo(const Section& section, std::ostream* out) { *out << section.name; }

}  // namespace prot

namespace prot::test {

/// The filter form of a section as a person sees it first, over a database in which nothing is found; nothing
/// when it is not shown. It is that of a deletion, which offers the most. Its functions are not to be called.
inline std::optional<Form> shown_form(const Section& section) {
    FakeHost host;
    std::optional<Form> shown;
    host.person = [&shown](Form& form) {
        shown = form;
        form.cancel.click();
    };
    FakeDatabase database;
    Value spare;
    const auto exporter = section.create(host.environment);
    exporter->pbLoeschen = true;
    exporter->gCSVAusgabe(database, section.number, "", {}, {}, 7, spare);
    return shown;
}

/// The section's name as a test's name may have it.
inline std::string test_name(const Section& section) {
    std::string name(section.name);
    for (char& letter : name)
        if (letter == '-') letter = '_';
    return name;
}

}  // namespace prot::test
