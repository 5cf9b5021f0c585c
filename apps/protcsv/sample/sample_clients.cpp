#include "apps/protcsv/sample/sample_clients.h"

#include <algorithm>

namespace prot::sample {
namespace {

using std::chrono::year;

// clang-format off
constexpr Period all_periods[] = {
    {year{2022} / 1 / 1, year{2022} / 12 / 31},
    {year{2023} / 1 / 1, year{2023} / 12 / 31},
    {year{2024} / 1 / 1, year{2024} / 12 / 31},
    {year{2025} / 1 / 1, year{2025} / 12 / 31},
    {year{2026} / 1 / 1, year{2026} / 12 / 31},
    {year{2027} / 1 / 1, year{2027} / 12 / 31},
    {year{2023} / 7 / 1, year{2023} / 12 / 31},
    {year{2023} / 7 / 1, year{2024} /  6 / 30},
    {year{2024} / 7 / 1, year{2025} /  6 / 30},
    {year{2025} / 7 / 1, year{2026} /  6 / 30},
    {year{2026} / 7 / 1, year{2027} /  6 / 30},
};

struct YearRow {
    std::size_t period;  ///< among all_periods
    YearType type = YearType::ordinary;
    std::optional<std::string_view> designation = std::nullopt;
};
constexpr YearRow calendar_years[] = {{0}, {1}, {2}, {3}, {4}};
constexpr YearRow summer_years[] = {{7}, {8}, {9}, {10}};
constexpr YearRow young_years[] = {{6}, {2}, {3}, {4}};
constexpr YearRow group_years[] = {
    {1}, {2}, {3}, {4}, {2, YearType::group}, {3, YearType::group, "Teilkonzern Süd"},
};
constexpr YearRow planned_years[] = {
    {1}, {2}, {3}, {4}, {5, YearType::planned, "Planung Neubau"}, {5, YearType::planned}, {4, YearType::planned, ""},
};
// clang-format on

std::span<const YearRow> rows_of(Years years) {
    switch (years) {
        case Years::calendar:
            return calendar_years;
        case Years::summer:
            return summer_years;
        case Years::founded_2023:
            return young_years;
        case Years::group:
            return group_years;
        case Years::planned:
            return planned_years;
        case Years::none:
        case Years::as_it_falls:
            break;
    }
    return {};
}

/// Which fiscal years somebody has of whom nothing else is known.
Years any_years(Random& random) {
    const std::int64_t dice = random.below(100);
    if (dice < 55) return Years::calendar;
    if (dice < 75) return Years::summer;
    if (dice < 90) return Years::planned;
    return dice < 95 ? Years::group : Years::founded_2023;
}

constexpr const char* tables = R"(
CREATE TABLE Person_v4 (
    Ps_Id INTEGER PRIMARY KEY,
    Ps_Nr INTEGER,
    Ps_KurzName TEXT COLLATE NOCASE,
    Ps_Name TEXT COLLATE NOCASE,
    PS_USTIDFK TEXT COLLATE NOCASE,
    PS_ZUHAENDEN TEXT COLLATE NOCASE
);
CREATE TABLE Personalie (
    Pl_Id INTEGER PRIMARY KEY,
    Ps_Id INTEGER,
    Pl_Bezeichnung TEXT COLLATE NOCASE
);
CREATE TABLE Mandant_Zeit (
    MaZt_Id INTEGER PRIMARY KEY,
    Pl_Id INTEGER,
    MaZt_Kanzlei INTEGER,
    MaZt_Von DATETIME
);
CREATE TABLE Akten (
    Akt_Id INTEGER PRIMARY KEY,
    Ps_Id INTEGER,
    Akt_Papierkorb INTEGER
);
CREATE TABLE Zeitraum (
    Zt_Id INTEGER PRIMARY KEY,
    Zt_Von DATETIME,
    Zt_Bis DATETIME
);
CREATE TABLE Person_Wirtschaftsjahr (
    WJ_Id INTEGER PRIMARY KEY,
    Ps_Id INTEGER,
    Zt_Id INTEGER,
    dlWJTyp INTEGER,
    WJ_Bezeichnung TEXT COLLATE NOCASE
);
)";

constexpr const char* indexes = R"(
CREATE INDEX iPersonNr ON Person_v4 (Ps_Nr);
CREATE INDEX iPersonaliePerson ON Personalie (Ps_Id);
CREATE INDEX iMandantZeitPersonalie ON Mandant_Zeit (Pl_Id);
CREATE INDEX iAktenPerson ON Akten (Ps_Id);
CREATE INDEX iWirtschaftsjahrPerson ON Person_Wirtschaftsjahr (Ps_Id);
)";

// The keys of a client's rows lie apart, so that no key fits into a table that it does not belong to.
constexpr std::int32_t first_client_id = 4001;
constexpr std::int32_t personal_data_offset = 60'000;
constexpr std::int32_t file_offset = 120'000;
constexpr std::int32_t first_year_id = 200'001;

