#pragma once

#include <array>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/automation/error.h"
#include "platform/automation/text_forms.h"
#include "platform/database.h"
#include "platform/environment.h"
#include "platform/progress_parent.h"

/// In-memory twins of the platform's classes; each records what was asked of it.
namespace prot::test {

using Row = std::vector<Value>;

/// Answers statements from a table of texts; records all statements in order as "op: text".
class FakeDatabase : public Database {
public:
    std::vector<std::string> statements;
    std::map<std::string, std::vector<Row>> answers;
    std::map<std::string, AutomationError> failures;
    std::optional<AutomationError> connection_failure;

    Value query_value(std::string_view sql) override {
        const auto rows = rows_of("value", sql);
        return rows.empty() ? Value() : rows[0][0];
    }
    RowSet query_array(std::string_view sql) override {
        const auto rows = rows_of("array", sql);
        RowSet set(rows.empty() ? 0 : rows[0].size());
        for (const Row& row : rows) {
            set.add_row();
            for (std::size_t column = 0; column < row.size(); ++column) set.set(column, row[column]);
        }
        return set;
    }
    void execute(std::string_view sql) override { rows_of("execute", sql); }
    std::string date_literal(Date date) override { return "<" + to_text(date) + ">"; }
    std::string like_wildcard() override { return "%"; }
    void require_connection() override {
        if (connection_failure) throw *connection_failure;
    }

private:
    std::vector<Row> rows_of(const char* op, std::string_view sql) {
        const std::string text(sql);
        statements.push_back(std::string(op) + ": " + text);
        if (const auto failure = failures.find(text); failure != failures.end()) throw failure->second;
        const auto answer = answers.find(text);
        return answer == answers.end() ? std::vector<Row>() : answer->second;
    }
};

/// What all CSV writers of one environment did.
struct WrittenFiles {
    struct File {
        std::string name;
        bool asked = false;
        bool closed = false;
        bool shown = false;
        std::vector<std::vector<std::string>> lines;
    };
    std::deque<File> files;
    bool cancel = false;      // the person cancels the file name
    std::string chosen_name;  // the person's own name, when asked
    std::optional<AutomationError> open_failure;
    std::optional<AutomationError> close_failure;
};

class FakeCsvWriter : public CsvWriter {
public:
    explicit FakeCsvWriter(WrittenFiles& written) : written_(written) {}
    bool open(std::string& file_name, bool ask_user) override {
        if (written_.open_failure) throw *written_.open_failure;
        if (ask_user && written_.cancel) return false;
        if (ask_user && !written_.chosen_name.empty()) file_name = written_.chosen_name;
        written_.files.push_back({file_name, ask_user, false, false, {}});
        file_ = &written_.files.back();
        return true;
    }
    void write_line(std::span<const std::string> cells) override {
        file_->lines.emplace_back(cells.begin(), cells.end());
    }
    void close() override {
        if (written_.close_failure) throw *written_.close_failure;
        file_->closed = true;
    }
    void show() override { file_->shown = true; }

private:
    WrittenFiles& written_;
    WrittenFiles::File* file_ = nullptr;
};

/// A reader that knows prepared documents by their text; any other text does not load.
class FakeDocumentReader : public ChangeDocumentReader {
public:
    struct Column {
        std::string name, old_value, new_value;
    };
    using Documents = std::map<std::string, std::vector<Column>, std::less<>>;

