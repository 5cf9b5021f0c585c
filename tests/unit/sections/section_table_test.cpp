#include "sections/section_table.h"

#include <gtest/gtest.h>

#include "tests/unit/support/fakes.h"
#include "tests/unit/support/statements.h"

namespace prot {
namespace {

struct SectionRow {
    std::int32_t number;
    const char* name;
    const char* title;
    const char* file;
};
constexpr SectionRow expected[] = {
    {6, "open-items", "Offene Posten", "Prot_OffenePosten_20261115_100715.csv"},
    {8, "suppliers", "Lieferanten", "Prot_Lieferanten_20261115_100715.csv"},
    {9, "customers", "Kunden", "Prot_Kunden_20261115_100715.csv"},
    {10, "report-frameworks", "Auswertungsrahmen", "Prot_Auswertungs_Rahmen_20261115_100715.csv"},
    {15, "exchange-rates", "Devisenkurse", "Prot_Devisenkurse_20261115_100715.csv"},
};

TEST(SectionTable, NamesEachSectionAndRunsItsExporter) {
    const SectionTable table = section_table();
    ASSERT_EQ(table.size(), std::size(expected));
    for (std::size_t i = 0; i < table.size(); ++i) {
        SCOPED_TRACE(expected[i].title);
        EXPECT_EQ(table[i].number, expected[i].number);
        EXPECT_EQ(table[i].name, expected[i].name);
        EXPECT_EQ(table[i].title, expected[i].title);

        test::FakeHost host;
        test::FakeDatabase oDBU;
        Value para;
        const auto exporter = table[i].create(host.environment);
        // Client 7, for those that need one.
        oDBU.answers[test::find_client_statement(" = 0 ", "7")] = {
            {std::int64_t{4001}, std::string("Maier")}};
        exporter->psCommandline = "/autostart/mandant:7";
        exporter->gCSVAusgabe(oDBU, expected[i].number, "", {}, {}, 7, para);
        ASSERT_EQ(host.written.files.size(), 1U) << "the file that says that there is nothing";
        EXPECT_EQ(host.written.files[0].name, expected[i].file);
    }
}

}  // namespace
}  // namespace prot
