// The named owners of system handles.
#pragma once

#include "framework/base/UniqueHandle.h"
#include "framework/base/WindowsApi.h"

namespace fw {

template <class GdiHandle>
struct GdiPolicy {
    using Handle = GdiHandle;
    static Handle Null() { return nullptr; }
    static void Close(Handle handle) { ::DeleteObject(handle); }
};

// A handle whose empty value is null and whose closing function takes it alone.
template <class PlainHandle, auto CloseFunction>
struct PlainPolicy {
    using Handle = PlainHandle;
    static Handle Null() { return nullptr; }
    static void Close(Handle handle) { CloseFunction(handle); }
};

struct FilePolicy {
    using Handle = HANDLE;
    static Handle Null() { return INVALID_HANDLE_VALUE; }
    static void Close(Handle handle) { ::CloseHandle(handle); }
};

using UniqueBrush = UniqueHandle<GdiPolicy<HBRUSH>>;
using UniquePen = UniqueHandle<GdiPolicy<HPEN>>;
using UniqueFont = UniqueHandle<GdiPolicy<HFONT>>;
using UniqueBitmap = UniqueHandle<GdiPolicy<HBITMAP>>;
using UniqueRegion = UniqueHandle<GdiPolicy<HRGN>>;
using UniquePalette = UniqueHandle<GdiPolicy<HPALETTE>>;
using UniqueMenu = UniqueHandle<PlainPolicy<HMENU, ::DestroyMenu>>;
using UniqueIcon = UniqueHandle<PlainPolicy<HICON, ::DestroyIcon>>;
using UniqueCursor = UniqueHandle<PlainPolicy<HCURSOR, ::DestroyCursor>>;
using UniqueAccelerators = UniqueHandle<PlainPolicy<HACCEL, ::DestroyAcceleratorTable>>;
using UniqueImageList = UniqueHandle<PlainPolicy<HIMAGELIST, ::ImageList_Destroy>>;
using UniqueModule = UniqueHandle<PlainPolicy<HMODULE, ::FreeLibrary>>;
using UniqueEvent = UniqueHandle<PlainPolicy<HANDLE, ::CloseHandle>>;
using UniqueMetafile = UniqueHandle<PlainPolicy<HENHMETAFILE, ::DeleteEnhMetaFile>>;
using UniqueHook = UniqueHandle<PlainPolicy<HHOOK, ::UnhookWindowsHookEx>>;
using UniqueFile = UniqueHandle<FilePolicy>;

}  // namespace fw
