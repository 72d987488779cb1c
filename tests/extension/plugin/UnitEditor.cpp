#include "tests/extension/plugin/UnitEditor.h"

HRESULT UnitEditor::ComparePropertyValue(VARIANT* first, VARIANT* second, int& result) {
    if (first->vt != VT_BSTR || second->vt != VT_BSTR) {
        return CKvPeEditBase::ComparePropertyValue(first, second, result);
    }
    const bool same = ::CompareStringOrdinal(first->bstrVal, -1, second->bstrVal, -1, TRUE) == CSTR_EQUAL;
    result = same ? 0 : -1;
    return S_OK;
}
