#include <algorithm>
#include <array>

#include "refhost/db/DrawingBuilder.h"
#include "refhost/db/DrawingFile.h"
#include "refhost/db/JsonDocument.h"
#include "refhost/db/Layer.h"
#include "refhost/db/NameRules.h"
#include "refhost/db/Point.h"
#include "refhost/db/Polyline.h"
#include "refhost/db/Text.h"

namespace kvhost {

namespace {

/// Height of the names of places, in degrees: legible on a map of a country.
constexpr double c_nameHeight = 0.5;
/// Geometry collections lie within each other, and each level takes some of the stack.
constexpr int c_deepestCollection = 100;
constexpr std::array s_layerProperties{L"featurecla", L"layer", L"type"};

/// Reads a map. Operations give the reason of a failure with its path, empty when all is well.
class GeoJsonReader {
public:
    explicit GeoJsonReader(const std::wstring& defaultLayer) : m_defaultLayer(MakeSymbolName(defaultLayer)) {}

    std::wstring Read(const Json& document, const JsonPath& path);
    std::unique_ptr<Database> Finish() { return m_builder.Finish(); }

private:
    /// What the entities of one feature have in common.
    struct Feature {
        TextPairs properties;
        KvDbObjectId layer;
        std::wstring name;
    };
    using Path = std::vector<PolylineVertex>;
    using ReadShape = std::wstring (GeoJsonReader::*)(const Json&, const JsonPath&, const Feature&);

    std::wstring ReadFeature(const Json& document, const JsonPath& path);
    std::wstring ReadProperties(const Json& properties, const JsonPath& path, Feature& feature) const;
    std::wstring ReadGeometry(const Json& geometry, const JsonPath& path, const Feature& feature, int depth);
    std::wstring ReadEach(const Json& array, const JsonPath& path, const Feature& feature,
                          ReadShape readShape);
    std::wstring ReadPoint(const Json& position, const JsonPath& path, const Feature& feature);
    std::wstring ReadLine(const Json& positions, const JsonPath& path, const Feature& feature);
    std::wstring ReadRing(const Json& positions, const JsonPath& path, const Feature& feature);
    std::wstring ReadPolygon(const Json& rings, const JsonPath& path, const Feature& feature);
    static std::wstring ReadPosition(const Json& position, const JsonPath& path, Point3& point);
    static std::wstring ReadPath(const Json& positions, const JsonPath& path, Path& vertices);
    KvDbObjectId LayerOf(const Feature& feature);
    std::wstring Add(std::unique_ptr<Entity> entity, const JsonPath& path, const Feature& feature);

