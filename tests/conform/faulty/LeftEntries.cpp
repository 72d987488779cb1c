#include "tests/conform/faulty/LeftEntries.h"

#include <string>

#include "framework/base/WindowsApi.h"
#include "tests/conform/faulty/Fault.h"

namespace {

const std::wstring s_classes = L"Software\\Classes";
const std::wstring s_registered = s_classes + L"\\CLSID\\{E631D337-7F88-44C8-B63F-C9031292FB4E}";

bool HasKey(const std::wstring& path) {
    return ::RegGetValueW(HKEY_CURRENT_USER, path.c_str(), nullptr, RRF_RT_ANY, nullptr, nullptr, nullptr) ==
           ERROR_SUCCESS;
}

void SetText(const std::wstring& path, const wchar_t* name) {
    ::RegSetKeyValueW(HKEY_CURRENT_USER, path.c_str(), name, REG_SZ, L"left", sizeof L"left");
}

}  // namespace

void LeaveEntries() {
    if (!HasKey(s_registered)) {
        return;
    }
    if (HasFault(L"leaves-key")) {
        SetText(s_classes + L"\\KvConformLeft", nullptr);
    }
    if (HasFault(L"leaves-value")) {
        SetText(s_classes + L"\\KvConformOther", L"left");
    }
    if (HasFault(L"takes-from-others")) {
        ::RegDeleteTreeW(HKEY_CURRENT_USER, (s_classes + L"\\KvConformTaken").c_str());
    }
}
