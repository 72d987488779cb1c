#include "palette/container/HostedControl.h"

#include "framework/base/Hresult.h"
#include "palette/container/ControlFrame.h"

namespace kvpalette {

namespace {

constexpr wchar_t c_applicationName[] = L"kvpalette";
constexpr DWORD c_ambientFlags = QACONTAINER_SUPPORTSMNEMONICS | QACONTAINER_USERMODE | QACONTAINER_AUTOCLIP;

template <class Class>
HRESULT Make(fw::ComPtr<CComObject<Class>>& result) {
    CComObject<Class>* made = nullptr;
    RETURN_IF_FAILED(CComObject<Class>::CreateInstance(nullptr, &made));
    result.Attach(made);
    return S_OK;
}

}  // namespace

HostedControl::HostedControl(const ControlSurroundings& surroundings) : m_surroundings(surroundings) {
}

HostedControl::~HostedControl() {
    Close();
}

HRESULT HostedControl::Create(const CLSID& classId, const std::wstring& rowName, RowSelection& selection,
                              const RECT* position) {
    Close();
    fw::ComPtr<IUnknown> unknown;
    // A class whose control does not exist yet is answered by a result: the row then shows its value by
    // itself.
    RETURN_IF_FAILED_EXPECTED(
        ::CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, unknown.PutVoid()));
    m_object = unknown.As<IOleObject>();
    m_control = unknown.As<IKvPiPropertyEditControl>();
    m_inPlaceObject = unknown.As<IOleInPlaceObject>();
    RETURN_HR_IF(E_NOINTERFACE, !m_object || !m_control || !m_inPlaceObject);
    m_surroundings.frame->AddControl(this);

    HRESULT result = Connect();
    if (SUCCEEDED(result)) {
        m_identifier->SetName(rowName);
        Configure(selection);
        result = TellElements(selection);
    }
    if (SUCCEEDED(result) && position) {
        result = Activate(*position);
    }
    if (SUCCEEDED(result)) {
        result = m_control->InitEditControl(
            selection.objects.Address(), selection.dynamicProperties.Address(), selection.dispids.Address(),
            selection.readOnly ? VARIANT_TRUE : VARIANT_FALSE);
    }
    if (FAILED(result)) {
        Close();
        return result;
    }
    if (const auto extended = m_control.As<IKvPiPropertyEditControl2>()) {
        fw::Ignore(extended->put_PropertyIdentifier(m_identifier.Get()));  // the row works without it
    }
    return S_OK;
}

// Before the selection, so that the first read already knows its element. The first group is the one shown.
HRESULT HostedControl::TellElements(const RowSelection& selection) {
    const auto grouped = m_control.As<IKvPeVariantCtrl>();
    RETURN_HR_IF(S_OK, !grouped || selection.cookies.IsEmpty());
    return grouped->SetDwCookies(selection.cookies.Get());
}

HRESULT HostedControl::Connect() {
    RETURN_IF_FAILED(Make(m_site));
    RETURN_IF_FAILED(Make(m_sink));
    RETURN_IF_FAILED(Make(m_identifier));
    m_site->Connect(this, m_surroundings.frame, m_surroundings.ambient);
    m_sink->Connect(this);
    if (FAILED(QuickActivate())) {
        RETURN_IF_FAILED(ActivateStepByStep());
    }
    if (m_eventCookie == 0) {
        RETURN_IF_FAILED(Advise(IID_IKvPiPropertyEditEventsSink2, m_eventCookie));
    }
    if (m_notifyCookie == 0) {
        fw::Ignore(Advise(IID_IPropertyNotifySink, m_notifyCookie));  // a control may have no such changes
    }
    fw::Ignore(m_object->SetHostNames(c_applicationName, nullptr));  // for titles of dialogs only
    return S_OK;
}

void HostedControl::Configure(const RowSelection& selection) {
    const auto numericEditor = m_control.As<IKvPeNumericEditor>();
    if (numericEditor && selection.numericType) {
        fw::Ignore(
            numericEditor->SetNumericDataType(*selection.numericType));  // not every row has all of them
    }
    const auto calculator = m_control.As<IKvPeCalculatorCtrl>();
    if (calculator && selection.isNumber) {
        fw::Ignore(calculator->SetCalculatorMode(VARIANT_TRUE));  // the row works without a calculator
    }
}

HRESULT HostedControl::QuickActivate() {
    const auto quick = m_object.As<IQuickActivate>();
    RETURN_HR_IF(E_NOINTERFACE, !quick);
    QACONTAINER container{};
    container.cbSize = sizeof(container);
    container.pClientSite = m_site.Get();
    container.pPropertyNotifySink = m_sink.Get();
    container.pUnkEventSink = static_cast<IKvPiPropertyEditEventsSink2*>(m_sink.Get());
    container.dwAmbientFlags = c_ambientFlags;
    container.colorFore = m_surroundings.ambient->foreColor;
    container.colorBack = m_surroundings.ambient->backColor;
    container.pFont = m_surroundings.ambient->font.Get();
    QACONTROL control{};
    control.cbSize = sizeof(control);
    RETURN_IF_FAILED_EXPECTED(quick->QuickActivate(&container, &control));
    m_eventCookie = control.dwEventCookie;
    m_notifyCookie = control.dwPropNotifyCookie;
    return S_OK;
}

