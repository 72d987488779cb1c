#include "framework/com/SafeArray.h"

#include <gtest/gtest.h>

#include "tests/unit/framework/com/TestRow.h"

namespace {

TEST(SafeArrayView, NoArray_IsRefused) {
    fw::SafeArrayView view;
    EXPECT_EQ(fw::SafeArrayView::FromVariant(nullptr, view), E_POINTER);
    EXPECT_EQ(fw::SafeArrayView::FromVariant(fw::Variant::FromLong(1).Address(), view), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(fw::SafeArrayView::FromVariant(fw::Variant::FromArray(VT_I4, nullptr).Address(), view),
              DISP_E_TYPEMISMATCH);
}

TEST(SafeArrayView, TwoDimensions_AreRefused) {
    SAFEARRAYBOUND bounds[] = {{2, 0}, {2, 0}};
    const auto value = fw::Variant::FromArray(VT_I4, ::SafeArrayCreate(VT_I4, 2, bounds));
    fw::SafeArrayView view;
    EXPECT_EQ(fw::SafeArrayView::FromVariant(value.Address(), view), DISP_E_BADINDEX);
}

TEST(SafeArrayView, LowerBoundOtherThanZero_CountsFromZero) {
    SAFEARRAYBOUND bound{3, -1};
    const auto value = fw::Variant::FromArray(VT_I4, ::SafeArrayCreate(VT_I4, 1, &bound));
    for (LONG index = -1; index <= 1; ++index) {
        LONG number = index * 10;
        ASSERT_EQ(::SafeArrayPutElement(value.Get().parray, &index, &number), S_OK);
    }
    fw::SafeArrayView view;
    ASSERT_EQ(fw::SafeArrayView::FromVariant(value.Address(), view), S_OK);
    EXPECT_EQ(view.Count(), 3);
    LONG number = 0;
    EXPECT_EQ(view.GetLong(0, number), S_OK);
    EXPECT_EQ(number, -10);
    EXPECT_EQ(view.GetLong(2, number), S_OK);
    EXPECT_EQ(number, 10);
    EXPECT_EQ(view.GetLong(3, number), DISP_E_BADINDEX);
    EXPECT_EQ(view.GetLong(-1, number), DISP_E_BADINDEX);
}

TEST(SafeArrayView, ByReference_IsFollowed) {
    const LONG numbers[] = {4, 5};
    fw::Variant array;
    ASSERT_EQ(fw::MakeLongArray(numbers, 2, array), S_OK);
    SAFEARRAY* bare = array.Get().parray;
    VARIANT byReference{};
    byReference.vt = VT_BYREF | VT_ARRAY | VT_I4;
    byReference.pparray = &bare;
    VARIANT outer{};
    outer.vt = VT_BYREF | VT_VARIANT;
    outer.pvarVal = &byReference;
    fw::SafeArrayView view;
    ASSERT_EQ(fw::SafeArrayView::FromVariant(&outer, view), S_OK);
    EXPECT_EQ(view.Count(), 2);
    EXPECT_EQ(view.ElementType(), VT_I4);
}

TEST(SafeArrayView, Objects_ComeWithAReferenceOfTheirOwn) {
    auto row = kvtest::MakeRow();
    IDispatch* const entries[] = {static_cast<ITestRow*>(row.Get()), nullptr};
    fw::Variant array;
    ASSERT_EQ(fw::MakeDispatchArray(entries, 2, array), S_OK);
    fw::SafeArrayView view;
    ASSERT_EQ(fw::SafeArrayView::FromVariant(array.Address(), view), S_OK);
    fw::ComPtr<IUnknown> object;
    ASSERT_EQ(view.GetUnknown(0, object), S_OK);
    array.Clear();
    row.Reset();
    EXPECT_TRUE(object.As<ITestRow>());
}

TEST(SafeArrayView, NullAndEmptyElements_GiveNoObject) {
    const fw::Variant elements[] = {fw::Variant(), fw::Variant::FromUnknown(nullptr),
                                    fw::Variant::FromLong(1)};
    fw::Variant array;
    ASSERT_EQ(fw::MakeVariantArray(elements, 3, array), S_OK);
    fw::SafeArrayView view;
    ASSERT_EQ(fw::SafeArrayView::FromVariant(array.Address(), view), S_OK);
    fw::ComPtr<IUnknown> object;
    EXPECT_EQ(view.GetUnknown(0, object), S_OK);
    EXPECT_FALSE(object);
    EXPECT_EQ(view.GetUnknown(1, object), S_OK);
    EXPECT_FALSE(object);
    EXPECT_EQ(view.GetUnknown(2, object), DISP_E_TYPEMISMATCH);
}

TEST(SafeArrayView, TextElements_AreCopies) {
    fw::Variant array = fw::Variant::FromArray(VT_BSTR, ::SafeArrayCreateVector(VT_BSTR, 0, 1));
    LONG index = 0;
    const fw::Bstr text(L"layer");
    ASSERT_EQ(::SafeArrayPutElement(array.Get().parray, &index, text.Get()), S_OK);
    fw::SafeArrayView view;
    ASSERT_EQ(fw::SafeArrayView::FromVariant(array.Address(), view), S_OK);
    fw::Variant element;
    ASSERT_EQ(view.GetVariant(0, element), S_OK);
    array.Clear();
    EXPECT_EQ(element.StringView(), L"layer");
}

}  // namespace
