#include <gtest/gtest.h>

#include "platform/windows/com/bstr.h"
#include "platform/windows/com/com_ptr.h"
#include "platform/windows/com/variant.h"
#include "tests/unit/platform/windows/com/com_doubles.h"

namespace prot {
namespace {

using test::PlainObject;

/// A variant that holds a reference, so that the object tells whether the variant was cleared.
VARIANT variant_of(PlainObject& object) {
    VARIANT variant;
    VariantInit(&variant);
    variant.vt = VT_DISPATCH;
    variant.pdispVal = &object;
    object.AddRef();
    return variant;
}

TEST(ComPtr, AdoptTakesOverAReference) {
    PlainObject object;
    object.AddRef();
    { const auto owner = ComPtr<IDispatch>::adopt(&object); }
    EXPECT_EQ(object.references, 1U);
}

TEST(ComPtr, ShareAndCopiesTakeReferencesOfTheirOwn) {
    PlainObject object;
    {
        const auto owner = ComPtr<IDispatch>::share(&object);
        const ComPtr<IDispatch> copy = owner;
        EXPECT_EQ(object.references, 3U);
    }
    EXPECT_EQ(object.references, 1U);
}

TEST(ComPtr, BorrowLeavesTheReferenceWithItsOwner) {
    PlainObject object;
    const auto owner = ComPtr<IDispatch>::share(&object);
    EXPECT_EQ(owner.borrow(), &object);
    EXPECT_EQ(object.references, 2U);
}

TEST(ComPtr, ReleaseGivesTheReferenceAway) {
    PlainObject object;
    auto owner = ComPtr<IDispatch>::share(&object);
    EXPECT_EQ(owner.release(), &object);
    EXPECT_FALSE(owner);
    EXPECT_EQ(object.references, 2U);
}

TEST(ComPtr, ReceiveGivesUpTheOldReference) {
    PlainObject old, filled;
    {
        auto owner = ComPtr<IDispatch>::share(&old);
        old.QueryInterface(IID_IDispatch, reinterpret_cast<void**>(owner.receive()));
        EXPECT_EQ(old.references, 2U);
        *owner.receive() = &filled;
        filled.AddRef();
        EXPECT_EQ(old.references, 1U);
    }
    EXPECT_EQ(filled.references, 1U);
}

TEST(ComPtr, QueryIsNullForAnInterfaceThatTheObjectLacks) {
    PlainObject object;
    const auto owner = ComPtr<IDispatch>::share(&object);
    EXPECT_FALSE(owner.query<IDispatchEx>());
    EXPECT_TRUE(owner.query<IUnknown>());
    EXPECT_FALSE(ComPtr<IDispatch>().query<IUnknown>());
    EXPECT_EQ(object.references, 2U);
}

TEST(Bstr, KeepsEveryCharacterOfAText) {
    const std::string text(
        "Gr\xC3\xB6\xC3\x9F"
        "e\0 \xF0\x9F\x98\x80",
        13);
    const Bstr owner(text);
    EXPECT_EQ(SysStringLen(owner.borrow()), 9U) << "a pair of units, and no end at the null character";
    EXPECT_EQ(owner.text(), text);
}

TEST(Bstr, NoneIsTheEmptyText) {
    EXPECT_EQ(Bstr().text(), "");
    EXPECT_EQ(text_of(nullptr), "");
    EXPECT_EQ(SysStringLen(Bstr("").borrow()), 0U);
}

TEST(Bstr, AdoptTakesOverAndReleaseGivesAway) {
    const BSTR raw = SysAllocString(L"a");
    Bstr owner = Bstr::adopt(raw);
    EXPECT_EQ(owner.borrow(), raw);
    EXPECT_EQ(owner.release(), raw);
    EXPECT_EQ(owner.borrow(), nullptr);
    SysFreeString(raw);
}

TEST(Bstr, ReceiveIsFilledByACall) {
    Bstr owner("alt");
    BSTR* const place = owner.receive();
    EXPECT_EQ(*place, nullptr) << "the old text is gone";
    *place = SysAllocString(L"neu");
    EXPECT_EQ(owner.text(), "neu");
    const Bstr moved = std::move(owner);
    EXPECT_EQ(moved.text(), "neu");
}

TEST(Variant, AdoptTakesOverWhatTheVariantHolds) {
    PlainObject object;
    { const Variant owner = Variant::adopt(variant_of(object)); }
    EXPECT_EQ(object.references, 1U);
}

TEST(Variant, BorrowLeavesTheValueWithItsOwner) {
    PlainObject object;
    const Variant owner = Variant::adopt(variant_of(object));
    EXPECT_EQ(owner.borrow().pdispVal, &object);
    EXPECT_EQ(object.references, 2U);
}

TEST(Variant, ReleaseGivesTheValueAwayAndLeavesEmpty) {
    PlainObject object;
    Variant owner = Variant::adopt(variant_of(object));
    VARIANT released = owner.release();
    EXPECT_EQ(owner.borrow().vt, VT_EMPTY);
    EXPECT_EQ(object.references, 2U);
    VariantClear(&released);
    EXPECT_EQ(object.references, 1U);
}

TEST(Variant, ReceiveClearsTheOldValue) {
    PlainObject object;
    Variant owner = Variant::adopt(variant_of(object));
    VARIANT* const place = owner.receive();
    EXPECT_EQ(object.references, 1U);
    EXPECT_EQ(place->vt, VT_EMPTY);
    *place = test::long_variant(7);
    EXPECT_EQ(owner.borrow().lVal, 7);
}

}  // namespace
}  // namespace prot
