#pragma once

#include <vector>

#include "core/ClassIds.h"
#include "families/CKvPeEditTempl.h"
#include "tests/conform/faulty/FaultyText.h"
#include "tests/conform/faulty/PointDetour.h"
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

    // IQuickActivate
    STDMETHODIMP QuickActivate(QACONTAINER* container, QACONTROL* control) override;
    STDMETHODIMP SetContentExtent(LPSIZEL extent) override;
    // IOleObject and IOleInPlaceObject
    STDMETHODIMP SetClientSite(IOleClientSite* site) override;
    STDMETHODIMP DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index, HWND parent,
                        LPCRECT position) override;
    STDMETHODIMP EnumVerbs(IEnumOLEVERB** result) override;
    STDMETHODIMP GetUserClassID(CLSID* classId) override;
    STDMETHODIMP Close(DWORD saveOption) override;
    STDMETHODIMP UIDeactivate() override;
    // IOleControl
    STDMETHODIMP OnAmbientPropertyChange(DISPID id) override;
    STDMETHODIMP GetControlInfo(CONTROLINFO* info) override;
    // IViewObject and IOleObject: notices
    STDMETHODIMP SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
    STDMETHODIMP Advise(IAdviseSink* sink, DWORD* cookie) override;
    STDMETHODIMP Unadvise(DWORD cookie) override;
    // IConnectionPointContainer
    STDMETHODIMP FindConnectionPoint(REFIID id, IConnectionPoint** result) override;
    HRESULT FireKeyDownEvent(UINT_PTR key, LONG_PTR keyData) override;
    // IDispatch
    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** result) override;
    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                               DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

private:
    HRESULT AnswerVerb(LONG verb) const;

    std::vector<FaultySink> m_sinks;
    StrayWindow m_secondStep{*this, nullptr};
    StrayWindow m_stray{*this, &m_secondStep};
};
