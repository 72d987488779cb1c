#pragma once

#include <string>

#include "refhost/db/FieldVisitor.h"

namespace kvhost {

class Object;

/// Writes fields one after the other as bytes, little end first: the one binary form of an object's state.
class RecordWriter final : public FieldVisitor {
public:
    explicit RecordWriter(std::string& bytes) : m_bytes(bytes) {}

    template <class Number>
    void Raw(const Number& number) {
        m_bytes.append(reinterpret_cast<const char*>(&number), sizeof number);
    }
    void RawText(const std::wstring& text);

    // FieldVisitor
    void Flag(const char* name, bool& value, bool otherwise) override;
    void Number(const char* name, double& value) override;
    void OptionalNumber(const char* name, double& value, double otherwise) override;
    void Integer(const char* name, std::int32_t& value, std::int32_t otherwise) override;
    void Choice(const char* name, std::int32_t& value, std::span<const wchar_t* const> names,
                std::int32_t otherwise) override;
    void Text(const char* name, std::wstring& value, const wchar_t* otherwise) override;
    void Color(const char* name, ColorValue& value, const ColorValue& otherwise) override;
    void Point(const char* name, Point3& value) override;
    void OptionalPoint(const char* name, Point3& value, const Point3& otherwise) override;
    void Symbol(const char* name, SymbolKind kind, KvDbObjectId& value) override;
    void Vertices(const char* name, std::vector<PolylineVertex>& value) override;
    void Texts(const char* name, std::vector<std::wstring>& value) override;
    void Pairs(const char* name, TextPairs& value) override;

private:
    std::string& m_bytes;
};

}  // namespace kvhost
