#include "tests/conform/faulty/Fault.h"
#include "tests/conform/faulty/FaultyRow.h"
#include "tests/conform/faulty/PointDetour.h"

STDMETHODIMP FaultyRow::FindConnectionPoint(REFIID id, IConnectionPoint** result) {
    const bool isEvents = id == __uuidof(IKvPiPropertyEditEventsSink2);
    const bool isFirst = id == __uuidof(IKvPiPropertyEditEventsSink) && HasFault(L"first-sink");
    const HRESULT found =
        CKvPeEditTempl::FindConnectionPoint(isFirst ? __uuidof(IKvPiPropertyEditEventsSink2) : id, result);
    if (SUCCEEDED(found) && isEvents) {
        *result = PointDetour::Around(*result, m_sinks);
    }
    return found;
}

HRESULT FaultyRow::FireKeyDownEvent(UINT_PTR key, LONG_PTR keyData) {
    const fw::ComPtr<IUnknown> self(GetUnknown());
    if (HasFault(L"tells-twice")) {
        fw::Ignore(CKvPeEditTempl::FireKeyDownEvent(key, keyData));
    }
    const std::size_t known = m_sinks.size();
    const HRESULT result = CKvPeEditTempl::FireKeyDownEvent(key, keyData);
    for (std::size_t index = 0; index < m_sinks.size(); ++index) {
        const FaultySink sink = m_sinks[index];
        const bool isNew = index >= known && HasFault(L"tells-newcomers");
        const bool isMute = !sink.hasGone &&
                            !fw::QueryFrom<IKvPiPropertyEditEventsSink2>(sink.events.Get()) &&
                            HasFault(L"tells-the-mute");
        const bool isGone = sink.hasGone && index < known && HasFault(L"tells-those-gone");
        if (isNew || isMute || isGone) {
            fw::Ignore(sink.events->OnKeyDown(static_cast<LONG_PTR>(key), keyData));
        }
    }
    if (!m_spClientSite && HasFault(L"outlives-its-end")) {
        GetUnknown()->AddRef();
    }
    return result;
}
