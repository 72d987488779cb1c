#include "core/ExceptionRecord.h"

#include <gtest/gtest.h>

namespace {

HRESULT WINAPI FillInLate(EXCEPINFO* info) {
    info->scode = E_ACCESSDENIED;
    info->bstrDescription = ::SysAllocString(L"late");
    return S_OK;
}

TEST(ExceptionRecord, Empty_HasNoDescriptionAndNoCode) {
    ExceptionRecord record;
    EXPECT_EQ(record.Description(), nullptr);
    EXPECT_EQ(record.Code(), 0);
}

TEST(ExceptionRecord, DeferredDetails_AreFilledInOnDemand) {
    ExceptionRecord record;
    record.Put()->pfnDeferredFillIn = &FillInLate;
    EXPECT_EQ(record.Description(), nullptr);
    record.Complete();
    EXPECT_STREQ(record.Description(), L"late");
    EXPECT_EQ(record.Code(), E_ACCESSDENIED);
}

TEST(ExceptionRecord, ObjectThatNumbersItself_GivesThatNumber) {
    ExceptionRecord record;
    record.Put()->wCode = 1001;
    EXPECT_EQ(record.Code(), 1001);
}

TEST(ExceptionRecord, Put_EmptiesTheRecord) {
    ExceptionRecord record;
    record.Put()->bstrDescription = ::SysAllocString(L"first");
    EXPECT_EQ(record.Put()->bstrDescription, nullptr);
    EXPECT_EQ(record.Code(), 0);
}

}  // namespace
