#include "refhost/automation/AutomationError.h"

#include "framework/com/ErrorInfo.h"

namespace kvhost {

namespace {

constexpr wchar_t c_source[] = L"KvHost";
constexpr unsigned long c_hostFacility = 0x80200000UL;

BSTR CopyText(const std::wstring& text) {
    return ::SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
}

}  // namespace

SCODE ScodeOf(Tolm::ErrorStatus status) {
    return static_cast<SCODE>(c_hostFacility | static_cast<unsigned long>(status));
}

std::wstring ReasonOf(Tolm::ErrorStatus status) {
    switch (status) {
        case Tolm::eInvalidInput:
            return L"The value is not valid for this property.";
        case Tolm::eNotInDatabase:
            return L"The object is in no drawing.";
        case Tolm::eNullObjectId:
            return L"The object no longer exists.";
        case Tolm::eWasOpenForWrite:
        case Tolm::eWasOpenForRead:
            return L"The object is in use.";
        case Tolm::eKeyNotFound:
            return L"The drawing has nothing of that name.";
        case Tolm::eDuplicateKey:
            return L"The name is in use already.";
        case Tolm::eOnLockedLayer:
            return L"The object is on a locked layer.";
        case Tolm::eWasErased:
            return L"The object has been erased.";
        case Tolm::eNotAllowed:
            return L"The property can't be changed here.";
        default:
            return L"The drawing refuses the change (status " + std::to_wstring(status) + L").";
    }
}

HRESULT AsException(Tolm::ErrorStatus status, EXCEPINFO* exception) {
    if (status == Tolm::eOk) {
        return S_OK;
    }
    if (exception != nullptr) {
        *exception = {};
        exception->scode = ScodeOf(status);
        exception->bstrSource = CopyText(c_source);
        exception->bstrDescription = CopyText(ReasonOf(status));
    }
    return DISP_E_EXCEPTION;
}

HRESULT AsErrorText(Tolm::ErrorStatus status, REFIID interfaceId) {
    return status == Tolm::eOk ? S_OK
                               : fw::SetErrorText(ScodeOf(status), interfaceId, c_source, ReasonOf(status));
}

}  // namespace kvhost
