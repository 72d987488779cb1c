#include "tests/control/support/ClassScenarios.h"

#include <gtest/gtest.h>

#include "refhost/automation/PropertyDialogIds.h"
#include "refhost/db/Polyline.h"
#include "refhost/db/Text.h"

namespace kvtest {
namespace {

template <class Entity>
KvDbObjectId Append(kvhost::Database& database) {
    KvDbObjectId id;
    EXPECT_EQ(database.AppendEntity(std::make_unique<Entity>(), id), Tolm::eOk);
    return id;
}

}  // namespace

KvDbObjectId AppendText(kvhost::Database& database) {
    return Append<kvhost::Text>(database);
}

KvDbObjectId AppendPolyline(kvhost::Database& database) {
    auto polyline = std::make_unique<kvhost::Polyline>();
    EXPECT_EQ(polyline->SetVertices({{0, 0, 0}, {1, 0, 0}, {1, 1, 0}}), Tolm::eOk);
    KvDbObjectId id;
    EXPECT_EQ(database.AppendEntity(std::move(polyline), id), Tolm::eOk);
    return id;
}

void TellDirections(kvhost::ScriptedObject& object, DISPID property) {
    object.interfaces |= kvhost::OffersBrowsing;
    kvhost::ScriptedValue& value = object.At(property);
    value.predefinedStrings = {L"clockwise", L"counterclockwise"};
    value.predefinedValues = {fw::Variant::FromLong(0), fw::Variant::FromLong(1)};
}

void TellDirectionsOfProperty(kvhost::ScriptedDynamicProperty& property) {
    property.interfaces |= kvhost::OffersValues;
    property.values = {{L"clockwise", fw::Variant::FromLong(0)},
                       {L"counterclockwise", fw::Variant::FromLong(1)}};
}

void PrepareDialog(kvhost::ScriptedObject& object, DISPID property) {
    object.interfaces |= kvhost::OffersBrowsing;
    object.At(property).page = kvhost::CLSID_TextDialogByObjects;
}

void AddLayers(kvhost::Database& database) {
    for (const wchar_t* const name : {L"Walls", L"Doors"}) {
        KvDbObjectId id;
        EXPECT_EQ(database.AddLayer(name, id), Tolm::eOk);
    }
}

}  // namespace kvtest
