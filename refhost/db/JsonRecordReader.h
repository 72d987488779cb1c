#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "refhost/db/FieldVisitor.h"
#include "refhost/db/JsonDocument.h"

namespace kvhost {

class Database;

/// Reads an object's fields from a JSON object. After the first failure it reads no further.
class JsonRecordReader final : public FieldVisitor {
public:
    JsonRecordReader(const Json& record, const JsonPath& path, const Database& database)
        : m_record(record), m_path(path), m_database(database) {}

    /// Looks for members that no field took and that are not among the given ones.
    void RefuseOthers(std::initializer_list<const char*> known);
    /// Adds a failure of the object as a whole.
    void Fail(const std::wstring& reason);
    /// Path and reason; empty while all is well.
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
    /// Null when the member is absent or something failed before.
    [[nodiscard]] const Json* Find(const char* name);
    /// As Find, and a failure when it is absent.
    [[nodiscard]] const Json* Need(const char* name);
    void FailAt(const JsonPath& path, const wchar_t* reason);
    [[nodiscard]] double NumberOf(const Json& value, const JsonPath& path);
    [[nodiscard]] std::wstring TextOf(const Json& value, const JsonPath& path);
    [[nodiscard]] Point3 PointOf(const Json& value, const JsonPath& path);

    const Json& m_record;
    const JsonPath& m_path;
    const Database& m_database;
    std::vector<const char*> m_seen;
    std::wstring m_failure;
};

}  // namespace kvhost
