#include "core/CKvPeCtrlBase.h"
#include "core/ExceptionRecord.h"
#include "core/ExpressionState.h"
#include "core/ModuleTexts.h"
#include "core/PropertyEditability.h"
#include "core/ReadFailures.h"
#include "core/SelectionEntry.h"
#include "core/SelectionUse.h"
#include "framework/com/Variant.h"

namespace {

// The system makes no vectors without an element type; a bare descriptor is one.
SAFEARRAY* MakeEmptyVector() {
    SAFEARRAY* vector = nullptr;
    return SUCCEEDED(::SafeArrayAllocDescriptor(1, &vector)) ? vector : nullptr;
}

// Hosts may give null pointers for empty texts and arrays; rows get empty ones.
void FillNullValue(VARIANT& value) {
    if (value.vt == VT_BSTR && value.bstrVal == nullptr) {
        value.bstrVal = ::SysAllocString(L"");
    } else if (value.vt == VT_ARRAY && value.parray == nullptr) {
        value.parray = MakeEmptyVector();
    }
}

HRESULT InvokeGet(IDispatch& object, long dispid, VARIANT& value, SCODE& exceptionCode) {
    DISPPARAMS noParameters{};
    ExceptionRecord exception;
    const HRESULT result = object.Invoke(dispid, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET,
                                         &noParameters, &value, exception.Put(), nullptr);
    if (result == DISP_E_EXCEPTION) {
        exception.Complete();
        exceptionCode = exception.Code();
    }
    return result;
}

bool AreSameTexts(BSTR first, BSTR second) {
    // Most are the same to the letter; to fold their case costs more than the read of a value.
    if (fw::Bstr::ViewOf(first) == fw::Bstr::ViewOf(second)) {
        return true;
    }
    return ::CompareStringOrdinal(first != nullptr ? first : L"", static_cast<int>(::SysStringLen(first)),
                                  second != nullptr ? second : L"", static_cast<int>(::SysStringLen(second)),
                                  TRUE) == CSTR_EQUAL;
}

// For values of one type.
bool AreSameValues(const VARIANT& first, const VARIANT& second) {
    switch (first.vt) {
        case VT_I2:
        case VT_BOOL:
            return first.iVal == second.iVal;
        case VT_I4:
        case VT_INT:
        case VT_I8:
            // Deliberate: of a 64-bit number only the low half counts.
            return first.lVal == second.lVal;
        case VT_R4:
            return first.fltVal == second.fltVal;
        case VT_R8:
            return first.dblVal == second.dblVal;
        case VT_BSTR:
            return AreSameTexts(first.bstrVal, second.bstrVal);
        default:
            return false;
    }
}

template <class DynamicForm>
void AskIsReadOnly(DynamicForm& form, BOOL& readOnly) {
    // A property that cannot tell leaves the state as it is.
    fw::Ignore(form.IsPropertyReadOnly(&readOnly));
}

}  // namespace

// One read of the selection: the value of the first object, compared with those of the others.
class CKvPeCtrlBase::ValueReader {
public:
    ValueReader(CKvPeCtrlBase& control, VARIANT& value, ValueType& type)
        : m_control(control), m_use(control), m_value(value), m_type(type) {}

    [[nodiscard]] HRESULT ReadFirstObject(const SelectionEntry& entry);
    /// To be called when the first object was read and had one value.
    [[nodiscard]] HRESULT ReadFurtherObjects(int count);

private:
    // What the read of one further object finds. Emptied for the next one, whose texts find their place made.
    struct Reading {
        fw::Variant value;
        bool unspecified = false;
        bool supportsExpression = false;
        CString expression;

        void Empty() {
            value.Clear();
            unspecified = false;
            supportsExpression = false;
            expression.Empty();
        }
    };

    [[nodiscard]] HRESULT ReadFirstByDispid(const SelectionEntry& entry);
    [[nodiscard]] HRESULT ReadFirstDynamic(const SelectionEntry& entry);
    [[nodiscard]] HRESULT ReadFurtherByDispid(const SelectionEntry& entry, Reading& reading);
    [[nodiscard]] HRESULT ReadFurtherDynamic(const SelectionEntry& entry, const DynamicForms& forms,
                                             Reading& reading);
    [[nodiscard]] HRESULT ReadDynamicValue(const SelectionEntry& entry, const DynamicForms& forms,
                                           VARIANT& value);
    [[nodiscard]] bool DiffersFromFirst(Reading& reading);
    void NoteFirstExpression();
    void TakeOverReadOnlyState(const DynamicForms& forms);
    void TakeOverEditability(const SelectionEntry& entry);

