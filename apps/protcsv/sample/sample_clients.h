#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "apps/protcsv/sample/sample_client_names.h"
#include "apps/protcsv/sample/sample_records.h"
#include "platform/portable/sqlite/sqlite_file.h"

/// The clients and offices of a sample database and their fiscal years.
namespace prot::sample {

/// A client of the office, or one of its own offices.
struct Client {
    std::int32_t id = 0;      ///< Ps_Id
    std::int32_t number = 0;  ///< Ps_Nr; a client and an office may have the same
    std::string short_name, name;
    bool office = false;
    bool discarded = false;      ///< its file is in the waste basket
    std::size_t first_year = 0;  ///< of its fiscal years, which stand together
    std::size_t year_count = 0;
};

LogRow log_row(const Occasion& occasion, const Client* before, const Client* after);

struct Period {
    Day first, last;
};

enum class YearType { ordinary = 1, planned = 2, group = 4 };

struct FiscalYear {
    std::int32_t id;  ///< WJ_Id
    std::int32_t client_id;
    std::size_t period;  ///< among ClientBook::periods
    YearType type;
    std::optional<std::string_view> designation;  ///< without: NULL
};

/// All clients and offices. The first `busy_clients` of them have most of the open items.
class ClientBook {
public:
    ClientBook() = default;  ///< nobody

    /// rows: of the log to come; the more rows, the more clients, up to `most_clients`.
    ClientBook(Random& random, std::int64_t rows);

    static constexpr std::size_t busy_clients = 6;
    static constexpr std::int64_t fewest_clients = 45, most_clients = 20'000;

    std::span<const Client> clients() const { return clients_; }
    Client& of_number(std::int32_t number);  ///< a client, not an office
    std::span<const FiscalYear> years_of(const Client& client) const;

    static std::span<const Period> periods();

    /// Creates the tables and writes all of them.
    void write(SqliteFile& file) const;

private:
    void add(Client client, Years years);
    void add_any(std::int32_t number, Random& random);
    void write_clients(SqliteFile& file) const;
    void write_years(SqliteFile& file) const;

    std::vector<Client> clients_;
    std::vector<FiscalYear> years_;
};

}  // namespace prot::sample
