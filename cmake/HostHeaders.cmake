# Header-only libraries of the build machine. /usr/include as a whole would drag the build machine's C library in,
# so each one is linked into a folder of its own.
set(KV_HOSTINC ${CMAKE_BINARY_DIR}/hostinc)
file(MAKE_DIRECTORY ${KV_HOSTINC})
foreach(library nlohmann boost stb)
    if(NOT EXISTS ${KV_HOSTINC}/${library})
        file(CREATE_LINK /usr/include/${library} ${KV_HOSTINC}/${library} SYMBOLIC)
    endif()
endforeach()
add_library(kv_hostheaders INTERFACE)
target_include_directories(kv_hostheaders SYSTEM INTERFACE ${KV_HOSTINC})
