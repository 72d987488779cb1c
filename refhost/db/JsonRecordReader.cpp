#include "refhost/db/JsonRecordReader.h"

#include <algorithm>
#include <limits>

#include "refhost/db/Database.h"
#include "refhost/db/NameRules.h"

namespace kvhost {

void JsonRecordReader::FailAt(const JsonPath& path, const wchar_t* reason) {
    if (m_failure.empty()) {
        m_failure = path.Text() + L": " + reason;
    }
}

void JsonRecordReader::Fail(const std::wstring& reason) {
    FailAt(m_path, reason.c_str());
}

void JsonRecordReader::RefuseOthers(std::initializer_list<const char*> known) {
    for (const auto& member : m_record.items()) {
        const auto isName = [&](const char* name) { return member.key() == name; };
        if (std::none_of(m_seen.begin(), m_seen.end(), isName) &&
            std::none_of(known.begin(), known.end(), isName)) {
            FailAt(m_path.Member(member.key().c_str()), L"nothing of this name is known here");
            return;
        }
    }
}

const Json* JsonRecordReader::Find(const char* name) {
    if (!m_failure.empty()) {
        return nullptr;
    }
    const Json* const member = FindMember(m_record, name);
    if (member != nullptr) {
        m_seen.push_back(name);
    }
    return member;
}

const Json* JsonRecordReader::Need(const char* name) {
    const Json* const member = Find(name);
    if (member == nullptr) {
        FailAt(m_path.Member(name), L"is missing");
    }
    return member;
}

double JsonRecordReader::NumberOf(const Json& value, const JsonPath& path) {
    if (!value.is_number()) {
        FailAt(path, L"a number is needed");
        return 0;
    }
    return value.get<double>();
}

std::wstring JsonRecordReader::TextOf(const Json& value, const JsonPath& path) {
    if (!value.is_string()) {
        FailAt(path, L"a text is needed");
        return {};
    }
    return FromUtf8(value.get_ref<const std::string&>());
}

Point3 JsonRecordReader::PointOf(const Json& value, const JsonPath& path) {
    if (!value.is_array() || value.size() < 2 || value.size() > 3) {
        FailAt(path, L"a point of two or three numbers is needed");
        return {};
    }
    return {NumberOf(value[0], path.Element(0)), NumberOf(value[1], path.Element(1)),
            value.size() == 3 ? NumberOf(value[2], path.Element(2)) : 0};
}

void JsonRecordReader::Flag(const char* name, bool& value, bool otherwise) {
    value = otherwise;
    if (const Json* const member = Find(name)) {
        if (member->is_boolean()) {
            value = member->get<bool>();
        } else {
            FailAt(m_path.Member(name), L"true or false is needed");
        }
    }
}

void JsonRecordReader::Number(const char* name, double& value) {
    if (const Json* const member = Need(name)) {
        value = NumberOf(*member, m_path.Member(name));
    }
}

void JsonRecordReader::OptionalNumber(const char* name, double& value, double otherwise) {
    const Json* const member = Find(name);
    value = member != nullptr ? NumberOf(*member, m_path.Member(name)) : otherwise;
}

void JsonRecordReader::Integer(const char* name, std::int32_t& value, std::int32_t otherwise) {
    value = otherwise;
    if (const Json* const member = Find(name)) {
        const bool isSmall = member->is_number_integer() &&
                             member->get<double>() >= std::numeric_limits<std::int32_t>::min() &&
                             member->get<double>() <= std::numeric_limits<std::int32_t>::max();
        if (isSmall) {
            value = member->get<std::int32_t>();
        } else {
            FailAt(m_path.Member(name), L"a whole number is needed");
        }
    }
}

void JsonRecordReader::Choice(const char* name, std::int32_t& value, std::span<const wchar_t* const> names,
                              std::int32_t otherwise) {
    value = otherwise;
    const Json* const member = Find(name);
    if (member == nullptr) {
        return;
    }
    const std::wstring text = TextOf(*member, m_path.Member(name));
    const auto found = std::find(names.begin(), names.end(), text);
    if (found != names.end()) {
        value = static_cast<std::int32_t>(found - names.begin());
        return;
    }
    std::wstring known;
    for (const wchar_t* const each : names) {
        known += (known.empty() ? L"\"" : L", \"") + std::wstring(each) + L'"';
    }
    FailAt(m_path.Member(name), (L"one of these is needed: " + known).c_str());
}

void JsonRecordReader::Text(const char* name, std::wstring& value, const wchar_t* otherwise) {
    const Json* const member = Find(name);
    value = member != nullptr ? TextOf(*member, m_path.Member(name)) : otherwise;
}

void JsonRecordReader::Color(const char* name, ColorValue& value, const ColorValue& otherwise) {
    value = otherwise;
    if (const Json* const member = Find(name)) {
        const std::optional<ColorValue> color =
            member->is_string() ? ColorValue::FromText(FromUtf8(member->get_ref<const std::string&>()))
                                : std::nullopt;
        if (color) {
            value = *color;
        } else {
            FailAt(m_path.Member(name),
                   L"a colour is needed: \"ByLayer\", \"ByBlock\", \"1\" to \"255\" or \"red,green,blue\"");
        }
    }
}

void JsonRecordReader::Point(const char* name, Point3& value) {
    if (const Json* const member = Need(name)) {
        value = PointOf(*member, m_path.Member(name));
    }
}

void JsonRecordReader::OptionalPoint(const char* name, Point3& value, const Point3& otherwise) {
    const Json* const member = Find(name);
    value = member != nullptr ? PointOf(*member, m_path.Member(name)) : otherwise;
}

void JsonRecordReader::Symbol(const char* name, SymbolKind kind, KvDbObjectId& value) {
    const bool isLayer = kind == SymbolKind::Layer;
    const Json* const member = isLayer ? Find(name) : Need(name);
    const std::wstring symbol = member != nullptr ? TextOf(*member, m_path.Member(name)) : L"0";
    value = isLayer ? m_database.LayerNamed(symbol) : m_database.BlockNamed(symbol);
    if (value.isNull()) {
        FailAt(m_path.Member(name),
               ((isLayer ? L"there is no layer '" : L"there is no block '") + symbol + L"'").c_str());
    }
}

void JsonRecordReader::Vertices(const char* name, std::vector<PolylineVertex>& value) {
    value.clear();
    const Json* const member = Need(name);
    if (member == nullptr) {
        return;
    }
    const JsonPath path = m_path.Member(name);
    if (!member->is_array()) {
        FailAt(path, L"an array of vertices is needed");
        return;
    }
    value.reserve(member->size());
    for (std::size_t i = 0; i < member->size(); ++i) {
        // A vertex is written as a point is, with the bulge in the place of the height.
        const Point3 point = PointOf((*member)[i], path.Element(i));
        value.push_back({point.x, point.y, point.z});
    }
}

void JsonRecordReader::Texts(const char* name, std::vector<std::wstring>& value) {
    value.clear();
    const Json* const member = Find(name);
    if (member == nullptr) {
        return;
    }
    const JsonPath path = m_path.Member(name);
    if (!member->is_array()) {
        FailAt(path, L"an array of texts is needed");
        return;
    }
    for (std::size_t i = 0; i < member->size(); ++i) {
        value.push_back(TextOf((*member)[i], path.Element(i)));
    }
}

void JsonRecordReader::Pairs(const char* name, TextPairs& value) {
    value.clear();
    const Json* const member = Find(name);
    if (member == nullptr) {
        return;
    }
    const JsonPath path = m_path.Member(name);
    if (!member->is_object()) {
        FailAt(path, L"an object of texts is needed");
        return;
    }
    for (const auto& item : member->items()) {
        value.emplace_back(FromUtf8(item.key()), TextOf(item.value(), path.Member(item.key().c_str())));
        if (item.key().empty()) {
            FailAt(path, L"a name is needed");
        }
    }
}

}  // namespace kvhost
