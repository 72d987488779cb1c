# Every target of ours links kv_options; third-party code does not.
add_library(kv_options INTERFACE)
target_compile_definitions(kv_options INTERFACE UNICODE _UNICODE NOMINMAX STRICT WINVER=0x0601 _WIN32_WINNT=0x0601)
target_compile_options(kv_options INTERFACE
    $<$<COMPILE_LANGUAGE:CXX>:-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror>)
target_include_directories(kv_options INTERFACE ${CMAKE_SOURCE_DIR})

# What the optimiser alone believes to see changes with its mood: warnings of that kind stop the checked build, but not
# the one that a newcomer runs.
foreach(kind nonnull maybe-uninitialized dangling-pointer array-bounds stringop-overflow stringop-overread
        free-nonheap-object use-after-free null-dereference restrict)
    target_compile_options(kv_options INTERFACE $<$<AND:$<CONFIG:Release>,$<COMPILE_LANGUAGE:CXX>>:-Wno-error=${kind}>)
endforeach()
