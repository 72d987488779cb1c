#include "palette/rows/RowReading.h"

#include <cwchar>

#include "framework/base/Hresult.h"
#include "framework/com/Bstr.h"
#include "framework/com/SafeArray.h"
#include "host_sdk/ErrorStatus.h"
#include "host_sdk/IDatabaseObjectIdentity.h"
#include "host_sdk/IDynamicProperty.h"
#include "host_sdk/IDynamicPropertyByObject.h"
#include "host_sdk/IPropertyEditability.h"
#include "host_sdk/IPropertyUnspecifiedSupport.h"
#include "refhost/automation/PropertyAccess.h"

namespace kvpalette {

namespace {

using kvhost::PropertyRowEntry;

constexpr wchar_t c_colorControl[] = L"KvPePropertyEditorColor";
constexpr wchar_t c_variesText[] = L"*VARIES*";
// Its length tells nothing of the value's.
constexpr wchar_t c_maskedText[] = L"********";

bool IsDynamic(const PropertyRowEntry& entry) {
    return entry.dispid == kvhost::DispidDynamic;
}

// True, with the text, when the entry is in its unspecified state. The text tells too whether it knows that
// state.
bool ReadUnspecified(const PropertyRowEntry& entry, std::wstring& text) {
    IUnknown* const asked = IsDynamic(entry) ? entry.dynamicProperty.Get() : entry.object.Get();
    const auto support = fw::QueryFrom<IPropertyUnspecifiedSupport>(asked);
    const fw::Variant key =
        IsDynamic(entry) ? fw::Variant::FromUnknown(entry.object.Get()) : fw::Variant::FromLong(entry.dispid);
    VARIANT_BOOL allowed = VARIANT_FALSE;
    if (!support || FAILED(support->IsUnspecifiedAllowed(key.Get(), &allowed)) || allowed == VARIANT_FALSE) {
        return false;
    }
    fw::Bstr name;
    fw::Ignore(support->GetUnspecifiedText(key.Get(), name.Put()));  // a nameless state is shown empty
    text = name.View();
    VARIANT_BOOL unspecified = VARIANT_FALSE;
    return SUCCEEDED(support->IsUnspecified(key.Get(), &unspecified)) && unspecified != VARIANT_FALSE;
}

HRESULT ReadDynamic(const PropertyRowEntry& entry, fw::Variant& value, bool& readOnly) {
    BOOL fixed = FALSE;
    if (const auto byObject = fw::QueryFrom<IDynamicPropertyByObject>(entry.dynamicProperty.Get())) {
        RETURN_IF_FAILED_EXPECTED(byObject->GetCurrentValueData(entry.object.Get(), value.Put()));
        readOnly = SUCCEEDED(byObject->IsPropertyReadOnly(&fixed)) && fixed;
        return S_OK;
    }
    const auto byId = fw::QueryFrom<IDynamicProperty>(entry.dynamicProperty.Get());
    const auto identity = entry.object.As<IDatabaseObjectIdentity>();
    KvDbObjectId id;
    RETURN_HR_IF(E_FAIL, !byId || !identity);
    RETURN_IF_FAILED_EXPECTED(identity->GetObjectId(&id));
    RETURN_IF_FAILED_EXPECTED(byId->GetCurrentValueData(id, value.Put()));
    readOnly = SUCCEEDED(byId->IsPropertyReadOnly(&fixed)) && fixed;
    return S_OK;
}

bool IsEditable(const PropertyRowEntry& entry) {
    const auto editability = entry.object.As<IPropertyEditability>();
    BOOL editable = TRUE;
    try {
        return !editability || FAILED(editability->Editable(entry.dispid, &editable)) || editable;
    } catch (const Tolm::ErrorStatus&) {
        return false;
    }
}

HRESULT ReadPlain(const PropertyRowEntry& entry, fw::Variant& value, bool& readOnly) {
    RETURN_HR_IF(E_FAIL, !entry.object);
    DISPPARAMS none{};
    RETURN_IF_FAILED_EXPECTED(entry.object->Invoke(entry.dispid, IID_NULL, LOCALE_USER_DEFAULT,
                                                   DISPATCH_PROPERTYGET, &none, value.Put(), nullptr,
                                                   nullptr));
    readOnly = !IsEditable(entry);
    return S_OK;
}

// The rule by which the controls tell whether two objects share a value.
bool AreSame(const fw::Variant& left, const fw::Variant& right) {
    if (left.Type() != right.Type()) {
        return false;
    }
    switch (left.Type()) {
        case VT_I2:
        case VT_BOOL:
            return left.Get().iVal == right.Get().iVal;
        case VT_I4:
        case VT_INT:
        case VT_I8:
            return left.Get().lVal == right.Get().lVal;
        case VT_R4:
            return left.Get().fltVal == right.Get().fltVal;
        case VT_R8:
            return left.Get().dblVal == right.Get().dblVal;
        case VT_BSTR: {
            const std::wstring_view first = left.StringView();
            const std::wstring_view second = right.StringView();
            return ::CompareStringOrdinal(first.data(), static_cast<int>(first.size()), second.data(),
                                          static_cast<int>(second.size()), TRUE) == CSTR_EQUAL;
        }
        default:
            return false;
    }
}

std::wstring NumberText(double number) {
    wchar_t text[64] = L"";
    std::swprintf(text, std::size(text), L"%.10g", number);
    return text;
}

std::wstring ArrayText(const VARIANT& value) {
    fw::SafeArrayView view;
    if (FAILED(fw::SafeArrayView::FromVariant(&value, view))) {
        return {};
    }
    std::wstring text;
    for (LONG index = 0; index < view.Count(); ++index) {
        fw::Variant element;
        if (SUCCEEDED(view.GetVariant(index, element))) {
            text += (index ? L", " : L"") + ValueText(element.Get());
        }
    }
    return text;
}

}  // namespace

RowReading ReadEntry(const kvhost::PropertyRowEntry& entry) {
    RowReading reading;
    if (ReadUnspecified(entry, reading.unspecifiedText)) {
        reading.state = RowState::Unspecified;
        return reading;
    }
    const HRESULT result = IsDynamic(entry) ? ReadDynamic(entry, reading.value, reading.readOnly)
                                            : ReadPlain(entry, reading.value, reading.readOnly);
    reading.state = SUCCEEDED(result) ? RowState::Specific : RowState::Failed;
    return reading;
}

RowReading ReadRow(const kvhost::PropertyRow& row) {
    RowReading shared;
    bool first = true;
    for (const PropertyRowEntry& entry : row.entries) {
        RowReading next = ReadEntry(entry);
        if (first) {
            shared = std::move(next);
            first = false;
            continue;
        }
        shared.readOnly = shared.readOnly || next.readOnly;
        if (next.state == RowState::Failed) {
            shared.state = RowState::Failed;
            break;
        }
        const bool same = shared.state == next.state &&
                          (shared.state == RowState::Unspecified || AreSame(shared.value, next.value));
        if (!same) {
            shared.state = RowState::Varies;
            break;
        }
    }
    shared.readOnly = shared.readOnly || (row.flags & kvhost::PropertyReadOnly) != 0;
    return shared;
}

std::wstring ReadingText(const kvhost::PropertyRow& row, const RowReading& reading) {
    if (reading.state == RowState::Unspecified) {
        return reading.unspecifiedText;
    }
    if (reading.state == RowState::Varies) {
        return c_variesText;
    }
    std::wstring text = ValueText(reading.value.Get());
    if (row.flags & kvhost::PropertyMasked) {
        return text.empty() ? text : c_maskedText;
    }
    kvhost::ColorValue color;
    if (row.control == c_colorControl &&
        kvhost::ColorFromNumber(reading.value.LongOr(-1), color) == Tolm::eOk) {
        return color.Text();
    }
    if (reading.value.Is(VT_BSTR) || reading.value.Is(VT_R8) || row.entries.empty() ||
        IsDynamic(row.entries.front())) {
        return text;
    }
    const auto browsing = row.entries.front().object.As<IPerPropertyBrowsing>();
    fw::Bstr name;
    return browsing && browsing->GetDisplayString(row.entries.front().dispid, name.Put()) == S_OK &&
                   !name.IsEmpty()
               ? std::wstring(name.View())
               : text;
}

const wchar_t* StateName(RowState state) {
    switch (state) {
        case RowState::Specific:
            return L"specific";
        case RowState::Varies:
            return L"varies";
        case RowState::Unspecified:
            return L"unspecified";
        default:
            return L"failed";
    }
}

std::wstring ValueText(const VARIANT& value) {
    switch (value.vt) {
        case VT_EMPTY:
        case VT_NULL:
            return {};
        case VT_BSTR:
            return std::wstring(fw::Variant::ViewString(value));
        case VT_R8:
            return NumberText(value.dblVal);
        case VT_R4:
            return NumberText(static_cast<double>(value.fltVal));
        case VT_BOOL:
            return value.boolVal != VARIANT_FALSE ? L"Yes" : L"No";
        default:
            break;
    }
    if (value.vt & VT_ARRAY) {
        return ArrayText(value);
    }
    fw::Variant text;
    if (FAILED(text.CopyIndirectFrom(value)) || FAILED(text.ChangeType(VT_BSTR))) {
        return {};
    }
    return std::wstring(text.StringView());
}

}  // namespace kvpalette
