#include "platform/windows/com/com_error.h"

#include <gtest/gtest.h>

#include "platform/windows/com/bstr.h"
#include "platform/windows/com/com_ptr.h"
#include "tests/unit/platform/windows/com/com_doubles.h"

namespace prot {
namespace {

using test::InterfaceDatabase;
using test::PlainObject;

constexpr std::int32_t server_number = static_cast<std::int32_t>(0x80040E37);

EXCEPINFO exception_of(WORD code, SCODE number, std::string_view source, std::string_view description) {
    EXCEPINFO exception{};
    exception.wCode = code;
    exception.scode = number;
    exception.bstrSource = Bstr(source).release();
    exception.bstrDescription = Bstr(description).release();
    return exception;
}

AutomationError error_of_interface(InterfaceDatabase& object, HRESULT result) {
    return error_of_call(result, static_cast<IProtDatabase*>(&object), __uuidof(IProtDatabase));
}

TEST(SystemText, IsOneLineWithoutItsEnd) {
    const std::string text = system_text(E_ACCESSDENIED);
    EXPECT_FALSE(text.empty());
    EXPECT_GT(text.back(), ' ');
    EXPECT_EQ(text.find("Automatisierungsfehler"), std::string::npos);
}

TEST(SystemText, NamesANumberThatTheSystemDoesNotKnow) {
    EXPECT_EQ(system_text(static_cast<HRESULT>(0x800A01FF)), "Automatisierungsfehler 0x800A01FF");
}

TEST(ErrorOfInvoke, TakesNumberSourceAndDescriptionOfTheException) {
    const struct {
        WORD code;
        SCODE number;
        std::int32_t expected;
        const char* why;
    } cases[] = {
        {0, server_number, server_number, "the number stays"},
        {13, 0, static_cast<std::int32_t>(0x800A000D), "a run-time error's own number"},
        {1013, server_number, static_cast<std::int32_t>(0x800A03F5),
         "only one of the two is meant to be set"},
        {0, 0, DISP_E_EXCEPTION, "an exception that does not say its number"},
        {0, 7, DISP_E_EXCEPTION, "a number that is no failure"},
    };
    for (const auto& row : cases) {
        EXCEPINFO exception = exception_of(row.code, row.number, "Host.Db", "Tabelle fehlt");
        const AutomationError error = error_of_invoke(DISP_E_EXCEPTION, exception);
        EXPECT_EQ(error.number(), row.expected) << row.why;
        EXPECT_EQ(error.source(), "Host.Db") << row.why;
        EXPECT_EQ(error.description(), "Tabelle fehlt") << row.why;
        EXPECT_EQ(exception.bstrSource, nullptr) << "the texts are freed";
        EXPECT_EQ(exception.bstrDescription, nullptr);
    }
}

HRESULT STDMETHODCALLTYPE fill_in_later(EXCEPINFO* exception) {
    exception->bstrDescription = Bstr("Später gefüllt").release();
    exception->scode = server_number;
    return S_OK;
}

TEST(ErrorOfInvoke, FetchesADeferredText) {
    EXCEPINFO exception{};
    exception.pfnDeferredFillIn = fill_in_later;
    const AutomationError error = error_of_invoke(DISP_E_EXCEPTION, exception);
    EXPECT_EQ(error.number(), server_number);
    EXPECT_EQ(error.description(), "Später gefüllt");
}

TEST(ErrorOfInvoke, AnExceptionWithoutTextHasTheSystems) {
    EXCEPINFO exception{};
    exception.scode = E_ACCESSDENIED;
    EXPECT_EQ(error_of_invoke(DISP_E_EXCEPTION, exception).description(), system_text(E_ACCESSDENIED));
}

TEST(ErrorOfInvoke, AnyOtherFailureIsItsNumberWithTheSystemsText) {
    EXCEPINFO exception{};
    const AutomationError error = error_of_invoke(RPC_E_DISCONNECTED, exception);
    EXPECT_EQ(error.number(), RPC_E_DISCONNECTED);
    EXPECT_EQ(error.source(), "");
    EXPECT_EQ(error.description(), system_text(RPC_E_DISCONNECTED));
}

TEST(ErrorOfCall, TakesTheErrorInformationThatTheObjectVouchesFor) {
    InterfaceDatabase object;
    publish(AutomationError(server_number, "Host.Db", "Tabelle „x“ fehlt"), __uuidof(IProtDatabase));
    const AutomationError error = error_of_interface(object, server_number);
    EXPECT_EQ(error.number(), server_number);
    EXPECT_EQ(error.source(), "Host.Db");
    EXPECT_EQ(error.description(), "Tabelle „x“ fehlt");
    EXPECT_EQ(object.references, 1U);
}

TEST(ErrorOfCall, LeavesNoErrorInformationBehind) {
    InterfaceDatabase object;
    for (const HRESULT vouches : {S_OK, S_FALSE}) {
        object.vouches = vouches;
        publish(AutomationError(server_number, "Host.Db", "alt"), __uuidof(IProtDatabase));
        error_of_interface(object, E_FAIL);
        ComPtr<IErrorInfo> information;
        EXPECT_EQ(GetErrorInfo(0, information.receive()), S_FALSE);
    }
}

TEST(ErrorOfCall, IsTheSystemsTextForInformationThatIsNotTheObjects) {
    InterfaceDatabase unvouching;
    unvouching.vouches = S_FALSE;
    PlainObject plain;
    IUnknown* const objects[] = {static_cast<IProtDatabase*>(&unvouching), &plain, nullptr};
    for (IUnknown* const object : objects) {
        publish(AutomationError(server_number, "Fremd", "von einem früheren Aufruf"),
                __uuidof(IProtDatabase));
        const AutomationError error = error_of_call(E_ACCESSDENIED, object, __uuidof(IProtDatabase));
        EXPECT_EQ(error.source(), "");
        EXPECT_EQ(error.description(), system_text(E_ACCESSDENIED));
    }
}

TEST(Publish, CrossesTheBorderUnchanged) {
    InterfaceDatabase object;
    const AutomationError error(server_number, "erste\r\nzweite", "Größe „x“ fehlt");
    EXPECT_EQ(publish(error, __uuidof(IProtDatabase)), server_number);
    const AutomationError back = error_of_interface(object, server_number);
    EXPECT_EQ(back.source(), error.source());
    EXPECT_EQ(back.description(), error.description());
}

TEST(Publish, NamesTheInterface) {
    publish(AutomationError(server_number, "s", "d"), __uuidof(IProtDatabase));
    ComPtr<IErrorInfo> information;
    ASSERT_EQ(GetErrorInfo(0, information.receive()), S_OK);
    GUID guid{};
    information->GetGUID(&guid);
    EXPECT_TRUE(guid == __uuidof(IProtDatabase));
}

TEST(Publish, ANumberThatIsNoFailureBecomesOne) {
    EXPECT_EQ(publish(AutomationError(0, "", ""), IID_IDispatch), E_FAIL);
    EXPECT_EQ(publish(AutomationError(429, "", ""), IID_IDispatch), E_FAIL);
    SetErrorInfo(0, nullptr);
}

}  // namespace
}  // namespace prot