    CKvPeCtrlBase& m_control;
    SelectionUse m_use;
    VARIANT& m_value;  // the first object's
    ValueType& m_type;
    bool m_anySupportsExpression = false;
};

HRESULT CKvPeCtrlBase::GetPropertyValue(VARIANT* value, ValueType& type) {
    RETURN_IF_NULL_POINTER(value);
    type = ValueType_Specific;
    m_expressionState = ExpressionState_Unsupported;
    m_readOnly = m_initialReadOnly;
    ::VariantClear(value);
    const int count = EntryCount();
    RETURN_HR_IF(E_FAIL, count == 0);

    ValueReader reader(*this, *value, type);
    const HRESULT firstRead = reader.ReadFirstObject(EntryAt(0));
    if (FAILED(firstRead) || count == 1 || type == ValueType_Varies) {
        return firstRead;
    }
    return reader.ReadFurtherObjects(count);
}

HRESULT CKvPeCtrlBase::ComparePropertyValue(VARIANT* first, VARIANT* second, int& result) {
    RETURN_HR_IF(E_POINTER, first == nullptr || second == nullptr);
    RETURN_HR_IF(E_FAIL, first->vt != second->vt);
    result = AreSameValues(*first, *second) ? 0 : -1;
    return S_OK;
}

SelectionEntry CKvPeCtrlBase::EntryAt(int index) const {
    const auto position = static_cast<std::size_t>(index);
    return {m_objects[position], m_dynamicProperties[position], m_dispids[position]};
}

HRESULT CKvPeCtrlBase::ValueReader::ReadFirstObject(const SelectionEntry& entry) {
    RETURN_HR_IF(E_FAIL, !entry.object);
    return entry.IsDynamic() ? ReadFirstDynamic(entry) : ReadFirstByDispid(entry);
}

HRESULT CKvPeCtrlBase::ValueReader::ReadFirstByDispid(const SelectionEntry& entry) {
    IDispatch* const object = entry.object;
    SCODE exceptionCode = 0;
    bool unspecified = false;
    HRESULT result = m_control.CheckPropertyForUnspecifiedValue(entry.dispid, object, &m_value, &unspecified);
    if (SUCCEEDED(result) && unspecified) {
        m_type = ValueType_Unspecified;
    } else {
        result = InvokeGet(*object, entry.dispid, m_value, exceptionCode);
    }
    FillNullValue(m_value);

    // The text is empty when the object cannot tell; the read goes on.
    fw::Ignore(m_control.GetPropertyExpressionHelper(entry.dispid, object, m_control.m_expression,
                                                     m_anySupportsExpression));
    NoteFirstExpression();

    if (IsToleratedReadFailure(result, exceptionCode, object, entry.dispid, m_type)) {
        result = S_OK;
    }
    RETURN_IF_FAILED_EXPECTED(result);
    TakeOverEditability(entry);
    return result;
}

HRESULT CKvPeCtrlBase::ValueReader::ReadFirstDynamic(const SelectionEntry& entry) {
    const DynamicForms forms(entry.dynamicProperty);
    RETURN_HR_IF(E_FAIL, forms.IsMissing());
    IUnknown* const dynamicProperty = entry.dynamicProperty;
    bool unspecified = false;
    HRESULT result =
        m_control.CheckPropertyForUnspecifiedValue(dynamicProperty, entry.object, &m_value, &unspecified);
    if (SUCCEEDED(result) && unspecified) {
        m_type = ValueType_Unspecified;
    }

    // The text is empty when the property cannot tell; the read goes on.
    fw::Ignore(m_control.GetPropertyExpressionHelper(dynamicProperty, entry.object, m_control.m_expression,
                                                     m_anySupportsExpression));
    NoteFirstExpression();

    if (m_type != ValueType_Unspecified) {
        result = ReadDynamicValue(entry, forms, m_value);
    }
    if (SUCCEEDED(result)) {
        // Deliberate: the first dynamic property's answer replaces what the palette has asked for.
        TakeOverReadOnlyState(forms);
    }
    return result;
}

