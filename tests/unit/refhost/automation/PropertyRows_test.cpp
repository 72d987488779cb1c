#include "refhost/automation/PropertyRows.h"

#include <algorithm>

#include "host_sdk/IDynamicProperty.h"
#include "host_sdk/IDynamicPropertyByObject.h"
#include "refhost/db/Attribute.h"
#include "refhost/db/BlockReference.h"
#include "refhost/db/Circle.h"
#include "refhost/db/Text.h"
#include "refhost/editor/SystemVariables.h"
#include "tests/support/ExpectCalls.h"
#include "tests/unit/refhost/automation/AutomationFixture.h"

namespace {

using kvhost::Attribute;
using kvhost::BlockReference;
using kvhost::Circle;
using kvhost::PropertyRow;
using kvhost::Text;

class PropertyRowsTest : public kvtest::AutomationFixture {
protected:
    KvDbObjectId AddReference(const std::vector<std::pair<const wchar_t*, const wchar_t*>>& attributes) {
        if (m_block.isNull()) {
            EXPECT_EQ(m_database.AddBlock(L"Tree", m_block), Tolm::eOk);
        }
        const KvDbObjectId reference = Add<BlockReference>(
            [&](BlockReference& made) { EXPECT_EQ(made.SetBlockId(m_block), Tolm::eOk); });
        for (const auto& [tag, value] : attributes) {
            auto attribute = std::make_unique<Attribute>();
            EXPECT_EQ(attribute->SetTag(tag), Tolm::eOk);
            EXPECT_EQ(attribute->SetValue(value), Tolm::eOk);
            KvDbObjectId id;
            EXPECT_EQ(m_database.Append(std::move(attribute), reference, id), Tolm::eOk);
        }
        return reference;
    }

    KvDbObjectId AddWithData(std::initializer_list<const wchar_t*> names) {
        return Add<Circle>([&](Circle& circle) {
            for (const wchar_t* const name : names) {
                EXPECT_EQ(circle.SetCustomAttribute(name, L"value"), Tolm::eOk);
            }
        });
    }

    static const PropertyRow* RowNamed(const std::vector<PropertyRow>& rows, std::wstring_view name) {
        const auto found =
            std::find_if(rows.begin(), rows.end(), [&](const PropertyRow& row) { return row.name == name; });
        return found == rows.end() ? nullptr : &*found;
    }

    static std::vector<std::wstring> NamesOf(const std::vector<PropertyRow>& rows,
                                             std::wstring_view category) {
        std::vector<std::wstring> names;
        for (const PropertyRow& row : rows) {
            if (row.category == category) {
                names.push_back(row.name);
            }
        }
        return names;
    }

