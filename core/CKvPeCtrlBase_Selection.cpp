#include "core/CKvPeCtrlBase.h"
#include "core/DispatchIds.h"
#include "core/ObjectIdentity.h"

namespace {

// Deliberate: one common bit is enough. Every error code has the top bit, so that each means "not given".
bool IsMissingArgument(const VARIANT& value) {
    return value.vt == VT_ERROR && (value.scode & DISP_E_PARAMNOTFOUND) != 0;
}

bool IsGiven(const VARIANT& value) {
    return !IsMissingArgument(value) && value.vt != VT_NULL && value.vt != VT_EMPTY;
}

struct ArrayBounds {
    LONG lower = 0;
    LONG upper = -1;
};

constexpr USHORT c_elementKinds = FADF_BSTR | FADF_UNKNOWN | FADF_DISPATCH | FADF_VARIANT | FADF_RECORD;

// More would be a lower bound gone astray: the entries below it are made as well.
constexpr LONG c_highestIndex = 0xFFFFFF;

// The type of a VARIANT is only what its maker says. An array with other elements would be read as pointers
// that are none, or beyond the place for one element.
bool HasElements(const SAFEARRAY& array, USHORT kind, ULONG size) {
    return (array.fFeatures & c_elementKinds) == kind && array.cbElements == size;
}

// One dimension only: an index of one number would reach beyond the elements of any other array.
HRESULT GetBounds(const VARIANT& value, USHORT kind, ULONG elementSize, ArrayBounds& bounds) {
    RETURN_HR_IF(E_FAIL, value.parray == nullptr || ::SafeArrayGetDim(value.parray) != 1);
    RETURN_HR_IF(E_FAIL, !HasElements(*value.parray, kind, elementSize));
    RETURN_HR_IF(E_FAIL, FAILED(::SafeArrayGetLBound(value.parray, 1, &bounds.lower)));
    RETURN_HR_IF(E_FAIL, FAILED(::SafeArrayGetUBound(value.parray, 1, &bounds.upper)));
    RETURN_HR_IF(E_FAIL, bounds.lower < 0 || bounds.upper < -1 || bounds.upper > c_highestIndex);
    return S_OK;
}

template <class Element>
HRESULT ReadElement(const VARIANT& value, LONG index, Element* element) {
    return SUCCEEDED(::SafeArrayGetElement(value.parray, &index, element)) ? S_OK : E_FAIL;
}

}  // namespace

HRESULT CKvPeCtrlBase::Handle_InitEditControl(VARIANT* objects, VARIANT* dynamicProperties, VARIANT* dispids,
                                              short readOnly) {
    RETURN_HR_IF(E_FAIL, objects == nullptr || dynamicProperties == nullptr || dispids == nullptr);
    RETURN_HR_IF(E_FAIL, !IsGiven(*objects) || !IsGiven(*dynamicProperties) || !IsGiven(*dispids));
    RETURN_HR_IF(E_FAIL, objects->vt != (VT_ARRAY | VT_DISPATCH) ||
                             dynamicProperties->vt != (VT_ARRAY | VT_UNKNOWN) ||
                             dispids->vt != (VT_ARRAY | VT_I4));
    // The other two arrays are parallel to that of the objects; only its bounds count.
    ArrayBounds bounds;
    ArrayBounds unused;
    RETURN_IF_FAILED_EXPECTED(GetBounds(*dynamicProperties, FADF_UNKNOWN, sizeof(IUnknown*), unused));
    RETURN_IF_FAILED_EXPECTED(GetBounds(*dispids, 0, sizeof(LONG), unused));
    RETURN_IF_FAILED_EXPECTED(GetBounds(*objects, FADF_DISPATCH, sizeof(IDispatch*), bounds));

    AllocateSelection(bounds.upper + 1);
    for (LONG index = bounds.lower; index <= bounds.upper; ++index) {
        RETURN_IF_FAILED_EXPECTED(StoreEntry(index, *objects, *dynamicProperties, *dispids));
    }
    m_initialReadOnly = readOnly;
    return S_OK;
}

void CKvPeCtrlBase::AllocateSelection(int count) {
    auto newDispids = std::make_unique<long[]>(static_cast<std::size_t>(count));
    auto newDynamicProperties = std::make_unique<IUnknown*[]>(static_cast<std::size_t>(count));
    auto newObjects = std::make_unique<IDispatch*[]>(static_cast<std::size_t>(count));
    // Deliberate: an earlier selection is not released. Palettes give each control one selection, and the
    // references of a second one may still be in use by a read or write that runs.
    static_cast<void>(m_dispids.release());
    static_cast<void>(m_dynamicProperties.release());
    static_cast<void>(m_objects.release());
    m_dispids = std::move(newDispids);
    m_dynamicProperties = std::move(newDynamicProperties);
    m_objects = std::move(newObjects);
    m_objectCount = count;
    m_failedObjectCount = 0;
}

HRESULT CKvPeCtrlBase::StoreEntry(LONG index, const VARIANT& objects, const VARIANT& dynamicProperties,
                                  const VARIANT& dispids) {
    LONG dispid = 0;
    RETURN_IF_FAILED_EXPECTED(ReadElement(dispids, index, &dispid));
    const auto position = static_cast<std::size_t>(index);
    m_dispids[position] = dispid;
    fw::ComPtr<IUnknown> dynamicProperty;
    if (dispid == DISPID_DYNAMIC) {
        RETURN_IF_FAILED_EXPECTED(ReadElement(dynamicProperties, index, dynamicProperty.Put()));
    }
    fw::ComPtr<IDispatch> object;
    RETURN_IF_FAILED_EXPECTED(ReadElement(objects, index, object.Put()));
    m_dynamicProperties[position] = dynamicProperty.Detach();
    m_objects[position] = object.Detach();
    return S_OK;
}

HRESULT CKvPeCtrlBase::Cleanup() {
    m_dispids.reset();
    EndedSelection ended(std::move(m_objects), std::move(m_dynamicProperties), m_objectCount);
    if (m_selectionUses > 0) {
        m_endedSelections.push_back(std::move(ended));
    }
    return S_OK;
}

HRESULT CKvPeCtrlBase::GetCurrentSelectionObjectIdArray(KvArray<KvDbObjectId>& ids) {
    for (int index = 0; index < EntryCount(); ++index) {
        KvDbObjectId id;
        // An object that stands for no database object has no id to give.
        if (SUCCEEDED(GetDatabaseObjectId(m_objects[static_cast<std::size_t>(index)], id))) {
            ids.append(id);
        }
    }
    return S_OK;
}
