#include "tests/unit/refhost/db/SampleDrawing.h"

#include <array>
#include <bit>
#include <cmath>

#include "refhost/db/Arc.h"
#include "refhost/db/Attribute.h"
#include "refhost/db/BlockReference.h"
#include "refhost/db/Circle.h"
#include "refhost/db/Dictionary.h"
#include "refhost/db/Layer.h"
#include "refhost/db/Line.h"
#include "refhost/db/Point.h"
#include "refhost/db/Polyline.h"
#include "refhost/db/Settings.h"
#include "refhost/db/Text.h"

namespace kvtest {

namespace {

using kvhost::ColorValue;
using kvhost::Database;
using kvhost::ScopedOpen;

std::size_t Below(std::size_t count, std::mt19937_64& random) {
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(random);
}

std::wstring AnyText(std::mt19937_64& random) {
    static const std::array s_texts{L"", L"Straße", L"日本語", L"\xD83D\xDE00", L"a \"quoted\"\\text\n",
                                    L"0"};
    return s_texts[Below(s_texts.size(), random)];
}

KvDbObjectId AnyLayer(const Database& database, std::mt19937_64& random) {
    const std::vector<KvDbObjectId> layers = database.OwnedBy(database.LayerTableId());
    return layers[Below(layers.size(), random)];
}

void AddBlockWithReference(Database& database) {
    KvDbObjectId block;
    KvDbObjectId id;
    static_cast<void>(database.AddBlock(L"Door", block));
    auto line = std::make_unique<kvhost::Line>();
    line->SetEndPoint({0, 2.5, 0});
    static_cast<void>(database.Append(std::move(line), block, id));
    ScopedOpen<kvhost::Object>(block, KvDb::kForWrite)->SetCustomAttribute(L"maker", L"A & B");
    auto reference = std::make_unique<kvhost::BlockReference>();
    reference->SetBlockId(block);
    reference->SetPosition({10, 20, -1});
    reference->SetScale({2, -1, 1});
    reference->SetRotation(0.1);
    const KvDbObjectId referenceId = AppendTo(database, std::move(reference));
    auto attribute = std::make_unique<kvhost::Attribute>();
    attribute->SetTag(L"NUMBER");
    attribute->SetPrompt(L"Number of the door");
    attribute->SetValue(L"12 b");
    attribute->SetPosition({10, 21, 0});
    attribute->SetInvisible(true);
    static_cast<void>(database.Append(std::move(attribute), referenceId, id));
}

void AddCurves(Database& database) {
    auto line = std::make_unique<kvhost::Line>();
    line->SetStartPoint({0.1, -0.0, 1e-300});
    line->SetEndPoint({1.0 / 3, 1e300, -7});
    line->SetColor(ColorValue::OfRgb(1, 20, 255));
    line->SetLinetype(L"Dashed");
    line->SetDescription(L"a line");
    line->SetHyperlink(L"https://example.org/?q=ä");
    line->SetCustomAttribute(L"owner", L"Müller");
    line->SetCustomAttribute(L"area", L"12.5");
    line->SetUnspecified(L"Color", true);
    line->SetExpression(L"Length", L"width * 2");
    AppendTo(database, std::move(line));
    auto circle = std::make_unique<kvhost::Circle>();
    circle->SetCenter({1, 2, 3});
    circle->SetRadius(4.75);
    AppendTo(database, std::move(circle));
    auto arc = std::make_unique<kvhost::Arc>();
    arc->SetRadius(0.5);
    arc->SetStartAngle(6);
    arc->SetEndAngle(0.25);
    AppendTo(database, std::move(arc));
    auto polyline = std::make_unique<kvhost::Polyline>();
    polyline->SetVertices({{0, 0, 0}, {10, 0, 1}, {10, 10, -0.5}});
    polyline->SetClosed(true);
    polyline->SetElevation(3);
    AppendTo(database, std::move(polyline));
}

void AddTexts(Database& database) {
    auto text = std::make_unique<kvhost::Text>();
    text->SetContent(L"größe – € 日本語 \xD83D\xDE00");
    text->SetHeight(2.5);
    text->SetRotation(1);
    text->SetStyleName(L"Sign");
    text->SetAlignment(kvhost::TextAlignment::BottomRight);
    text->SetPasscode(L"1234");
    text->SetColor(ColorValue::ByBlock());
    AppendTo(database, std::move(text));
    auto point = std::make_unique<kvhost::Point>();
    point->SetPosition({5, 6, 7});
    point->SetStyle(kvhost::PointStyle::Square);
    point->SetLineweight(211);
    point->SetVisible(false);
    AppendTo(database, std::move(point));
}

void AppendAtRandom(Database& database, std::mt19937_64& random) {
    KvDbObjectId id;
    switch (Below(4, random)) {
        case 0:
            AppendNew<kvhost::Line>(database);
            break;
        case 1:
            AppendNew<kvhost::Text>(database);
            break;
        case 2:
            static_cast<void>(database.AddLayer(L"Layer " + std::to_wstring(Below(20, random)), id));
            break;
        default: {
            auto entry = std::make_unique<kvhost::Dictionary>();
            entry->SetName(L"Entry " + std::to_wstring(Below(20, random)));
            static_cast<void>(database.Append(std::move(entry), database.NamedObjectsId(), id));
        }
    }
}

void EditCommon(kvhost::Entity& entity, const Database& database, std::mt19937_64& random) {
    switch (Below(8, random)) {
        case 0:
            entity.SetLayerId(AnyLayer(database, random));
            break;
        case 1:
            entity.SetColor(ColorValue::OfIndex(static_cast<std::uint8_t>(1 + Below(255, random))));
            break;
        case 2:
            entity.SetDescription(AnyText(random));
            break;
        case 3:
            entity.SetCustomAttribute(L"key " + std::to_wstring(Below(4, random)), AnyText(random));
            break;
        case 4:
            entity.RemoveCustomAttribute(L"key " + std::to_wstring(Below(4, random)));
            break;
        case 5:
            entity.SetUnspecified(L"Property " + std::to_wstring(Below(3, random)), Below(2, random) == 0);
            break;
        case 6:
            entity.SetExpression(L"Property " + std::to_wstring(Below(3, random)), AnyText(random));
            break;
        default:
            entity.Erase(!entity.IsErased());
    }
}

void EditShape(kvhost::Entity& entity, std::mt19937_64& random) {
    const double number = AnyNumber(random);
    if (auto* const line = dynamic_cast<kvhost::Line*>(&entity)) {
        line->SetStartPoint({number, AnyNumber(random), 0});
    } else if (auto* const circle = dynamic_cast<kvhost::Circle*>(&entity)) {
        circle->SetRadius(number);
    } else if (auto* const polyline = dynamic_cast<kvhost::Polyline*>(&entity)) {
        polyline->SetVertex(Below(3, random), {number, AnyNumber(random), 0.5});
    } else if (auto* const text = dynamic_cast<kvhost::Text*>(&entity)) {
        text->SetContent(AnyText(random));
    } else if (auto* const reference = dynamic_cast<kvhost::BlockReference*>(&entity)) {
        reference->SetPosition({number, number, number});
    }
}

void EditLayerAtRandom(Database& database, std::mt19937_64& random) {
    const ScopedOpen<kvhost::Layer> layer(AnyLayer(database, random), KvDb::kForWrite);
    switch (Below(5, random)) {
        case 0:
            layer->SetName(L"Name " + std::to_wstring(Below(30, random)));
            break;
        case 1:
            layer->SetLocked(!layer->IsLocked());
            break;
        case 2:
            layer->SetFrozen(!layer->IsFrozen());
            break;
        case 3:
            layer->SetOverrideColor(
                L"Plan", layer->HasOverrides(L"Plan") ? std::nullopt : std::optional(ColorValue::OfIndex(5)));
            break;
        default:
            layer->Erase(true);
    }
}

}  // namespace

std::unique_ptr<Database> MakeSampleDrawing() {
    auto database = std::make_unique<Database>();
    KvDbObjectId walls;
    static_cast<void>(database->AddLayer(L"Walls", walls));
    {
        const ScopedOpen<kvhost::Layer> layer(walls, KvDb::kForWrite);
        layer->SetColor(ColorValue::OfIndex(3));
        layer->SetDescription(L"what stands");
        layer->SetLocked(true);
        layer->SetOverrideColor(L"Plan", ColorValue::OfRgb(1, 2, 3));
    }
    KvDbObjectId plan;
    static_cast<void>(database->AddViewport(L"Plan", plan));
    ScopedOpen<kvhost::Settings>(database->SettingsId(), KvDb::kForWrite)->SetCurrentViewport(L"Plan");
    ScopedOpen<kvhost::Settings>(database->SettingsId(), KvDb::kForWrite)->SetCurrentLayer(walls);
    AddCurves(*database);
    AddTexts(*database);
    AddBlockWithReference(*database);
    KvDbObjectId outer;
    KvDbObjectId inner;
    auto entry = std::make_unique<kvhost::Dictionary>();
    entry->SetName(L"Project");
    static_cast<void>(database->Append(std::move(entry), database->NamedObjectsId(), outer));
    entry = std::make_unique<kvhost::Dictionary>();
    entry->SetName(L"Client");
    entry->SetCustomAttribute(L"name", L"Stadt Köln");
    static_cast<void>(database->Append(std::move(entry), outer, inner));
    database->Undo().Clear();
    return database;
}

double AnyNumber(std::mt19937_64& random) {
    for (;;) {
        const double number = std::bit_cast<double>(random());
        if (std::isfinite(number)) {
            return number;
        }
    }
}

void EditAtRandom(Database& database, std::mt19937_64& random) {
    const std::size_t what = Below(10, random);
    if (what == 0) {
        AppendAtRandom(database, random);
        return;
    }
    if (what == 1) {
        EditLayerAtRandom(database, random);
        return;
    }
    const std::vector<KvDbObjectId> entities = database.ModelSpaceEntities();
    if (entities.empty()) {
        AppendNew<kvhost::Line>(database);
        return;
    }
    const ScopedOpen<kvhost::Entity> entity(entities[Below(entities.size(), random)], KvDb::kForWrite);
    if (what < 5) {
        EditShape(*entity, random);
    } else {
        EditCommon(*entity, database, random);
    }
}

}  // namespace kvtest