constexpr Field<Client> client_fields[] = {
    {"Ps_Id", [](const Client& client) { return std::to_string(client.id); }},
    {"Ps_Nr", [](const Client& client) { return std::to_string(client.number); }},
    {"Ps_KurzName", [](const Client& client) { return client.short_name; }},
    {"Ps_Name", [](const Client& client) { return client.name; }},
};

constexpr LoggedTable<Client> logged_clients = {
    "Person_v4", client_fields,
    [](const Client& client) { return LogKeys{.primary_key1 = client.id, .search_ids = {client.id}}; }};

constexpr std::int32_t last_known_number = 1300;
constexpr std::size_t clients_per_office = 100;
constexpr std::size_t clients_per_second_entry = 9;

constexpr int yes = -1, no = 0;

}  // namespace

LogRow log_row(const Occasion& occasion, const Client* before, const Client* after) {
    return log_row(logged_clients, occasion, before, after);
}

std::span<const Period> ClientBook::periods() { return all_periods; }

ClientBook::ClientBook(Random& random, std::int64_t rows) {
    for (const KnownClient& known : known_clients()) {
        const Years years = known.years == Years::as_it_falls ? any_years(random) : known.years;
        add({.number = known.number,
             .short_name = std::string(known.short_name),
             .name = std::string(known.name),
             .office = known.office,
             .discarded = known.discarded},
            years);
    }
    const auto count = static_cast<std::size_t>(std::min(fewest_clients + rows / 10, most_clients));
    std::int32_t number = last_known_number;
    while (clients_.size() < count) {
        number += static_cast<std::int32_t>(random.between(1, 3));
        add_any(number, random);
    }
}

/// One draw a statement: the order of draws within an expression differs between compilers.
void ClientBook::add_any(std::int32_t number, Random& random) {
    std::string name(random.pick(trades()));
    name.append(" ").append(random.pick(families()));
    Client client;
    client.number = number;
    client.short_name = name;
    client.name = name.append(" ").append(random.pick(company_forms()));
    client.office = clients_.size() % clients_per_office == 0;
    add(std::move(client), any_years(random));
}

void ClientBook::add(Client client, Years years) {
    client.id = first_client_id + static_cast<std::int32_t>(clients_.size());
    client.first_year = years_.size();
    for (const YearRow& row : rows_of(years))
        years_.push_back({first_year_id + static_cast<std::int32_t>(years_.size()), client.id, row.period,
                          row.type, row.designation});
    client.year_count = years_.size() - client.first_year;
    clients_.push_back(std::move(client));
}

Client& ClientBook::of_number(std::int32_t number) {
    return *std::ranges::find_if(
        clients_, [number](const Client& client) { return client.number == number && !client.office; });
}

std::span<const FiscalYear> ClientBook::years_of(const Client& client) const {
    return std::span(years_).subspan(client.first_year, client.year_count);
}

void ClientBook::write(SqliteFile& file) const {
    file.execute(tables);
    write_clients(file);
    write_years(file);
    file.execute(indexes);
}

/// Some clients have a second entry in the client register, from another day on.
void ClientBook::write_clients(SqliteFile& file) const {
    SqliteInsert person(file,
                        "INSERT INTO Person_v4 (Ps_Id, Ps_Nr, Ps_KurzName, Ps_Name) VALUES (?, ?, ?, ?)");
    SqliteInsert personal_data(file, "INSERT INTO Personalie VALUES (?, ?, ?)");
    SqliteInsert entry(file, "INSERT INTO Mandant_Zeit (Pl_Id, MaZt_Kanzlei, MaZt_Von) VALUES (?, ?, ?)");
    SqliteInsert dossier(file, "INSERT INTO Akten VALUES (?, ?, ?)");
    for (std::size_t index = 0; index < clients_.size(); ++index) {
        const Client& client = clients_[index];
        const std::int32_t personal_id = client.id + personal_data_offset;
        const int office = client.office ? yes : no;
        person.row(client.id, client.number, client.short_name, client.name);
        personal_data.row(personal_id, client.id, client.name);
        entry.row(personal_id, office, iso_text(Day(year{2015} / 1 / 1)));
        if (index % clients_per_second_entry == 0)
            entry.row(personal_id, office, iso_text(Day(year{2022} / 4 / 1)));
        dossier.row(client.id + file_offset, client.id, client.discarded ? yes : no);
    }
}

void ClientBook::write_years(SqliteFile& file) const {
    SqliteInsert period(file, "INSERT INTO Zeitraum VALUES (?, ?, ?)");
    for (std::size_t index = 0; index < std::size(all_periods); ++index)
        period.row(index + 1, iso_text(all_periods[index].first), iso_text(all_periods[index].last));
    SqliteInsert fiscal_year(file, "INSERT INTO Person_Wirtschaftsjahr VALUES (?, ?, ?, ?, ?)");
    for (const FiscalYear& each : years_)
        fiscal_year.row(each.id, each.client_id, each.period + 1, static_cast<int>(each.type),
                        each.designation);
}

}  // namespace prot::sample
