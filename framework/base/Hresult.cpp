#include "framework/base/Hresult.h"

#include <cstdio>

namespace fw {

void TraceFailure(HRESULT result, const char* expression, const char* file, int line) noexcept {
    char text[512];
    std::snprintf(text, sizeof text, "%s(%d): 0x%08lX from %s\n", file, line,
                  static_cast<unsigned long>(result), expression);
    ::OutputDebugStringA(text);
}

}  // namespace fw
