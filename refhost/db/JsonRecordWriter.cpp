#include "refhost/db/JsonRecordWriter.h"

#include <bit>

#include "refhost/db/Block.h"
#include "refhost/db/Database.h"
#include "refhost/db/Layer.h"
#include "refhost/db/NameRules.h"

namespace kvhost {

namespace {

/// Same number to the bit: the two zeros differ.
bool IsSame(double left, double right) {
    return std::bit_cast<std::uint64_t>(left) == std::bit_cast<std::uint64_t>(right);
}

bool IsSame(const Point3& left, const Point3& right) {
    return IsSame(left.x, right.x) && IsSame(left.y, right.y) && IsSame(left.z, right.z);
}

Json PointArray(const Point3& point) {
    Json array = Json::array({point.x, point.y});
    if (!IsSame(point.z, 0)) {
        array.push_back(point.z);
    }
    return array;
}

}  // namespace

void JsonRecordWriter::Flag(const char* name, bool& value, bool otherwise) {
    if (value != otherwise) {
        m_record[name] = value;
    }
}

void JsonRecordWriter::Number(const char* name, double& value) {
    m_record[name] = value;
}

void JsonRecordWriter::OptionalNumber(const char* name, double& value, double otherwise) {
    if (!IsSame(value, otherwise)) {
        m_record[name] = value;
    }
}

void JsonRecordWriter::Integer(const char* name, std::int32_t& value, std::int32_t otherwise) {
    if (value != otherwise) {
        m_record[name] = value;
    }
}

void JsonRecordWriter::Choice(const char* name, std::int32_t& value, std::span<const wchar_t* const> names,
                              std::int32_t otherwise) {
    if (value != otherwise) {
        m_record[name] = ToUtf8(names[static_cast<std::size_t>(value)]);
    }
}

void JsonRecordWriter::Text(const char* name, std::wstring& value, const wchar_t* otherwise) {
    if (value != otherwise) {
        m_record[name] = ToUtf8(value);
    }
}

void JsonRecordWriter::Color(const char* name, ColorValue& value, const ColorValue& otherwise) {
    if (value != otherwise) {
        m_record[name] = ToUtf8(value.Text());
    }
}

void JsonRecordWriter::Point(const char* name, Point3& value) {
    m_record[name] = PointArray(value);
}

void JsonRecordWriter::OptionalPoint(const char* name, Point3& value, const Point3& otherwise) {
    if (!IsSame(value, otherwise)) {
        m_record[name] = PointArray(value);
    }
}

void JsonRecordWriter::Symbol(const char* name, SymbolKind kind, KvDbObjectId& value) {
    if (kind == SymbolKind::Layer) {
        const Layer* const layer = Database::PeekAs<Layer>(value);
        m_record[name] = ToUtf8(layer != nullptr ? layer->Name() : std::wstring());
    } else {
        const Block* const block = Database::PeekAs<Block>(value);
        m_record[name] = ToUtf8(block != nullptr ? block->Name() : std::wstring());
    }
}

void JsonRecordWriter::Vertices(const char* name, std::vector<PolylineVertex>& value) {
    Json array = Json::array();
    for (const PolylineVertex& vertex : value) {
        Json item = Json::array({vertex.x, vertex.y});
        if (!IsSame(vertex.bulge, 0)) {
            item.push_back(vertex.bulge);
        }
        array.push_back(std::move(item));
    }
    m_record[name] = std::move(array);
}

void JsonRecordWriter::Texts(const char* name, std::vector<std::wstring>& value) {
    if (!value.empty()) {
        Json array = Json::array();
        for (const std::wstring& text : value) {
            array.push_back(ToUtf8(text));
        }
        m_record[name] = std::move(array);
    }
}

void JsonRecordWriter::Pairs(const char* name, TextPairs& value) {
    if (!value.empty()) {
        Json object = Json::object();
        for (const auto& [first, second] : value) {
            object[ToUtf8(first)] = ToUtf8(second);
        }
        m_record[name] = std::move(object);
    }
}

}  // namespace kvhost
