#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "refhost/db/Database.h"

namespace kvhost {

/// What came of reading a drawing: a database, or the reason with its place (line and column, path within the
/// document, or byte offset) for the user.
struct DrawingReadResult {
    std::unique_ptr<Database> database;
    std::wstring error;
};

/// Reads `path` by its extension: .qxf, .qdf, .geojson or .json. Damaged files are refused whole. The undo
/// record begins empty.
[[nodiscard]] KVHOST_API DrawingReadResult ReadDrawing(const std::wstring& path);
/// Writes .qxf or .qdf: to a new file beside, which then replaces the old one. Gives the reason for the user,
/// empty when it is done; the old file stays as it was otherwise.
[[nodiscard]] KVHOST_API std::wstring WriteDrawing(const Database& database, const std::wstring& path);

// The contents of the formats.
[[nodiscard]] KVHOST_API std::string QxfContent(const Database& database);
[[nodiscard]] KVHOST_API std::string QdfContent(const Database& database);
[[nodiscard]] KVHOST_API DrawingReadResult ReadQxf(std::string_view content);
[[nodiscard]] KVHOST_API DrawingReadResult ReadQdf(std::string_view content);
/// `defaultLayer` takes the features that name no layer.
[[nodiscard]] KVHOST_API DrawingReadResult ReadGeoJson(std::string_view content,
                                                       const std::wstring& defaultLayer);

}  // namespace kvhost
