#include "UnitEditor.h"

#include <algorithm>
#include <string>

namespace {

std::wstring WithoutBlanks(BSTR text) {
    std::wstring kept(text ? text : L"");
    std::erase(kept, L' ');
    return kept;
}

}  // namespace

HRESULT UnitEditor::ComparePropertyValue(VARIANT* first, VARIANT* second, int& result) {
    if (first->vt != VT_BSTR || second->vt != VT_BSTR) {
        return CKvPeEditBase::ComparePropertyValue(first, second, result);
    }
    result = WithoutBlanks(first->bstrVal) == WithoutBlanks(second->bstrVal) ? 0 : -1;
    return S_OK;
}
