
#include <new>
#include <stdexcept>

#include "platform/automation/error.h"
#include "platform/automation/text_forms.h"
#include "tests/unit/apps/protcsv/program_fixture.h"

namespace prot::test {

namespace {

struct Call {
    Environment& environment;
    Database& database;
    SectionExporter& exporter;
    std::vector<std::string> arguments;
};

class ScriptedExporter : public SectionExporter {
public:
    using Script = void (*)(Call& call);
    ScriptedExporter(Environment& environment, Script script) : environment_(environment), script_(script) {}

    void gCSVAusgabe(Database& oDBU, std::int32_t lSection, const std::string& sUser, Date dtVon, Date dtBis,
                     std::int32_t lAktion, Value&) override {
        Call call{environment_,
                  oDBU,
                  *this,
                  {std::to_string(lSection), sUser, to_text(dtVon), to_text(dtBis), std::to_string(lAktion),
                   psCommandline, pbLoeschen ? "löschen" : "exportieren"}};
        script_(call);
    }

private:
    Environment& environment_;
    Script script_;
};

/// Writes its arguments as the only line of a file.
void write_file(Call& call) {
    const auto writer = call.environment.components.create_csv_writer();
    std::string name = "Prot.csv";
    if (!writer->open(name, call.exporter.psCommandline.empty())) return;
    writer->write_line(call.arguments);
    if (call.exporter.poParent != nullptr) call.exporter.poParent->gSetFortschritt(0, 1);
    writer->close();
}

void raise_error(Call&) { throw AutomationError(-2147221503, "Quelle\r\nModul.Prozedur", "Es ging nicht."); }

void raise_foreign_error(Call&) { throw std::bad_alloc(); }

void raise_surprise(Call&) { throw std::logic_error("Das war nicht vorgesehen."); }

/// Fails when the file is half written.
void fail_while_writing(Call& call) {
    const auto writer = call.environment.components.create_csv_writer();
    std::string name = "Prot.csv";
    writer->open(name, false);
    writer->write_line(call.arguments);
    raise_error(call);
}

/// Shows a problem report and goes on.
void show_error(Call& call) {
    call.environment.components.create_error_display()->ZQ_gShowError(-1, "Quelle", "Hinweis");
    write_file(call);
}

void show_box(Call& call) {
    call.environment.message_boxes.show("Keine Daten vorhanden!", BoxStyle::information, "Protokollierung");
}

void ask_to_delete(Call& call) {
    const BoxAnswer answer = call.environment.message_boxes.show("Löschen?", BoxStyle::question_yes_no,
                                                                 "Löschen Stammdatenprotokoll");
    if (answer == BoxAnswer::yes) call.database.execute("DELETE tProtokoll WHERE idProtokoll > 0");
}

void leave_something_out(Call& call) {
    call.environment.notices.field_without_caption("T", "f");
    call.environment.notices.record_read(5, 0, NoLine::unreadable_document);
    write_file(call);
}

/// As many lines as a spreadsheet takes below the two of the head.
void fill_a_spreadsheet(Call& call) {
    call.environment.notices.record_read(1, 1'048'574, NoLine::none);
    write_file(call);
}

void overfill_a_spreadsheet(Call& call) {
    call.environment.notices.record_read(2, 1, NoLine::none);
    fill_a_spreadsheet(call);
}

/// Two records, one without line; what is selected is known before.
void read_records(Call& call) {
    call.environment.notices.filter_accepted("Alles von Max");
    call.environment.notices.record_read(1, 3, NoLine::none);
    call.environment.notices.record_read(2, 0, NoLine::without_changes);
    call.database.query_value("SELECT COUNT(*) FROM tDevisenWaehr WHERE 1 = 2");
    write_file(call);
}

void lack_a_document(Call& call) {
    call.environment.notices.record_read(5, 0, NoLine::unreadable_document);
    write_file(call);
}

void lack_a_caption(Call& call) {
    call.environment.notices.field_without_caption("T", "f");
    call.environment.notices.record_read(5, 0, NoLine::no_field_exported);
    write_file(call);
}

void send_statements(Call& call) {
    call.database.query_array("SELECT idDevisenWaehr FROM tDevisenWaehr WHERE 1 = 2");
    call.database.query_value("SELECT COUNT(*) FROM tDevisenWaehr WHERE 1 = 2");
}

void change_the_log(Call& call) { call.database.execute("DELETE tProtokoll WHERE idProtokoll > 0"); }

void say_arguments(Call& call) {
    std::string text;
    for (const std::string& argument : call.arguments) text += (text.empty() ? "" : ";") + argument;
    call.environment.message_boxes.show(text, BoxStyle::information, "Aufruf");
}

void say_nothing(Call&) {}

void fail_to_look_up(Call& call) {
    call.environment.notices.lookup_failed("Es fehlt tX.");
    leave_something_out(call);
}

void leave_something_out_and_fail(Call& call) {
    call.environment.notices.lookup_failed("Es fehlt tX.");
    call.environment.notices.record_read(5, 0, NoLine::unreadable_document);
    raise_error(call);
}

/// A form of one field; its choice is written as the file.
class OneField {
public:
    Form form;
    bool accepted = false;

    OneField() {
        form.caption = "Auswahl";
        form.fields = {
            {.name = "cbo", .label = "Währung", .entries = {{1, "EUR"}, {2, "USD"}}, .selected = 0}};
        form.ok.click = [this] {
            accepted = true;
            form.shown = false;
        };
        form.cancel.click = [this] { form.shown = false; };
    }
};

void ask_form(Call& call) {
    OneField dialog;
    call.environment.form_display.show_modal(dialog.form);
    if (!dialog.accepted) return;
    call.arguments = {dialog.form.fields[0].selected_text()};
    write_file(call);
}

template <ScriptedExporter::Script script>
std::unique_ptr<SectionExporter> create(Environment& environment) {
    return std::make_unique<ScriptedExporter>(environment, script);
}

constexpr Section sections[] = {
    {1, "file", "Datei", create<write_file>},
    {2, "error", "Fehler", create<raise_error>},
    {3, "half", "Halb", create<fail_while_writing>},
    {4, "report", "Bericht", create<show_error>},
    {5, "box", "Meldung", create<show_box>},
    {6, "delete", "Löschen", create<ask_to_delete>},
    {7, "notices", "Hinweise", create<leave_something_out>},
    {8, "statements", "Anweisungen", create<send_statements>},
    {9, "form", "Formular", create<ask_form>},
    {10, "memory", "Speicher", create<raise_foreign_error>},
    {11, "change", "Ändern", create<change_the_log>},
    {12, "say", "Aufruf", create<say_arguments>},
    {13, "nothing", "Nichts", create<say_nothing>},
    {14, "lookups", "Abfragen", create<fail_to_look_up>},
    {15, "left-out", "Ausgelassen", create<leave_something_out_and_fail>},
    {16, "surprise", "Überraschung", create<raise_surprise>},
    {17, "full", "Volles Blatt", create<fill_a_spreadsheet>},
    {18, "too-full", "Übervolles Blatt", create<overfill_a_spreadsheet>},
    {19, "records", "Sätze", create<read_records>},
    {20, "document", "Dokument", create<lack_a_document>},
    {21, "caption", "Beschriftung", create<lack_a_caption>},
};

}  // namespace

SectionTable scripted_sections() { return sections; }

}  // namespace prot::test
