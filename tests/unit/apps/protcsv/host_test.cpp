#include "apps/protcsv/host.h"

#include <gtest/gtest.h>

#include "tests/unit/support/fakes.h"
#include "tests/unit/support/temporary_folder.h"

namespace prot {
namespace {

/// Displays that show nothing and remember what they were to show.
class FakeDisplays : public Displays {
public:
    test::FakeHost faces;
    std::vector<std::string> asked, shown, refused;
    std::optional<std::string> file_name, name_after_refusal;
    std::vector<std::string> replaceable;  // asked about, in turn; each answered no, but the last

    FormDisplay& forms() override { return faces; }
    MessageBoxes& message_boxes() override { return faces; }
    std::unique_ptr<ErrorDisplay> create_error_display() override { return faces.create_error_display(); }
    std::unique_ptr<HelpDisplay> create_help_display() override { return faces.create_help_display(); }
    std::unique_ptr<ProgressParent> create_progress() override { return nullptr; }
    std::optional<std::string> ask_file_name(const std::string& suggestion,
                                             const std::string& folder) override {
        asked = {suggestion, folder};
        return file_name;
    }
    bool may_replace(const std::string& path) override {
        replaceable.push_back(path);
        return replaceable.size() > 1;
    }
    bool refuse_file_name(std::string_view why) override {
        refused.emplace_back(why);
        file_name = name_after_refusal;
        return true;
    }
    void show_file(const std::string& path) override { shown.push_back(path); }
    void tell(Telling, std::string_view) override {}
};

class HostTest : public testing::Test {
protected:
    HostTest() {
        options.database.file = folder.text("x.db");
        options.csv.folder = text_path(folder.text("Ziel"));
    }

