#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "host_sdk/KvDbObjectId.h"
#include "refhost/db/ColorValue.h"
#include "refhost/db/Point3.h"

namespace kvhost {

/// A corner of a polyline: its place and the bulge of the segment that follows (tangent of a quarter of the
/// segment's angle, 0 for a straight one).
struct PolylineVertex {
    double x = 0;
    double y = 0;
    double bulge = 0;

    friend bool operator==(const PolylineVertex&, const PolylineVertex&) = default;
};

/// Which table a reference by name goes to.
enum class SymbolKind { Layer, Block };

using TextPairs = std::vector<std::pair<std::wstring, std::wstring>>;

/// Sees each stored field of an object, in a fixed order. Objects list their fields once; undo records, both
/// file formats and comparison are visitors. Readers assign, writers only look. `otherwise` is the value of a
/// field that a hand-written drawing leaves out; fields without it must be there.
class FieldVisitor {
public:
    virtual void Flag(const char* name, bool& value, bool otherwise) = 0;
    virtual void Number(const char* name, double& value) = 0;
    virtual void OptionalNumber(const char* name, double& value, double otherwise) = 0;
    virtual void Integer(const char* name, std::int32_t& value, std::int32_t otherwise) = 0;
    /// The place of a value in a closed list of names, by which hand-written drawings know it.
    virtual void Choice(const char* name, std::int32_t& value, std::span<const wchar_t* const> names,
                        std::int32_t otherwise) = 0;
    virtual void Text(const char* name, std::wstring& value, const wchar_t* otherwise) = 0;
    virtual void Color(const char* name, ColorValue& value, const ColorValue& otherwise) = 0;
    virtual void Point(const char* name, Point3& value) = 0;
    virtual void OptionalPoint(const char* name, Point3& value, const Point3& otherwise) = 0;
    /// A reference by name; a layer that is left out is layer "0".
    virtual void Symbol(const char* name, SymbolKind kind, KvDbObjectId& value) = 0;
    virtual void Vertices(const char* name, std::vector<PolylineVertex>& value) = 0;
    virtual void Texts(const char* name, std::vector<std::wstring>& value) = 0;
    virtual void Pairs(const char* name, TextPairs& value) = 0;

protected:
    ~FieldVisitor() = default;
};

}  // namespace kvhost
