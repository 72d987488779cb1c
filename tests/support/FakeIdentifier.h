#pragma once

#include <functional>

#include "framework/com/ComPtr.h"
#include "host_sdk/IKvPiPropertyIdentifier.h"

namespace kvtest {

/// The palette's record of a row: notes "PutCurrentValue "text"" and "PutCurrentValueText text".
class FakeIdentifier final : public IKvPiPropertyIdentifier {
public:
    [[nodiscard]] static fw::ComPtr<FakeIdentifier> Make() { return {new FakeIdentifier}; }
    [[nodiscard]] static long LiveCount();
    [[nodiscard]] ULONG References() const { return m_references; }
    HRESULT result = S_OK;
    bool throws = false;
    std::function<void()> onValue;  // while it is told

    STDMETHODIMP QueryInterface(REFIID id, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_references; }
    STDMETHODIMP_(ULONG) Release() override;
    STDMETHODIMP PutCurrentValue(VARIANT value) override;
    STDMETHODIMP PutCurrentValueText(BSTR text) override;

private:
    FakeIdentifier();
    ~FakeIdentifier();

    ULONG m_references = 0;
};

}  // namespace kvtest
