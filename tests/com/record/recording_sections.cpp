#include "tests/com/record/recording_sections.h"

#include <algorithm>
#include <set>
#include <vector>

#include "platform/automation/error.h"
#include "platform/forwarding_database.h"
#include "sections/section_table.h"

namespace prot::recording {

namespace {

RecordingWriter* current = nullptr;

void add_error(std::string_view record, std::string_view sql, const AutomationError& error) {
    const std::string number = std::to_string(error.number());
    if (record == "failure")
        current->add({record, sql, number, error.source(), error.description()});
    else
        current->add({record, number, error.source(), error.description()});
}

/// A database object that writes down what it answers.
class RecordingDatabase : public ForwardingDatabase {
    /// What `send` answers; when it fails, that is written down.
    template <class Send>
    auto answered(std::string_view sql, Send send) {
        try {
            return send();
        } catch (const AutomationError& error) {
            if (is_new("failure", sql)) add_error("failure", sql, error);
            throw;
        }
    }

public:
    using ForwardingDatabase::ForwardingDatabase;

    Value query_value(std::string_view sql) override {
        Value value = answered(sql, [&] { return ForwardingDatabase::query_value(sql); });
        if (is_new("query_value", sql)) current->add({"query_value", sql, cell_of(value)});
        return value;
    }
    RowSet query_array(std::string_view sql) override {
        RowSet rows = answered(sql, [&] { return ForwardingDatabase::query_array(sql); });
        if (is_new("query_array", sql)) current->add_rows(sql, rows);
        return rows;
    }
    /// Hosts of the server hand over arrays.
    std::unique_ptr<RowStream> query_rows(std::string_view sql) override { return Database::query_rows(sql); }
    void execute(std::string_view sql) override {
        answered(sql, [&] { ForwardingDatabase::execute(sql); });
        if (is_new("execute", sql)) current->add({"execute", sql});
    }
    std::string date_literal(Date date) override {
        std::string literal = ForwardingDatabase::date_literal(date);
        if (is_new("date_literal", literal)) current->add({"date_literal", field_of(date), literal});
        return literal;
    }
    std::string like_wildcard() override {
        std::string wildcard = ForwardingDatabase::like_wildcard();
        if (is_new("like_wildcard", wildcard)) current->add({"like_wildcard", wildcard});
        return wildcard;
    }

private:
    bool is_new(std::string_view record, std::string_view key) {
        return known_.emplace(std::string(record), std::string(key)).second;
    }

    std::set<std::pair<std::string, std::string>> known_;
};

class CountingParent : public ProgressParent {
public:
    void gRefresh() override { ++refreshes; }
    void gSetFortschritt(std::int32_t, std::int32_t) override { ++steps; }

    int refreshes = 0;
    int steps = 0;
};

class RecordingExporter : public SectionExporter {
public:
    explicit RecordingExporter(Environment& environment) : environment_(environment) {}

    void gCSVAusgabe(Database& oDBU, std::int32_t lSection, const std::string& sUser, Date dtVon, Date dtBis,
                     std::int32_t lAktion, Value& vPara) override {
        current->add({"request", std::to_string(lSection), sUser, field_of(dtVon), field_of(dtBis),
                      std::to_string(lAktion), psCommandline, pbLoeschen ? "delete" : "export"});
        constexpr int connection_fields = 1206;
        current->add(
            {"connection_info", environment_.connection_information.fields(connection_fields).back()});
        RecordingDatabase database(oDBU);
        CountingParent progress;
        const auto exporter =
            std::ranges::find(section_table(), lSection, &Section::number)->create(environment_);
        exporter->poParent = &progress;
        exporter->psCommandline = psCommandline;
        exporter->pbLoeschen = pbLoeschen;
        try {
            exporter->gCSVAusgabe(database, lSection, sUser, dtVon, dtBis, lAktion, vPara);
        } catch (const AutomationError& error) {
            AutomationError shown = error;
            shown.append_to_source("\r\nProtCsvClass.gCSVFile");  // what the entry class will add
            add_error("error", {}, shown);
            throw;
        }
        current->add({"progress", std::to_string(progress.refreshes), std::to_string(progress.steps)});
    }

private:
    Environment& environment_;
};

std::unique_ptr<SectionExporter> create(Environment& environment) {
    return std::make_unique<RecordingExporter>(environment);
}

}  // namespace

SectionTable recording_sections(RecordingWriter& writer) {
    static const std::vector<Section> table = [] {
        std::vector<Section> sections(section_table().begin(), section_table().end());
        for (Section& section : sections) section.create = create;
        return sections;
    }();
    current = &writer;
    return table;
}

}  // namespace prot::recording
