#pragma once

#include "core/ClassIds.h"
#include "families/CKvPeEditTempl.h"
#include "tests/conform/faulty/FaultyText.h"
#include "tests/conform/faulty/StrayWindow.h"

template <>
struct KvPeClassIdOf<FaultyText> {
    static const CLSID& Get() noexcept { return CLSID_KvPePropertyEditorText; }
};

/// A text row as it should be, but for the one fault that the run asks for.
class FaultyRow : public CKvPeEditTempl<FaultyText> {
public:
    static std::span<const fw::InterfaceEntry> Interfaces();
    StrayWindow& Stray() { return m_stray; }

    STDMETHODIMP QuickActivate(QACONTAINER* container, QACONTROL* control) override;
    STDMETHODIMP SetClientSite(IOleClientSite* site) override;
    STDMETHODIMP DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index, HWND parent,
                        LPCRECT position) override;
    STDMETHODIMP OnAmbientPropertyChange(DISPID id) override;
    STDMETHODIMP GetControlInfo(CONTROLINFO* info) override;
    STDMETHODIMP GetUserClassID(CLSID* classId) override;
    STDMETHODIMP FindConnectionPoint(REFIID id, IConnectionPoint** result) override;
    STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;
    STDMETHODIMP Close(DWORD saveOption) override;
    HRESULT FireKeyDownEvent(UINT_PTR key, LONG_PTR keyData) override;

private:
    StrayWindow m_secondStep{*this, nullptr};
    StrayWindow m_stray{*this, &m_secondStep};
};
