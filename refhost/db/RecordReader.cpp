#include "refhost/db/RecordReader.h"

#include "refhost/db/Block.h"
#include "refhost/db/Database.h"
#include "refhost/db/Layer.h"
#include "refhost/db/NameRules.h"

namespace kvhost {

namespace {

// What a method has no use for is zero: equal colours are equal to the bit.
bool IsColor(const ColorValue& value) {
    switch (value.method) {
        case ColorValue::Method::ByLayer:
            return value == ColorValue::ByLayer();
        case ColorValue::Method::ByBlock:
            return value == ColorValue::ByBlock();
        case ColorValue::Method::Index:
            return value.index != 0 && value == ColorValue::OfIndex(value.index);
        case ColorValue::Method::Rgb:
            return value == ColorValue::OfRgb(value.red, value.green, value.blue);
        default:
            return false;
    }
}

}  // namespace

bool RecordReader::Take(std::size_t count) {
    if (!m_failure.empty()) {
        return false;
    }
    if (count > m_bytes.size() - m_position) {
        Fail(L"the record is too short");
        return false;
    }
    m_position += count;
    return true;
}

void RecordReader::Fail(const wchar_t* reason) {
    if (m_failure.empty()) {
        m_failure = reason;
    }
}

void RecordReader::Fail(const char* field, const wchar_t* reason) {
    Fail((FromUtf8(field) + L": " + reason).c_str());
}

std::size_t RecordReader::Count(std::size_t size) {
    const std::size_t count = Raw<std::uint32_t>();
    if (count > (m_bytes.size() - m_position) / size) {
        Fail(L"the record is too short");
        return 0;
    }
    return count;
}

std::wstring RecordReader::RawText() {
    const std::size_t count = Count(sizeof(wchar_t));
    std::wstring text(count, L'\0');
    if (!Take(count * sizeof(wchar_t))) {
        return {};
    }
    std::memcpy(text.data(), m_bytes.data() + m_position - count * sizeof(wchar_t), count * sizeof(wchar_t));
    if (!IsWellFormed(text)) {
        Fail(L"a text is not well-formed");
    }
    return text;
}

double RecordReader::Finite(const char* name) {
    const double number = Raw<double>();
    if (!IsFinite(number)) {
        Fail(name, L"not a finite number");
    }
    return number;
}

void RecordReader::Flag(const char* name, bool& value, bool /*otherwise*/) {
    const std::uint8_t flag = Raw<std::uint8_t>();
    if (flag > 1) {
        Fail(name, L"neither yes nor no");
    }
    value = flag == 1;
}

void RecordReader::Number(const char* name, double& value) {
    value = Finite(name);
}

void RecordReader::OptionalNumber(const char* name, double& value, double /*otherwise*/) {
    value = Finite(name);
}

void RecordReader::Integer(const char* /*name*/, std::int32_t& value, std::int32_t /*otherwise*/) {
    value = Raw<std::int32_t>();
}

void RecordReader::Choice(const char* name, std::int32_t& value, std::span<const wchar_t* const> names,
                          std::int32_t /*otherwise*/) {
    value = Raw<std::int32_t>();
    if (value < 0 || static_cast<std::size_t>(value) >= names.size()) {
        Fail(name, L"none of the values that it can have");
        value = 0;
    }
}

void RecordReader::Text(const char* /*name*/, std::wstring& value, const wchar_t* /*otherwise*/) {
    value = RawText();
}

void RecordReader::Color(const char* name, ColorValue& value, const ColorValue& /*otherwise*/) {
    value.method = static_cast<ColorValue::Method>(Raw<std::uint8_t>());
    value.index = Raw<std::uint8_t>();
    value.red = Raw<std::uint8_t>();
    value.green = Raw<std::uint8_t>();
    value.blue = Raw<std::uint8_t>();
    if (!IsColor(value)) {
        Fail(name, L"no colour");
    }
}

void RecordReader::Point(const char* name, Point3& value) {
    value.x = Finite(name);
    value.y = Finite(name);
    value.z = Finite(name);
}

void RecordReader::OptionalPoint(const char* name, Point3& value, const Point3& /*otherwise*/) {
    Point(name, value);
}

void RecordReader::Symbol(const char* name, SymbolKind kind, KvDbObjectId& value) {
    value = m_database.IdOf(Raw<std::uint64_t>());
    const bool isRight = kind == SymbolKind::Layer ? Database::PeekAs<Layer>(value) != nullptr
                                                   : Database::PeekAs<Block>(value) != nullptr;
    if (!isRight) {
        Fail(name, kind == SymbolKind::Layer ? L"no layer has this handle" : L"no block has this handle");
    }
}

void RecordReader::Vertices(const char* name, std::vector<PolylineVertex>& value) {
    const std::size_t count = Count(3 * sizeof(double));
    value.clear();
    value.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const double x = Finite(name);
        const double y = Finite(name);
        value.push_back({x, y, Finite(name)});
    }
}

void RecordReader::Texts(const char* /*name*/, std::vector<std::wstring>& value) {
    const std::size_t count = Count(sizeof(std::uint32_t));
    value.clear();
    value.reserve(count);
    for (std::size_t i = 0; i < count && m_failure.empty(); ++i) {
        value.push_back(RawText());
    }
}

void RecordReader::Pairs(const char* /*name*/, TextPairs& value) {
    const std::size_t count = Count(2 * sizeof(std::uint32_t));
    value.clear();
    value.reserve(count);
    for (std::size_t i = 0; i < count && m_failure.empty(); ++i) {
        std::wstring first = RawText();
        value.emplace_back(std::move(first), RawText());
    }
}

}  // namespace kvhost