    DrawingBuilder m_builder;
    std::wstring m_defaultLayer;
    int m_layerCount = 0;
};

std::wstring TypeOf(const Json& object) {
    const Json* const type = object.is_object() ? FindMember(object, "type") : nullptr;
    return type != nullptr && type->is_string() ? FromUtf8(type->get_ref<const std::string&>())
                                                : std::wstring();
}

/// Texts as they stand, nothing for null, other values as the document writes them.
std::wstring TextOf(const Json& value) {
    if (value.is_string()) {
        return FromUtf8(value.get_ref<const std::string&>());
    }
    return value.is_null() ? std::wstring() : FromUtf8(value.dump());
}

const std::wstring* FindProperty(const TextPairs& properties, std::wstring_view name) {
    const auto found = std::find_if(properties.begin(), properties.end(),
                                    [&](const auto& property) { return SameName(property.first, name); });
    return found != properties.end() && !found->second.empty() ? &found->second : nullptr;
}

std::wstring GeoJsonReader::Read(const Json& document, const JsonPath& path) {
    const std::wstring type = TypeOf(document);
    if (type == L"Feature") {
        return ReadFeature(document, path);
    }
    if (type != L"FeatureCollection") {
        Feature feature;
        feature.layer = LayerOf(feature);
        return ReadGeometry(document, path, feature, 0);
    }
    const Json* const features = FindMember(document, "features");
    const JsonPath featuresPath = path.Member("features");
    if (features == nullptr || !features->is_array()) {
        return featuresPath.Text() + L": an array is needed";
    }
    for (std::size_t i = 0; i < features->size(); ++i) {
        const JsonPath featurePath = featuresPath.Element(i);
        if (TypeOf((*features)[i]) != L"Feature") {
            return featurePath.Text() + L": a feature is needed";
        }
        std::wstring failure = ReadFeature((*features)[i], featurePath);
        if (!failure.empty()) {
            return failure;
        }
    }
    return {};
}

std::wstring GeoJsonReader::ReadFeature(const Json& document, const JsonPath& path) {
    Feature feature;
    const Json* const properties = FindMember(document, "properties");
    if (properties != nullptr && !properties->is_null()) {
        std::wstring failure = ReadProperties(*properties, path.Member("properties"), feature);
        if (!failure.empty()) {
            return failure;
        }
    }
    feature.layer = LayerOf(feature);
    const Json* const geometry = FindMember(document, "geometry");
    const JsonPath geometryPath = path.Member("geometry");
    if (geometry == nullptr) {
        return geometryPath.Text() + L": is missing";
    }
    // A feature without place is allowed; there is nothing to draw.
    return geometry->is_null() ? std::wstring() : ReadGeometry(*geometry, geometryPath, feature, 0);
}

std::wstring GeoJsonReader::ReadProperties(const Json& properties, const JsonPath& path,
                                           Feature& feature) const {
    if (!properties.is_object()) {
        return path.Text() + L": an object is needed";
    }
    for (const auto& property : properties.items()) {
        if (!property.key().empty()) {
            feature.properties.emplace_back(FromUtf8(property.key()), TextOf(property.value()));
        }
    }
    if (const std::wstring* const name = FindProperty(feature.properties, L"name")) {
        feature.name = *name;
    }
    return {};
}

KvDbObjectId GeoJsonReader::LayerOf(const Feature& feature) {
    std::wstring name = m_defaultLayer;
    for (const wchar_t* const property : s_layerProperties) {
        if (const std::wstring* const value = FindProperty(feature.properties, property)) {
            name = MakeSymbolName(*value);
            break;
        }
    }
    const KvDbObjectId known = m_builder.GetDatabase().LayerNamed(name);
    if (!known.isNull()) {
        return known;
    }
    auto layer = std::make_unique<Layer>();
    layer->SetName(name);
    // The six index colours that are bright on any ground, one layer after the other.
    layer->SetColor(ColorValue::OfIndex(static_cast<std::uint8_t>(1 + m_layerCount++ % 6)));
    KvDbObjectId id;
    const std::wstring failure =
        m_builder.Add(std::move(layer), 0, m_builder.GetDatabase().LayerTableId(), id);
    // A text that makes no name for a layer leaves its features on the layer that is always there.
    return failure.empty() ? id : m_builder.GetDatabase().LayerNamed(L"0");
}

std::wstring GeoJsonReader::ReadGeometry(const Json& geometry, const JsonPath& path, const Feature& feature,
                                         int depth) {
    const std::wstring type = TypeOf(geometry);
    if (type == L"GeometryCollection") {
        const Json* const parts = FindMember(geometry, "geometries");
        const JsonPath partsPath = path.Member("geometries");
        if (parts == nullptr || !parts->is_array() || depth == c_deepestCollection) {
            return partsPath.Text() + L": an array is needed";
        }
        std::wstring failure;
        for (std::size_t i = 0; i < parts->size() && failure.empty(); ++i) {
            failure = ReadGeometry((*parts)[i], partsPath.Element(i), feature, depth + 1);
        }
        return failure;
    }
    const Json* const coordinates = geometry.is_object() ? FindMember(geometry, "coordinates") : nullptr;
    const JsonPath coordinatesPath = path.Member("coordinates");
    const Json& shape = coordinates != nullptr ? *coordinates : geometry;
    if (type == L"Point") {
        return ReadPoint(shape, coordinatesPath, feature);
    }
    if (type == L"LineString") {
        return ReadLine(shape, coordinatesPath, feature);
    }
    if (type == L"Polygon") {
        return ReadPolygon(shape, coordinatesPath, feature);
    }
    if (type == L"MultiPoint") {
        return ReadEach(shape, coordinatesPath, feature, &GeoJsonReader::ReadPoint);
    }
    if (type == L"MultiLineString") {
        return ReadEach(shape, coordinatesPath, feature, &GeoJsonReader::ReadLine);
    }
    if (type == L"MultiPolygon") {
        return ReadEach(shape, coordinatesPath, feature, &GeoJsonReader::ReadPolygon);
    }
    return path.Member("type").Text() + L": no geometry is called '" + type + L"'";
}

std::wstring GeoJsonReader::ReadEach(const Json& array, const JsonPath& path, const Feature& feature,
                                     ReadShape readShape) {
    if (!array.is_array()) {
        return path.Text() + L": an array is needed";
    }
    for (std::size_t i = 0; i < array.size(); ++i) {
        std::wstring failure = (this->*readShape)(array[i], path.Element(i), feature);
        if (!failure.empty()) {
            return failure;
        }
    }
    return {};
}

std::wstring GeoJsonReader::ReadPosition(const Json& position, const JsonPath& path, Point3& point) {
    const bool isPosition =
        position.is_array() && position.size() >= 2 &&
        std::all_of(position.begin(), position.end(), [](const Json& number) { return number.is_number(); });
    if (!isPosition) {
        return path.Text() + L": a position of two or three numbers is needed";
    }
    point = {position[0].get<double>(), position[1].get<double>(),
             position.size() > 2 ? position[2].get<double>() : 0};
    return {};
}

std::wstring GeoJsonReader::ReadPath(const Json& positions, const JsonPath& path, Path& vertices) {
    if (!positions.is_array()) {
        return path.Text() + L": an array of positions is needed";
    }
    vertices.reserve(positions.size());
    for (std::size_t i = 0; i < positions.size(); ++i) {
        Point3 point;
        std::wstring failure = ReadPosition(positions[i], path.Element(i), point);
        if (!failure.empty()) {
            return failure;
        }
        vertices.push_back({point.x, point.y, 0});
    }
    return {};
}

std::wstring GeoJsonReader::ReadPoint(const Json& position, const JsonPath& path, const Feature& feature) {
    Point3 place;
    std::wstring failure = ReadPosition(position, path, place);
    if (!failure.empty()) {
        return failure;
    }
    if (feature.name.empty()) {
        auto point = std::make_unique<Point>();
        point->SetPosition(place);
        return Add(std::move(point), path, feature);
    }
    auto text = std::make_unique<Text>();
    text->SetContent(feature.name);
    text->SetPosition(place);
    text->SetHeight(c_nameHeight);
    return Add(std::move(text), path, feature);
}

std::wstring GeoJsonReader::ReadLine(const Json& positions, const JsonPath& path, const Feature& feature) {
    Path vertices;
    std::wstring failure = ReadPath(positions, path, vertices);
    if (!failure.empty()) {
        return failure;
    }
    if (vertices.size() < 2) {
        return path.Text() + L": a line has at least two positions";
    }
    auto polyline = std::make_unique<Polyline>();
    polyline->SetVertices(std::move(vertices));
    return Add(std::move(polyline), path, feature);
}

std::wstring GeoJsonReader::ReadRing(const Json& positions, const JsonPath& path, const Feature& feature) {
    Path vertices;
    std::wstring failure = ReadPath(positions, path, vertices);
    if (!failure.empty()) {
        return failure;
    }
    if (vertices.size() < 4 || vertices.front() != vertices.back()) {
        return path.Text() + L": a ring has at least four positions, the last one equal to the first";
    }
    vertices.pop_back();
    auto polyline = std::make_unique<Polyline>();
    polyline->SetClosed(true);
    polyline->SetVertices(std::move(vertices));
    return Add(std::move(polyline), path, feature);
}

std::wstring GeoJsonReader::ReadPolygon(const Json& rings, const JsonPath& path, const Feature& feature) {
    return ReadEach(rings, path, feature, &GeoJsonReader::ReadRing);
}

std::wstring GeoJsonReader::Add(std::unique_ptr<Entity> entity, const JsonPath& path,
                                const Feature& feature) {
    entity->SetLayerId(feature.layer);
    for (const auto& [name, text] : feature.properties) {
        entity->SetCustomAttribute(name, text);
    }
    KvDbObjectId id;
    const std::wstring failure =
        m_builder.Add(std::move(entity), 0, m_builder.GetDatabase().ModelSpaceId(), id);
    return failure.empty() ? failure : path.Text() + L": " + failure;
}

}  // namespace

DrawingReadResult ReadGeoJson(std::string_view content, const std::wstring& defaultLayer) {
    DrawingReadResult result;
    Json document;
    if (!ParseJson(content, document, result.error)) {
        return result;
    }
    GeoJsonReader reader(defaultLayer);
    result.error = reader.Read(document, JsonPath());
    if (result.error.empty()) {
        result.database = reader.Finish();
    }
    return result;
}

}  // namespace kvhost
