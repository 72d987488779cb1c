#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "framework/base/WindowsApi.h"
#include "refhost/db/DrawingFile.h"
#include "refhost/db/Entity.h"
#include "refhost/db/Polyline.h"
#include "refhost/db/Text.h"

namespace {

using kvhost::Database;
using kvhost::DrawingReadResult;

constexpr wchar_t c_village[] = KV_SAMPLES L"/village.geojson";

// The large maps lie beside the tree where the project is developed; they are too large to carry along.
// KV_MAPS names another folder.
std::vector<std::wstring> MapFolders() {
    const wchar_t* const named = ::_wgetenv(L"KV_MAPS");
    const std::wstring folder = named != nullptr ? named : KV_SHARED_DATA;
    return std::filesystem::is_directory(folder) ? std::vector{folder} : std::vector<std::wstring>();
}

void ExpectBackEqualFromBothFormats(const Database& map) {
    const std::string bytes = kvhost::QdfContent(map);
    const DrawingReadResult fromText = kvhost::ReadQxf(kvhost::QxfContent(map));
    ASSERT_EQ(fromText.error, L"");
    EXPECT_TRUE(kvhost::QdfContent(*fromText.database) == bytes) << "the drawings differ";
    const DrawingReadResult fromBytes = kvhost::ReadQdf(bytes);
    ASSERT_EQ(fromBytes.error, L"");
    EXPECT_TRUE(kvhost::QdfContent(*fromBytes.database) == bytes) << "the drawings differ";
}

TEST(SampleMap, EachKindOfGeometry_IsDrawnWithItsProperties) {
    const DrawingReadResult result = kvhost::ReadDrawing(c_village);
    ASSERT_EQ(result.error, L"");
    std::map<std::wstring, int> texts;
    std::map<std::wstring, int> points;
    std::map<std::wstring, int> open;
    std::map<std::wstring, int> closed;
    for (const KvDbObjectId id : result.database->ModelSpaceEntities()) {
        const std::wstring layer = Database::PeekAs<kvhost::Entity>(id)->LayerName();
        if (const auto* const line = Database::PeekAs<kvhost::Polyline>(id)) {
            ++(line->IsClosed() ? closed : open)[layer];
        } else {
            ++(Database::PeekAs<kvhost::Text>(id) != nullptr ? texts : points)[layer];
        }
    }
    using Counts = std::map<std::wstring, int>;
    EXPECT_EQ(texts, (Counts{{L"Place", 2}, {L"Mill", 1}}));
    EXPECT_EQ(points, (Counts{{L"Well", 1}, {L"Tree", 4}}));
    EXPECT_EQ(open, (Counts{{L"Road", 1}, {L"Path", 2}, {L"Stream", 1}, {L"village", 1}}));
    EXPECT_EQ(closed, (Counts{{L"Pond", 2}, {L"Wood", 3}, {L"Mill", 1}}));
    const auto* const first = Database::PeekAs<kvhost::Text>(result.database->ModelSpaceEntities().front());
    EXPECT_EQ(first->Content(), L"Mühlbach");
    EXPECT_EQ(first->Position(), (kvhost::Point3{20.5, 14.25, 312}));
    EXPECT_EQ(first->CustomAttributes(), (kvhost::TextPairs{{L"name", L"Mühlbach"},
                                                            {L"layer", L"Place"},
                                                            {L"people", L"1240"},
                                                            {L"founded", L"1184"},
                                                            {L"market", L"true"},
                                                            {L"mayor", L""}}));
}

TEST(SampleMap, Map_ComesBackEqualFromBothFormats) {
    const DrawingReadResult result = kvhost::ReadDrawing(c_village);
    ASSERT_EQ(result.error, L"");
    ExpectBackEqualFromBothFormats(*result.database);
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

// The processor's time of this thread: what else the machine does counts little.
std::chrono::duration<double> ThreadTime() {
    FILETIME created{};
    FILETIME ended{};
    ULARGE_INTEGER kernel{};
    ULARGE_INTEGER user{};
    FILETIME inKernel{};
    FILETIME inUser{};
    EXPECT_TRUE(::GetThreadTimes(::GetCurrentThread(), &created, &ended, &inKernel, &inUser));
    kernel.LowPart = inKernel.dwLowDateTime;
    kernel.HighPart = inKernel.dwHighDateTime;
    user.LowPart = inUser.dwLowDateTime;
    user.HighPart = inUser.dwHighDateTime;
    return std::chrono::duration<double>(static_cast<double>(kernel.QuadPart + user.QuadPart) * 1e-7);
}

TEST_P(RealMaps, Coastline_IsOpenPolylinesAndLoadsFast) {
    const auto start = ThreadTime();
    const DrawingReadResult result = ReadMap(L"ne_50m_coastline.geojson");
    const auto elapsed = ThreadTime() - start;
    EXPECT_GE(result.database->ModelSpaceEntities().size(), 1429U);
    EXPECT_FALSE(result.database->LayerNamed(L"Coastline").isNull());
    // Generous, since machines and builds differ: it takes a small fraction of this.
    EXPECT_LT(elapsed, std::chrono::seconds(20));
}

TEST_P(RealMaps, Maps_ComeBackEqualFromBothFormats) {
    for (const wchar_t* const name :
         {L"ne_50m_populated_places.geojson", L"ne_50m_urban_areas.geojson", L"ne_50m_coastline.geojson"}) {
        ExpectBackEqualFromBothFormats(*ReadMap(name).database);
    }
}

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(RealMaps);
INSTANTIATE_TEST_SUITE_P(Shared, RealMaps, testing::ValuesIn(MapFolders()),
                         [](const auto&) { return std::string("Data"); });

}  // namespace
