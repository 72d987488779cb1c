#include "refhost/testing/JournalText.h"

#include <gtest/gtest.h>

#include "refhost/testing/Journal.h"
#include "refhost/testing/ServiceCall.h"

namespace {

using kvhost::AsText;

TEST(JournalText, PlainValues) {
    EXPECT_EQ(AsText(-3), L"-3");
    EXPECT_EQ(AsText(5L), L"5");
    EXPECT_EQ(AsText(true), L"1");
    EXPECT_EQ(AsText(static_cast<const wchar_t*>(nullptr)), L"null");
    EXPECT_EQ(AsText(L"GRIPS"), L"GRIPS");
    EXPECT_EQ(AsText(0.5), L"0.5");
    EXPECT_EQ(AsText(0.1 + 0.2), L"0.30000000000000004");
}

TEST(JournalText, ResultCodes) {
    EXPECT_EQ(AsText(kvhost::ResultCode{E_FAIL}), L"0x80004005");
    EXPECT_EQ(AsText(kvhost::ResultCode{S_OK}), L"0x00000000");
}

TEST(JournalText, ObjectIds) {
    KvDbStub stub{nullptr, 0x1AB, 0};
    EXPECT_EQ(AsText(KvDbObjectId()), L"null");
    EXPECT_EQ(AsText(KvDbObjectId(&stub)), L"1AB");
}

TEST(JournalText, Join_PutsOneBlankBetween) {
    EXPECT_EQ(kvhost::JoinAsText(), L"");
    EXPECT_EQ(kvhost::JoinAsText(L"a", 1, L"b"), L"a 1 b");
}

TEST(JournalText, TextsThatAreMadeOnDemand) {
    int made = 0;
    const auto text = [&] {
        ++made;
        return std::wstring(L"text");
    };
    const kvhost::ServiceCall unwatched(L"service", text);
    EXPECT_EQ(made, 0);
    const kvhost::Journal journal;
    const kvhost::ServiceCall watched(L"service", text);
    EXPECT_EQ(made, 1);
    EXPECT_EQ(journal.Entries()[0].Line(), L"service text");
}

VARIANT Typed(VARTYPE type) {
    VARIANT value{};
    value.vt = type;
    return value;
}

TEST(JournalText, Variants) {
    VARIANT value = Typed(VT_I4);
    value.lVal = 7;
    EXPECT_EQ(AsText(value), L"i4:7");
    value = Typed(VT_R8);
    value.dblVal = 2.5;
    EXPECT_EQ(AsText(value), L"r8:2.5");
    value = Typed(VT_BOOL);
    value.boolVal = VARIANT_TRUE;
    EXPECT_EQ(AsText(value), L"true");
    value = Typed(VT_ERROR);
    value.scode = DISP_E_PARAMNOTFOUND;
    EXPECT_EQ(AsText(value), L"error:0x80020004");
    EXPECT_EQ(AsText(Typed(VT_EMPTY)), L"empty");
    EXPECT_EQ(AsText(Typed(VT_BSTR)), L"null");
    EXPECT_EQ(AsText(Typed(VT_ARRAY | VT_R8)), L"vt:0x2005");
    value = Typed(VT_BSTR);
    value.bstrVal = ::SysAllocString(L"text");
    EXPECT_EQ(AsText(value), L"\"text\"");
    ::SysFreeString(value.bstrVal);
}

}  // namespace
