#include "palette/commands/Screenshot.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "framework/base/DeviceContexts.h"
#include "framework/base/Handles.h"

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
#pragma GCC diagnostic ignored "-Wsign-conversion"
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"
#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STB_IMAGE_WRITE_STATIC
#define STBI_WRITE_NO_STDIO
#include <stb/stb_image_write.h>
#pragma GCC diagnostic pop

namespace kvpalette {

namespace {

BOOL CALLBACK CollectWindow(HWND window, LPARAM target) {
    if (::IsWindowVisible(window)) {
        reinterpret_cast<std::vector<HWND>*>(target)->push_back(window);
    }
    return TRUE;
}

// The window first, then those above it from the lowest to the highest.
std::vector<HWND> WindowsToPaint(HWND window) {
    std::vector<HWND> windows;
    ::EnumThreadWindows(::GetCurrentThreadId(), CollectWindow, reinterpret_cast<LPARAM>(&windows));
    std::erase(windows, window);
    std::reverse(windows.begin(), windows.end());
    windows.insert(windows.begin(), window);
    return windows;
}

class Picture {
public:
    explicit Picture(const RECT& bounds)
        : m_bounds(bounds),
          m_screen(nullptr),
          m_dc(m_screen),
          m_bitmap(MakeBitmap()),
          m_selected(m_dc, m_bitmap.Get()) {}

    void Paint(HWND window) {
        RECT place{};
        ::GetWindowRect(window, &place);
        // Not clipped by its children, whose pixels are wanted too.
        const HDC source = ::GetDCEx(window, nullptr, DCX_WINDOW | DCX_CACHE);
        ::BitBlt(m_dc, place.left - m_bounds.left, place.top - m_bounds.top, place.right - place.left,
                 place.bottom - place.top, source, 0, 0, SRCCOPY);
        ::ReleaseDC(window, source);
    }

    bool Write(const std::wstring& path) {
        ::GdiFlush();
        std::vector<BYTE> pixels;
        const auto count = static_cast<std::size_t>(Width()) * static_cast<std::size_t>(Height());
        pixels.reserve(count * 3);
        const auto* const bits = static_cast<const DWORD*>(m_bits);
        std::for_each(bits, bits + static_cast<std::ptrdiff_t>(Width()) * Height(), [&](DWORD color) {
            pixels.push_back(static_cast<BYTE>(color >> 16));
            pixels.push_back(static_cast<BYTE>(color >> 8));
            pixels.push_back(static_cast<BYTE>(color));
        });
        const fw::UniqueFile file(::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                                FILE_ATTRIBUTE_NORMAL, nullptr));
        m_file = file.Get();
        return file &&
               stbi_write_png_to_func(&Picture::WriteBytes, this, Width(), Height(), 3, pixels.data(),
                                      Width() * 3) != 0 &&
               !m_failed;
    }

private:
    int Width() const { return static_cast<int>(m_bounds.right - m_bounds.left); }
    int Height() const { return static_cast<int>(m_bounds.bottom - m_bounds.top); }

    HBITMAP MakeBitmap() {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), Width(), -Height(), 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        return ::CreateDIBSection(m_screen, &info, DIB_RGB_COLORS, &m_bits, nullptr, 0);
    }

    static void WriteBytes(void* context, void* data, int size) {
        auto* const picture = static_cast<Picture*>(context);
        DWORD written = 0;
        picture->m_failed =
            picture->m_failed ||
            !::WriteFile(picture->m_file, data, static_cast<DWORD>(size), &written, nullptr) ||
            written != static_cast<DWORD>(size);
    }

    RECT m_bounds;
    fw::WindowDc m_screen;
    fw::MemoryDc m_dc;
    void* m_bits = nullptr;
    fw::UniqueBitmap m_bitmap;
    fw::ScopedSelect m_selected;
    HANDLE m_file = nullptr;
    bool m_failed = false;
};

}  // namespace

bool WriteScreenshot(HWND window, const std::wstring& path) {
    ::RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    const std::vector<HWND> windows = WindowsToPaint(window);
    RECT bounds{};
    for (const HWND shown : windows) {
        RECT place{};
        ::GetWindowRect(shown, &place);
        ::UnionRect(&bounds, &bounds, &place);
    }
    Picture picture(bounds);
    for (const HWND shown : windows) {
        picture.Paint(shown);
    }
    return picture.Write(path);
}

}  // namespace kvpalette