    const TemporaryFolder folder;
    FakeDisplays displays;
    RunAccount account;
    Options options;
};

TEST_F(HostTest, ShowsEverythingByItsDisplays) {
    Host host(options, displays, account);
    const Environment environment = host.environment();
    environment.message_boxes.show("Keine Daten vorhanden!", BoxStyle::information, "Protokollierung");
    Form form;
    environment.form_display.standard_setup(form, 1000);
    environment.components.create_error_display()->ZQ_gShowError(5, "Quelle", "Beschreibung");
    environment.components.create_help_display()->show_topic("karte.xml", "HID_1");
    EXPECT_EQ(
        displays.faces.boxes,
        (std::vector<test::ShownBox>{{"Keine Daten vorhanden!", BoxStyle::information, "Protokollierung"}}));
    EXPECT_EQ(displays.faces.setups, std::vector<int>{1000});
    EXPECT_EQ(displays.faces.errors, (std::vector<test::ShownError>{{5, "Quelle", "Beschreibung"}}));
    EXPECT_EQ(displays.faces.help_topics, std::vector<std::string>{"karte.xml#HID_1"});
}

TEST_F(HostTest, AsksBeforeItReplacesAFileAndForAnotherNameWhenItMayNot) {
    displays.file_name = "Meine";
    std::filesystem::create_directories(options.csv.folder);
    write_file(options.csv.folder / "Meine.csv", "von gestern");
    Host host(options, displays, account);
    const auto writer = host.environment().components.create_csv_writer();
    std::string name = "Prot.csv";
    ASSERT_TRUE(writer->open(name, true));
    const std::string place = path_text(options.csv.folder / "Meine.csv");
    EXPECT_EQ(displays.replaceable, (std::vector<std::string>{place, place}));
    displays.file_name = "Neue.csv";
    ASSERT_TRUE(writer->open(name, true));
    EXPECT_EQ(displays.replaceable.size(), 2U) << "there is no such file";
}

TEST_F(HostTest, DoesNotAskAboutFilesThatTheRunItselfNeeds) {
    std::filesystem::create_directories(options.csv.folder);
    options.database.file = path_text(options.csv.folder / "x.csv");
    write_file(text_path(options.database.file), "Datenbank");
    displays.file_name = "x.csv";
    Host host(options, displays, account);
    const auto writer = host.environment().components.create_csv_writer();
    std::string name = "Prot.csv";
    EXPECT_FALSE(writer->open(name, true)) << "the next name is none";
    EXPECT_EQ(displays.replaceable, std::vector<std::string>{});
    EXPECT_EQ(displays.refused.size(), 1U);
}

TEST_F(HostTest, SaysAboveItsFormsWhatElseIsChosen) {
    Host host(options, displays, account);
    host.set_form_notice("Zeitraum: alle Tage");
    displays.faces.person = [](Form&) {};
    Form form;
    host.environment().form_display.show_modal(form);
    EXPECT_EQ(form.notice, "Zeitraum: alle Tage");
}

TEST_F(HostTest, AsksForTheFileInTheRunsFolderAndPresentsItWhenItIsFinished) {
    displays.file_name = "Meine.csv";
    Host host(options, displays, account);
    const auto writer = host.environment().components.create_csv_writer();
    std::string name = "Prot.csv";
    ASSERT_TRUE(writer->open(name, true));
    EXPECT_EQ(displays.asked, (std::vector<std::string>{"Prot.csv", path_text(options.csv.folder)}));
    EXPECT_EQ(account.file, "");
    writer->close();
    const std::string path = path_text(options.csv.folder / "Meine.csv");
    EXPECT_EQ(account.file, path);
    EXPECT_EQ(displays.shown, std::vector<std::string>{});
    writer->show();
    EXPECT_EQ(displays.shown, std::vector<std::string>{path});
}

TEST_F(HostTest, WritesNoFileWhenThePersonCancels) {
    Host host(options, displays, account);
    std::string name = "Prot.csv";
    EXPECT_FALSE(host.environment().components.create_csv_writer()->open(name, true));
    EXPECT_EQ(folder.entries(), 0U);
}

TEST_F(HostTest, AsksAgainForANameThatNoFileCanHave) {
    displays.file_name = options.database.file;
    displays.name_after_refusal = "Meine.csv";
    Host host(options, displays, account);
    const auto writer = host.environment().components.create_csv_writer();
    std::string name = "Prot.csv";
    ASSERT_TRUE(writer->open(name, true));
    EXPECT_EQ(name, "Meine.csv");
    ASSERT_EQ(displays.refused.size(), 1U);
    EXPECT_NE(displays.refused[0].find("der Lauf selbst braucht diese Datei"), std::string::npos);
    EXPECT_EQ(displays.asked[0], "Prot.csv") << "what is refused is no suggestion";
}

TEST_F(HostTest, APersonMayGiveUpAfterANameWasRefused) {
    displays.file_name = options.database.file;
    Host host(options, displays, account);
    std::string name = "Prot.csv";
    EXPECT_FALSE(host.environment().components.create_csv_writer()->open(name, true));
    EXPECT_EQ(displays.refused.size(), 1U);
    EXPECT_EQ(name, "Prot.csv");
}

TEST_F(HostTest, FailsWithoutAQuestionWhereItIsAlone) {
    Host host(options, displays, account);
    host.write_into(folder.path());
    std::string name = "x.db";
    EXPECT_THROW(host.environment().components.create_csv_writer()->open(name, true), AutomationError);
    EXPECT_TRUE(displays.refused.empty());
}

TEST_F(HostTest, NeverWritesOverTheFilesOfItsOwnRun) {
    options.statement_log = folder.text("log.json");
    options.answers = folder.text("antworten");
    options.report = folder.text("bericht.json");
    for (const std::string& file :
         {options.database.file, options.statement_log, *options.answers, options.report}) {
        write_file(text_path(file), "alt");
        Host host(options, displays, account);
        std::string name = file;
        EXPECT_THROW(host.environment().components.create_csv_writer()->open(name, false), AutomationError)
            << file;
        EXPECT_EQ(content_of(text_path(file)), "alt");
    }
}

TEST_F(HostTest, TellsTheNameOfTheServerAlone) {
    Host host(options, displays, account);
    host.set_server("SQL01");
    std::array<std::string, 10> expected;
    expected[9] = "SQL01";
    EXPECT_EQ(host.environment().connection_information.fields(1206), expected);
    EXPECT_EQ(host.environment().connection_information.fields(1207), (std::array<std::string, 10>()));
}

TEST_F(HostTest, ReadsChangeDocuments) {
    Host host(options, displays, account);
    const auto reader = host.environment().components.create_change_document_reader();
    EXPECT_FALSE(reader->load("kein Dokument"));
}

TEST_F(HostTest, KeepsWhichCharactersWereReplaced) {
    options.csv.encoding = CsvEncoding::windows_1252;
    Host host(options, displays, account);
    const auto writer = host.environment().components.create_csv_writer();
    std::string name = "Prot.csv";
    writer->open(name, false);
    const std::string cells[] = {"Ω"};
    writer->write_line(cells);
    writer->close();
    EXPECT_EQ(account.replaced.count, 1);
}

TEST_F(HostTest, CountsTheBytesOfAFileAndSumsThemUpWhereThatIsWanted) {
    Host host(options, displays, account);
    const auto writer = host.environment().components.create_csv_writer();
    const std::string cells[] = {"abc"};
    const auto write = [&] {
        std::string name = "Prot.csv";
        writer->open(name, false);
        writer->write_line(cells);
        writer->close();
    };
    write();
    EXPECT_EQ(account.bytes, 8) << "with the byte order mark";
    EXPECT_FALSE(account.sum);
    account.sum.emplace();
    write();
    EXPECT_EQ(account.bytes, 8) << "of the last file alone";
    Sha256 expected;
    expected.add(content_of(options.csv.folder / "Prot-2.csv"));
    EXPECT_EQ(account.sum->hexadecimal(), expected.hexadecimal());
}

TEST_F(HostTest, NotesTheFirstErrorThatIsShown) {
    Host host(options, displays, account);
    const auto display = host.environment().components.create_error_display();
    display->ZQ_gShowError(5, "Quelle", "zuerst");
    display->ZQ_gShowError(5, "Quelle", "danach");
    EXPECT_EQ(account.message, "zuerst");
    EXPECT_EQ(displays.faces.errors.size(), 2U);
}

TEST_F(HostTest, GivesANameThatAPersonTypesItsEnding) {
    displays.file_name = "Meine";
    Host host(options, displays, account);
    std::string name = "Prot.csv";
    ASSERT_TRUE(host.environment().components.create_csv_writer()->open(name, true));
    EXPECT_EQ(name, "Meine.csv");
}

TEST_F(HostTest, CountsWhatTheExporterLeavesOut) {
    Host host(options, displays, account);
    host.environment().notices.record_read(17, 0, NoLine::unreadable_document);
    EXPECT_EQ(account.notices.documents_text(), "1 Protokollsatz mit unlesbarem Änderungsdokument: 17\n");
}

}  // namespace
}  // namespace prot
