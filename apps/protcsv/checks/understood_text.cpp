#include "apps/protcsv/checks/understood_text.h"

#include <algorithm>

#include "platform/automation/error.h"

namespace prot {

namespace {

/// A host in front of whom nobody sits: forms are cancelled, questions answered no, errors shown to none.
/// They come again, and are shown, when the section reads its filter for the run.
class SilentHost : public Components,
                   public MessageBoxes,
                   public FormDisplay,
                   public ScreenPointer,
                   public ExportNotices {
public:
    SilentHost(const Environment& behind, UnderstoodText& text) : behind_(behind), text_(text) {}

    Environment environment() {
        return {*this, *this, *this, *this, behind_.connection_information, behind_.clock, *this};
    }

    std::unique_ptr<CsvWriter> create_csv_writer() override { return behind_.components.create_csv_writer(); }
    std::unique_ptr<ChangeDocumentReader> create_change_document_reader() override {
        return behind_.components.create_change_document_reader();
    }
    std::unique_ptr<ErrorDisplay> create_error_display() override { return std::make_unique<NoErrors>(); }
    std::unique_ptr<HelpDisplay> create_help_display() override { return std::make_unique<NoHelp>(); }
    std::unique_ptr<ValueTranslator> create_value_translator(std::string_view program_id) override {
        return behind_.components.create_value_translator(program_id);
    }

    BoxAnswer show(std::string_view, BoxStyle style, std::string_view) override {
        return style == BoxStyle::question_yes_no ? BoxAnswer::no : BoxAnswer::ok;
    }
    void show_modal(Form& form) override { form.shown = false; }
    void set(Pointer) override {}

    void field_without_caption(std::string_view, std::string_view) override {}
    void lookup_failed(std::string_view) override {}
    void record_read(std::int64_t, std::int64_t, NoLine) override {}
    void batch_keys(std::span<const std::string_view> keys) override {
        text_.keys.assign(keys.begin(), keys.end());
    }
    void batch_item(const BatchReading& reading) override { text_.readings.push_back(reading); }

private:
    class NoErrors : public ErrorDisplay {
    public:
        void ZQ_gShowError(std::int32_t, std::string_view, std::string_view) override {}
    };
    class NoHelp : public HelpDisplay {
    public:
        bool show_topic(std::string_view, std::string_view) override { return true; }
    };

    const Environment& behind_;
    UnderstoodText& text_;
};

}  // namespace

bool UnderstoodText::has_autostart() const {
    return std::ranges::find(readings, "autostart", &BatchReading::key) != readings.end();
}

std::vector<UnderstoodText::Choice> UnderstoodText::choices() const {
    std::vector<const BatchReading*> last;
    for (const BatchReading& reading : readings) {
        const bool chooses = reading.use == BatchReading::Use::taken && !reading.value.empty();
        const bool revokes = reading.item.empty() && (reading.use == BatchReading::Use::absent ||
                                                      reading.use == BatchReading::Use::idle);
        if (!chooses && !revokes) continue;
        std::erase_if(last, [&](const BatchReading* each) { return each->key == reading.key; });
        if (chooses) last.push_back(&reading);
    }
    std::vector<Choice> choices;
    for (const BatchReading* reading : last)
        choices.push_back({reading->item, reading->read_as, reading->meaning});
    return choices;
}

UnderstoodText understand(std::string_view parameters, SectionTable sections, std::int32_t section,
                          bool deleting, Database& database, const Environment& environment) {
    UnderstoodText text;
    const auto row = std::ranges::find(sections, section, &Section::number);
    if (row == sections.end()) return text;
    SilentHost host(environment, text);
    Environment silent = host.environment();
    const std::unique_ptr<SectionExporter> exporter = row->create(silent);
    exporter->psCommandline = parameters;
    exporter->pbLoeschen = deleting;
    try {
        text.filter_text = exporter->read_filter(database, section);
    } catch (const AutomationError&) {
        // The run will meet it again and show it.
    }
    return text;
}

}  // namespace prot
