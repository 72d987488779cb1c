#include "refhost/ui/ControlTheme.h"

#include "framework/base/WindowsApi.h"

#include <uxtheme.h>

namespace kvhost {

namespace {

ControlTheme s_theme = ControlTheme::AsDesktop;

}  // namespace

void SetControlTheme(ControlTheme theme) {
    s_theme = theme;
}

bool IsVistaControlTheme() {
    if (s_theme != ControlTheme::AsDesktop) {
        return s_theme == ControlTheme::Vista;
    }
    return ::IsThemeActive() && ::IsAppThemed();
}

}  // namespace kvhost
