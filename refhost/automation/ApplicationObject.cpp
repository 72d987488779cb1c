#include "refhost/automation/ApplicationObject.h"

#include <array>
#include <utility>

#include "framework/base/Hresult.h"
#include "framework/com/Bstr.h"
#include "framework/com/CComObject.h"
#include "refhost/testing/ServiceCall.h"

namespace kvhost {

namespace {

std::vector<std::wstring>& RunMacros() {
    static std::vector<std::wstring> macros;
    return macros;
}

}  // namespace

std::span<const fw::InterfaceEntry> ApplicationObject::Interfaces() {
    static constexpr std::array interfaces{fw::Implements<ApplicationObject, IHostApplication>()};
    return interfaces;
}

STDMETHODIMP ApplicationObject::RunMacro(BSTR macro) {
    const std::wstring text(fw::Bstr::ViewOf(macro));
    ServiceCall call(L"RunMacro", text);
    RETURN_HR_IF(call.ReturnsCode(E_FAIL), call.Fails());
    RETURN_HR_IF(call.ReturnsCode(E_INVALIDARG), text.empty());
    RunMacros().push_back(text);
    return call.ReturnsCode(S_OK);
}

fw::ComPtr<IHostApplication> MakeApplicationObject() {
    fw::ComPtr<IHostApplication> object;
    // A host without application object is allowed, so a failure gives null.
    fw::Ignore(CComObject<ApplicationObject>::Create(nullptr, __uuidof(IHostApplication), object.PutVoid()));
    return object;
}

std::vector<std::wstring> TakeRunMacros() {
    return std::exchange(RunMacros(), {});
}

}  // namespace kvhost
