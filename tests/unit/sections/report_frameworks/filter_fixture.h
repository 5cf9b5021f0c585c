#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "sections/report_frameworks/ProtAuswFrmFilter.h"
#include "tests/unit/support/fakes.h"

namespace prot::report_frameworks {

using Entries = std::vector<std::pair<std::int64_t, std::string>>;
using Texts = std::vector<std::string>;

inline constexpr const char* kinds = "optStandard/optKanzlei";
inline constexpr const char *types = "cboRahmenArt", *frameworks = "cboAuswertungsrahmen",
                            *changes = "cboAenderungen", *charts = "cboKontenrahmen";

inline const std::string charts_statement =
    "SELECT KR_Id, KR_Bezeichnung FROM Kontenrahmen ORDER BY KR_Bezeichnung";

inline std::string live_statement(int type, int kind) {
    return "SELECT ARa_Id,        ARa_Bezeichnung,        ddGueltigVon,        ddGueltigBis   FROM "
           "Auswertungsrahmen   WHERE ARa_Art = " +
           std::to_string(type) + " AND        ARa_Typ = " + std::to_string(kind) +
           " Order by  dcGUID,  ARa_Bezeichnung,  ddGueltigVon";
}

inline std::string deleted_statement(int type, int kind) {
    return "SELECT dmData FROM tProtokoll WHERE dcTable = 'AuswertungsRahmen' AND dlEvent = 2 AND dlSuchId2 "
           "= " +
           std::to_string(type) + " AND dlSuchId3 = " + std::to_string(kind) + " ORDER BY ddDatum ASC";
}

/// The filter form over a database with two frameworks of type 20, one that was deleted, one of the office's
/// own, one of type 0, and two charts of accounts.
class FrameworkFilter : public testing::Test {
protected:
    test::FakeHost host;
    test::FakeDatabase oDBU;
    Filter taken;
    std::string filter_text, ids, commandline;
    ChangeKind proposed = ChangeKind::all;

    FrameworkFilter() {
        const Date january = to_date(CivilTime{2020, 1, 1});
        oDBU.answers[charts_statement] = {{std::int64_t{61}, std::string("SKR 03")},
                                          {std::int64_t{62}, std::string("SKR 04")}};
        oDBU.answers[live_statement(20, 0)] = {{std::int64_t{5}, std::string("BWA kurz"), january, Value()},
                                               {std::int64_t{6}, std::string("BWA lang"), Value(), Value()}};
        oDBU.answers[live_statement(20, 1)] = {
            {std::int64_t{7}, std::string("BWA Kanzlei"), Value(), Value()}};
        oDBU.answers[live_statement(0, 0)] = {{std::int64_t{9}, std::string("Bilanz"), Value(), Value()}};
        oDBU.answers[deleted_statement(20, 0)] = {{std::string("deletion")}, {std::string("broken")}};
        host.documents["deletion"] = {{"ARa_Id", "8", ""}, {"ARa_Bezeichnung", "BWA alt", ""}};
    }
    bool ask(std::string parameters = {}) {
        commandline = std::move(parameters);
        ProtAuswFrmFilter form(host.environment, proposed);
        const bool accepted = form.gbGetFilter(oDBU, commandline);
        taken = form.filter();
        filter_text = form.sFilter();
        ids = form.sRahmenIds();
        return accepted;
    }
    /// Shows the form to a person who cancels in the end.
    void show(const std::function<void(Form&)>& person) {
        host.person = [&](Form& form) {
            person(form);
            form.cancel.click();
        };
        EXPECT_FALSE(ask());
        EXPECT_GT(host.forms_shown, 0);
    }
    static void choose(Form& form, const char* field, const char* text) {
        const Texts all = texts(form, field);
        const auto entry = std::ranges::find(all, text);
        ASSERT_NE(entry, all.end()) << text;
        form.field(field).choose(static_cast<std::size_t>(entry - all.begin()));
    }
    static Texts texts(const Form& form, const char* field) {
        Texts texts;
        for (const Entry& entry : form.field(field).entries) texts.push_back(entry.text);
        return texts;
    }
    static Entries entries(const Form& form, const char* field) {
        Entries entries;
        for (const Entry& entry : form.field(field).entries) entries.emplace_back(entry.key, entry.text);
        return entries;
    }
    Texts take_statements() { return std::exchange(oDBU.statements, {}); }
    /// The sources of the errors shown, without the part that all have.
    Texts sources() const {
        Texts sources;
        for (const test::ShownError& error : host.errors) {
            EXPECT_TRUE(error.source.starts_with(PROT_STAMP "|srvprotqrbcsv|")) << error.source;
            sources.push_back(error.source.substr(std::string(PROT_STAMP "|srvprotqrbcsv|").size()));
        }
        return sources;
    }
};

}  // namespace prot::report_frameworks
