#include "palette/container/RowIdentifier.h"

#include <array>

#include "framework/base/Hresult.h"
#include "framework/com/Bstr.h"
#include "framework/com/Guarded.h"
#include "refhost/testing/Journal.h"
#include "refhost/testing/JournalText.h"

namespace kvpalette {

std::span<const fw::InterfaceEntry> RowIdentifier::Interfaces() {
    static constexpr std::array s_interfaces{fw::Implements<RowIdentifier, IKvPiPropertyIdentifier>()};
    return s_interfaces;
}

STDMETHODIMP RowIdentifier::PutCurrentValue(VARIANT value) {
    return fw::Guarded([&] {
        if (kvhost::Journal* const journal = kvhost::Journal::Attached()) {
            journal->Write(L"PutCurrentValue", m_name + L" " + kvhost::AsText(value));
        }
        return m_value.CopyFrom(value);
    });
}

STDMETHODIMP RowIdentifier::PutCurrentValueText(BSTR text) {
    return fw::Guarded([&] {
        m_text = fw::Bstr::ViewOf(text);
        if (kvhost::Journal* const journal = kvhost::Journal::Attached()) {
            journal->Write(L"PutCurrentValueText", m_name + L" " + m_text);
        }
        return S_OK;
    });
}

}  // namespace kvpalette
