# The compiler's runtime is shared, since objects and exceptions cross module borders; it lies beside our binaries,
# where the component loader finds it even when the client is a system program.
set(KV_RUNTIME_DLLS
    /usr/lib/gcc/x86_64-w64-mingw32/12-posix/libstdc++-6.dll
    /usr/lib/gcc/x86_64-w64-mingw32/12-posix/libgcc_s_seh-1.dll
    /usr/x86_64-w64-mingw32/lib/libwinpthread-1.dll)
file(COPY ${KV_RUNTIME_DLLS} DESTINATION ${CMAKE_BINARY_DIR}/bin)
