#include "palette/theme/Scale.h"

#include "framework/base/DeviceContexts.h"

namespace kvpalette {

namespace {

constexpr int c_plainDotsPerInch = 96;

int DotsPerInchOfScreen() {
    const fw::WindowDc screen(nullptr);
    return ::GetDeviceCaps(screen, LOGPIXELSY);
}

}  // namespace

const Scale& Scale::OfScreen() {
    static const Scale s_scale(DotsPerInchOfScreen());
    return s_scale;
}

int Scale::Pixels(int measure) const {
    return ::MulDiv(measure, m_dotsPerInch, c_plainDotsPerInch);
}

}  // namespace kvpalette
