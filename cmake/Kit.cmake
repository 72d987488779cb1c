# The kit for modules with editors of their own: headers, type library, import libraries, the compiler's settings for
# CMake, and what runs with them: the module, the reference host and the palette to see editors in.
#   cmake --install BUILDFOLDER --component kit --prefix FOLDER
install(DIRECTORY framework host_sdk core families preview DESTINATION include COMPONENT kit
    FILES_MATCHING PATTERN "*.h" PATTERN "*.inc"
    PATTERN module EXCLUDE PATTERN register EXCLUDE PATTERN typelib EXCLUDE)
set(KV_TYPELIB_FOLDER ${CMAKE_BINARY_DIR}/core/typelib)
install(FILES ${KV_TYPELIB_FOLDER}/KvPEXCtl_h.h ${KV_TYPELIB_FOLDER}/KvPEXCtl_i.c ${KV_TYPELIB_FOLDER}/KvPEXCtl.tlb
    DESTINATION include COMPONENT kit)
install(TARGETS KvFrame KvHost KvPEXCtl
    RUNTIME DESTINATION bin COMPONENT kit
    ARCHIVE DESTINATION lib COMPONENT kit)
# The calculator is loaded at first use: nothing that starts without it tells that it is missing.
set(kit_programs KvCalc KvManagedBridge kvpalette)
foreach(program ${kit_programs})
    install(FILES $<TARGET_FILE:${program}> DESTINATION bin COMPONENT kit)
endforeach()
install(FILES $<TARGET_FILE:KvPEXCtlRes> ${CMAKE_BINARY_DIR}/bin/KvPEXCtl.manifest ${KV_RUNTIME_DLLS}
    DESTINATION bin COMPONENT kit)
install(FILES cmake/mingw-w64-x86_64.cmake DESTINATION cmake COMPONENT kit)

# The build installs the kit for its own test of it.
set(KV_KIT ${CMAKE_BINARY_DIR}/kit)
set(KV_KIT_STAMP ${CMAKE_BINARY_DIR}/kit.stamp)
set(patterns)
foreach(layer framework host_sdk core families preview)
    list(APPEND patterns ${CMAKE_SOURCE_DIR}/${layer}/*.h)
endforeach()
file(GLOB_RECURSE kit_headers ${KV_WATCH_FOLDERS} ${patterns})
add_custom_command(OUTPUT ${KV_KIT_STAMP}
    COMMAND ${CMAKE_COMMAND} -E rm -rf ${KV_KIT}
    COMMAND ${CMAKE_COMMAND} --install ${CMAKE_BINARY_DIR} --component kit --prefix ${KV_KIT} >${CMAKE_BINARY_DIR}/kit.log
    COMMAND ${CMAKE_COMMAND} -E touch ${KV_KIT_STAMP}
    DEPENDS KvFrame KvHost KvPEXCtl KvPEXCtlRes ${kit_programs} ${kit_headers} ${CMAKE_SOURCE_DIR}/core/ClassList.inc
        ${CMAKE_SOURCE_DIR}/cmake/mingw-w64-x86_64.cmake ${CMAKE_CURRENT_LIST_FILE}
    COMMENT "Installing the kit")
add_custom_target(kv_kit DEPENDS ${KV_KIT_STAMP})
