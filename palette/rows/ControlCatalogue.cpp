#include "palette/rows/ControlCatalogue.h"

#include <algorithm>

#include "KvPEXCtl_h.h"
#include "framework/base/Hresult.h"
#include "framework/com/Bstr.h"
#include "framework/com/ComPtr.h"

namespace kvpalette {

namespace {

constexpr WORD c_libraryMajor = 1;
constexpr WORD c_libraryMinor = 0;

HRESULT ReadClass(ITypeLib& library, UINT index, ControlClass& result) {
    fw::ComPtr<ITypeInfo> info;
    RETURN_IF_FAILED(library.GetTypeInfo(index, info.Put()));
    TYPEATTR* attributes = nullptr;
    RETURN_IF_FAILED(info->GetTypeAttr(&attributes));
    result.classId = attributes->guid;
    info->ReleaseTypeAttr(attributes);
    fw::Bstr name;
    RETURN_IF_FAILED(info->GetDocumentation(MEMBERID_NIL, name.Put(), nullptr, nullptr, nullptr));
    result.name = name.View();
    return S_OK;
}

}  // namespace

HRESULT ControlCatalogue::Load() {
    m_classes.clear();
    fw::ComPtr<ITypeLib> library;
    RETURN_IF_FAILED(::LoadRegTypeLib(LIBID_KVPEXCTLLib, c_libraryMajor, c_libraryMinor,
                                      LOCALE_SYSTEM_DEFAULT, library.Put()));
    for (UINT index = 0; index < library->GetTypeInfoCount(); ++index) {
        TYPEKIND kind{};
        ControlClass entry;
        if (SUCCEEDED(library->GetTypeInfoType(index, &kind)) && kind == TKIND_COCLASS) {
            RETURN_IF_FAILED(ReadClass(*library, index, entry));
            m_classes.push_back(std::move(entry));
        }
    }
    return S_OK;
}

const ControlClass* ControlCatalogue::Find(std::wstring_view name) const {
    const auto found = std::find_if(m_classes.begin(), m_classes.end(),
                                    [&](const ControlClass& entry) { return entry.name == name; });
    return found == m_classes.end() ? nullptr : &*found;
}

bool ControlCatalogue::FindRegistered(const std::wstring& progId, ControlClass& result) {
    result.name = progId;
    return SUCCEEDED(::CLSIDFromProgID(progId.c_str(), &result.classId));
}

bool ControlCatalogue::IsCreatable(const ControlClass& controlClass) {
    fw::ComPtr<IUnknown> control;
    return SUCCEEDED(::CoCreateInstance(controlClass.classId, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown,
                                        control.PutVoid()));
}

std::wstring ClassIdText(const CLSID& classId) {
    wchar_t text[40] = L"";
    ::StringFromGUID2(classId, text, static_cast<int>(std::size(text)));
    return text;
}

}  // namespace kvpalette
