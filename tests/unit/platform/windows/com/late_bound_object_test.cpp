#include "platform/windows/com/late_bound_object.h"

#include <gtest/gtest.h>

#include "platform/windows/com/bstr.h"
#include "tests/unit/platform/windows/com/com_doubles.h"

namespace prot {
namespace {

using test::answers;
using test::Call;
using test::error_of;
using test::fails;
using test::long_variant;
using test::Members;
using test::PlainObject;
using test::raises;
using test::ScriptObject;

constexpr std::int32_t number = static_cast<std::int32_t>(0x80040E14);

template <class Object>
LateBoundObject bound(Object& object) {
    return LateBoundObject(ComPtr<IDispatch>::share(&object), "poParent");
}

/// The members of a late-bound object are reached the same way whatever kind of object it is.
template <class Object>
class LateBinding : public testing::Test {};
using Kinds = testing::Types<PlainObject, ScriptObject>;
TYPED_TEST_SUITE(LateBinding, Kinds);

TYPED_TEST(LateBinding, PassesArgumentsInTheOrderOfTheSignature) {
    TypeParam object;
    std::string seen;
    object.set("Sub1", [&seen](Call& call) {
        for (const VARIANT* argument : call.arguments)
            seen += argument->vt == VT_BSTR ? text_of(argument->bstrVal) + " "
                                            : std::to_string(argument->lVal) + " ";
        return S_OK;
    });
    const Bstr text("a");
    bound(object).call("Sub1", {argument(1L), argument(text.borrow()), argument(3L)});
    EXPECT_EQ(seen, "1 a 3 ");
    EXPECT_EQ(object.flags_seen, std::vector<WORD>{DISPATCH_METHOD});
}

TYPED_TEST(LateBinding, ReturnsTheAnswer) {
    TypeParam object;
    object.set("Fn", answers(long_variant(42)));
    EXPECT_EQ(bound(object).call("Fn", {}).borrow().lVal, 42);
}

TYPED_TEST(LateBinding, WritesBackWhatIsPassedByReference) {
    TypeParam object;
    object.set("Fill", [](Call& call) {
        *call.arguments[0]->plVal = 5;
        *call.arguments[1]->pbstrVal = Bstr("neu").release();
        return VariantCopy(call.arguments[2]->pvarVal, call.arguments[0]);
    });
    long count = 0;
    Bstr text;
    BSTR raw = nullptr;
    VARIANT variant;
    VariantInit(&variant);
    bound(object).call("Fill", {reference(count), reference(raw), reference(variant)});
    text = Bstr::adopt(raw);
    EXPECT_EQ(count, 5);
    EXPECT_EQ(text.text(), "neu");
    EXPECT_EQ(variant.vt, VT_BYREF | VT_I4);
}

TYPED_TEST(LateBinding, AsksForTheIdOfAMemberOnce) {
    TypeParam object;
    object.set("Fn", answers(long_variant(1)));
    LateBoundObject late = bound(object);
    EXPECT_TRUE(late.has("Fn"));
    for (int i = 0; i < 3; ++i) late.call("Fn", {});
    EXPECT_EQ(object.names_asked, std::vector<std::string>{"Fn"});
}

TYPED_TEST(LateBinding, ReadsAPropertyThatTakesArguments) {
    TypeParam object;
    object.accepted_flags = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
    object.set("Item", answers(long_variant(42)));
    EXPECT_EQ(bound(object).call("Item", {argument(1L)}).borrow().lVal, 42);
    EXPECT_EQ(object.flags_seen,
              (std::vector<WORD>{DISPATCH_METHOD, DISPATCH_METHOD | DISPATCH_PROPERTYGET}));
}

TYPED_TEST(LateBinding, AnUnknownMemberIsAnErrorThatNamesIt) {
    TypeParam object;
    LateBoundObject late = bound(object);
    EXPECT_FALSE(late.has("gRefresh"));
    const AutomationError error = error_of([&] { late.call("gRefresh", {}); });
    EXPECT_EQ(error.number(), error_member_unknown);
    EXPECT_EQ(error.description(), "Das Objekt poParent hat keine Methode gRefresh.");
    EXPECT_TRUE(object.flags_seen.empty());
}

TYPED_TEST(LateBinding, AMemberThatCannotBeCalledIsUnknown) {
    TypeParam object;
    object.set("Fn", fails(DISP_E_MEMBERNOTFOUND));
    const AutomationError error = error_of([&] { bound(object).call("Fn", {}); });
    EXPECT_EQ(error.number(), error_member_unknown);
    EXPECT_EQ(error.description(), "poParent.Fn: Das Objekt hat keine solche Methode.");
}

TYPED_TEST(LateBinding, TheMembersOwnErrorStaysAsItIs) {
    TypeParam object;
    object.set("Fn", raises(number, "Host.Form", "Fenster geschlossen"));
    const AutomationError error = error_of([&] { bound(object).call("Fn", {}); });
    EXPECT_EQ(error.number(), number);
    EXPECT_EQ(error.source(), "Host.Form");
    EXPECT_EQ(error.description(), "Fenster geschlossen");
}

TYPED_TEST(LateBinding, OtherFailuresNameObjectAndMember) {
    const struct {
        HRESULT result;
        std::int32_t number;
        std::string description;
    } cases[] = {
        {DISP_E_TYPEMISMATCH, test::type_mismatch, "poParent.Fn: Typen unverträglich."},
        {DISP_E_BADPARAMCOUNT, static_cast<std::int32_t>(0x800A01C2),
         "poParent.Fn: Falsche Anzahl von Argumenten."},
        {RPC_E_DISCONNECTED, RPC_E_DISCONNECTED, "poParent.Fn: " + system_text(RPC_E_DISCONNECTED)},
        {E_OUTOFMEMORY, E_OUTOFMEMORY, "poParent.Fn: " + system_text(E_OUTOFMEMORY)},
    };
    for (const auto& row : cases) {
        TypeParam object;
        object.set("Fn", fails(row.result));
        const AutomationError error = error_of([&] { bound(object).call("Fn", {argument(1L)}); });
        EXPECT_EQ(error.number(), row.number) << row.description;
        EXPECT_EQ(error.description(), row.description);
    }
}

TYPED_TEST(LateBinding, AnObjectThatDoesNotAnswerAtAllIsNoUnknownMember) {
    TypeParam object;
    object.naming_result = RPC_E_DISCONNECTED;
    LateBoundObject late = bound(object);
    if constexpr (std::is_same_v<TypeParam, ScriptObject>) object.extended_works = false;
    EXPECT_EQ(error_of([&] { late.has("Fn"); }).number(), RPC_E_DISCONNECTED);
}

TYPED_TEST(LateBinding, KeepsAReferenceForAsLongAsItLives) {
    TypeParam object;
    object.set("Fn", answers(long_variant(1)));
    {
        LateBoundObject late = bound(object);
        EXPECT_GT(object.references, 1U);
        late.call("Fn", {});
    }
    EXPECT_EQ(object.references, 1U);
}

TYPED_TEST(LateBinding, AMemberMayBeCalledFromWithinAnother) {
    TypeParam object;
    LateBoundObject late = bound(object);
    for (const char* name : {"B", "C", "D", "E"}) object.set(name, answers(long_variant(2)));
    object.set("A", [&](Call& call) {
        for (const char* name : {"B", "C", "D", "E"}) late.call(name, {});
        *call.result = long_variant(1);
        return S_OK;
    });
    EXPECT_EQ(late.call("A", {}).borrow().lVal, 1);
    EXPECT_EQ(late.call("A", {}).borrow().lVal, 1);
}

TEST(LateBoundObject, SaysWhichArgumentHasTheWrongType) {
    PlainObject object;
    object.set("Fn", [](Call& call) {
        call.wrong_argument = 1;
        return DISP_E_TYPEMISMATCH;
    });
    const AutomationError error = error_of([&] {
        bound(object).call("Fn", {argument(1L), argument(2L), argument(3L)});
    });
    EXPECT_EQ(error.description(), "poParent.Fn, Argument 2: Typen unverträglich.");
}

TEST(LateBoundObject, FindsAScriptsMemberInOtherLetterCase) {
    ScriptObject object;
    object.set("gsetfortschritt", answers(long_variant(1)));
    EXPECT_TRUE(bound(object).has("gSetFortschritt"));
}

TEST(LateBoundObject, AScriptThatKnowsOneLetterCaseOnlyMayLackAMember) {
    ScriptObject object;
    object.case_sensitive_only = true;
    EXPECT_FALSE(bound(object).has("gRefresh"));
}

TEST(LateBoundObject, TakesThePlainWayWhenTheExtendedOneOnlySeemsToBeThere) {
    ScriptObject object;
    object.extended_works = false;
    object.set("Fn", answers(long_variant(42)));
    LateBoundObject late = bound(object);
    EXPECT_EQ(late.call("Fn", {}).borrow().lVal, 42);
    EXPECT_EQ(object.flags_seen, std::vector<WORD>{DISPATCH_METHOD});
}

}  // namespace
}  // namespace prot
