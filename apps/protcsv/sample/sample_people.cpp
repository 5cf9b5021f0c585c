#include "apps/protcsv/sample/sample_people.h"

#include <algorithm>

namespace prot::sample {
namespace {

// The suite's own login is written in several letter cases: all of them are the standard user.
// clang-format off
constexpr Author all_authors[] = {
    // user                    database login              employee  workstation      application
    {"Sabine Weiß",            "QuvoSQLDBServer",           3, "KANZLEI-PC03",  "Stammdatenpflege"},
    {"Jürgen Müller",          "QuvoSQLDBServer",           5, "KANZLEI-PC05",  "Finanzbuchführung"},
    {"Annegret Krüger-Schäfer","QuvoSQLDBServer",           7, "EMPFANG-01",    "Devisenverwaltung"},
    {"Aylin Özdemir",          "QuvoSQLDBServer",           8, "NB-ÖZDEMIR",    "Devisenverwaltung"},
    {"Seán O'Brien",           "QuvoSQLDBServer",          11, "TERMINAL-02",   "Finanzbuchführung"},
    {"Björn Groß",             "QuvoSQLDBServer",          14, "KANZLEI-PC11",  "Jahresabschluss"},
    {"Sabine Weiß",            "QuvoSQLDBServer",           3, "HOMEOFFICE-03", "Devisenverwaltung"},
    {"_UNBEKANNT_",            "KANZLEI\\Administrator",    0, "SRV-DB01",      "SQL-Abfrage"},
    {"_UNBEKANNT_7",           "sa",                        0, "SRV-DB01",      "SQL-Abfrage"},
    {"_UNBEKANNT_QuvoService", "QUVOSQLDBSERVER",           0, "TERMINAL-01",   "Datenübernahme"},
    {"_UNBEKANNT_",            "quvosqldbserver",           0, "KANZLEI-PC05",  "Datenübernahme"},
    {"_UNBEKANNT_Kursimport",  "svc_kursimport",            0, "SRV-JOBS",      "Kursimport"},
};
// clang-format on

constexpr std::span<const Author> everyone(all_authors);

constexpr std::size_t logged_in = static_cast<std::size_t>(
    std::ranges::count_if(everyone, [](const Author& author) { return author.employee != 0; }));

}  // namespace

std::span<const Author> authors() { return everyone; }

const Author& author_at(Moment moment, Random& random) {
    if (is_night(moment)) return everyone.back();
    const auto people = everyone.first(logged_in);
    const auto others = everyone.subspan(logged_in);
    return random.percent(85) ? random.pick(people) : random.pick(others);
}

}  // namespace prot::sample
