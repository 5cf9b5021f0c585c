#include "core/ZQErrorHandling.h"

#include <gtest/gtest.h>

#include "core/help.h"
#include "tests/unit/support/fakes.h"

namespace prot {
namespace {

using test::FakeHost;
using test::server_error;
using test::ShownBox;
using test::ShownError;

[[noreturn]] void inner(const AutomationError& error) try { throw error; } catch (...) {
    leave("ProtQRBCsvBas", "gsMainSelect");
}

[[noreturn]] void outer(const AutomationError& error) try { inner(error); } catch (...) {
    leave("CProtDevCsv", "gCSVAusgabe");
}

AutomationError left_through_both(const AutomationError& error) {
    try {
        outer(error);
    } catch (const AutomationError& caught) {
        return caught;
    }
}

TEST(ErrorExit, StampsTheSourceOnceAndAddsALineForEachProcedure) {
    const AutomationError error = left_through_both(server_error("Tabelle fehlt"));
    EXPECT_EQ(error.number(), -2147217865);
    EXPECT_EQ(error.description(), "Tabelle fehlt");
    EXPECT_EQ(error.source(), PROT_STAMP
              "|srvprotqrbcsv|Testserver\r\nProtQRBCsvBas.gsMainSelect\r\nCProtDevCsv.gCSVAusgabe");
}

TEST(ErrorExit, NamesThisComponentWhenTheErrorNamesNoSource) {
    const AutomationError error = left_through_both(AutomationError(ErrorNumber::overflow, "Überlauf"));
    EXPECT_EQ(error.number(), static_cast<std::int32_t>(0x800A0006));
    EXPECT_EQ(error.source(), PROT_STAMP
              "|srvprotqrbcsv|srvProtQRBCsv\r\nProtQRBCsvBas.gsMainSelect\r\n"
              "CProtDevCsv.gCSVAusgabe");
}

TEST(ErrorExit, LeavesAStampOfAnotherComponentInPlace) {
    EXPECT_EQ(stamped("000900010002|srvandere|Quelle"), "000900010002|srvandere|Quelle");
    EXPECT_EQ(stamped("a|b"), PROT_STAMP "|srvprotqrbcsv|a|b") << "a bar elsewhere is no stamp";
}

TEST(ErrorExit, TurnsOtherExceptionsIntoAutomationErrors) {
    const struct {
        void (*raise)();
        ErrorNumber number;
        const char* description;
    } rows[] = {
        {[] { throw std::bad_alloc(); }, ErrorNumber::out_of_memory, "Der Arbeitsspeicher reicht nicht aus."},
        {[] { throw std::runtime_error("x"); }, ErrorNumber::internal, "Interner Fehler: x"},
        {[] { throw 5; }, ErrorNumber::internal, "Interner Fehler"},
    };
    for (const auto& row : rows) {
        try {
            try {
                row.raise();
            } catch (...) {
                leave("A", "b");
            }
        } catch (const AutomationError& error) {
            EXPECT_EQ(static_cast<ErrorNumber>(error.number()), row.number) << row.description;
            EXPECT_EQ(error.description(), row.description);
        }
    }
}

TEST(ErrorExit, AddsTheFailingCommandToTheDescriptionOnce) {
    const auto fail = [] {
        return with_failing_command("\r\nSet oX = New Y",
                                    []() -> int { throw server_error("Klasse fehlt"); });
    };
    try {
        try {
            try {
                fail();
            } catch (...) {
                leave("A", "b");
            }
        } catch (...) {
            leave("C", "d");
        }
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.description(), "Klasse fehlt\r\nSet oX = New Y");
    }
    EXPECT_EQ(failing_command(), "");
}

TEST(ErrorExit, ForgetsTheCommandOnceItHasSucceeded) {
    EXPECT_EQ(with_failing_command("Befehl", [] { return 7; }), 7);
    EXPECT_EQ(left_through_both(server_error("anderes")).description(), "anderes");
}

TEST(ErrorExit, WithNoticeTellsTheHostAndForgetsTheFailingCommand) {
    FakeHost host;
    try {
        with_failing_command("\r\nBefehl", []() -> int { throw server_error("fehlt"); });
    } catch (...) {
        end_with_notice(host.environment);
    }
    EXPECT_EQ(host.failed_lookups, std::vector<std::string>{"fehlt\r\nBefehl"});
    EXPECT_EQ(failing_command(), "");
}

TEST(ErrorExit, EndsTheErrorAlsoWhenTheHostCannotHearOfIt) {
    struct DeafHost : FakeHost {
        void lookup_failed(std::string_view) override { throw std::bad_alloc(); }
    } host;
    bool ended = false;
    try {
        throw server_error("fehlt");
    } catch (...) {
        end_with_notice(host.environment);
        ended = true;
    }
    EXPECT_TRUE(ended);
    EXPECT_TRUE(host.errors.empty());
}

TEST(ErrorExit, EndingQuietlyForgetsTheFailingCommand) {
    try {
        with_failing_command("Befehl", []() -> int { throw server_error("x"); });
    } catch (...) {
        end_quietly();
    }
    EXPECT_EQ(left_through_both(server_error("anderes")).description(), "anderes");
}

TEST(ProblemReport, ShowsTheChainAndRestoresThePointer) {
    FakeHost host;
    host.environment.screen_pointer.set(Pointer::hourglass);
    try {
        throw server_error("kaputt");
    } catch (...) {
        show_and_end(host.environment, "ProtDevFrmFilter", "cmdOK_Click");
    }
    const ShownError expected{
        -2147217865, PROT_STAMP "|srvprotqrbcsv|Testserver\r\nProtDevFrmFilter.cmdOK_Click", "kaputt"};
    ASSERT_EQ(host.errors.size(), 1U);
    EXPECT_EQ(host.errors[0], expected);
    EXPECT_EQ(host.pointers.back(), Pointer::standard);
    EXPECT_TRUE(host.boxes.empty());
}

TEST(ProblemReport, FallsBackToABoxWithBothErrorsInTheirOrder) {
    FakeHost host;
    host.error_display_failure = AutomationError(429, "COM", "Objekterstellung nicht möglich");
    ZQ_gErrorHandling(host.environment, AutomationError(5, "Quelle\r\nA.b", "erster Fehler"));
    const ShownBox expected{
        "*** Fehler beim Laden des Problemberichts ***\r\n"
        "Fehler-Nr: 429\r\n"
        "Fehlerquelle: COM\r\nZQErrorHandling.ZQ_gErrorHandling\r\n"
        "Objekterstellung nicht möglich\r\n\r\n"
        "Folgender Befehl hat diesen Fehler ausgelöst:\r\n"
        "Set oZQError = CreateObject(\"srvZQ.ZQErrorClass\")\r\n\r\n"
        "*** Problembericht ***\r\n"
        "Fehler-Nr: 5\r\n"
        "Fehlerquelle: Quelle\r\nA.b\r\n"
        "erster Fehler",
        BoxStyle::plain, "Problembericht"};
    ASSERT_EQ(host.boxes.size(), 1U);
    EXPECT_EQ(host.boxes[0], expected);
    EXPECT_EQ(failing_command(), "");
}

TEST(Help, ShowsTheTopicOfTheSuitesMap) {
    FakeHost host;
    gShowWikiHelpxxx("HID_X", host.environment);
    EXPECT_EQ(host.help_topics, std::vector<std::string>{"mivra_allgemein.xml#HID_X"});
}

TEST(Help, ReportsAMissingHelpComponentWithTheFailingCommand) {
    FakeHost host;
    host.help_failure = AutomationError(429, "COM", "fehlt");
    gShowWikiHelpxxx("HID_X", host.environment);
    ASSERT_EQ(host.errors.size(), 1U);
    EXPECT_EQ(host.errors[0].description,
              "fehlt\r\nFehler beim Zugriff auf die srvZQ.dll\r\nSet oZqHelp = New srvZQ.ZQHelpClass");
}

}  // namespace
}  // namespace prot