HRESULT CKvPeCtrlBase::ValueReader::ReadFurtherObjects(int count) {
    const bool firstHadNoExpression = m_control.m_expression.IsEmpty();
    Reading reading;
    for (int index = 1; m_use.IsCurrent() && index < count; ++index) {
        const SelectionEntry entry = m_control.EntryAt(index);
        const DynamicForms forms(entry.IsDynamic() ? entry.dynamicProperty : nullptr);
        if (!entry.object || (entry.IsDynamic() && forms.IsMissing())) {
            continue;
        }
        reading.Empty();
        RETURN_IF_FAILED_EXPECTED(entry.IsDynamic() ? ReadFurtherDynamic(entry, forms, reading)
                                                    : ReadFurtherByDispid(entry, reading));
        m_anySupportsExpression = m_anySupportsExpression || reading.supportsExpression;
        m_control.UpdateExpressionSupportState(firstHadNoExpression, m_anySupportsExpression,
                                               reading.expression);
        if (m_type != ValueType_Varies && DiffersFromFirst(reading)) {
            m_type = ValueType_Varies;
        }
        if (m_type == ValueType_Varies) {
            break;
        }
    }
    return S_OK;
}

HRESULT CKvPeCtrlBase::ValueReader::ReadFurtherByDispid(const SelectionEntry& entry, Reading& reading) {
    IDispatch* const object = entry.object;
    SCODE exceptionCode = 0;
    HRESULT result = m_control.CheckPropertyForUnspecifiedValue(entry.dispid, object, reading.value.Address(),
                                                                &reading.unspecified);
    if (FAILED(result) || !reading.unspecified) {
        result = InvokeGet(*object, entry.dispid, *reading.value.Address(), exceptionCode);
        FillNullValue(*reading.value.Address());
    }
    if (IsToleratedReadFailure(result, exceptionCode, object, entry.dispid, m_type)) {
        result = S_OK;
    }
    // The text is empty when the object cannot tell; the read goes on.
    fw::Ignore(m_control.GetPropertyExpressionHelper(entry.dispid, object, reading.expression,
                                                     reading.supportsExpression));
    RETURN_IF_FAILED_EXPECTED(result);
    TakeOverEditability(entry);
    return result;
}

HRESULT CKvPeCtrlBase::ValueReader::ReadFurtherDynamic(const SelectionEntry& entry, const DynamicForms& forms,
                                                       Reading& reading) {
    IUnknown* const dynamicProperty = entry.dynamicProperty;
    HRESULT result = m_control.CheckPropertyForUnspecifiedValue(
        dynamicProperty, entry.object, reading.value.Address(), &reading.unspecified);
    if (FAILED(result) || !reading.unspecified) {
        result = ReadDynamicValue(entry, forms, *reading.value.Address());
    }
    if (!m_control.m_readOnly && SUCCEEDED(result)) {
        TakeOverReadOnlyState(forms);
    }
    // The text is empty when the property cannot tell; the read goes on.
    fw::Ignore(m_control.GetPropertyExpressionHelper(dynamicProperty, entry.object, reading.expression,
                                                     reading.supportsExpression));
    return result;
}

HRESULT CKvPeCtrlBase::ValueReader::ReadDynamicValue(const SelectionEntry& entry, const DynamicForms& forms,
                                                     VARIANT& value) {
    return forms.byObject ? forms.byObject->GetCurrentValueData(entry.object, &value)
                          : m_control.GetDynamicPropertyValue(entry.object, forms.byId.Get(), &value);
}

bool CKvPeCtrlBase::ValueReader::DiffersFromFirst(Reading& reading) {
    const bool firstUnspecified = m_type == ValueType_Unspecified;
    if (firstUnspecified != reading.unspecified) {
        return true;
    }
    if (!firstUnspecified) {
        int result = -1;
        // A comparison that fails leaves the result at "different".
        fw::Ignore(m_control.ComparePropertyValue(&m_value, reading.value.Address(), result));
        return result != 0;
    }
    if (m_value.vt == VT_BSTR) {
        // Rows show the unspecified text for this type; who looks at the value sees that several objects
        // share it.
        fw::Variant text = fw::Variant::FromString(VariesText().View());
        ::VariantClear(&m_value);
        text.DetachTo(m_value);
    }
    return false;
}

void CKvPeCtrlBase::ValueReader::NoteFirstExpression() {
    if (m_anySupportsExpression) {
        m_control.m_expressionState =
            m_control.m_expression.IsEmpty() ? ExpressionState_NoExpression : ExpressionState_Shared;
    }
}

void CKvPeCtrlBase::ValueReader::TakeOverReadOnlyState(const DynamicForms& forms) {
    if (forms.byObject) {
        AskIsReadOnly(*forms.byObject, m_control.m_readOnly);
    } else {
        AskIsReadOnly(*forms.byId, m_control.m_readOnly);
    }
}

void CKvPeCtrlBase::ValueReader::TakeOverEditability(const SelectionEntry& entry) {
    bool readOnly = false;
    if (!m_control.m_readOnly && AskIsReadOnly(entry.object, entry.dispid, readOnly)) {
        m_control.m_readOnly = readOnly;
    }
}
