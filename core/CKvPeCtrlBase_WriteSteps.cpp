#include "core/CKvPeCtrlBase.h"
#include "core/ObjectWritability.h"
#include "core/SelectionEntry.h"
#include "core/ValueWriter.h"
#include "framework/base/MessageBox.h"
#include "framework/com/Bstr.h"
#include "framework/com/Guarded.h"
#include "host_sdk/KvEdServices.h"

namespace {

constexpr int c_maximumMessages = 5;

// A user break must not cut the write of one object.
class BreakLock {
public:
    explicit BreakLock(bool hasDatabase) : m_hasDatabase(hasDatabase) {
        if (m_hasDatabase) {
            kvedDisableUsrbrk();
        }
    }
    BreakLock(const BreakLock&) = delete;
    BreakLock& operator=(const BreakLock&) = delete;
    ~BreakLock() {
        if (m_hasDatabase) {
            kvedEnableUsrbrk();
        }
    }

private:
    bool m_hasDatabase;
};

fw::ComPtr<IErrorInfo> TakeErrorInfo() {
    fw::ComPtr<IErrorInfo> info;
    // S_FALSE leaves the pointer null.
    fw::Ignore(::GetErrorInfo(0, info.Put()));
    return info;
}

}  // namespace

CKvPeCtrlBase::ValueWriter::ValueWriter(CKvPeCtrlBase& control, VARIANT& value, ValueType type,
                                        bool hasDatabase)
    : m_control(control), m_value(value), m_type(type), m_hasDatabase(hasDatabase) {
}

void CKvPeCtrlBase::ValueWriter::Write(const SelectionEntry& entry) {
    IDispatch* const object = entry.object;
    // What was opened for the write is closed behind an object that throws, here and below.
    if (fw::Guarded([&] { return static_cast<HRESULT>(IsObjectWritable(object)); }) == 0) {
        m_sawLockedObject = true;
        return;
    }
    // The hook prepares; whether the object takes the value is for the write to say.
    fw::Ignore(fw::Guarded([&] { return m_control.PreSetPropertyValue(object, entry.dispid); }));
    if (entry.IsDynamic()) {
        WriteDynamic(entry);
    } else if (object != nullptr) {
        WriteByDispid(entry);
    }
}

void CKvPeCtrlBase::ValueWriter::WriteByDispid(const SelectionEntry& entry) {
    {
        const BreakLock breakLock(m_hasDatabase);
        m_exception.Clear();
        m_result = fw::Guarded([&] { return PutByDispid(entry); });
    }
    GatherDispidFailure();
}

HRESULT CKvPeCtrlBase::ValueWriter::PutByDispid(const SelectionEntry& entry) {
    IDispatch* const object = entry.object;
    HRESULT result = m_result;
    if (m_control.m_allowUnspecified) {
        result =
            m_control.SetPropertyValueAsUnspecified(entry.dispid, object, m_type == ValueType_Unspecified);
    }
    if (m_type == ValueType_Expression) {
        result = SetExpression(entry.dispid, object);
    } else if (m_type == ValueType_Specific) {
        result = InvokePut(*object, entry.dispid);
    }
    return SUCCEEDED(result) ? m_control.PostSetPropertyValue(object) : result;
}

void CKvPeCtrlBase::ValueWriter::WriteDynamic(const SelectionEntry& entry) {
    const DynamicForms forms(entry.dynamicProperty);
    if (forms.IsMissing()) {
        return;
    }
    m_result = fw::Guarded([&] { return PutDynamic(entry, forms); });
    GatherDynamicFailure();
}

HRESULT CKvPeCtrlBase::ValueWriter::PutDynamic(const SelectionEntry& entry, const DynamicForms& forms) {
    IUnknown* const dynamicProperty = entry.dynamicProperty;
    IDispatch* const object = entry.object;
    HRESULT result = m_result;
    if (m_control.m_allowUnspecified) {
        result =
            m_control.SetPropertyValueAsUnspecified(dynamicProperty, object, m_type == ValueType_Unspecified);
    }
    if (m_type == ValueType_Expression) {
        result = SetExpression(dynamicProperty, static_cast<IUnknown*>(object));
    }
    const fw::ComPtr<IErrorInfo> olderError = TakeErrorInfo();
    if (m_type == ValueType_Specific) {
        result = forms.byObject ? forms.byObject->SetCurrentValueData(object, m_value)
                                : m_control.SetDynamicPropertyValue(object, forms.byId.Get(), &m_value);
    }
    return SUCCEEDED(result) ? m_control.PostSetPropertyValue(object) : result;
}

HRESULT CKvPeCtrlBase::ValueWriter::InvokePut(IDispatch& object, long dispid) {
    DISPID putName = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{&m_value, &putName, 1, 1};
    return object.Invoke(dispid, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &parameters, nullptr,
                         m_exception.Put(), nullptr);
}

template <class Key, class Object>
HRESULT CKvPeCtrlBase::ValueWriter::SetExpression(Key key, Object* object) {
    RETURN_HR_IF(E_INVALIDARG, m_value.vt != VT_BSTR);
    return m_control.SetPropertyExpressionAsString(key, object, m_value.bstrVal);
}

void CKvPeCtrlBase::ValueWriter::GatherDispidFailure() {
    // A command that writes properties tells its user itself.
    if (SUCCEEDED(m_result) || kvedIsInCommandStack(KVED_COMMAND_WRITES_PROPERTIES) ||
        m_result != DISP_E_EXCEPTION) {
        return;
    }
    CountFailure();
    m_exception.Complete();
    if (m_exception.Code() != m_rememberedCode && MayShowAnother() && m_exception.Description() != nullptr &&
        !kvedIsLivePreviewRecording()) {
        Show(m_exception.Description());
    }
    m_rememberedCode = m_exception.Code();
    m_exception.Clear();
    ClearResultUnlessAllFailed();
}

// Deliberate: unlike for a dispatch id every failure counts, each is shown, and a preview that records hides
// none.
void CKvPeCtrlBase::ValueWriter::GatherDynamicFailure() {
    if (SUCCEEDED(m_result) || kvedIsInCommandStack(KVED_COMMAND_WRITES_PROPERTIES)) {
        return;
    }
    CountFailure();
    if (MayShowAnother()) {
        fw::Bstr description;
        const fw::ComPtr<IErrorInfo> info = TakeErrorInfo();
        if (info && SUCCEEDED(info->GetDescription(description.Put())) && !description.IsEmpty()) {
            Show(description.Get());
        }
    }
    ClearResultUnlessAllFailed();
}

void CKvPeCtrlBase::ValueWriter::ClearResultUnlessAllFailed() {
    if (m_control.m_failedObjectCount != m_control.m_objectCount) {
        m_result = S_OK;
    }
}

bool CKvPeCtrlBase::ValueWriter::MayShowAnother() const {
    return m_shownMessages < c_maximumMessages;
}

void CKvPeCtrlBase::ValueWriter::Show(const wchar_t* description) {
    HWND frame = nullptr;
    // Outside a container the message has no owner.
    fw::Ignore(m_control.GetFrameHandle(frame));
    fw::ShowMessageBox(frame, description, nullptr, MB_ICONEXCLAMATION);
    ++m_shownMessages;
}
