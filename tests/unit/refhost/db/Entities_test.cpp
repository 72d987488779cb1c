#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>

#include "refhost/db/Arc.h"
#include "refhost/db/Attribute.h"
#include "refhost/db/Block.h"
#include "refhost/db/BlockReference.h"
#include "refhost/db/Circle.h"
#include "refhost/db/GeometrySink.h"
#include "refhost/db/Layer.h"
#include "refhost/db/Line.h"
#include "refhost/db/Point.h"
#include "refhost/db/Polyline.h"
#include "refhost/db/Settings.h"
#include "refhost/db/Text.h"
#include "refhost/testing/Faults.h"
#include "tests/unit/refhost/db/SampleDrawing.h"

namespace {

using kvhost::Bounds;
using kvhost::ColorValue;
using kvhost::Database;
using kvhost::ScopedOpen;
using kvtest::AppendNew;
using kvtest::AppendTo;

constexpr double c_infinity = std::numeric_limits<double>::infinity();
constexpr double c_notANumber = std::numeric_limits<double>::quiet_NaN();

TEST(Entities, Numbers_MustBeFiniteAndLengthsAboveZero) {
    kvhost::Circle circle;
    for (const double radius : {0.0, -1.0, c_infinity, -c_infinity, c_notANumber}) {
        EXPECT_EQ(circle.SetRadius(radius), Tolm::eInvalidInput) << radius;
    }
    EXPECT_EQ(circle.SetCenter({0, c_notANumber, 0}), Tolm::eInvalidInput);
    EXPECT_EQ(circle.SetRadius(5e-324), Tolm::eOk);
    EXPECT_EQ(circle.Radius(), 5e-324);
    kvhost::Text text;
    EXPECT_EQ(text.SetHeight(0), Tolm::eInvalidInput);
    EXPECT_EQ(text.SetRotation(c_infinity), Tolm::eInvalidInput);
    EXPECT_EQ(text.SetStyleName(L""), Tolm::eInvalidInput);
    kvhost::BlockReference reference;
    EXPECT_EQ(reference.SetScale({1, 0, 1}), Tolm::eInvalidInput);
    EXPECT_EQ(reference.SetScale({-1, 2, 1}), Tolm::eOk);
    kvhost::Polyline polyline;
    EXPECT_EQ(polyline.SetVertices({{0, 0, 0}}), Tolm::eInvalidInput);
    EXPECT_EQ(polyline.SetVertices({{0, 0, 0}, {0, c_notANumber, 0}}), Tolm::eInvalidInput);
    EXPECT_EQ(polyline.SetVertex(0, {}), Tolm::eInvalidInput);
}

TEST(Entities, Texts_MustBeWellFormed) {
    kvhost::Text text;
    EXPECT_EQ(text.SetContent(L"\xD83D\xDE00"), Tolm::eOk);
    EXPECT_EQ(text.SetContent(L"\xD83D"), Tolm::eInvalidInput);
    EXPECT_EQ(text.SetContent(L"\xDE00\xD83D"), Tolm::eInvalidInput);
    EXPECT_EQ(text.SetCustomAttribute(L"name", L"\xDC00"), Tolm::eInvalidInput);
    EXPECT_EQ(text.SetCustomAttribute(L"", L"text"), Tolm::eInvalidInput);
    EXPECT_EQ(text.Content(), L"\xD83D\xDE00");
    kvhost::Attribute attribute;
    EXPECT_EQ(attribute.SetTag(L""), Tolm::eInvalidInput);
}

TEST(Entities, CustomAttributes_KeepTheirOrder) {
    kvhost::Line line;
    line.SetCustomAttribute(L"b", L"1");
    line.SetCustomAttribute(L"a", L"2");
    line.SetCustomAttribute(L"b", L"3");
    EXPECT_EQ(line.CustomAttributes(), (kvhost::TextPairs{{L"b", L"3"}, {L"a", L"2"}}));
    EXPECT_EQ(line.CustomAttribute(L"A"), nullptr);
    EXPECT_EQ(line.RemoveCustomAttribute(L"b"), Tolm::eOk);
    EXPECT_EQ(line.RemoveCustomAttribute(L"b"), Tolm::eKeyNotFound);
    EXPECT_EQ(*line.CustomAttribute(L"a"), L"2");
}

TEST(Entities, PropertyStates_AreSetAndTakenBack) {
    kvhost::Line line;
    EXPECT_FALSE(line.IsUnspecified(L"Color"));
    line.SetUnspecified(L"Color", true);
    line.SetUnspecified(L"Color", true);
    EXPECT_TRUE(line.IsUnspecified(L"Color"));
    line.SetUnspecified(L"Color", false);
    EXPECT_FALSE(line.IsUnspecified(L"Color"));
    EXPECT_EQ(line.SetExpression(L"Length", L"a+b"), Tolm::eOk);
    EXPECT_EQ(line.Expression(L"Length"), L"a+b");
    EXPECT_EQ(line.SetExpression(L"Length", L""), Tolm::eOk);
    EXPECT_EQ(line.Expression(L"Length"), L"");
    EXPECT_EQ(line.SetExpression(L"", L"a"), Tolm::eInvalidInput);
}

TEST(Entities, Color_ComesFromTheLayerWhereItSaysSo) {
    Database database;
    const KvDbObjectId id = AppendNew<kvhost::Line>(database);
    const KvDbObjectId zero = database.LayerNamed(L"0");
    EXPECT_EQ(ScopedOpen<kvhost::Layer>(zero, KvDb::kForWrite)->SetColor(ColorValue::OfIndex(5)), Tolm::eOk);
    EXPECT_EQ(ScopedOpen<kvhost::Layer>(zero, KvDb::kForWrite)->SetColor(ColorValue::ByLayer()),
              Tolm::eInvalidInput);
    const ScopedOpen<kvhost::Line> line(id, KvDb::kForWrite);
    EXPECT_EQ(line->EffectiveColor(), ColorValue::OfIndex(5));
    EXPECT_EQ(line->SetColor(ColorValue::OfIndex(0)), Tolm::eInvalidInput);
    EXPECT_EQ(line->SetColor(ColorValue::OfRgb(1, 2, 3)), Tolm::eOk);
    EXPECT_EQ(line->EffectiveColor(), ColorValue::OfRgb(1, 2, 3));
}

struct ColorCase {
    const wchar_t* text;
    bool isColor;
    ColorValue color;
};

class ColorText : public testing::TestWithParam<ColorCase> {};

TEST_P(ColorText, IsReadAsItSays) {
    const std::optional<ColorValue> color = ColorValue::FromText(GetParam().text);
    EXPECT_EQ(color.has_value(), GetParam().isColor);
    if (color) {
        EXPECT_EQ(*color, GetParam().color);
        EXPECT_EQ(ColorValue::FromText(color->Text()), color);
    }
}

INSTANTIATE_TEST_SUITE_P(Texts, ColorText,
                         testing::Values(ColorCase{L"ByLayer", true, ColorValue::ByLayer()},
                                         ColorCase{L"BYBLOCK", true, ColorValue::ByBlock()},
                                         ColorCase{L"1", true, ColorValue::OfIndex(1)},
                                         ColorCase{L"255", true, ColorValue::OfIndex(255)},
                                         ColorCase{L"0,128,255", true, ColorValue::OfRgb(0, 128, 255)},
                                         ColorCase{L"0", false, {}}, ColorCase{L"256", false, {}},
                                         ColorCase{L"", false, {}}, ColorCase{L"1,2", false, {}},
                                         ColorCase{L"1,2,3,4", false, {}}, ColorCase{L"1,2,", false, {}},
                                         ColorCase{L"-1", false, {}}, ColorCase{L"1, 2, 3", false, {}},
                                         ColorCase{L"red", false, {}}, ColorCase{L"0007", false, {}}));

TEST(Entities, LayerByName_MustExistInTheSameDrawing) {
    Database database;
    Database other;
    KvDbObjectId walls;
    ASSERT_EQ(database.AddLayer(L"Walls", walls), Tolm::eOk);
    const KvDbObjectId id = AppendNew<kvhost::Line>(database);
    const ScopedOpen<kvhost::Line> line(id, KvDb::kForWrite);
    EXPECT_EQ(line->SetLayerName(L"walls"), Tolm::eOk);
    EXPECT_EQ(line->LayerId(), walls);
    EXPECT_EQ(line->SetLayerName(L"Doors"), Tolm::eKeyNotFound);
    EXPECT_EQ(line->SetLayerId(other.LayerNamed(L"0")), Tolm::eInvalidInput);
    EXPECT_EQ(line->SetLayerId({}), Tolm::eInvalidInput);
    EXPECT_EQ(line->SetLayerId(database.ModelSpaceId()), Tolm::eInvalidInput);
    EXPECT_EQ(line->LayerName(), L"Walls");
    EXPECT_EQ(kvhost::Line().SetLayerName(L"0"), Tolm::eNotInDatabase);
}

TEST(Entities, Settings_RefuseWhatIsOutOfRange) {
    Database database;
    KvDbObjectId frozen;
    ASSERT_EQ(database.AddLayer(L"Frozen", frozen), Tolm::eOk);
    ScopedOpen<kvhost::Layer>(frozen, KvDb::kForWrite)->SetFrozen(true);
    const ScopedOpen<kvhost::Settings> settings(database.SettingsId(), KvDb::kForWrite);
    EXPECT_EQ(settings->SetLinearUnits(0), Tolm::eInvalidInput);
    EXPECT_EQ(settings->SetLinearUnits(6), Tolm::eInvalidInput);
    EXPECT_EQ(settings->SetLinearUnits(4), Tolm::eOk);
    EXPECT_EQ(settings->SetLinearPrecision(9), Tolm::eInvalidInput);
    EXPECT_EQ(settings->SetAngularUnits(5), Tolm::eInvalidInput);
    EXPECT_EQ(settings->SetAngularPrecision(-1), Tolm::eInvalidInput);
    EXPECT_EQ(settings->SetCurrentLayer(frozen), Tolm::eNotAllowed);
    EXPECT_EQ(settings->SetCurrentLayer({}), Tolm::eInvalidInput);
    EXPECT_EQ(settings->LinearUnits(), 4);
}

TEST(Entities, LineAndArc_MeasureThemselves) {
    kvhost::Line line;
    line.SetEndPoint({-3, -4, 12});
    EXPECT_DOUBLE_EQ(line.Length(), 13);
    EXPECT_DOUBLE_EQ(line.Angle(), std::atan2(-4, -3) + 2 * std::numbers::pi);
    kvhost::Arc arc;
    arc.SetRadius(2);
    arc.SetStartAngle(1.5 * std::numbers::pi);
    arc.SetEndAngle(0.5 * std::numbers::pi);
    EXPECT_DOUBLE_EQ(arc.TotalAngle(), std::numbers::pi);
    EXPECT_DOUBLE_EQ(arc.Length(), 2 * std::numbers::pi);
    arc.SetEndAngle(arc.StartAngle());
    EXPECT_DOUBLE_EQ(arc.TotalAngle(), 2 * std::numbers::pi);
}

TEST(Entities, Polyline_MeasuresStraightAndRoundSegments) {
    kvhost::Polyline square;
    square.SetVertices({{0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {0, 2, 0}});
    EXPECT_DOUBLE_EQ(square.Length(), 6);
    EXPECT_DOUBLE_EQ(square.Area(), 4);
    square.SetClosed(true);
    EXPECT_DOUBLE_EQ(square.Length(), 8);
    kvhost::Polyline circle;
    circle.SetVertices({{-1, 0, 1}, {1, 0, 1}});
    circle.SetClosed(true);
    EXPECT_NEAR(circle.Length(), 2 * std::numbers::pi, 1e-12);
    EXPECT_NEAR(circle.Area(), std::numbers::pi, 1e-12);
    const Bounds bounds = circle.GetBounds();
    EXPECT_NEAR(bounds.bottom, -1, 1e-3);
    EXPECT_NEAR(bounds.top, 1, 1e-3);
    kvhost::Polyline quarter;
    quarter.SetVertices({{1, 0, std::tan(std::numbers::pi / 8)}, {0, 1, 0}});
    EXPECT_NEAR(quarter.Length(), std::numbers::pi / 2, 1e-12);
    EXPECT_EQ(kvhost::Polyline().Area(), 0);
}

TEST(Entities, Bounds_HoldTheWholeShape) {
    kvhost::Circle circle;
    circle.SetCenter({10, 20, 0});
    circle.SetRadius(3);
    const Bounds bounds = circle.GetBounds();
    EXPECT_NEAR(bounds.left, 7, 1e-9);
    EXPECT_NEAR(bounds.top, 23, 1e-2);
    kvhost::Text text;
    text.SetContent(L"abcd");
    text.SetHeight(10);
    text.SetPosition({100, 100, 0});
    EXPECT_GT(text.GetBounds().right, 115);
    EXPECT_NEAR(text.GetBounds().top, 110, 1e-9);
    kvhost::Point point;
    point.SetPosition({1, 2, 3});
    EXPECT_FALSE(point.GetBounds().IsEmpty());
    EXPECT_TRUE(kvhost::BlockReference().GetBounds().IsEmpty());
}

TEST(Entities, Choices_RefuseWhatIsNone) {
    kvhost::Text text;
    EXPECT_EQ(text.SetAlignment(static_cast<kvhost::TextAlignment>(12)), Tolm::eInvalidInput);
    EXPECT_EQ(text.SetAlignment(static_cast<kvhost::TextAlignment>(-1)), Tolm::eInvalidInput);
    EXPECT_EQ(text.SetAlignment(kvhost::TextAlignment::BottomRight), Tolm::eOk);
    EXPECT_EQ(text.Alignment(), kvhost::TextAlignment::BottomRight);
    kvhost::Point point;
    EXPECT_EQ(point.SetStyle(static_cast<kvhost::PointStyle>(5)), Tolm::eInvalidInput);
    EXPECT_EQ(point.SetStyle(kvhost::PointStyle::Square), Tolm::eOk);
    EXPECT_EQ(point.Style(), kvhost::PointStyle::Square);
    for (const std::int32_t weight : {-4, 1, 26, 212}) {
        EXPECT_EQ(point.SetLineweight(weight), Tolm::eInvalidInput) << weight;
    }
    EXPECT_EQ(point.EffectiveLineweight(), 25);
    for (const std::int32_t weight : {-3, 0, 211}) {
        EXPECT_EQ(point.SetLineweight(weight), Tolm::eOk) << weight;
    }
    EXPECT_EQ(point.EffectiveLineweight(), 211);
}

struct AlignmentCase {
    kvhost::TextAlignment alignment;
    double left;
    double bottom;
};

class TextAlignmentBounds : public testing::TestWithParam<AlignmentCase> {};

TEST_P(TextAlignmentBounds, PutThePointOfTheTextAtItsPosition) {
    kvhost::Text text;
    text.SetContent(L"abcde");  // 30 units wide
    text.SetHeight(10);
    text.SetPosition({100, 200, 0});
    text.SetAlignment(GetParam().alignment);
    EXPECT_NEAR(text.GetBounds().left, GetParam().left, 1e-9);
    EXPECT_NEAR(text.GetBounds().bottom, GetParam().bottom, 1e-9);
    EXPECT_NEAR(text.GetBounds().right, GetParam().left + 30, 1e-9);
}

INSTANTIATE_TEST_SUITE_P(All, TextAlignmentBounds,
                         testing::Values(AlignmentCase{kvhost::TextAlignment::Left, 100, 200},
                                         AlignmentCase{kvhost::TextAlignment::Center, 85, 200},
                                         AlignmentCase{kvhost::TextAlignment::Right, 70, 200},
                                         AlignmentCase{kvhost::TextAlignment::MiddleLeft, 100, 195},
                                         AlignmentCase{kvhost::TextAlignment::TopCenter, 85, 190},
                                         AlignmentCase{kvhost::TextAlignment::BottomRight, 70, 202.5}));

TEST(Entities, TurnedAlignedText_TurnsRoundItsPosition) {
    kvhost::Text text;
    text.SetContent(L"abcde");
    text.SetHeight(10);
    text.SetRotation(std::numbers::pi / 2);
    text.SetAlignment(kvhost::TextAlignment::TopLeft);
    const Bounds bounds = text.GetBounds();
    EXPECT_NEAR(bounds.left, 0, 1e-9);
    EXPECT_NEAR(bounds.right, 10, 1e-9);
    EXPECT_NEAR(bounds.bottom, 0, 1e-9);
    EXPECT_NEAR(bounds.top, 30, 1e-9);
}

TEST(Entities, PointStyles_DrawDotsAndFigures) {
    struct Counter final : kvhost::GeometrySink {
        void Path(std::span<const kvhost::Point3> points, bool closed) override {
            ++paths;
            closedPaths += closed ? 1 : 0;
            for (const kvhost::Point3& point : points) {
                bounds.Add(point);
            }
        }
        void Text(const kvhost::TextLine&) override { ADD_FAILURE(); }
        void Dot(const kvhost::Point3&) override { ++dots; }
        int paths = 0;
        int closedPaths = 0;
        int dots = 0;
        Bounds bounds;
    };
    const auto drawn = [](kvhost::PointStyle style) {
        kvhost::Point point;
        point.SetPosition({10, 20, 0});
        point.SetStyle(style);
        Counter counter;
        point.Draw(counter, kvhost::Transform());
        return counter;
    };
    EXPECT_EQ(drawn(kvhost::PointStyle::Dot).dots, 1);
    EXPECT_EQ(drawn(kvhost::PointStyle::Plus).paths, 2);
    EXPECT_EQ(drawn(kvhost::PointStyle::Cross).paths, 2);
    EXPECT_EQ(drawn(kvhost::PointStyle::Circle).closedPaths, 1);
    const Counter square = drawn(kvhost::PointStyle::Square);
    EXPECT_EQ(square.closedPaths, 1);
    EXPECT_NEAR(square.bounds.left, 9.5, 1e-9);
    EXPECT_NEAR(square.bounds.top, 20.5, 1e-9);
}

TEST(Entities, BlockReference_DrawsNoInvisibleParts) {
    Database database;
    KvDbObjectId block;
    KvDbObjectId id;
    ASSERT_EQ(database.AddBlock(L"Unit", block), Tolm::eOk);
    ASSERT_EQ(database.Append(std::make_unique<kvhost::Point>(), block, id), Tolm::eOk);
    auto reference = std::make_unique<kvhost::BlockReference>();
    reference->SetBlockId(block);
    const KvDbObjectId referenceId = AppendTo(database, std::move(reference));
    auto attribute = std::make_unique<kvhost::Attribute>();
    attribute->SetTag(L"NUMBER");
    attribute->SetValue(L"12");
    KvDbObjectId attributeId;
    ASSERT_EQ(database.Append(std::move(attribute), referenceId, attributeId), Tolm::eOk);
    const auto& drawn = *Database::PeekAs<kvhost::Entity>(referenceId);
    EXPECT_GT(drawn.GetBounds().right, 1);
    EXPECT_EQ(ScopedOpen<kvhost::Attribute>(attributeId, KvDb::kForWrite)->SetInvisible(true), Tolm::eOk);
    EXPECT_NEAR(drawn.GetBounds().right, 0, 1e-9);
    EXPECT_EQ(ScopedOpen<kvhost::Point>(id, KvDb::kForWrite)->SetVisible(false), Tolm::eOk);
    EXPECT_TRUE(drawn.GetBounds().IsEmpty());
}

TEST(Entities, BlockReference_PlacesScalesAndTurnsItsBlock) {
    Database database;
    KvDbObjectId block;
    KvDbObjectId id;
    ASSERT_EQ(database.AddBlock(L"Unit", block), Tolm::eOk);
    auto point = std::make_unique<kvhost::Point>();
    point->SetPosition({3, 1, 0});
    ASSERT_EQ(database.Append(std::move(point), block, id), Tolm::eOk);
    ScopedOpen<kvhost::Block>(block, KvDb::kForWrite)->SetOrigin({1, 1, 0});
    auto reference = std::make_unique<kvhost::BlockReference>();
    reference->SetBlockId(block);
    reference->SetPosition({100, 200, 0});
    reference->SetScale({2, 3, 1});
    reference->SetRotation(std::numbers::pi / 2);
    const KvDbObjectId referenceId = AppendTo(database, std::move(reference));
    const Bounds bounds = Database::PeekAs<kvhost::Entity>(referenceId)->GetBounds();
    EXPECT_NEAR(bounds.left, 100, 1e-9);
    EXPECT_NEAR(bounds.bottom, 204, 1e-9);
    EXPECT_EQ(Database::PeekAs<kvhost::BlockReference>(referenceId)->BlockName(), L"Unit");
}

TEST(Entities, Highlights_CountPushesOfOnePath) {
    Database database;
    const KvDbObjectId id = AppendNew<kvhost::Line>(database);
    KvDbEntity* entity = nullptr;
    ASSERT_EQ(kvdbOpenKvDbEntity(entity, id, KvDb::kForRead), Tolm::eOk);
    const kvhost::Entity* const line = Database::PeekAs<kvhost::Entity>(id);
    const KvDbFullSubentPath first(id, 1, 0);
    const KvDbFullSubentPath second(id, 1, 1);
    EXPECT_EQ(entity->popHighlight(first), Tolm::eInvalidInput);
    EXPECT_EQ(entity->pushHighlight(first, KVDB_HIGHLIGHT_SUBENTITY), Tolm::eOk);
    EXPECT_EQ(entity->pushHighlight(first, KVDB_HIGHLIGHT_SUBENTITY), Tolm::eOk);
    EXPECT_EQ(line->HighlightCount(first), 2);
    EXPECT_EQ(line->HighlightCount(second), 0);
    EXPECT_EQ(entity->popHighlight(first), Tolm::eOk);
    EXPECT_EQ(line->HighlightedPathCount(), 1U);
    kvhost::Faults::FailService(L"popHighlight", 1);
    EXPECT_EQ(entity->popHighlight(first), Tolm::eInvalidInput);
    EXPECT_EQ(line->HighlightedPathCount(), 0U);
    kvhost::Faults::Reset();
    EXPECT_EQ(entity->close(), Tolm::eOk);
}

}  // namespace
