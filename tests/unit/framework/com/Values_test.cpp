#include <gtest/gtest.h>

#include <stdexcept>

#include "framework/com/Bstr.h"
#include "framework/com/ComPtr.h"
#include "framework/com/Guarded.h"
#include "framework/com/Variant.h"
#include "tests/unit/framework/com/TestRow.h"

namespace {

using kvtest::MakeRow;

ULONG CountOf(IUnknown* object) {
    object->AddRef();
    return object->Release();
}

TEST(ComPtr, CopyAndMove_KeepTheCount) {
    const auto row = MakeRow();
    EXPECT_EQ(CountOf(row->GetUnknown()), 1u);
    {
        fw::ComPtr<IUnknown> copy(row->GetUnknown());
        EXPECT_EQ(CountOf(row->GetUnknown()), 2u);
        fw::ComPtr<IUnknown> moved(std::move(copy));
        EXPECT_EQ(CountOf(row->GetUnknown()), 2u);
        moved = moved.Get();
        EXPECT_EQ(CountOf(row->GetUnknown()), 2u);
    }
    EXPECT_EQ(CountOf(row->GetUnknown()), 1u);
}

TEST(ComPtr, Put_ReleasesWhatWasHeld) {
    const auto row = MakeRow();
    fw::ComPtr<IUnknown> holder(row->GetUnknown());
    *holder.Put() = nullptr;
    EXPECT_EQ(CountOf(row->GetUnknown()), 1u);
    EXPECT_FALSE(holder);
}

TEST(ComPtr, AttachAndDetach_PassTheReferenceOn) {
    const auto row = MakeRow();
    fw::ComPtr<IUnknown> holder(row->GetUnknown());
    IUnknown* const bare = holder.Detach();
    EXPECT_EQ(CountOf(row->GetUnknown()), 2u);
    holder.Attach(bare);
    holder.Reset();
    EXPECT_EQ(CountOf(row->GetUnknown()), 1u);
}

TEST(ComPtr, As_MissingInterface_GivesNull) {
    const fw::ComPtr<IUnknown> row(MakeRow()->GetUnknown());
    EXPECT_TRUE(row.As<IOleObject>());
    EXPECT_FALSE(row.As<IDataObject>());
    EXPECT_FALSE(fw::ComPtr<IUnknown>().As<IOleObject>());
    EXPECT_TRUE(fw::IsSameObject(row.As<IOleObject>().Get(), row.As<IDispatch>().Get()));
}

TEST(Bstr, EmbeddedNullsAndEmptyTexts_AreKept) {
    const fw::Bstr text(std::wstring_view(L"a\0b", 3));
    EXPECT_EQ(text.Length(), 3u);
    EXPECT_EQ(fw::Bstr(text).View(), std::wstring_view(L"a\0b", 3));
    const fw::Bstr none;
    EXPECT_TRUE(none.IsEmpty());
    EXPECT_STREQ(none.Text(), L"");
    EXPECT_EQ(fw::Bstr(none).Get(), nullptr);
    BSTR copy = nullptr;
    EXPECT_EQ(none.CopyTo(&copy), S_OK);
    EXPECT_EQ(::SysStringLen(copy), 0u);
    ::SysFreeString(copy);
    EXPECT_EQ(none.CopyTo(nullptr), E_POINTER);
}

TEST(Variant, Copies_AreIndependent) {
    const auto first = fw::Variant::FromString(L"row");
    fw::Variant second(first);
    EXPECT_NE(first.Get().bstrVal, second.Get().bstrVal);
    second = fw::Variant::FromLong(7);
    EXPECT_EQ(first.StringView(), L"row");
    EXPECT_EQ(second.LongOr(0), 7);
    EXPECT_EQ(second.DoubleOr(1.5), 1.5);
}

TEST(Variant, FromBstr_TakesTheTextOver) {
    fw::Bstr text(L"row");
    const BSTR held = text.Get();
    const auto value = fw::Variant::FromBstr(std::move(text));
    EXPECT_EQ(value.Get().bstrVal, held);
    const auto empty = fw::Variant::FromBstr(fw::Bstr());
    EXPECT_TRUE(empty.Is(VT_BSTR));
    EXPECT_NE(empty.Get().bstrVal, nullptr);
    EXPECT_EQ(empty.StringView(), L"");
}

TEST(Variant, Clear_ValueThatHoldsNothing_IsEmpty) {
    for (fw::Variant value : {fw::Variant::FromLong(1), fw::Variant::FromDouble(1),
                              fw::Variant::FromBool(true), fw::Variant::FromError(1), fw::Variant::Null()}) {
        value.Clear();
        EXPECT_TRUE(value.IsEmpty());
    }
}

TEST(Variant, Objects_AreReferenced) {
    const auto row = MakeRow();
    {
        const auto value = fw::Variant::FromUnknown(row->GetUnknown());
        fw::Variant copy;
        copy = value;
        EXPECT_EQ(CountOf(row->GetUnknown()), 3u);
        EXPECT_EQ(copy.Unknown(), row->GetUnknown());
    }
    EXPECT_EQ(CountOf(row->GetUnknown()), 1u);
}

TEST(Variant, ChangeType_Impossible_KeepsTheValue) {
    auto value = fw::Variant::FromString(L"no number");
    EXPECT_EQ(value.ChangeType(VT_I4), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(value.StringView(), L"no number");
    auto number = fw::Variant::FromString(L"12");
    EXPECT_EQ(number.ChangeType(VT_I4), S_OK);
    EXPECT_EQ(number.LongOr(0), 12);
}

TEST(Variant, CopyFrom_UnknownType_KeepsTheValue) {
    auto value = fw::Variant::FromLong(3);
    VARIANT bad{};
    bad.vt = 0x0FFF;
    EXPECT_TRUE(FAILED(value.CopyFrom(bad)));
    EXPECT_EQ(value.LongOr(0), 3);
}

TEST(Variant, Dereference_FollowsReferencesButNotForEver) {
    auto inner = fw::Variant::FromLong(5);
    VARIANT outer{};
    outer.vt = VT_BYREF | VT_VARIANT;
    outer.pvarVal = inner.Address();
    EXPECT_EQ(fw::Variant::Dereference(&outer), inner.Address());
    outer.pvarVal = &outer;
    EXPECT_EQ(fw::Variant::Dereference(&outer), &outer);
    EXPECT_EQ(fw::Variant::Dereference(nullptr), nullptr);
}

TEST(Guarded, Exceptions_BecomeResults) {
    EXPECT_EQ(fw::Guarded([]() -> HRESULT { throw std::bad_alloc(); }), E_OUTOFMEMORY);
    EXPECT_EQ(fw::Guarded([]() -> HRESULT { throw std::runtime_error("row"); }), E_FAIL);
    EXPECT_EQ(fw::Guarded([]() -> HRESULT { throw 5; }), E_FAIL);
    EXPECT_EQ(fw::Guarded([] { return S_FALSE; }), S_FALSE);
}

HRESULT AllMacros(int* pointer, HRESULT expected, HRESULT bug) {
    RETURN_IF_NULL_POINTER(pointer);
    RETURN_IF_FAILED_EXPECTED(expected);
    RETURN_IF_FAILED(bug);
    RETURN_HR_IF(S_FALSE, *pointer == 1);
    return S_OK;
}

TEST(Hresult, Macros_ReturnTheFirstFailure) {
    int number = 0;
    EXPECT_EQ(AllMacros(nullptr, S_OK, S_OK), E_POINTER);
    EXPECT_EQ(AllMacros(&number, E_ABORT, E_FAIL), E_ABORT);
    EXPECT_EQ(AllMacros(&number, S_FALSE, E_FAIL), E_FAIL);
    EXPECT_EQ(AllMacros(&number, S_OK, S_OK), S_OK);
    number = 1;
    EXPECT_EQ(AllMacros(&number, S_OK, S_OK), S_FALSE);
}

}  // namespace
