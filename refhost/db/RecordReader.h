#pragma once

#include <cstring>
#include <string>
#include <string_view>

#include "refhost/db/FieldVisitor.h"

namespace kvhost {

class Database;

/// Reads what RecordWriter wrote. After the first thing that can't be, it reads no further and leaves all
/// fields as they are.
class RecordReader final : public FieldVisitor {
public:
    RecordReader(std::string_view bytes, const Database& database) : m_bytes(bytes), m_database(database) {}

    /// Zero after a failure or at the end.
    template <class Number>
    [[nodiscard]] Number Raw() {
        Number number{};
        if (Take(sizeof number)) {
            std::memcpy(&number, m_bytes.data() + m_position - sizeof number, sizeof number);
        }
        return number;
    }
    [[nodiscard]] std::wstring RawText();

    [[nodiscard]] std::size_t Position() const { return m_position; }
    [[nodiscard]] bool IsAtEnd() const { return m_position == m_bytes.size(); }
    /// Empty while all is well.
    [[nodiscard]] const std::wstring& Failure() const { return m_failure; }

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
    [[nodiscard]] bool Take(std::size_t count);
    void Fail(const wchar_t* reason);
    void Fail(const char* field, const wchar_t* reason);
    /// Number of elements of at least `size` bytes each; 0 with a failure when they can't be there.
    [[nodiscard]] std::size_t Count(std::size_t size);
    [[nodiscard]] double Finite(const char* name);

    std::string_view m_bytes;
    const Database& m_database;
    std::size_t m_position = 0;
    std::wstring m_failure;
};

}  // namespace kvhost
