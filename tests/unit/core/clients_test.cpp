#include "core/clients.h"

#include <gtest/gtest.h>

#include "tests/unit/support/fakes.h"
#include "tests/unit/support/statements.h"

namespace prot {
namespace {

using test::FakeDatabase;

constexpr const char* columns_of_list = "Person_v4.Ps_Id, Person_v4.Ps_nr, Person_v4.Ps_KurzName";

struct KindCase {
    ClientKind kind;
    const char* label;
    const char* condition;
    const char* found_by;
    bool single;
};
constexpr KindCase kinds[] = {
    {ClientKind::client, "Mandant", " AND (Mandant_Zeit.MaZt_Kanzlei = 0)", " = 0 ", true},
    {ClientKind::office, "Kanzlei", " AND (Mandant_Zeit.MaZt_Kanzlei = -1)", " <> 0 ", true},
    {ClientKind::all_clients, "Alle Mandanten", " AND (Mandant_Zeit.MaZt_Kanzlei = 0)", " <> 0 ", false},
    {ClientKind::all_offices, "Alle Kanzleien", " AND (Mandant_Zeit.MaZt_Kanzlei = -1)", " <> 0 ", false},
    {ClientKind::all, "Alle Mandanten/Kanzleien", "", " <> 0 ", false},
};

TEST(Clients, OfEachKindHaveALabelAndAConditionOfTheirOwn) {
    for (const KindCase& row : kinds) {
        SCOPED_TRACE(row.label);
        FakeDatabase oDBU;
        EXPECT_EQ(label_of(row.kind), row.label);
        EXPECT_EQ(is_single(row.kind), row.single);
        client_entries(oDBU, row.kind);
        client_ids(oDBU, row.kind, "Person_v4.Ps_Id");
        find_client(oDBU, row.kind, "4711");
        EXPECT_EQ(oDBU.statements,
                  (std::vector<std::string>{
                      "array: " + test::clients_statement(columns_of_list, row.condition, "Ps_nr"),
                      "array: " + test::clients_statement("Person_v4.Ps_Id", row.condition, "Ps_Id"),
                      "array: " + test::find_client_statement(row.found_by, "4711"),
                  }));
    }
}

class ClientLookups : public testing::Test {
protected:
    FakeDatabase oDBU;
    const std::string list =
        test::clients_statement(columns_of_list, " AND (Mandant_Zeit.MaZt_Kanzlei = 0)", "Ps_nr");
    const std::string ids = test::clients_statement("Person_v4.Ps_Id", "", "Ps_Id");
    const std::string find = test::find_client_statement(" = 0 ", "4711");
};

TEST_F(ClientLookups, AnEntryHasIdNumberAndShortName) {
    oDBU.answers[list] = {{std::int64_t{31}, std::int64_t{4711}, std::string("Maier")},
                          {std::int64_t{29}, std::int64_t{4712}, Value()}};
    const std::vector<Entry> entries = client_entries(oDBU, ClientKind::client);
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_EQ(entries[0].key, 31);
    EXPECT_EQ(entries[0].number, "4711");
    EXPECT_EQ(entries[0].text, "Maier");
    EXPECT_EQ(entries[1].key, 29);
    EXPECT_EQ(entries[1].text, "");
}

TEST_F(ClientLookups, IdsAreJoinedInTheServersOrder) {
    EXPECT_EQ(client_ids(oDBU, ClientKind::all, "Person_v4.Ps_Id"), "");
    oDBU.answers[ids] = {{std::int64_t{31}, std::int64_t{4711}}};
    EXPECT_EQ(client_ids(oDBU, ClientKind::all, "Person_v4.Ps_Id"), "31");
    oDBU.answers[ids] = {{std::int64_t{31}}, {std::int64_t{29}}, {std::int64_t{40}}};
    EXPECT_EQ(client_ids(oDBU, ClientKind::all, "Person_v4.Ps_Id"), "31, 29, 40");
}

TEST_F(ClientLookups, OneClientIsFoundByItsNumber) {
    EXPECT_FALSE(find_client(oDBU, ClientKind::client, "4711"));
    oDBU.answers[find] = {{std::int64_t{31}, std::string("Maier")},
                          {std::int64_t{32}, std::string("zweiter")}};
    const std::optional<Client> client = find_client(oDBU, ClientKind::client, "4711");
    ASSERT_TRUE(client);
    EXPECT_EQ(client->id, 31);
    EXPECT_EQ(client->number, "4711");
    EXPECT_EQ(client->short_name, "Maier");
}

TEST_F(ClientLookups, NothingIsReadBeyondTheColumnsOfAResult) {
    oDBU.answers[list] = {{std::int64_t{31}, std::int64_t{4711}}};
    oDBU.answers[ids] = {{}};
    oDBU.answers[find] = {{std::int64_t{31}}};
    EXPECT_THROW(client_entries(oDBU, ClientKind::client), AutomationError);
    EXPECT_THROW(client_ids(oDBU, ClientKind::all, "Person_v4.Ps_Id"), AutomationError);
    EXPECT_THROW(find_client(oDBU, ClientKind::client, "4711"), AutomationError);
}

}  // namespace
}  // namespace prot