    explicit FakeDocumentReader(const Documents& documents) : documents_(documents) {}
    bool load(std::string_view document) override {
        const auto found = documents_.find(document);
        loaded_ = found == documents_.end() ? nullptr : &found->second;
        return loaded_ != nullptr;
    }
    std::int32_t columns() const override { return static_cast<std::int32_t>(loaded_->size()); }
    std::string_view part(std::int32_t index, ColumnPart part) override {
        const Column& column = loaded_->at(static_cast<std::size_t>(index));
        return part == ColumnPart::name        ? column.name
               : part == ColumnPart::old_value ? column.old_value
                                               : column.new_value;
    }
    std::string_view old_value_of(std::string_view name) override {
        for (const Column& column : *loaded_)
            if (column.name == name) return column.old_value;
        return {};
    }

private:
    const Documents& documents_;
    const std::vector<Column>* loaded_ = nullptr;
};

struct ShownError {
    std::int32_t number;
    std::string source, description;
    bool operator==(const ShownError&) const = default;
};

class FakeErrorDisplay : public ErrorDisplay {
public:
    explicit FakeErrorDisplay(std::vector<ShownError>& shown) : shown_(shown) {}
    void ZQ_gShowError(std::int32_t lNummer, std::string_view sQuelle,
                       std::string_view sBeschreibung) override {
        shown_.push_back({lNummer, std::string(sQuelle), std::string(sBeschreibung)});
    }

private:
    std::vector<ShownError>& shown_;
};

class FakeHelpDisplay : public HelpDisplay {
public:
    explicit FakeHelpDisplay(std::vector<std::string>& topics) : topics_(topics) {}
    bool show_topic(std::string_view map_file, std::string_view help_id) override {
        topics_.push_back(std::string(map_file) + "#" + std::string(help_id));
        return true;
    }

private:
    std::vector<std::string>& topics_;
};

/// What a translation object makes of a value, its column and the moment of the change.
using Translate = std::function<std::string(std::int32_t, std::string_view, Date)>;

class FakeValueTranslator : public ValueTranslator {
public:
    explicit FakeValueTranslator(Translate translate) : translate_(std::move(translate)) {}
    std::string translate(std::int32_t value, std::string_view column, Date moment) override {
        return translate_(value, column, moment);
    }

private:
    const Translate translate_;
};

struct ShownBox {
    std::string text;
    BoxStyle style;
    std::string title;
    bool operator==(const ShownBox&) const = default;
};

/// A record of the log, as an export tells of it.
struct ReadRecord {
    std::int64_t log_id = 0;
    std::int64_t lines = 0;
    NoLine why = NoLine::none;
    bool operator==(const ReadRecord&) const = default;
};

/// A whole host in memory; each of its parts may be told to fail.
class FakeHost : public Components,
                 public MessageBoxes,
                 public FormDisplay,
                 public ScreenPointer,
                 public ConnectionInformation,
                 public Clock,
                 public ExportNotices {
public:
    WrittenFiles written;
    FakeDocumentReader::Documents documents;
    int readers_created = 0;
    std::optional<AutomationError> reader_failure, error_display_failure, help_failure;
    std::vector<ShownError> errors;
    std::vector<std::string> help_topics;
    std::map<std::string, Translate, std::less<>> translators;  // by programmatic identifier
    std::vector<std::string> translators_asked_for;
    std::vector<ShownBox> boxes;
    BoxAnswer answer = BoxAnswer::no;
    std::vector<Pointer> pointers;
    std::vector<int> setups;
    int forms_shown = 0;
    std::function<void(Form&)> person = [](Form& form) { form.ok.click(); };
    std::vector<int> connection_codes;
    std::optional<AutomationError> connection_information_failure;
    CivilTime time{2026, 11, 15, 10, 7, 15};
    std::vector<std::string> fields_without_caption;
    std::vector<std::string> failed_lookups;
    std::vector<std::int64_t> unreadable;
    std::vector<std::string> selections;
    std::vector<ReadRecord> records;
    std::vector<BatchReading> readings;
    std::vector<std::string_view> batch_keys_told;

    Environment environment{*this, *this, *this, *this, *this, *this, *this};

    std::unique_ptr<CsvWriter> create_csv_writer() override {
        return std::make_unique<FakeCsvWriter>(written);
    }
    std::unique_ptr<ChangeDocumentReader> create_change_document_reader() override {
        if (reader_failure) throw *reader_failure;
        ++readers_created;
        return std::make_unique<FakeDocumentReader>(documents);
    }
    std::unique_ptr<ErrorDisplay> create_error_display() override {
        if (error_display_failure) throw *error_display_failure;
        return std::make_unique<FakeErrorDisplay>(errors);
    }
    std::unique_ptr<HelpDisplay> create_help_display() override {
        if (help_failure) throw *help_failure;
        return std::make_unique<FakeHelpDisplay>(help_topics);
    }
    std::unique_ptr<ValueTranslator> create_value_translator(std::string_view program_id) override {
        translators_asked_for.emplace_back(program_id);
        const auto found = translators.find(program_id);
        if (found == translators.end()) return nullptr;
        return std::make_unique<FakeValueTranslator>(found->second);
    }
    BoxAnswer show(std::string_view text, BoxStyle style, std::string_view title) override {
        boxes.push_back({std::string(text), style, std::string(title)});
        return style == BoxStyle::question_yes_no ? answer : BoxAnswer::ok;
    }
    void standard_setup(Form&, int code) override { setups.push_back(code); }
    void show_modal(Form& form) override {
        ++forms_shown;
        person(form);
    }
    void set(Pointer pointer) override { pointers.push_back(pointer); }
    std::array<std::string, 10> fields(int code) override {
        connection_codes.push_back(code);
        if (connection_information_failure) throw *connection_information_failure;
        return {"", "", "", "", "", "", "", "", "", "SRV-SQL01"};
    }
    CivilTime now() override { return time; }
    void field_without_caption(std::string_view table, std::string_view column) override {
        fields_without_caption.push_back(std::string(table) + "." + std::string(column));
    }
    void lookup_failed(std::string_view error) override { failed_lookups.emplace_back(error); }
    void filter_accepted(std::string_view text) override { selections.emplace_back(text); }
    void record_read(std::int64_t log_id, std::int64_t lines, NoLine why) override {
        records.push_back({log_id, lines, why});
        if (why == NoLine::unreadable_document) unreadable.push_back(log_id);
    }
    void batch_keys(std::span<const std::string_view> keys) override {
        batch_keys_told.assign(keys.begin(), keys.end());
    }
    void batch_item(const BatchReading& reading) override { readings.push_back(reading); }
};

class FakeParent : public ProgressParent {
public:
    std::vector<std::string> calls;
    void gRefresh() override { calls.push_back("gRefresh"); }
    void gSetFortschritt(std::int32_t lZeile, std::int32_t lLetzte) override {
        calls.push_back("gSetFortschritt " + std::to_string(lZeile) + "/" + std::to_string(lLetzte));
    }
};

inline AutomationError server_error(const std::string& description) {
    return AutomationError(-2147217865, "Testserver", description);
}

}  // namespace prot::test
