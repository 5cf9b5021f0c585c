#include "platform/windows/host/host_progress_parent.h"

#include <gtest/gtest.h>

#include "tests/unit/platform/windows/com/com_doubles.h"

namespace prot {
namespace {

using test::Call;
using test::error_of;
using test::PlainObject;

TEST(HostProgressParent, IsNoneForNothing) { EXPECT_EQ(host_progress_parent(nullptr), nullptr); }

TEST(HostProgressParent, CallsTheHostsMembersWithLongsByReference) {
    PlainObject object;
    std::vector<std::string> calls;
    object.set("gRefresh", [&](Call& call) {
        calls.push_back("gRefresh " + std::to_string(call.arguments.size()));
        return S_OK;
    });
    object.set("gSetFortschritt", [&](Call& call) {
        EXPECT_EQ(call.arguments.at(0)->vt, VT_BYREF | VT_I4);
        EXPECT_EQ(call.arguments.at(1)->vt, VT_BYREF | VT_I4);
        calls.push_back(std::to_string(*call.arguments[0]->plVal) + "/" +
                        std::to_string(*call.arguments[1]->plVal));
        *call.arguments[0]->plVal = 99;  // a host may change its own parameter
        return S_OK;
    });
    const auto parent = host_progress_parent(&object);
    parent->gRefresh();
    parent->gSetFortschritt(-3, 2);
    parent->gSetFortschritt(-2, 2);
    EXPECT_EQ(calls, (std::vector<std::string>{"gRefresh 0", "-3/2", "-2/2"}));
    EXPECT_EQ(object.names_asked, (std::vector<std::string>{"gRefresh", "gSetFortschritt"}));
}

TEST(HostProgressParent, AsksForAMemberWhenItIsFirstNeeded) {
    PlainObject object;
    const auto parent = host_progress_parent(&object);
    EXPECT_TRUE(object.names_asked.empty());
    const AutomationError error = error_of([&] { parent->gSetFortschritt(0, 1); });
    EXPECT_EQ(error.number(), error_member_unknown);
    EXPECT_EQ(error.description(), "Das Objekt poParent hat keine Methode gSetFortschritt.");
}

TEST(HostProgressParent, PassesTheHostsErrorsUnchanged) {
    PlainObject object;
    object.set("gRefresh", test::raises(E_ABORT, "Host.Form", "Abgebrochen"));
    const auto parent = host_progress_parent(&object);
    const AutomationError error = error_of([&] { parent->gRefresh(); });
    EXPECT_EQ(error.number(), E_ABORT);
    EXPECT_EQ(error.source(), "Host.Form");
    EXPECT_EQ(error.description(), "Abgebrochen");
}

TEST(HostProgressParent, KeepsTheObjectForAsLongAsItLives) {
    PlainObject object;
    auto parent = host_progress_parent(&object);
    EXPECT_EQ(object.references, 2U);
    parent.reset();
    EXPECT_EQ(object.references, 1U);
}

}  // namespace
}  // namespace prot
