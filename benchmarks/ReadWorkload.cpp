#include "benchmarks/Drawing.h"
#include "benchmarks/Workloads.h"
#include "core/DispatchIds.h"
#include "core/HostDocument.h"
#include "framework/com/Bstr.h"
#include "host_sdk/IDynamicPropertyByObject.h"
#include "host_sdk/IPropertyEditability.h"
#include "host_sdk/IPropertyExpressionSupport.h"
#include "host_sdk/IPropertyUnspecifiedSupport.h"
#include "host_sdk/KvApDocument.h"
#include "host_sdk/KvDbHostApplicationServices.h"
#include "host_sdk/KvDbUnits.h"
#include "numeric/CPropertyEditorTOLMNumeric.h"

// The floor: the host calls of a read with what they oblige their caller to (release, free), nothing else.
namespace kvbench {
namespace {

template <class Interface>
fw::ComPtr<Interface> Query(IUnknown* object) {
    fw::ComPtr<Interface> result;
    fw::Ignore(object->QueryInterface(__uuidof(Interface), result.PutVoid()));
    return result;
}

void AskUnspecified(IUnknown* asked, const VARIANT& key) {
    const auto support = Query<IPropertyUnspecifiedSupport>(asked);
    VARIANT_BOOL allowed = VARIANT_FALSE;
    if (!support || FAILED(support->IsUnspecifiedAllowed(key, &allowed)) || !allowed) {
        return;
    }
    fw::Bstr text;
    VARIANT_BOOL unspecified = VARIANT_FALSE;
    fw::Ignore(support->GetUnspecifiedText(key, text.Put()));
    Require(support->IsUnspecified(key, &unspecified) == S_OK && !unspecified, "the value is a plain one");
}

void AskExpression(IUnknown* asked, const VARIANT& key) {
    const auto support = Query<IPropertyExpressionSupport>(asked);
    VARIANT_BOOL supported = VARIANT_FALSE;
    if (support && SUCCEEDED(support->IsExpressionSupported(key, &supported)) && supported) {
        fw::Bstr text;
        fw::Ignore(support->GetExpression(key, text.Put()));
    }
}

void ReadObject(IDispatch* object, long dispid) {
    VARIANT key{};
    key.vt = VT_I4;
    key.lVal = dispid;
    AskUnspecified(object, key);
    DISPPARAMS none{};
    EXCEPINFO exception{};
    fw::Variant value;
    Require(object->Invoke(dispid, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                           value.Address(), &exception, nullptr) == S_OK,
            "an object gives its value");
    AskExpression(object, key);
    if (const auto editability = Query<IPropertyEditability>(object)) {
        BOOL editable = FALSE;
        Require(editability->Editable(dispid, &editable) == S_OK && editable, "the property is editable");
    }
}

void ReadDynamic(IDispatch* object, IUnknown* property, bool first) {
    const auto byObject = Query<IDynamicPropertyByObject>(property);
    const auto byId = Query<IDynamicProperty>(property);
    VARIANT key{};
    key.vt = VT_UNKNOWN;
    key.punkVal = object;
    AskUnspecified(property, key);
    if (first) {
        AskExpression(property, key);
    }
    fw::Variant value;
    BOOL readOnly = TRUE;
    Require(byObject->GetCurrentValueData(object, value.Address()) == S_OK &&
                byObject->IsPropertyReadOnly(&readOnly) == S_OK && !readOnly,
            "a dynamic property gives its value");
    if (!first) {
        AskExpression(property, key);
    }
}

void ReadDirectly(const Drawing& drawing, int count, long dispid) {
    for (int index = 0; index < count; ++index) {
        IDispatch* const object = drawing.Objects()[static_cast<std::size_t>(index)].Get();
        if (dispid == DISPID_DYNAMIC) {
            ReadDynamic(object, drawing.Label(), index == 0);
        } else {
            ReadObject(object, dispid);
        }
    }
}

void AskForDocument() {
    Require(kvdbHostApplicationServices()->workingDatabase() == kvDocManagerPtr()->curDocument()->database(),
            "the document's database works");
}

void FormatNumber() {
    AskForDocument();
    wchar_t text[KVDB_NUMBER_TEXT_SIZE];
    Require(kvdbRToS(Drawing::c_rotation, KVDB_CURRENT_SETTING, KVDB_CURRENT_SETTING, text) == KVED_RTNORM,
            "a number has a text");
}

// A number is compared by its text: that of the first object and of each further one.
void ReadNumbersDirectly(const Drawing& drawing, int count) {
    AskForDocument();
    for (int index = 0; index < count; ++index) {
        ReadObject(drawing.Objects()[static_cast<std::size_t>(index)].Get(), drawing.RotationId());
        if (index > 0) {
            FormatNumber();
            FormatNumber();
        }
    }
    FormatNumber();
}

void MeasureNumberRead(const Drawing& drawing, int count, std::vector<Figure>& figures) {
    constexpr const char* c_name = "read, number";
    CPropertyEditorTOLMNumeric row(nullptr, nullptr);
    Require(row.SetNumericDataType(PE_TOLM_DISTANCE) == S_OK, "the row takes distances");
    drawing.Select(row, count, drawing.RotationId());
    fw::Variant value;
    const auto read = [&] {
        ValueType type = ValueType_Expression;
        Require(row.GetPropertyValue(value.Address(), type) == S_OK && type == ValueType_Specific,
                "the row reads the number");
    };
    const auto readDirectly = [&] { ReadNumbersDirectly(drawing, count); };
    if (count <= 100) {
        RequireSameCalls(read, readDirectly, c_name);
    }
    figures.push_back(Measure(c_name, count, read, readDirectly));
}

// `readObjects` is how many objects the read looks at: all, or up to the first that differs.
void MeasureRead(const Drawing& drawing, const char* name, int count, long dispid, int readObjects,
                 std::vector<Figure>& figures) {
    CKvPeCtrlBase control(nullptr, nullptr);
    drawing.Select(control, count, dispid);
    const ValueType expected =
        readObjects < count || dispid == drawing.HeightId() ? ValueType_Varies : ValueType_Specific;
    fw::Variant value;
    const auto read = [&] {
        ValueType type = ValueType_Expression;
        Require(control.GetPropertyValue(value.Address(), type) == S_OK && type == expected,
                "the row reads what the objects have");
    };
    const auto readDirectly = [&] { ReadDirectly(drawing, readObjects, dispid); };
    if (count <= 100) {
        RequireSameCalls(read, readDirectly, name);
    }
    figures.push_back(Measure(name, count, read, readDirectly));
}

}  // namespace

void MeasureReads(Drawing& drawing, std::span<const int> sizes, std::vector<Figure>& figures) {
    for (const int size : sizes) {
        MeasureRead(drawing, "read, shared value", size, drawing.ContentId(), size, figures);
    }
    for (const int size : sizes) {
        // Two are the fewest that can differ.
        MeasureRead(drawing, "read, second differs", std::max(size, 2), drawing.HeightId(), 2, figures);
    }
    for (const int size : sizes) {
        MeasureRead(drawing, "read, dynamic property", size, DISPID_DYNAMIC, size, figures);
    }
    for (const int size : sizes) {
        MeasureNumberRead(drawing, size, figures);
    }
}

}  // namespace kvbench
