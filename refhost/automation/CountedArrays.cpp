#include "refhost/automation/CountedArrays.h"

#include <algorithm>

#include "framework/base/Hresult.h"
#include "framework/com/Bstr.h"

namespace kvhost {

namespace {

template <class Element>
Element* AllocateElements(std::size_t count) {
    // An empty list still is an allocation that the caller may free.
    return static_cast<Element*>(::CoTaskMemAlloc(std::max<std::size_t>(count, 1) * sizeof(Element)));
}

void FreeAll(CALPOLESTR& strings, CADWORD& cookies) {
    for (ULONG i = 0; i < strings.cElems; ++i) {
        ::SysFreeString(strings.pElems[i]);
    }
    ::CoTaskMemFree(strings.pElems);
    ::CoTaskMemFree(cookies.pElems);
    strings = {};
    cookies = {};
}

}  // namespace

HRESULT MakeCountedArrays(const std::vector<std::wstring>& texts, CALPOLESTR* strings, CADWORD* cookies) {
    RETURN_IF_NULL_POINTER(strings);
    RETURN_IF_NULL_POINTER(cookies);
    *strings = {0, AllocateElements<LPOLESTR>(texts.size())};
    *cookies = {0, AllocateElements<DWORD>(texts.size())};
    if (strings->pElems == nullptr || cookies->pElems == nullptr) {
        FreeAll(*strings, *cookies);
        return E_OUTOFMEMORY;
    }
    for (const std::wstring& text : texts) {
        BSTR copy = nullptr;
        const HRESULT copied = fw::MakeBstr(text, &copy);
        if (FAILED(copied)) {
            FreeAll(*strings, *cookies);
            return copied;
        }
        cookies->pElems[strings->cElems] = strings->cElems;
        strings->pElems[strings->cElems++] = copy;
        ++cookies->cElems;
    }
    return S_OK;
}

}  // namespace kvhost