HRESULT HostedControl::ActivateStepByStep() {
    DWORD status = 0;
    fw::Ignore(m_object->GetMiscStatus(DVASPECT_CONTENT, &status));  // no answer means no special wishes
    if (status & OLEMISC_SETCLIENTSITEFIRST) {
        RETURN_IF_FAILED(m_object->SetClientSite(m_site.Get()));
    }
    if (const auto stream = m_object.As<IPersistStreamInit>()) {
        RETURN_IF_FAILED(stream->InitNew());
    }
    if (!(status & OLEMISC_SETCLIENTSITEFIRST)) {
        RETURN_IF_FAILED(m_object->SetClientSite(m_site.Get()));
    }
    return S_OK;
}

HRESULT HostedControl::Advise(REFIID id, DWORD& cookie) {
    const auto container = m_object.As<IConnectionPointContainer>();
    RETURN_HR_IF(E_NOINTERFACE, !container);
    fw::ComPtr<IConnectionPoint> point;
    RETURN_IF_FAILED_EXPECTED(container->FindConnectionPoint(id, point.Put()));
    return point->Advise(static_cast<IKvPiPropertyEditEventsSink2*>(m_sink.Get()), &cookie);
}

void HostedControl::Unadvise(REFIID id, DWORD& cookie) {
    const auto container = m_object.As<IConnectionPointContainer>();
    fw::ComPtr<IConnectionPoint> point;
    if (cookie != 0 && container && SUCCEEDED(container->FindConnectionPoint(id, point.Put()))) {
        fw::Ignore(point->Unadvise(cookie));  // the control goes, whatever it answers
    }
    cookie = 0;
}

void HostedControl::Close() {
    if (!m_object) {
        return;
    }
    if (m_sink) {
        m_sink->Disconnect();
    }
    if (m_inPlace) {
        fw::Ignore(m_inPlaceObject->InPlaceDeactivate());  // Close follows and ends what is left
    }
    m_inPlace = false;
    m_uiActive = false;
    Unadvise(IID_IKvPiPropertyEditEventsSink2, m_eventCookie);
    Unadvise(IID_IPropertyNotifySink, m_notifyCookie);
    fw::Ignore(m_object->Close(OLECLOSE_NOSAVE));  // nothing is stored in a control
    fw::Ignore(m_object->SetClientSite(nullptr));  // likewise
    if (m_site) {
        m_site->Disconnect();
    }
    m_surroundings.frame->RemoveControl(this);
    m_inPlaceObject.Reset();
    m_control.Reset();
    m_object.Reset();
    m_site.Reset();
    m_sink.Reset();
    m_identifier.Reset();
}

HWND HostedControl::Window() const {
    HWND window = nullptr;
    if (!m_inPlace || FAILED(m_inPlaceObject->GetWindow(&window))) {
        return nullptr;
    }
    return window;
}

HRESULT HostedControl::DoVerb(LONG verb) {
    RETURN_HR_IF(E_UNEXPECTED, !m_object);
    return m_object->DoVerb(verb, nullptr, m_site.Get(), 0, m_surroundings.parent, &m_position);
}

HRESULT HostedControl::Activate(const RECT& position) {
    m_position = position;
    RETURN_IF_FAILED(DoVerb(m_inPlace ? OLEIVERB_SHOW : OLEIVERB_INPLACEACTIVATE));
    if (m_inPlace) {
        return SetPosition(position);
    }
    m_inPlace = true;
    return S_OK;
}

HRESULT HostedControl::SetPosition(const RECT& position) {
    m_position = position;
    RETURN_HR_IF(S_FALSE, !m_inPlace);
    return m_inPlaceObject->SetObjectRects(&m_position, &m_position);
}

void HostedControl::Hide() {
    if (m_inPlace) {
        fw::Ignore(DoVerb(OLEIVERB_HIDE));  // an unseen control does no harm where it stays
    }
}

HRESULT HostedControl::UiActivate() {
    RETURN_HR_IF(E_UNEXPECTED, !m_inPlace);
    return DoVerb(OLEIVERB_UIACTIVATE);
}

HRESULT HostedControl::UiDeactivate() {
    RETURN_HR_IF(S_FALSE, !m_inPlace);
    return m_inPlaceObject->UIDeactivate();
}

HRESULT HostedControl::Refresh() {
    RETURN_HR_IF(E_UNEXPECTED, !m_control);
    return m_control->Refresh(0);
}

bool HostedControl::KeepsFocus() const {
    VARIANT_BOOL keep = VARIANT_FALSE;
    return m_control && SUCCEEDED(m_control->get_KeepFocus(&keep)) && keep != VARIANT_FALSE;
}

HRESULT HostedControl::Draw(HDC dc, const RECT& bounds) const {
    const auto view = m_object.As<IViewObject>();
    RETURN_HR_IF(E_NOINTERFACE, !view);
    const RECTL area{bounds.left, bounds.top, bounds.right, bounds.bottom};
    return view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &area, nullptr, nullptr, 0);
}

void HostedControl::LookHasChanged() {
    if (const auto control = m_object.As<IOleControl>()) {
        fw::Ignore(control->OnAmbientPropertyChange(DISPID_UNKNOWN));  // it may keep its own look
    }
}

void HostedControl::NoteActive(bool active) {
    m_uiActive = active;
    Events().OnControlActive(*this, active);
}

}  // namespace kvpalette
