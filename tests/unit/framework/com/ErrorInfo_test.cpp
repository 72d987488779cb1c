#include "framework/com/ErrorInfo.h"

#include <gtest/gtest.h>

namespace {

TEST(ErrorInfo, SetAndTake_GivesTheTextOnce) {
    EXPECT_EQ(fw::SetErrorText(E_ABORT, IID_IDispatch, L"row", L"the layer is locked"), E_ABORT);
    fw::ErrorInfo info;
    ASSERT_TRUE(fw::TakeErrorInfo(info));
    EXPECT_EQ(info.source, L"row");
    EXPECT_EQ(info.description, L"the layer is locked");
    EXPECT_TRUE(::IsEqualIID(info.interfaceId, IID_IDispatch));
    EXPECT_FALSE(fw::TakeErrorInfo(info));
    EXPECT_TRUE(info.description.empty());
}

TEST(ErrorInfo, Clear_RemovesTheText) {
    EXPECT_EQ(fw::SetErrorText(E_FAIL, IID_NULL, L"", L"old reason"), E_FAIL);
    fw::ClearErrorInfo();
    fw::ErrorInfo info;
    EXPECT_FALSE(fw::TakeErrorInfo(info));
}

}  // namespace
