#pragma once

namespace kvhost {

/// Members of a .qxf document beside the fields of its objects.
struct QxfNames {
    static constexpr const char* format = "format";
    static constexpr const char* version = "version";
    static constexpr const char* settings = "settings";
    static constexpr const char* layers = "layers";
    static constexpr const char* blocks = "blocks";
    static constexpr const char* dictionaries = "dictionaries";
    static constexpr const char* entities = "entities";
    static constexpr const char* attributes = "attributes";
    static constexpr const char* type = "type";
    static constexpr const char* handle = "handle";
};

}  // namespace kvhost
