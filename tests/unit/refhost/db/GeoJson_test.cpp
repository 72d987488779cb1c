#include <gtest/gtest.h>

#include "refhost/db/DrawingFile.h"
#include "refhost/db/Layer.h"
#include "refhost/db/Point.h"
#include "refhost/db/Polyline.h"
#include "refhost/db/Text.h"

namespace {

using kvhost::Database;
using kvhost::DrawingReadResult;

template <class Entity>
const Entity* EntityAt(const DrawingReadResult& result, std::size_t index) {
    return Database::PeekAs<Entity>(result.database->ModelSpaceEntities().at(index));
}

TEST(GeoJson, Features_BecomeEntitiesOnLayers) {
    const DrawingReadResult result = kvhost::ReadGeoJson(R"({"type":"FeatureCollection","features":[
        {"type":"Feature","properties":{"NAME":"Köln","FeatureCla":"City","pop":1000000,"share":0.50,"x":null,
            "flag":true,"list":[1,"a"]},"geometry":{"type":"Point","coordinates":[6.96,50.94,53]}},
        {"type":"Feature","properties":{"layer":"a/b|c"},"geometry":{"type":"MultiPoint","coordinates":[[1,2],[3,4]]}},
        {"type":"Feature","properties":null,"geometry":{"type":"LineString","coordinates":[[0,0],[1,1],[2,0]]}},
        {"type":"Feature","properties":{"type":"Lake"},"geometry":{"type":"Polygon","coordinates":[
            [[0,0],[4,0],[4,4],[0,4],[0,0]],[[1,1],[2,1],[2,2],[1,1]]]}},
        {"type":"Feature","properties":{},"geometry":null}]})",
                                                         L"roads");
    ASSERT_EQ(result.error, L"");
    ASSERT_EQ(result.database->ModelSpaceEntities().size(), 6U);
    const auto* const city = EntityAt<kvhost::Text>(result, 0);
    ASSERT_NE(city, nullptr);
    EXPECT_EQ(city->Content(), L"Köln");
    EXPECT_EQ(city->Position(), (kvhost::Point3{6.96, 50.94, 53}));
    EXPECT_EQ(city->LayerName(), L"City");
    EXPECT_EQ(city->CustomAttributes(), (kvhost::TextPairs{{L"NAME", L"Köln"},
                                                           {L"FeatureCla", L"City"},
                                                           {L"pop", L"1000000"},
                                                           {L"share", L"0.5"},
                                                           {L"x", L""},
                                                           {L"flag", L"true"},
                                                           {L"list", L"[1,\"a\"]"}}));
    ASSERT_NE(EntityAt<kvhost::Point>(result, 2), nullptr);
    EXPECT_EQ(EntityAt<kvhost::Point>(result, 2)->LayerName(), L"a_b_c");
    const auto* const line = EntityAt<kvhost::Polyline>(result, 3);
    EXPECT_FALSE(line->IsClosed());
    EXPECT_EQ(line->LayerName(), L"roads");
    const auto* const lake = EntityAt<kvhost::Polyline>(result, 4);
    EXPECT_TRUE(lake->IsClosed());
    EXPECT_EQ(lake->Vertices().size(), 4U);
    EXPECT_DOUBLE_EQ(lake->Area(), 16);
    EXPECT_EQ(EntityAt<kvhost::Polyline>(result, 5)->LayerName(), L"Lake");
    EXPECT_EQ(result.database->Undo().UndoCount(), 0);
}

TEST(GeoJson, SingleGeometriesAndCollections_AreDrawnToo) {
    const DrawingReadResult result = kvhost::ReadGeoJson(
        R"({"type":"GeometryCollection","geometries":[{"type":"Point","coordinates":[1,2]},
            {"type":"MultiLineString","coordinates":[[[0,0],[1,1]],[[2,2],[3,3]]]},
            {"type":"MultiPolygon","coordinates":[[[[0,0],[1,0],[1,1],[0,0]]]]}]})",
        L"");
    ASSERT_EQ(result.error, L"");
    EXPECT_EQ(result.database->ModelSpaceEntities().size(), 4U);
    EXPECT_EQ(EntityAt<kvhost::Point>(result, 0)->LayerName(), L"0");
}

