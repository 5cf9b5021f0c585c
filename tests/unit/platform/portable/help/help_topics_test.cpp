#include "platform/portable/help/help_topics.h"

#include <gtest/gtest.h>

#include "platform/portable/files/program_folder.h"
#include "tests/unit/support/temporary_folder.h"

namespace prot {
namespace {

class HelpTopicsTest : public testing::Test {
protected:
    HelpTopicsTest() {
        std::filesystem::create_directory(folder_ / "hilfe");
        write("kurse.html", "<html><body><p>Alles über Kurse und Währungen.</p></body></html>");
    }

    void write(const char* name, const std::string& content) {
        write_file(folder_ / "hilfe" / name, content);
    }
    void write_map(const std::string& page) {
        write("karte.xml",
              R"(<hilfe><thema id="HID_ANDERES" seite="anderes.html"/><thema id="HID_KURSE" seite=")" + page +
                  R"("/></hilfe>)");
    }

    TemporaryFolder folder_;
    HelpTopics topics_{folder_ / "hilfe"};
};

TEST_F(HelpTopicsTest, FindsThePageOfATopicAndItsText) {
    write_map("kurse.html");
    EXPECT_EQ(topics_.page("karte.xml", "HID_KURSE"), folder_ / "hilfe" / "kurse.html");
    EXPECT_EQ(topics_.text("karte.xml", "HID_KURSE"), "Alles über Kurse und Währungen.\n");
    EXPECT_EQ(topics_.text("karte.xml", "HID_KURSE", 20), "Alles über Kurse und\nWährungen.\n");
}

TEST_F(HelpTopicsTest, KnowsNothingOfWhatIsMissing) {
    EXPECT_FALSE(topics_.text("karte.xml", "HID_KURSE")) << "no map";
    write_map("kurse.html");
    EXPECT_FALSE(topics_.page("karte.xml", "HID_KEINES")) << "no row";
    EXPECT_FALSE(topics_.page("karte.xml", "hid_kurse")) << "an id of other letter case is another";
    EXPECT_FALSE(topics_.page("karte.xml", "")) << "no id";
    EXPECT_FALSE(topics_.page("karte.xml", "HID_ANDERES")) << "no page";
    EXPECT_FALSE(HelpTopics(std::filesystem::path()).page("karte.xml", "HID_KURSE")) << "no folder";
}

TEST_F(HelpTopicsTest, NoFolderIsNotTheCurrentOne) {
    write_map("kurse.html");
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder_ / "hilfe");
    EXPECT_FALSE(HelpTopics(std::filesystem::path()).page("karte.xml", "HID_KURSE"));
    std::filesystem::current_path(before);
}

TEST_F(HelpTopicsTest, KnowsNothingOfWhatIsNoXml) {
    write_map("kurse.html");
    write("kurse.html", "<html><body><p>Kurse</body></html>");
    EXPECT_TRUE(topics_.page("karte.xml", "HID_KURSE")) << "a browser may still show it";
    EXPECT_FALSE(topics_.text("karte.xml", "HID_KURSE")) << "the page";
    write("karte.xml", R"(<hilfe><thema id="HID_KURSE" seite="kurse.html"/>)");
    EXPECT_FALSE(topics_.page("karte.xml", "HID_KURSE")) << "the map";
}

TEST_F(HelpTopicsTest, NeverLeavesItsFolder) {
    const std::string page = content_of(folder_ / "hilfe" / "kurse.html");
    write_file(folder_ / "aussen.html", page);
    std::filesystem::create_directory(folder_ / "hilfe" / "innen");
    write("innen/kurse.html", page);
    const std::string outside = (folder_ / "aussen.html").generic_string();
    for (const std::string& name : {outside, std::string("../aussen.html"), std::string("innen/kurse.html"),
                                    std::string("./kurse.html"), std::string("..\\aussen.html"),
                                    std::string("C:kurse.html"), std::string(".."), std::string(".")}) {
        write_map(name);
        EXPECT_FALSE(topics_.page("karte.xml", "HID_KURSE")) << name;
    }
    std::filesystem::create_directory(folder_ / "hilfe" / "seite.html");
    write_map("seite.html");
    EXPECT_FALSE(topics_.page("karte.xml", "HID_KURSE")) << "a folder is no page";
    write_map("kurse.html");
    EXPECT_FALSE(topics_.page(std::string_view("karte.xml\0x", 11), "HID_KURSE")) << "cut off, it is a map";
    std::filesystem::rename(folder_ / "hilfe" / "karte.xml", folder_ / "karte.xml");
    EXPECT_FALSE(topics_.page("../karte.xml", "HID_KURSE")) << "a map outside";
}

TEST_F(HelpTopicsTest, AreThoseBesideTheProgramOrThoseInstalledWithIt) {
    const std::filesystem::path programs = folder_ / "bin";
    const std::filesystem::path installed = (programs / PROT_INSTALLED_HELP).lexically_normal();
    const auto page = [](const std::filesystem::path& program) {
        return HelpTopics::of_program(program).page("karte.xml", "HID_KURSE").value_or("");
    };
    const auto put = [&](const std::filesystem::path& folder) {
        std::filesystem::create_directories(folder);
        for (const char* name : {"karte.xml", "kurse.html"})
            write_file(folder / name, content_of(folder_ / "hilfe" / name));
    };
    write_map("kurse.html");
    std::filesystem::create_directories(programs);
    EXPECT_EQ(page(programs), "") << "none";
    put(installed);
    EXPECT_EQ(page(programs), installed / "kurse.html");
    put(programs / "hilfe");  // on Windows the same place
    EXPECT_EQ(page(programs), programs / "hilfe" / "kurse.html") << "those beside it come first";
    EXPECT_EQ(page({}), "") << "the system does not tell where the program is";
}

TEST(ProgramFolder, HoldsTheRunningProgram) {
    std::size_t own = 0;
    for (const auto& entry : std::filesystem::directory_iterator(program_folder()))
        if (entry.path().stem() == "platform_portable_test") ++own;
    EXPECT_GE(own, 1u);
}

}  // namespace
}  // namespace prot
