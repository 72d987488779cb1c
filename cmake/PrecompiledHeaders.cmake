# Two thirds of a source's compile time is reading the platform's and the library's headers. They are read once and the
# result is shared by all targets. A header that lacks an include shows all the same, since headers are compiled alone. A
# source that lacks one may not: clang-tidy reads sources without the precompiled headers, but several together, and
# looking at each by itself would take several times as long.
set(precompiled_platform
    ${CMAKE_SOURCE_DIR}/framework/base/WindowsApi.h
    <algorithm> <array> <cmath> <functional> <map> <memory> <optional> <span> <string> <string_view> <utility> <vector>)

# kv_make_precompiled(NAME header... [LIBS target...])
function(kv_make_precompiled name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LIBS")
    set(source ${CMAKE_BINARY_DIR}/precompiled/${name}.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "// Carries the precompiled headers.\n")
    add_library(${name} OBJECT ${source})
    target_link_libraries(${name} PRIVATE kv_options ${arg_LIBS})
    list(TRANSFORM arg_UNPARSED_ARGUMENTS REPLACE "(.+)" "$<$<COMPILE_LANGUAGE:CXX>:\\1>")
    target_precompile_headers(${name} PRIVATE ${arg_UNPARSED_ARGUMENTS})
endfunction()

# This compiler sees copies beyond the bounds where strings are made and joined (a known false alarm); out of
# precompiled headers it forgets that the place is the library's and tells of it.
target_compile_options(kv_options INTERFACE $<$<COMPILE_LANGUAGE:CXX>:-Wno-array-bounds>
    $<$<COMPILE_LANGUAGE:CXX>:-Wno-stringop-overread>)

kv_make_precompiled(kv_precompiled ${precompiled_platform})
