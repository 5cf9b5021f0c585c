#include <gmock/gmock.h>

#include "tests/unit/platform/database_contract/contract_fixture.h"

namespace prot {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using DatabaseContractValues = DatabaseContract;

std::string repeated(std::string_view part, std::size_t count) {
    std::string text;
    for (std::size_t i = 0; i < count; ++i) text += part;
    return text;
}

struct Stored {
    ColumnKind kind;
    Value value;
    const char* why;
};
const Stored stored_values[] = {
    {ColumnKind::integer, std::int64_t{0}, "nothing is a number, too"},
    {ColumnKind::integer, std::int64_t{2147483647}, "the largest id"},
    {ColumnKind::integer, std::int64_t{-2147483648}, "the smallest"},
    {ColumnKind::real, 0.1, "no finite binary number"},
    {ColumnKind::real, -1234567.8912345, "negative"},
    {ColumnKind::real, 1e-10, "near nothing"},
    {ColumnKind::real, 3.0, "a whole real stays a real"},
    {ColumnKind::date, Date{46024.0}, "midnight"},
    {ColumnKind::date, Date{46024.0 + 11045.0 / 86400}, "03:04:05"},
    {ColumnKind::date, Date{46024.0 + 86399.0 / 86400}, "the last second of a day"},
    {ColumnKind::date, Date{45351.5}, "29 February"},
    {ColumnKind::date, Date{2958465.0}, "the last day of all"},
    {ColumnKind::date, Date{1.0}, "the first day of all"},
    {ColumnKind::text, "", "the empty text, which is not Null"},
    {ColumnKind::text, " ", "a blank alone"},
    {ColumnKind::text, "Ende ", "a blank at the end"},
    {ColumnKind::text, "O'Brien \"x\" [y] % _", "characters that mean something in a statement"},
    {ColumnKind::text, "ÄÖÜäöüß € Łódź", "umlauts and others of two and three bytes"},
    {ColumnKind::text, "𝄞", "a character of four bytes"},
    {ColumnKind::text, "eins\r\nzwei\tdrei", "lines and tabs"},
    {ColumnKind::text, "007", "digits"},
    {ColumnKind::text, "2026-01-02", "a day's digits in a column of texts"},
    {ColumnKind::text, "NULL", "the word"},
    {ColumnKind::text, repeated("Währung ", 500), "longer than a short answer"},
    {ColumnKind::text, repeated("Übersicht ", 20000), "as long as a large change document"},
};

TEST_P(DatabaseContractValues, ComeBackAsTheyAreStored) {
    int number = 0;
    for (const auto& [kind, value, why] : stored_values) {
        SCOPED_TRACE(why);
        const std::string table = "V" + std::to_string(++number);
        make_table(table, {{"v", kind}}, {{value}});
        const Value alone = database().query_value("SELECT v FROM " + table);
        const RowSet rows = database().query_array("SELECT v FROM " + table);
        ASSERT_EQ(rows.rows(), 1U);
        const Value cell = rows.at(0, 0).value();
        if (kind != ColumnKind::date) {
            EXPECT_TRUE(alone == value);
            EXPECT_TRUE(cell == value);
            continue;
        }
        const double serial = std::get<Date>(value).serial;
        ASSERT_TRUE(std::holds_alternative<Date>(alone) && std::holds_alternative<Date>(cell));
        constexpr double tenth_of_a_second = 0.1 / 86400;
        EXPECT_NEAR(std::get<Date>(alone).serial, serial, tenth_of_a_second);
        EXPECT_NEAR(std::get<Date>(cell).serial, serial, tenth_of_a_second);
    }
}

TEST_P(DatabaseContractValues, AreNullWhereNothingIsStored) {
    for (const ColumnKind kind :
         {ColumnKind::integer, ColumnKind::real, ColumnKind::date, ColumnKind::text}) {
        const std::string table = "N" + std::to_string(static_cast<int>(kind));
        make_table(table, {{"v", kind}}, {{Value()}});
        EXPECT_TRUE(is_null(database().query_value("SELECT v FROM " + table)));
        EXPECT_TRUE(database().query_array("SELECT v FROM " + table).at(0, 0).is_null());
    }
}

TEST_P(DatabaseContractValues, KeepTheirTypeFromRowToRow) {
    const RowSet rows = database().query_array("SELECT id, name, amount, made FROM T ORDER BY id");
    ASSERT_EQ(rows.rows(), 3U);
    EXPECT_TRUE(rows.at(2, 0).is_null());
    EXPECT_EQ(rows.at(2, 1).value(), Value(2.5));
    EXPECT_EQ(rows.at(2, 2).value(), Value(-0.75)) << "behind a Null";
    EXPECT_EQ(rows.at(3, 0).type(), Cell::Type::date);
    EXPECT_EQ(rows.at(3, 1).type(), Cell::Type::date);
    EXPECT_TRUE(rows.at(3, 2).is_null());
    EXPECT_EQ(rows.at(0, 2).value(), Value(std::int64_t{3}));
}

TEST_P(DatabaseContractValues, OfAQueryAreTheFirstColumnOfTheFirstRow) {
    EXPECT_EQ(database().query_value("SELECT name, id FROM T ORDER BY id DESC"), Value("Drei"));
    EXPECT_EQ(database().query_value("SELECT id, name FROM T ORDER BY id"), Value(std::int64_t{1}));
    EXPECT_EQ(database().query_value("SELECT COUNT(*) FROM T"), Value(std::int64_t{3}));
    EXPECT_TRUE(is_null(database().query_value("SELECT id FROM T WHERE id = 4"))) << "no row";
    EXPECT_TRUE(is_null(database().query_value("SELECT MAX(id) FROM T WHERE id = 4"))) << "Null in a row";
}

TEST_P(DatabaseContractValues, ComeInTheOrderOfColumnsAndRows) {
    EXPECT_THAT(rows("SELECT name, id FROM T ORDER BY id DESC"), ElementsAre("Drei|3", "Zwei|2", "Müller|1"));
    EXPECT_THAT(rows("SELECT id FROM T ORDER BY made DESC, id"), ElementsAre("2", "1", "3"))
        << "Null is the smallest";
    const RowSet none = database().query_array("SELECT id, name FROM T WHERE id = 4");
    EXPECT_TRUE(none.empty());
    EXPECT_NO_THROW(none.require_columns(2));
}

TEST_P(DatabaseContractValues, OfManyRowsAreComplete) {
    const std::int64_t count = 700;
    make_table("Viele", {{"id", ColumnKind::integer}, {"name", ColumnKind::text}}, {});
    for (std::int64_t first = 0; first < count; first += 100) {
        std::string values;
        for (std::int64_t id = first; id < first + 100; ++id)
            values += (values.empty() ? "(" : ", (") + std::to_string(id) + ", " +
                      server().literal("Zeile " + std::to_string(id)) + ")";
        set_up("INSERT INTO Viele VALUES " + values);
    }
    const RowSet rows = database().query_array("SELECT id, name FROM Viele ORDER BY id DESC");
    ASSERT_EQ(rows.rows(), static_cast<std::size_t>(count));
    for (std::size_t row = 0; row < rows.rows(); ++row) {
        const std::int64_t id = count - 1 - static_cast<std::int64_t>(row);
        ASSERT_EQ(rows.at(0, row).value(), Value(id));
        ASSERT_EQ(rows.at(1, row).value(), Value("Zeile " + std::to_string(id)));
    }
}

TEST_P(DatabaseContractValues, OutliveLaterStatementsAndTheConnection) {
    auto connection = server().connect();
    const RowSet rows = connection->query_array("SELECT name FROM T ORDER BY id");
    connection->query_array("SELECT made, id FROM T ORDER BY id DESC");
    connection.reset();
    EXPECT_THAT(lines(rows), ElementsAre("Müller", "Zwei", "Drei"));
}

TEST_P(DatabaseContractValues, AreFoundByADateLiteralToTheSecond) {
    const Date moment{46024.0 + 43200.0 / 86400};
    make_table("D", {{"id", ColumnKind::integer}, {"made", ColumnKind::date}},
               {{std::int64_t{1}, add_seconds(moment, -1)},
                {std::int64_t{2}, moment},
                {std::int64_t{3}, add_seconds(moment, 1)},
                {std::int64_t{4}, Value()}});
    const struct {
        const char* comparison;
        std::vector<std::string> ids;
    } cases[] = {
        {"= ", {"2"}}, {">= ", {"2", "3"}}, {"> ", {"3"}}, {"<= ", {"1", "2"}}, {"< ", {"1"}},
    };
    for (const auto& [comparison, ids] : cases)
        EXPECT_EQ(rows("SELECT id FROM D WHERE made " + std::string(comparison) +
                       database().date_literal(moment) + " ORDER BY id"),
                  ids)
            << comparison;
    EXPECT_THAT(rows("SELECT id FROM D WHERE made BETWEEN " + database().date_literal(Date{46024.0}) +
                     " AND " + database().date_literal(add_seconds(Date{46025.0}, -1)) + " ORDER BY id"),
                ElementsAre("1", "2", "3"))
        << "a whole day";
}

TEST_P(DatabaseContractValues, AreFoundByTheWildcardForAnyCharacters) {
    make_table("W", {{"id", ColumnKind::integer}, {"name", ColumnKind::text}},
               {{std::int64_t{1}, "Kurs"},
                {std::int64_t{2}, "Ankurs"},
                {std::int64_t{3}, "Kursänderung"},
                {std::int64_t{4}, "Kur"},
                {std::int64_t{5}, Value()}});
    const std::string any = database().like_wildcard();
    const auto like = [&](const std::string& pattern) {
        return rows("SELECT id FROM W WHERE name LIKE '" + pattern + "' ORDER BY id");
    };
    EXPECT_THAT(like("Kurs" + any), ElementsAre("1", "3")) << "none is any, too";
    EXPECT_THAT(like(any + "kurs"), ElementsAre("1", "2")) << "letter case is ignored";
    EXPECT_THAT(like(any + "kurs" + any), ElementsAre("1", "2", "3"));
    EXPECT_THAT(like("K" + any + "g"), ElementsAre("3"));
    EXPECT_THAT(like(any + "x" + any), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Every, DatabaseContractValues, testing::ValuesIn(database_implementations()),
                         implementation_name);

}  // namespace
}  // namespace prot