    KvDbObjectId m_block;
};

TEST_F(PropertyRowsTest, NothingSelected_NoRows) {
    EXPECT_TRUE(kvhost::RowsOf({}).empty());
    EXPECT_EQ(kvhost::ClassNameOf({}), L"");
}

TEST_F(PropertyRowsTest, RowControls_NamesTheControlsOfRows) {
    const std::vector ids{Add<Text>()};
    const auto controlOf = [&](const wchar_t* row) {
        const auto rows = kvhost::RowsOf(ids);
        return RowNamed(rows, row)->control;
    };
    kvhost::SystemVariables& variables = m_session->Variables();
    const std::wstring own = controlOf(L"Layer");
    variables.SetText(L"ROWCONTROLS", L"Contents=Other.Editor.1;Height=Kv.Height.2");
    EXPECT_EQ(controlOf(L"Contents"), L"Other.Editor.1");
    EXPECT_EQ(controlOf(L"Height"), L"Kv.Height.2");
    EXPECT_EQ(controlOf(L"Layer"), own);
    for (const wchar_t* const text : {L"", L";;", L"Contents", L"Contents=", L"contents=Other.Editor.1"}) {
        variables.SetText(L"ROWCONTROLS", text);
        EXPECT_EQ(controlOf(L"Contents"), L"KvPePropertyEditorText") << kvtest::ToUtf8(text);
    }
}

TEST_F(PropertyRowsTest, OneObject_HasTheRowsOfItsTable) {
    const std::vector ids{Add<Circle>()};
    const auto rows = kvhost::RowsOf(ids);
    ASSERT_EQ(rows.size(), 13U);
    EXPECT_EQ(rows[0].groupSize, 0U);
    EXPECT_EQ(rows[0].name, L"Color");
    const PropertyRow* const radius = RowNamed(rows, L"Radius");
    ASSERT_NE(radius, nullptr);
    EXPECT_EQ(radius->control, L"KvPePropertyEditorTOLMNumeric");
    EXPECT_EQ(radius->category, L"Geometry");
    ASSERT_EQ(radius->entries.size(), 1U);
    EXPECT_EQ(radius->entries[0].dispid, 202);
    EXPECT_FALSE(radius->entries[0].dynamicProperty);
    EXPECT_EQ(kvhost::ClassNameOf(ids), L"Circle");
}

TEST_F(PropertyRowsTest, DifferentClasses_HaveWhatAllHave) {
    const std::vector ids{Add<Circle>(), Add<Text>()};
    const auto rows = kvhost::RowsOf(ids);
    EXPECT_NE(RowNamed(rows, L"Layer"), nullptr);
    EXPECT_EQ(RowNamed(rows, L"Radius"), nullptr);
    EXPECT_EQ(RowNamed(rows, L"Contents"), nullptr);
    EXPECT_EQ(kvhost::ClassNameOf(ids), L"");
    for (const PropertyRow& row : rows) {
        EXPECT_EQ(row.entries.size(), 2U);
    }
}

TEST_F(PropertyRowsTest, SameRowWithOtherDispatchId_IsOneRow) {
    KvDbObjectId block;
    ASSERT_EQ(m_database.AddBlock(L"Tree", block), Tolm::eOk);
    const std::vector ids{Add<Text>(), Add<BlockReference>([&](BlockReference& made) {
                              EXPECT_EQ(made.SetBlockId(block), Tolm::eOk);
                          })};
    const auto rows = kvhost::RowsOf(ids);
    const PropertyRow* const position = RowNamed(rows, L"Position");
    ASSERT_NE(position, nullptr);
    EXPECT_EQ(position->entries[0].dispid, 235);
    EXPECT_EQ(position->entries[1].dispid, 246);
}

TEST_F(PropertyRowsTest, SelectionWithUnknownObject_HasNoRows) {
    const std::vector ids{Add<Circle>(), m_database.SettingsId()};
    EXPECT_TRUE(kvhost::RowsOf(ids).empty());
}

TEST_F(PropertyRowsTest, BlockAttributes_AreRowsNamedByTag) {
    const std::vector ids{AddReference({{L"NUMBER", L"1"}, {L"KIND", L"oak"}}),
                          AddReference({{L"KIND", L"fir"}, {L"AGE", L"7"}})};
    const auto rows = kvhost::RowsOf(ids);
    EXPECT_EQ(NamesOf(rows, L"Attributes"), std::vector<std::wstring>{L"KIND"});
    const PropertyRow* const kind = RowNamed(rows, L"KIND");
    ASSERT_NE(kind, nullptr);
    fw::Variant value;
    ASSERT_EQ(Get(kind->entries[1].object.Get(), kind->entries[1].dispid, value), S_OK);
    EXPECT_EQ(value.StringView(), L"fir");
}

TEST_F(PropertyRowsTest, RepeatedTag_IsOneRowOfTheFirstAttribute) {
    const std::vector ids{AddReference({{L"KIND", L"oak"}, {L"KIND", L"fir"}})};
    const auto rows = kvhost::RowsOf(ids);
    EXPECT_EQ(NamesOf(rows, L"Attributes").size(), 1U);
}

TEST_F(PropertyRowsTest, CustomAttributes_AreDynamicRowsOfOneSharedProperty) {
    const std::vector ids{AddWithData({L"NAME", L"POP"}), AddWithData({L"POP"})};
    const auto rows = kvhost::RowsOf(ids);
    EXPECT_EQ(NamesOf(rows, L"Data"), std::vector<std::wstring>{L"POP"});
    const PropertyRow& population = rows.back();
    EXPECT_EQ(population.type, VT_BSTR);
    ASSERT_EQ(population.entries.size(), 2U);
    EXPECT_EQ(population.entries[0].dispid, kvhost::DispidDynamic);
    EXPECT_TRUE(fw::IsSameObject(population.entries[0].dynamicProperty.Get(),
                                 population.entries[1].dynamicProperty.Get()));

    // The same property serves the next selection while somebody holds it.
    const auto again = kvhost::RowsOf(std::vector{ids[1]});
    EXPECT_TRUE(fw::IsSameObject(again.back().entries[0].dynamicProperty.Get(),
                                 population.entries[0].dynamicProperty.Get()));
}

TEST_F(PropertyRowsTest, DynamicForms_FollowTheKindOfTheAttribute) {
    const std::vector ids{AddWithData({L"Remarks", L"Inspection", L"Survey", L"Source", L"POP"})};
    const auto rows = kvhost::RowsOf(ids);
    const auto offers = [&]<class Interface>(const wchar_t* name, Interface*) {
        const auto& property = RowNamed(rows, name)->entries[0].dynamicProperty;
        return static_cast<bool>(property.template As<Interface>());
    };
    EXPECT_FALSE(offers(L"Remarks", static_cast<IDynamicPropertyByObject*>(nullptr)));
    for (const wchar_t* const name : {L"Inspection", L"Survey", L"Source", L"POP"}) {
        EXPECT_TRUE(offers(name, static_cast<IDynamicPropertyByObject*>(nullptr)));
    }
    for (const wchar_t* const name : {L"Remarks", L"Inspection", L"Survey", L"Source", L"POP"}) {
        EXPECT_TRUE(offers(name, static_cast<IDynamicProperty*>(nullptr)));
    }
    EXPECT_EQ(RowNamed(rows, L"Source")->flags, unsigned{kvhost::PropertyReadOnly});
    EXPECT_EQ(RowNamed(rows, L"Remarks")->flags, unsigned{kvhost::PropertyUnspecified});
    EXPECT_EQ(RowNamed(rows, L"POP")->flags, 0U);
}

TEST_F(PropertyRowsTest, ThousandObjects_ShareOneRow) {
    std::vector<KvDbObjectId> ids(1000);
    std::generate(ids.begin(), ids.end(), [this] { return Add<Circle>(); });
    const auto rows = kvhost::RowsOf(ids);
    EXPECT_EQ(rows.size(), 13U);
    EXPECT_EQ(rows.front().entries.size(), 1000U);
    EXPECT_EQ(kvhost::LiveObject::Count(), 1000);
}

}  // namespace
