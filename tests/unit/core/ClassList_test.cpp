#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "KvPEXCtl_h.h"

namespace {

struct Row {
    std::string coclass;
    int version;
    std::string classId;
    std::string className;
    std::string state;
    std::string description;
    std::string further;
    const CLSID* compiledId;
};

#define KVPE_CLASS(coclassName, version, classId, className, state, description, further) \
    {#coclassName, version, classId, #className, #state, description, #further, &CLSID_##coclassName},

const std::vector<Row> s_rows{
#include "core/ClassList.inc"
};

#undef KVPE_CLASS

TEST(ClassList, Rows_AreFortyNineOfWhichNineCameLater) {
    ASSERT_EQ(s_rows.size(), 49U);
    std::size_t later = 0;
    for (const Row& row : s_rows) {
        EXPECT_TRUE(row.version == 16 || row.version == 17) << row.coclass;
        later += row.version == 17 ? 1U : 0U;
    }
    EXPECT_EQ(later, 9U);
}

TEST(ClassList, NamesAndIds_AreUnique) {
    std::set<std::string> names;
    std::set<std::string> ids;
    std::set<std::string> classes;
    for (const Row& row : s_rows) {
        EXPECT_TRUE(names.insert(row.coclass).second) << row.coclass;
        EXPECT_TRUE(ids.insert(row.classId).second) << row.coclass;
        EXPECT_TRUE(classes.insert(row.className).second) << row.coclass;
    }
}

TEST(ClassList, TypeLibraryIds_AreThoseOfTheTable) {
    for (const Row& row : s_rows) {
        CLSID id{};
        const std::wstring text = L"{" + std::wstring(row.classId.begin(), row.classId.end()) + L"}";
        ASSERT_EQ(::CLSIDFromString(text.c_str(), &id), S_OK) << row.coclass;
        EXPECT_TRUE(::IsEqualCLSID(id, *row.compiledId)) << row.coclass;
    }
}

TEST(ClassList, Descriptions_AreTheNamesButForThree) {
    std::vector<std::string> others;
    for (const Row& row : s_rows) {
        if (row.description != row.coclass + " Class") {
            others.push_back(row.description);
        }
    }
    EXPECT_EQ(others, (std::vector<std::string>{"PropertyEditorHatchEnum Class",
                                                "PropertyEditorEllipsisHatchPatternType Class",
                                                "ropertyEditorAttributeValue Class"}));
}

}  // namespace
