#include "refhost/db/RecordWriter.h"

namespace kvhost {

namespace {

std::uint32_t CountOf(std::size_t size) {
    return static_cast<std::uint32_t>(size);
}

}  // namespace

void RecordWriter::RawText(const std::wstring& text) {
    Raw(CountOf(text.size()));
    m_bytes.append(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t));
}

void RecordWriter::Flag(const char* /*name*/, bool& value, bool /*otherwise*/) {
    m_bytes.push_back(value ? '\1' : '\0');
}

void RecordWriter::Number(const char* /*name*/, double& value) {
    Raw(value);
}

void RecordWriter::OptionalNumber(const char* name, double& value, double /*otherwise*/) {
    Number(name, value);
}

void RecordWriter::Integer(const char* /*name*/, std::int32_t& value, std::int32_t /*otherwise*/) {
    Raw(value);
}

void RecordWriter::Choice(const char* /*name*/, std::int32_t& value,
                          std::span<const wchar_t* const> /*names*/, std::int32_t /*otherwise*/) {
    Raw(value);
}

void RecordWriter::Text(const char* /*name*/, std::wstring& value, const wchar_t* /*otherwise*/) {
    RawText(value);
}

void RecordWriter::Color(const char* /*name*/, ColorValue& value, const ColorValue& /*otherwise*/) {
    Raw(static_cast<std::uint8_t>(value.method));
    Raw(value.index);
    Raw(value.red);
    Raw(value.green);
    Raw(value.blue);
}

void RecordWriter::Point(const char* /*name*/, Point3& value) {
    Raw(value.x);
    Raw(value.y);
    Raw(value.z);
}

void RecordWriter::OptionalPoint(const char* name, Point3& value, const Point3& /*otherwise*/) {
    Point(name, value);
}

void RecordWriter::Symbol(const char* /*name*/, SymbolKind /*kind*/, KvDbObjectId& value) {
    Raw(value.handle());
}

void RecordWriter::Vertices(const char* /*name*/, std::vector<PolylineVertex>& value) {
    Raw(CountOf(value.size()));
    for (const PolylineVertex& vertex : value) {
        Raw(vertex.x);
        Raw(vertex.y);
        Raw(vertex.bulge);
    }
}

void RecordWriter::Texts(const char* /*name*/, std::vector<std::wstring>& value) {
    Raw(CountOf(value.size()));
    for (const std::wstring& text : value) {
        RawText(text);
    }
}

void RecordWriter::Pairs(const char* /*name*/, TextPairs& value) {
    Raw(CountOf(value.size()));
    for (const auto& [first, second] : value) {
        RawText(first);
        RawText(second);
    }
}

}  // namespace kvhost
