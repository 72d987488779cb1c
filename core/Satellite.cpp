#include "core/Satellite.h"

#include <string>

#include "framework/base/MessageBox.h"
#include "framework/com/Registration.h"

namespace {

constexpr const wchar_t* c_satelliteName = L"KvPEXCtlRes.dll";

HINSTANCE s_satellite = nullptr;

HINSTANCE LoadFromFolderOf(HINSTANCE module) {
    const std::wstring path = fw::ModulePath(module);
    const std::size_t nameStart = path.find_last_of(L'\\') + 1;
    return nameStart != 0 ? ::LoadLibraryW((path.substr(0, nameStart) + c_satelliteName).c_str()) : nullptr;
}

}  // namespace

HINSTANCE KvPeSatellite() {
    return s_satellite;
}

bool LoadKvPeSatellite(HINSTANCE module) {
    HINSTANCE satellite = ::LoadLibraryW(c_satelliteName);
    if (satellite == nullptr) {
        // A client outside our folder, such as the platform's script host, does not search where we lie.
        satellite = LoadFromFolderOf(module);
    }
    if (satellite == nullptr) {
        // The text is fixed: there is no satellite to take a translated one from.
        AfxMessageBox(L"KvPEXCtl resource only DLL load failed");
        return false;
    }
    s_satellite = satellite;
    return true;
}
