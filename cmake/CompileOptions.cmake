# Every target of ours links kv_options; third-party code does not.
add_library(kv_options INTERFACE)
target_compile_definitions(kv_options INTERFACE UNICODE _UNICODE NOMINMAX STRICT WINVER=0x0601 _WIN32_WINNT=0x0601)
target_compile_options(kv_options INTERFACE
    $<$<COMPILE_LANGUAGE:CXX>:-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror>)
target_include_directories(kv_options INTERFACE ${CMAKE_SOURCE_DIR})
