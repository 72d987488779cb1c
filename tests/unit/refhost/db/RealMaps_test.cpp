#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "refhost/db/DrawingFile.h"
#include "refhost/db/Polyline.h"
#include "refhost/db/Text.h"

namespace {

using kvhost::Database;
using kvhost::DrawingReadResult;

// The maps lie beside the tree where the project is developed; they are too large to carry along. KV_MAPS
// names another folder.
std::vector<std::wstring> MapFolders() {
    const wchar_t* const named = ::_wgetenv(L"KV_MAPS");
    const std::wstring folder = named != nullptr ? named : KV_SHARED_DATA;
    return std::filesystem::is_directory(folder) ? std::vector{folder} : std::vector<std::wstring>();
}

class RealMaps : public testing::TestWithParam<std::wstring> {
protected:
    static DrawingReadResult ReadMap(const wchar_t* name) {
        DrawingReadResult result = kvhost::ReadDrawing(GetParam() + L"/" + name);
        EXPECT_EQ(result.error, L"");
        return result;
    }
};

TEST_P(RealMaps, PopulatedPlaces_AreNamedTextsWithTheirProperties) {
    const DrawingReadResult result = ReadMap(L"ne_50m_populated_places.geojson");
    const std::vector<KvDbObjectId> entities = result.database->ModelSpaceEntities();
    ASSERT_EQ(entities.size(), 1249U);
    for (const KvDbObjectId id : entities) {
        const auto* const text = Database::PeekAs<kvhost::Text>(id);
        ASSERT_NE(text, nullptr);
        EXPECT_EQ(text->Content(), *text->CustomAttribute(L"NAME"));
        EXPECT_EQ(text->LayerName(), *text->CustomAttribute(L"FEATURECLA"));
    }
    const auto* const first = Database::PeekAs<kvhost::Text>(entities.front());
    EXPECT_EQ(first->Content(), L"Bombo");
    EXPECT_EQ(first->CustomAttributes().size(), 102U);
}

TEST_P(RealMaps, UrbanAreas_AreClosedPolylines) {
    const DrawingReadResult result = ReadMap(L"ne_50m_urban_areas.geojson");
    EXPECT_GT(result.database->ModelSpaceEntities().size(), 2143U) << "some have holes";
    for (const KvDbObjectId id : result.database->ModelSpaceEntities()) {
        ASSERT_TRUE(Database::PeekAs<kvhost::Polyline>(id)->IsClosed());
    }
    EXPECT_FALSE(result.database->LayerNamed(L"Urban area").isNull());
}

TEST_P(RealMaps, Coastline_IsOpenPolylinesAndLoadsFast) {
    const auto start = std::chrono::steady_clock::now();
    const DrawingReadResult result = ReadMap(L"ne_50m_coastline.geojson");
    const auto elapsed = std::chrono::steady_clock::now() - start;
    EXPECT_GE(result.database->ModelSpaceEntities().size(), 1429U);
    EXPECT_FALSE(result.database->LayerNamed(L"Coastline").isNull());
    // Generous, since other work may share the machine: it takes a fraction of this.
    EXPECT_LT(elapsed, std::chrono::seconds(5));
}

TEST_P(RealMaps, Maps_ComeBackEqualFromBothFormats) {
    for (const wchar_t* const name :
         {L"ne_50m_populated_places.geojson", L"ne_50m_urban_areas.geojson", L"ne_50m_coastline.geojson"}) {
        const DrawingReadResult map = ReadMap(name);
        const std::string bytes = kvhost::QdfContent(*map.database);
        const DrawingReadResult fromText = kvhost::ReadQxf(kvhost::QxfContent(*map.database));
        ASSERT_EQ(fromText.error, L"");
        EXPECT_TRUE(kvhost::QdfContent(*fromText.database) == bytes) << "the drawings differ";
        const DrawingReadResult fromBytes = kvhost::ReadQdf(bytes);
        ASSERT_EQ(fromBytes.error, L"");
        EXPECT_TRUE(kvhost::QdfContent(*fromBytes.database) == bytes) << "the drawings differ";
    }
}

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(RealMaps);
INSTANTIATE_TEST_SUITE_P(Shared, RealMaps, testing::ValuesIn(MapFolders()),
                         [](const auto&) { return std::string("Data"); });

}  // namespace
