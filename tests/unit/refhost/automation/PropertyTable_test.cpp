#include "refhost/automation/PropertyTable.h"

#include <gtest/gtest.h>

#include <set>

#include "tests/support/ExpectCalls.h"

namespace {

using kvhost::PropertyDescription;
using kvhost::PropertyTable;

TEST(PropertyTable, EveryClass_IsFoundByItsName) {
    for (const wchar_t* const name : {L"Line", L"Circle", L"Arc", L"Text", L"BlockReference", L"Attribute",
                                      L"Polyline", L"Point", L"Layer", L"PolylineVertex"}) {
        const PropertyTable* const table = PropertyTable::Of(name);
        ASSERT_NE(table, nullptr) << kvtest::ToUtf8(name);
        EXPECT_EQ(std::wstring_view(table->ClassName()), name);
    }
    EXPECT_EQ(PropertyTable::Of(L"Settings"), nullptr);
}

TEST(PropertyTable, ClassIds_AreAllDifferent) {
    std::set<std::wstring> seen;
    for (const PropertyTable* const table : PropertyTable::All()) {
        wchar_t text[40];
        ASSERT_NE(::StringFromGUID2(table->ClassId(), text, 40), 0);
        EXPECT_TRUE(seen.insert(text).second) << kvtest::ToUtf8(table->ClassName());
    }
}

TEST(PropertyTable, Rows_AreWellFormed) {
    for (const PropertyTable* const table : PropertyTable::All()) {
        std::set<DISPID> ids;
        std::set<std::wstring> names;
        for (const PropertyDescription& row : table->Rows()) {
            const std::string name = kvtest::ToUtf8(table->ClassName()) + "." + kvtest::ToUtf8(row.name);
            EXPECT_TRUE(ids.insert(row.dispid).second) << name;
            EXPECT_TRUE(names.insert(row.name).second) << name;
            EXPECT_NE(row.dispid, DISPID_VALUE) << name;
            EXPECT_TRUE(std::wstring_view(row.control).starts_with(L"KvPe")) << name;
            EXPECT_EQ(row.dialog != nullptr, row.Has(kvhost::PropertyDialog)) << name;
            EXPECT_EQ(row.get != nullptr && row.set == nullptr, row.Has(kvhost::PropertyReadOnly)) << name;
        }
    }
}

TEST(PropertyTable, Find_ByIdAndByNameInAnyCase) {
    const PropertyTable& table = *PropertyTable::Of(L"Circle");
    const PropertyDescription* const radius = table.FindByName(L"RADIUS");
    ASSERT_NE(radius, nullptr);
    EXPECT_EQ(table.Find(radius->dispid), radius);
    EXPECT_EQ(table.Find(0), nullptr);
    EXPECT_EQ(table.FindByName(L"Radiu"), nullptr);
}

TEST(PropertyTable, TextRows_UseTheTextControls) {
    const PropertyTable& table = *PropertyTable::Of(L"Text");
    for (const wchar_t* const name : {L"TextString", L"StyleName", L"Handle"}) {
        EXPECT_STREQ(table.FindByName(name)->control, L"KvPePropertyEditorText");
    }
    EXPECT_STREQ(table.FindByName(L"Description")->control, L"KvPePropertyEditorEditButton");
    EXPECT_STREQ(table.FindByName(L"Hyperlink")->control, L"KvPePropertyEditorEllipsesHyperlinks");
    EXPECT_STREQ(table.FindByName(L"Passcode")->control, L"KvPePropertyEditorPwdText");
    EXPECT_TRUE(table.FindByName(L"Passcode")->Has(kvhost::PropertyMasked));
}

}  // namespace
