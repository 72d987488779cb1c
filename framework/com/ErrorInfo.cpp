#include "framework/com/ErrorInfo.h"

#include "framework/base/Hresult.h"
#include "framework/com/Bstr.h"
#include "framework/com/ComPtr.h"
#include "framework/com/Guarded.h"

namespace fw {

HRESULT SetErrorText(HRESULT code, REFIID interfaceId, std::wstring_view source,
                     std::wstring_view description) noexcept {
    // The code matters more than its text: without memory for the text the code is returned all the same.
    Ignore(Guarded([&] {
        ComPtr<ICreateErrorInfo> maker;
        RETURN_IF_FAILED(::CreateErrorInfo(maker.Put()));
        Bstr sourceText(source);
        Bstr descriptionText(description);
        RETURN_IF_FAILED(maker->SetGUID(interfaceId));
        RETURN_IF_FAILED(maker->SetSource(sourceText.Get()));
        RETURN_IF_FAILED(maker->SetDescription(descriptionText.Get()));
        const ComPtr<IErrorInfo> info = maker.As<IErrorInfo>();
        RETURN_IF_NULL_POINTER(info.Get());
        return ::SetErrorInfo(0, info.Get());
    }));
    return code;
}

bool TakeErrorInfo(ErrorInfo& info) {
    info = ErrorInfo();
    ComPtr<IErrorInfo> stored;
    if (::GetErrorInfo(0, stored.Put()) != S_OK || !stored) {
        return false;
    }
    Bstr source;
    Bstr description;
    // What a foreign object does not answer stays empty.
    Ignore(stored->GetGUID(&info.interfaceId));
    Ignore(stored->GetSource(source.Put()));
    Ignore(stored->GetDescription(description.Put()));
    info.source = source.View();
    info.description = description.View();
    return true;
}

void ClearErrorInfo() noexcept {
    // Fails only for a reserved argument other than 0.
    Ignore(::SetErrorInfo(0, nullptr));
}

}  // namespace fw
