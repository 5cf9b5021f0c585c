#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "core/event_names.h"
#include "sections/report_frameworks/ProtAuswCsvClass.h"
#include "sections/report_frameworks/framework_selection.h"
#include "tests/unit/support/fakes.h"
#include "tests/unit/support/statements.h"

namespace prot::report_frameworks {

using test::Row;
using Lines = std::vector<std::vector<std::string>>;
using Statements = std::vector<std::string>;

inline const Date moment = to_date(CivilTime{2026, 3, 5, 14, 7, 9});
inline const std::string known_charts =
    "SELECT KR_Id, KR_Bezeichnung FROM Kontenrahmen ORDER BY KR_Bezeichnung";
inline const std::string section =
    "SELECT dcLogTable FROM tSysQuvoLogSections WHERE IDSysQuvoLogSections = 10";
inline const std::string deleted_frameworks_of_all_types =
    "SELECT dmData FROM tProtokoll WHERE dcTable = 'AuswertungsRahmen' AND dlEvent = 2 AND dlSuchId2 = -1 "
    "AND dlSuchId3 = 0 ORDER BY ddDatum ASC";

/// Whole exports of a log of line kinds.
class FrameworkExport : public testing::Test {
protected:
    test::FakeHost host;
    test::FakeDatabase oDBU;
    ProtAuswCsvClass exporter{host.environment};
    Value para;

    FrameworkExport() {
        fill_event_names();
        oDBU.answers[section] = {{std::string("tProtokoll")}};
        oDBU.answers[known_charts] = {{std::int64_t{61}, std::string("SKR 03")}};
        oDBU.answers["SELECT ARa_Bezeichnung FROM AuswertungsRahmen WHERE ARa_Id = 71"] = {
            {std::string("Bilanz HGB")}};
        oDBU.answers["SELECT Za_Bezeichnung FROM Zeilenart WHERE Za_Id = 31"] = {{std::string("Aktiva")}};
        oDBU.answers["SELECT [Ad_Id] FROM [AUSWERTUNGSDICHTE] WHERE [ARa_Id] = 71"] = {{std::int64_t{51}}};
        oDBU.answers["SELECT Ad_Bezeichnung FROM AuswertungsDichte WHERE Ad_Id = 51"] = {
            {std::string("fein")}};
        for (const char* column : {"ZA_BEZEICHNUNG", "ZA_ART", "ZA_MEMO", "ZA_FARBE"})
            oDBU.answers[test::caption_statement("ZEILENART", column)] = {{std::string("Feld ") + column}};
        host.documents["one"] = {{"ZA_ART", "1", "2"}};
        host.documents["three"] = {
            {"ZA_BEZEICHNUNG", "Aktiva", "Passiva"}, {"ZA_ART", "", "2"}, {"ZA_FARBE", "rot", "NULL"}};
        host.documents["memo"] = {{"ZA_MEMO", "_MEMO_", "_memo_"}};
    }
    static std::string select(const Filter& filter) {
        return "SELECT idProtokoll, dcTable, dcWorkstation, dcUser, ddDatum, dlEvent, dmData, dcSystemUser, "
               "dcApplication, dlPrimaryKey1, dlSuchId1,  dlSuchId2,  dlSuchId3,  dlSuchId4 FROM tProtokoll "
               "WHERE " +
               msWHERE(filter, framework_ids(filter), false) + " ORDER BY ddDatum";
    }
    static Row row(const std::string& document, std::int64_t event = 1, const Value& date = moment) {
        return {std::int64_t{900},
                std::string("ZEILENART"),
                std::string("WS-07"),
                std::string("Müller"),
                date,
                event,
                document,
                std::string("sa"),
                std::string("Auswertungen"),
                std::int64_t{31},
                std::int64_t{71},
                std::int64_t{3003},
                std::int64_t{3004},
                std::int64_t{3005}};
    }
    void log(std::vector<Row> rows, const Filter& filter = {}) {
        oDBU.answers[select(filter)] = std::move(rows);
    }
    void run(const std::string& parameters = "/autostart") {
        exporter.psCommandline = parameters;
        exporter.gCSVAusgabe(oDBU, 10, "", {}, {}, 7, para);
    }
    /// The person chooses entries of the form by their texts.
    static std::function<void(Form&)> choosing(std::vector<std::pair<const char*, std::string>> choices) {
        return [choices = std::move(choices)](Form& form) {
            for (const auto& choice : choices) {
                Field& field = form.field(choice.first);
                const auto entry = std::ranges::find(field.entries, choice.second, &Entry::text);
                ASSERT_NE(entry, field.entries.end()) << choice.second;
                field.choose(static_cast<std::size_t>(entry - field.entries.begin()));
            }
            form.ok.click();
        };
    }
    const Lines& lines() { return host.written.files.at(0).lines; }
    static std::vector<std::string> cells(const std::vector<std::string>& line, std::size_t first,
                                          std::size_t last) {
        return {line.begin() + static_cast<std::ptrdiff_t>(first),
                line.begin() + static_cast<std::ptrdiff_t>(last) + 1};
    }
};

}  // namespace prot::report_frameworks