struct DamagedMap {
    const char* name;
    const char* content;
    const wchar_t* error;
};

class DamagedGeoJson : public testing::TestWithParam<DamagedMap> {};

TEST_P(DamagedGeoJson, IsRefusedWithItsPlace) {
    const DrawingReadResult result = kvhost::ReadGeoJson(GetParam().content, L"map");
    EXPECT_EQ(result.database, nullptr);
    EXPECT_EQ(result.error.substr(0, std::wstring(GetParam().error).size()), GetParam().error);
}

#define FEATURE(geometry)                                                                    \
    "{\"type\":\"FeatureCollection\",\"features\":[{\"type\":\"Feature\",\"properties\":{}," \
    "\"geometry\":" geometry "}]}"

INSTANTIATE_TEST_SUITE_P(
    Table, DamagedGeoJson,
    testing::Values(
        DamagedMap{"CutOff", "{\"type\":", L"line 1, column 9: "},
        DamagedMap{"NoObject", "[]", L"/type: no geometry is called ''"},
        DamagedMap{"OtherType", "{\"type\":\"Topology\"}", L"/type: no geometry is called 'Topology'"},
        DamagedMap{"NoFeatures", "{\"type\":\"FeatureCollection\"}", L"/features: an array"},
        DamagedMap{"NoFeature", "{\"type\":\"FeatureCollection\",\"features\":[1]}",
                   L"/features/0: a feature"},
        DamagedMap{"NoGeometry", "{\"type\":\"Feature\",\"properties\":{}}", L"/geometry: is missing"},
        DamagedMap{"BadProperties", "{\"type\":\"Feature\",\"properties\":7,\"geometry\":null}",
                   L"/properties: an object"},
        DamagedMap{"BadPosition", FEATURE("{\"type\":\"Point\",\"coordinates\":[1]}"),
                   L"/features/0/geometry/coordinates: a position"},
        DamagedMap{"TextInPosition", FEATURE("{\"type\":\"Point\",\"coordinates\":[1,\"2\"]}"),
                   L"/features/0/geometry/coordinates: a position"},
        DamagedMap{"NoCoordinates", FEATURE("{\"type\":\"Point\"}"),
                   L"/features/0/geometry/coordinates: a position"},
        DamagedMap{"ShortLine", FEATURE("{\"type\":\"LineString\",\"coordinates\":[[1,2]]}"),
                   L"/features/0/geometry/coordinates: a line"},
        DamagedMap{"BadLine", FEATURE("{\"type\":\"LineString\",\"coordinates\":[[1,2],[3]]}"),
                   L"/features/0/geometry/coordinates/1: a position"},
        DamagedMap{"OpenRing", FEATURE("{\"type\":\"Polygon\",\"coordinates\":[[[0,0],[1,0],[1,1],[0,1]]]}"),
                   L"/features/0/geometry/coordinates/0: a ring"},
        DamagedMap{"ShortRing", FEATURE("{\"type\":\"Polygon\",\"coordinates\":[[[0,0],[1,0],[0,0]]]}"),
                   L"/features/0/geometry/coordinates/0: a ring"},
        DamagedMap{"NoArray", FEATURE("{\"type\":\"MultiPoint\",\"coordinates\":7}"),
                   L"/features/0/geometry/coordinates: an array"},
        DamagedMap{"NoGeometries", FEATURE("{\"type\":\"GeometryCollection\"}"),
                   L"/features/0/geometry/geometries: an array"}),
    [](const testing::TestParamInfo<DamagedMap>& test) { return std::string(test.param.name); });

}  // namespace
