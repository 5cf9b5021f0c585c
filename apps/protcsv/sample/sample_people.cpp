#include "apps/protcsv/sample/sample_people.h"

#include <algorithm>
#include <span>

namespace prot::sample {
namespace {

constexpr std::string_view own = "";  // stands for the section's application
constexpr Author own_job = {};        // stands for the section's job

// The suite's own login is written in several letter cases: all of them are the standard user.
// clang-format off
constexpr Author all_authors[] = {
    // user                    database login              employee  workstation      application
    {"Sabine Weiß",            "QuvoSQLDBServer",           3, "KANZLEI-PC03",  "Stammdatenpflege"},
    {"Jürgen Müller",          "QuvoSQLDBServer",           5, "KANZLEI-PC05",  "Finanzbuchführung"},
    {"Annegret Krüger-Schäfer","QuvoSQLDBServer",           7, "EMPFANG-01",    own},
    {"Aylin Özdemir",          "QuvoSQLDBServer",           8, "NB-ÖZDEMIR",    own},
    {"Seán O'Brien",           "QuvoSQLDBServer",          11, "TERMINAL-02",   "Finanzbuchführung"},
    {"Björn Groß",             "QuvoSQLDBServer",          14, "KANZLEI-PC11",  "Jahresabschluss"},
    {"Sabine Weiß",            "QuvoSQLDBServer",           3, "HOMEOFFICE-03", own},
    {"_UNBEKANNT_",            "KANZLEI\\Administrator",    0, "SRV-DB01",      "SQL-Abfrage"},
    {"_UNBEKANNT_7",           "sa",                        0, "SRV-DB01",      "SQL-Abfrage"},
    {"_UNBEKANNT_QuvoService", "QUVOSQLDBSERVER",           0, "TERMINAL-01",   "Datenübernahme"},
    {"_UNBEKANNT_",            "quvosqldbserver",           0, "KANZLEI-PC05",  "Datenübernahme"},
    own_job,
};
// clang-format on

constexpr std::span<const Author> everyone(all_authors);

constexpr std::size_t logged_in = static_cast<std::size_t>(
    std::ranges::count_if(everyone, [](const Author& author) { return author.employee != 0; }));

}  // namespace

std::size_t author_count() { return everyone.size(); }

Author author(std::size_t number, const Programs& programs) {
    Author author = everyone[number];
    if (author.user.empty()) return programs.job;
    if (author.application == own) author.application = programs.application;
    return author;
}

Author author_at(Moment moment, Random& random, const Programs& programs) {
    if (is_night(moment)) return programs.job;
    const std::size_t others = everyone.size() - logged_in;
    const bool is_person = random.percent(85);
    const std::size_t number =
        static_cast<std::size_t>(random.below(static_cast<std::int64_t>(is_person ? logged_in : others)));
    return author(is_person ? number : logged_in + number, programs);
}

const Author& a_person() { return everyone.front(); }

std::int32_t any_employee(Random& random) {
    std::int32_t employee = 0;
    while (employee == 0) employee = random.pick(everyone).employee;
    return employee;
}

}  // namespace prot::sample
