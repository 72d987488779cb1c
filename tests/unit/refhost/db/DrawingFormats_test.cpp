#include <gtest/gtest.h>

#include <random>
#include <string>

#include "refhost/db/Arc.h"
#include "refhost/db/Attribute.h"
#include "refhost/db/BlockReference.h"
#include "refhost/db/Circle.h"
#include "refhost/db/DrawingFile.h"
#include "refhost/db/Layer.h"
#include "refhost/db/Line.h"
#include "refhost/db/Point.h"
#include "refhost/db/Polyline.h"
#include "refhost/db/Settings.h"
#include "refhost/db/Text.h"
#include "tests/unit/refhost/db/SampleDrawing.h"

namespace {

using kvhost::Database;
using kvhost::DrawingReadResult;
using kvtest::AppendTo;

TEST(DrawingFormats, Qxf_ComesBackEqual) {
    const auto database = kvtest::MakeSampleDrawing();
    const std::string content = kvhost::QxfContent(*database);
    const DrawingReadResult result = kvhost::ReadQxf(content);
    ASSERT_EQ(result.error, L"");
    EXPECT_EQ(kvhost::QxfContent(*result.database), content);
    EXPECT_EQ(kvhost::QdfContent(*result.database), kvhost::QdfContent(*database));
    EXPECT_EQ(result.database->Undo().UndoCount(), 0);
    EXPECT_EQ(result.database->GetSettings().CurrentLayer(), result.database->LayerNamed(L"Walls"));
}

TEST(DrawingFormats, Qdf_ComesBackEqual) {
    const auto database = kvtest::MakeSampleDrawing();
    const std::string content = kvhost::QdfContent(*database);
    const DrawingReadResult result = kvhost::ReadQdf(content);
    ASSERT_EQ(result.error, L"");
    EXPECT_EQ(kvhost::QdfContent(*result.database), content);
    EXPECT_EQ(kvhost::QxfContent(*result.database), kvhost::QxfContent(*database));
}

TEST(DrawingFormats, RandomDrawings_ComeBackEqualFromBoth) {
    for (unsigned seed = 1; seed <= 10; ++seed) {
        std::mt19937_64 random(seed);
        const auto database = kvtest::MakeSampleDrawing();
        for (int i = 0; i < 100; ++i) {
            kvtest::EditAtRandom(*database, random);
        }
        const std::string text = kvhost::QxfContent(*database);
        const std::string bytes = kvhost::QdfContent(*database);
        const DrawingReadResult fromText = kvhost::ReadQxf(text);
        ASSERT_EQ(fromText.error, L"") << "seed " << seed;
        EXPECT_EQ(kvhost::QdfContent(*fromText.database), bytes) << "seed " << seed;
        const DrawingReadResult fromBytes = kvhost::ReadQdf(bytes);
        ASSERT_EQ(fromBytes.error, L"") << "seed " << seed;
        EXPECT_EQ(kvhost::QxfContent(*fromBytes.database), text) << "seed " << seed;
    }
}

TEST(DrawingFormats, Numbers_ComeBackToTheBit) {
    std::mt19937_64 random(7);
    Database database;
    std::vector<kvhost::PolylineVertex> vertices{{-0.0, 5e-324, 1.7976931348623157e308}, {0.1, 1.0 / 3, 0}};
    for (int i = 0; i < 20000; ++i) {
        vertices.push_back({kvtest::AnyNumber(random), kvtest::AnyNumber(random), kvtest::AnyNumber(random)});
    }
    auto polyline = std::make_unique<kvhost::Polyline>();
    ASSERT_EQ(polyline->SetVertices(vertices), Tolm::eOk);
    AppendTo(database, std::move(polyline));
    const DrawingReadResult result = kvhost::ReadQxf(kvhost::QxfContent(database));
    ASSERT_EQ(result.error, L"");
    EXPECT_EQ(kvhost::QdfContent(*result.database), kvhost::QdfContent(database));
}

template <class Concrete>
const Concrete& OnlyOne(const Database& database, KvDbObjectId owner) {
    const Concrete* only = nullptr;
    for (const KvDbObjectId id : database.OwnedBy(owner)) {
        if (const auto* const candidate = Database::PeekAs<Concrete>(id)) {
            EXPECT_EQ(only, nullptr);
            only = candidate;
        }
    }
    return *only;
}

// The other tests compare records with records, so that a field that no record has would escape them.
TEST(DrawingFormats, EveryField_IsStored) {
    const DrawingReadResult result = kvhost::ReadQxf(kvhost::QxfContent(*kvtest::MakeSampleDrawing()));
    ASSERT_EQ(result.error, L"");
    const Database& database = *result.database;
    const KvDbObjectId space = database.ModelSpaceId();
    const auto& line = OnlyOne<kvhost::Line>(database, space);
    EXPECT_EQ(line.LayerName(), L"Walls");
    EXPECT_EQ(line.EndPoint(), (kvhost::Point3{1.0 / 3, 1e300, -7}));
    EXPECT_EQ(line.Color(), kvhost::ColorValue::OfRgb(1, 20, 255));
    EXPECT_EQ(line.Linetype(), L"Dashed");
    EXPECT_EQ(line.Description(), L"a line");
    EXPECT_EQ(line.Hyperlink(), L"https://example.org/?q=ä");
    EXPECT_EQ(line.CustomAttributes(), (kvhost::TextPairs{{L"owner", L"Müller"}, {L"area", L"12.5"}}));
    EXPECT_TRUE(line.IsUnspecified(L"Color"));
    EXPECT_EQ(line.Expression(L"Length"), L"width * 2");
    EXPECT_EQ(OnlyOne<kvhost::Circle>(database, space).Radius(), 4.75);
    const auto& arc = OnlyOne<kvhost::Arc>(database, space);
    EXPECT_EQ(arc.Radius(), 0.5);
    EXPECT_EQ(arc.StartAngle(), 6);
    EXPECT_EQ(arc.EndAngle(), 0.25);
    const auto& polyline = OnlyOne<kvhost::Polyline>(database, space);
    EXPECT_TRUE(polyline.IsClosed());
    EXPECT_EQ(polyline.Elevation(), 3);
    EXPECT_EQ(polyline.Vertices().at(2), (kvhost::PolylineVertex{10, 10, -0.5}));
    const auto& text = OnlyOne<kvhost::Text>(database, space);
    EXPECT_EQ(text.Content(), L"größe – € 日本語 \xD83D\xDE00");
    EXPECT_EQ(text.Height(), 2.5);
    EXPECT_EQ(text.Rotation(), 1);
    EXPECT_EQ(text.StyleName(), L"Sign");
    EXPECT_EQ(text.Passcode(), L"1234");
    EXPECT_EQ(OnlyOne<kvhost::Point>(database, space).Position(), (kvhost::Point3{5, 6, 7}));
    const auto& reference = OnlyOne<kvhost::BlockReference>(database, space);
    EXPECT_EQ(reference.BlockName(), L"Door");
    EXPECT_EQ(reference.Scale(), (kvhost::Point3{2, -1, 1}));
    EXPECT_EQ(reference.Rotation(), 0.1);
    const auto& attribute = OnlyOne<kvhost::Attribute>(database, reference.Id());
    EXPECT_EQ(attribute.Tag(), L"NUMBER");
    EXPECT_EQ(attribute.Prompt(), L"Number of the door");
    EXPECT_EQ(attribute.Value(), L"12 b");
    EXPECT_EQ(*Database::Peek(reference.BlockId())->CustomAttribute(L"maker"), L"A & B");
    const auto& walls = *Database::PeekAs<kvhost::Layer>(database.LayerNamed(L"Walls"));
    EXPECT_TRUE(walls.IsLocked());
    EXPECT_EQ(walls.Description(), L"what stands");
    EXPECT_EQ(walls.Color(), kvhost::ColorValue::OfIndex(3));
}

TEST(DrawingFormats, HandWrittenDrawing_NeedsNoHandlesAndFewFields) {
    const DrawingReadResult result = kvhost::ReadQxf(R"(
        { "format": "qxf", "version": 1,
          "layers": [ { "name": "Trees", "color": "3" } ],
          "blocks": [ { "name": "Tree", "entities": [ { "type": "Circle", "center": [0, 0], "radius": 2 } ] } ],
          "entities": [
            { "type": "BlockReference", "block": "tree", "layer": "TREES", "position": [1, 2],
              "attributes": [ { "tag": "KIND", "value": "Oak", "position": [1, 2], "height": 1 } ] },
            { "type": "Text", "position": [0, 0, 5], "height": 3, "handle": "FF" } ] })");
    ASSERT_EQ(result.error, L"");
    const std::vector<KvDbObjectId> entities = result.database->ModelSpaceEntities();
    ASSERT_EQ(entities.size(), 2U);
    const kvhost::Entity* const reference = Database::PeekAs<kvhost::Entity>(entities[0]);
    EXPECT_EQ(reference->LayerName(), L"Trees");
    EXPECT_EQ(reference->EffectiveColor(), kvhost::ColorValue::OfIndex(3));
    EXPECT_EQ(result.database->OwnedBy(entities[0]).size(), 1U);
    const kvhost::Text* const text = Database::PeekAs<kvhost::Text>(entities[1]);
    EXPECT_EQ(text->Id().handle(), 0xFFU);
    EXPECT_EQ(text->LayerName(), L"0");
    EXPECT_EQ(text->Position(), (kvhost::Point3{0, 0, 5}));
    const KvDbObjectId next = kvtest::AppendNew<kvhost::Text>(*result.database);
    EXPECT_EQ(next.handle(), 0x100U);
}

struct DamagedText {
    const char* name;
    const char* content;
    const wchar_t* error;
};

class DamagedQxf : public testing::TestWithParam<DamagedText> {};

TEST_P(DamagedQxf, IsRefusedWithItsPlace) {
    const DrawingReadResult result = kvhost::ReadQxf(GetParam().content);
    EXPECT_EQ(result.database, nullptr);
    EXPECT_EQ(result.error.substr(0, std::wstring(GetParam().error).size()), GetParam().error);
}

#define HEAD "{\"format\":\"qxf\",\"version\":1,"

INSTANTIATE_TEST_SUITE_P(
    Table, DamagedQxf,
    testing::Values(
        DamagedText{"Empty", "", L"line 1, column 1: "},
        DamagedText{"CutOff", "{\n\"format\": \"qxf\",\n\"vers", L"line 3, column 6: "},
        DamagedText{"Comma", "{\n  \"format\": \"qxf\",,\n}", L"line 2, column 19: "},
        DamagedText{"BadUtf8", "{\"format\": \"q\xFF\"}", L"line 1, column 14: "},
        DamagedText{"HugeNumber", HEAD "\n\"entities\": [1e999]}", L"line 2, column 14: "},
        DamagedText{"NotAnObject", "[1]", L"/: an object is needed"},
        DamagedText{"NoFormat", "{}", L"/format: "},
        DamagedText{"OtherFormat", "{\"format\":1}", L"/format: "},
        DamagedText{"OtherVersion", "{\"format\":\"qxf\",\"version\":2}", L"/version: "},
        DamagedText{"UnknownSection", HEAD "\"colours\":[]}", L"/colours: nothing of this name"},
        DamagedText{"SectionNoArray", HEAD "\"layers\":{}}", L"/layers: an array is needed"},
        DamagedText{"ElementNoObject", HEAD "\"layers\":[7]}", L"/layers/0: an object is needed"},
        DamagedText{"LayerWithoutName", HEAD "\"layers\":[{}]}", L"/layers/0: name: "},
        DamagedText{"LayerTwice", HEAD "\"layers\":[{\"name\":\"A\"},{\"name\":\"a\"}]}",
                    L"/layers/1: name: "},
        DamagedText{"LayerZeroElsewhere", HEAD "\"layers\":[{\"name\":\"0\",\"handle\":\"20\"}]}",
                    L"/layers/0: handle: "},
        DamagedText{"LayerColor", HEAD "\"layers\":[{\"name\":\"A\",\"color\":\"ByLayer\"}]}",
                    L"/layers/0: color: "},
        DamagedText{"LayerOverride",
                    HEAD "\"layers\":[{\"name\":\"A\",\"overrides\":{\"Plan\":\"ByLayer\"}}]}",
                    L"/layers/0: overrides: "},
        DamagedText{"BadHandle", HEAD "\"layers\":[{\"name\":\"A\",\"handle\":\"xyz\"}]}",
                    L"/layers/0: handle: "},
        DamagedText{"LowHandle", HEAD "\"layers\":[{\"name\":\"A\",\"handle\":\"3\"}]}",
                    L"/layers/0: handle: 3 is taken"},
        DamagedText{"HandleTwice",
                    HEAD
                    "\"layers\":[{\"name\":\"A\",\"handle\":\"20\"},{\"name\":\"B\",\"handle\":\"20\"}]}",
                    L"/layers/1: handle: 20 is taken"},
        DamagedText{"SettingsOutOfRange", HEAD "\"settings\":{\"linearUnits\":9}}",
                    L"/settings: linearUnits: "},
        DamagedText{"SettingsAngleBase", HEAD "\"settings\":{\"angleBase\":7}}", L"/settings: angleBase: "},
        DamagedText{"SettingsAngleDirection", HEAD "\"settings\":{\"angleDirection\":2}}",
                    L"/settings: angleDirection: "},
        DamagedText{"SettingsNoObject", HEAD "\"settings\":[]}", L"/settings: an object is needed"},
        DamagedText{"SettingsFraction", HEAD "\"settings\":{\"linearUnits\":2.5}}",
                    L"/settings/linearUnits: a whole number"},
        DamagedText{"NoType", HEAD "\"entities\":[{}]}", L"/entities/0/type: "},
        DamagedText{"UnknownType", HEAD "\"entities\":[{\"type\":\"Sphere\"}]}", L"/entities/0/type: "},
        DamagedText{"LayerAsEntity", HEAD "\"entities\":[{\"type\":\"Layer\",\"name\":\"A\"}]}",
                    L"/entities/0/type: "},
        DamagedText{"MissingNumber", HEAD "\"entities\":[{\"type\":\"Circle\",\"center\":[0,0]}]}",
                    L"/entities/0/radius: is missing"},
        DamagedText{"TextForNumber",
                    HEAD "\"entities\":[{\"type\":\"Circle\",\"center\":[0,0],\"radius\":\"2\"}]}",
                    L"/entities/0/radius: a number"},
        DamagedText{"BadNumber", HEAD "\"entities\":[{\"type\":\"Circle\",\"center\":[0,0],\"radius\":-2}]}",
                    L"/entities/0: radius: "},
        DamagedText{"BadPoint", HEAD "\"entities\":[{\"type\":\"Point\",\"position\":[1,null]}]}",
                    L"/entities/0/position/1: a number"},
        DamagedText{"LongPoint", HEAD "\"entities\":[{\"type\":\"Point\",\"position\":[1,2,3,4]}]}",
                    L"/entities/0/position: a point"},
        DamagedText{"UnknownField", HEAD "\"entities\":[{\"type\":\"Point\",\"position\":[1,2],\"size\":3}]}",
                    L"/entities/0/size: nothing of this name"},
        DamagedText{"UnknownLayer",
                    HEAD "\"entities\":[{\"type\":\"Point\",\"position\":[1,2],\"layer\":\"B\"}]}",
                    L"/entities/0/layer: there is no layer 'B'"},
        DamagedText{"UnknownBlock",
                    HEAD "\"entities\":[{\"type\":\"BlockReference\",\"position\":[1,2],\"block\":\"B\"}]}",
                    L"/entities/0/block: there is no block 'B'"},
        DamagedText{"FewVertices", HEAD "\"entities\":[{\"type\":\"Polyline\",\"vertices\":[[1,2]]}]}",
                    L"/entities/0: vertices: "},
        DamagedText{"BadVertex", HEAD "\"entities\":[{\"type\":\"Polyline\",\"vertices\":[[1,2],[1]]}]}",
                    L"/entities/0/vertices/1: "},
        DamagedText{"VerticesNoArray", HEAD "\"entities\":[{\"type\":\"Polyline\",\"vertices\":2}]}",
                    L"/entities/0/vertices: "},
        DamagedText{"BadColor",
                    HEAD "\"entities\":[{\"type\":\"Point\",\"position\":[1,2],\"color\":\"red\"}]}",
                    L"/entities/0/color: a colour"},
        DamagedText{"BadChoice",
                    HEAD "\"entities\":[{\"type\":\"Point\",\"position\":[1,2],\"style\":\"star\"}]}",
                    L"/entities/0/style: one of these is needed: \"dot\", \"plus\""},
        DamagedText{"BadLineweight",
                    HEAD "\"entities\":[{\"type\":\"Point\",\"position\":[1,2],\"lineweight\":26}]}",
                    L"/entities/0: lineweight: "},
        DamagedText{"BadProperties",
                    HEAD "\"entities\":[{\"type\":\"Point\",\"position\":[1,2],\"properties\":{\"a\":1}}]}",
                    L"/entities/0/properties/a: a text"},
        DamagedText{"PropertiesNoObject",
                    HEAD "\"entities\":[{\"type\":\"Point\",\"position\":[1,2],\"properties\":[]}]}",
                    L"/entities/0/properties: an object"},
        DamagedText{"BadUnspecified",
                    HEAD "\"entities\":[{\"type\":\"Point\",\"position\":[1,2],\"unspecified\":[1]}]}",
                    L"/entities/0/unspecified/0: a text"},
        DamagedText{"UnspecifiedNoArray",
                    HEAD "\"entities\":[{\"type\":\"Point\",\"position\":[1,2],\"unspecified\":1}]}",
                    L"/entities/0/unspecified: an array"},
        DamagedText{"BadFlag", HEAD "\"layers\":[{\"name\":\"A\",\"locked\":1}]}",
                    L"/layers/0/locked: true or false"},
        DamagedText{"AttributeOfLine",
                    HEAD "\"entities\":[{\"type\":\"Point\",\"position\":[1,2],\"attributes\":[]}]}",
                    L"/entities/0/attributes: nothing of this name"},
        DamagedText{
            "AttributeWithoutTag",
            HEAD "\"blocks\":[{\"name\":\"B\"}],\"entities\":[{\"type\":\"BlockReference\",\"block\":\"B\","
                 "\"position\":[1,2],\"attributes\":[{\"position\":[0,0],\"height\":1}]}]}",
            L"/entities/0/attributes/0: tag: "},
        DamagedText{"BlockInItself",
                    HEAD
                    "\"blocks\":[{\"name\":\"B\",\"entities\":[{\"type\":\"BlockReference\",\"block\":\"B\","
                    "\"position\":[1,2]}]}]}",
                    L"/blocks/0/entities/0: it can't be here"},
        DamagedText{"DictionaryTwice", HEAD "\"dictionaries\":[{\"name\":\"A\"},{\"name\":\"A\"}]}",
                    L"/dictionaries/1: name: "},
        DamagedText{"DictionaryWithoutName",
                    HEAD "\"dictionaries\":[{\"name\":\"A\",\"dictionaries\":[{}]}]}",
                    L"/dictionaries/0/dictionaries/0: name: "}),
    [](const testing::TestParamInfo<DamagedText>& test) { return std::string(test.param.name); });

TEST(DamagedQxf, DeepDictionaries_AreRefused) {
    std::string content = HEAD "\"dictionaries\":[";
    for (int i = 0; i < 200; ++i) {
        content += "{\"name\":\"A\",\"dictionaries\":[";
    }
    for (int i = 0; i < 200; ++i) {
        content += "]}";
    }
    content += "]}";
    EXPECT_NE(kvhost::ReadQxf(content).error.find(L"too deep"), std::wstring::npos);
}

TEST(DamagedQxf, CutAnywhere_IsRefused) {
    const std::string content = kvhost::QxfContent(*kvtest::MakeSampleDrawing());
    // The last two bytes are the closing brace and the end of its line; without the latter nothing is lost.
    for (std::size_t length = 0; length + 1 < content.size(); length += 7) {
        const DrawingReadResult result = kvhost::ReadQxf(std::string_view(content).substr(0, length));
        ASSERT_EQ(result.database, nullptr) << length;
        ASSERT_EQ(result.error.substr(0, 5), L"line ") << length;
    }
}

TEST(DamagedQdf, AnyChangedByte_IsRefusedWithItsBlock) {
    const std::string content = kvhost::QdfContent(*kvtest::MakeSampleDrawing());
    for (std::size_t position = 0; position < content.size(); ++position) {
        std::string damaged = content;
        damaged[position] = static_cast<char>(damaged[position] ^ (1 << (position % 8)));
        const DrawingReadResult result = kvhost::ReadQdf(damaged);
        ASSERT_EQ(result.database, nullptr) << position;
        ASSERT_EQ(result.error.substr(0, 5), L"byte ") << position;
        const unsigned long offset = std::stoul(result.error.substr(5));
        ASSERT_LE(offset, position);
        ASSERT_LT(position - offset, 1000U) << "the message names the block";
    }
}

TEST(DamagedQdf, CutAnywhereOrLengthened_IsRefused) {
    const std::string content = kvhost::QdfContent(*kvtest::MakeSampleDrawing());
    for (std::size_t length = 0; length < content.size(); ++length) {
        ASSERT_EQ(kvhost::ReadQdf(std::string_view(content).substr(0, length)).database, nullptr) << length;
    }
    EXPECT_EQ(kvhost::ReadQdf(content + '\0').error,
              L"byte " + std::to_wstring(content.size()) + L": something follows the end of the drawing");
}

TEST(DamagedQdf, MissingBlock_IsRefused) {
    const std::string content = kvhost::QdfContent(*kvtest::MakeSampleDrawing());
    constexpr std::size_t head = 8;
    std::uint32_t length = 0;
    content.copy(reinterpret_cast<char*>(&length), sizeof length, head);
    const std::string shortened = content.substr(0, head) + content.substr(head + 8 + length);
    EXPECT_EQ(kvhost::ReadQdf(shortened).database, nullptr);
}

}  // namespace
