#include "tests/control/proofs/RandomVariant.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace kvtest {
namespace {

constexpr VARTYPE c_scalars[] = {
    VT_EMPTY, VT_NULL, VT_I2,      VT_I4,  VT_R4,  VT_R8,  VT_CY, VT_DATE, VT_BSTR, VT_I1,   VT_DISPATCH,
    VT_ERROR, VT_BOOL, VT_UNKNOWN, VT_UI1, VT_UI2, VT_UI4, VT_I8, VT_UI8,  VT_INT,  VT_UINT, VT_DECIMAL};
constexpr VARTYPE c_referenced[] = {VT_I2, VT_I4, VT_R8, VT_BOOL, VT_UNKNOWN, VT_DISPATCH, VT_I8};
constexpr VARTYPE c_elements[] = {VT_I2,      VT_I4,  VT_R4, VT_R8,      VT_BSTR, VT_DISPATCH,
                                  VT_UNKNOWN, VT_UI1, VT_I8, VT_VARIANT, VT_BOOL, VT_CY};

constexpr VARTYPE c_inScripts[] = {VT_I4, VT_R8, VT_BSTR, VT_DISPATCH};

template <std::size_t Count>
VARTYPE PickFrom(RandomEngine& random, const VARTYPE (&types)[Count]) {
    return types[PickBelow(random, Count)];
}

}  // namespace

RandomVariant::RandomVariant() {
    ::VariantInit(&value);
    ::VariantInit(&m_inner);
}

RandomVariant::~RandomVariant() {
    ::VariantClear(&m_inner);
    if (array) {
        EXPECT_EQ(::SafeArrayDestroy(array), S_OK) << "somebody keeps the array locked";
    }
    ::SysFreeString(m_text);
}

void RandomVariant::Fill(RandomEngine& random, IUnknown* object, IDispatch* dispatch) {
    switch (PickBelow(random, 7)) {
        case 0: {
            const VARTYPE type = PickFrom(random, c_elements);
            const VARTYPE label = PickOnceIn(random, 3) ? PickFrom(random, c_elements) : type;
            FillArray(label, type, 1 + PickBelow(random, 3), static_cast<LONG>(PickBelow(random, 5)) - 2,
                      PickBelow(random, 4));
            FillElements(random);
            if (PickOnceIn(random, 4)) {
                ReferToArray();
            }
            break;
        }
        case 5:
            FillVariants(random, dispatch);
            if (PickOnceIn(random, 2)) {
                ReferToArray();
            }
            break;
        case 6:
            FillReferenceToVariant(random);
            break;
        case 1:
            FillNullArray(PickFrom(random, c_elements));
            break;
        case 2:
            FillReference(random, PickFrom(random, c_referenced));
            break;
        case 3:
            // A type that does not exist.
            value.vt = static_cast<VARTYPE>(random() & 0xFFFU & ~static_cast<unsigned>(VT_ARRAY | VT_BYREF));
            value.vt = static_cast<VARTYPE>(value.vt | 0x100U);
            value.llVal = static_cast<LONGLONG>(random());
            break;
        default:
            FillScalar(random, PickFrom(random, c_scalars), object, dispatch);
            break;
    }
}

void RandomVariant::FillScalar(RandomEngine& random, VARTYPE type, IUnknown* object, IDispatch* dispatch) {
    value.llVal = static_cast<LONGLONG>(random()) << 16;
    value.vt = type;
    switch (type) {
        case VT_BSTR:
            if (!PickOnceIn(random, 4)) {
                m_text = ::SysAllocStringLen(nullptr, PickBelow(random, 40));
                for (UINT index = 0; index < ::SysStringLen(m_text); ++index) {
                    m_text[index] = static_cast<wchar_t>(random());
                }
            }
            value.bstrVal = m_text;
            break;
        case VT_UNKNOWN:
            value.punkVal = PickOnceIn(random, 3) ? nullptr : object;
            break;
        case VT_DISPATCH:
            value.pdispVal = PickOnceIn(random, 3) ? nullptr : dispatch;
            break;
        case VT_ERROR:
            value.scode = PickOnceIn(random, 2) ? DISP_E_PARAMNOTFOUND : static_cast<SCODE>(random());
            break;
        case VT_BOOL:
            value.boolVal = PickOnceIn(random, 2) ? VARIANT_TRUE : VARIANT_FALSE;
            break;
        default:
            break;
    }
}

void RandomVariant::FillReference(RandomEngine& random, VARTYPE type) {
    value.vt = static_cast<VARTYPE>(VT_BYREF | type);
    // References of objects point to a null pointer.
    m_target[0] = type == VT_UNKNOWN || type == VT_DISPATCH ? 0 : static_cast<LONGLONG>(random());
    value.byref = m_target;
}

void RandomVariant::FillVariants(RandomEngine& random, IDispatch* dispatch) {
    FillArray(VT_VARIANT, VT_VARIANT, 1, 0, PickBelow(random, 4));
    for (ULONG position = 0; position < count; ++position) {
        RandomVariant filled;
        filled.FillScalar(random, PickFrom(random, c_inScripts), nullptr, dispatch);
        auto index = static_cast<LONG>(position);
        EXPECT_EQ(::SafeArrayPutElement(array, &index, &filled.value), S_OK);
    }
}

void RandomVariant::FillReferenceToVariant(RandomEngine& random) {
    m_inner.vt = VT_I4;
    m_inner.lVal = static_cast<LONG>(random());
    if (PickOnceIn(random, 2)) {
        m_inner.vt = VT_BSTR;
        m_inner.bstrVal = ::SysAllocString(L"a text behind a reference");
    }
    value.vt = VT_BYREF | VT_VARIANT;
    value.pvarVal = &m_inner;
}

void RandomVariant::ReferToArray() {
    m_referred = array;
    value.vt = static_cast<VARTYPE>(value.vt | VT_BYREF);
    value.pparray = &m_referred;
}

void RandomVariant::FillArray(VARTYPE label, VARTYPE elementType, UINT dimensionCount, LONG lowerBound,
                              ULONG elementCount) {
    std::array<SAFEARRAYBOUND, 3> bounds;
    bounds.fill({elementCount, lowerBound});
    array = ::SafeArrayCreate(elementType, dimensionCount, bounds.data());
    value.vt = static_cast<VARTYPE>(VT_ARRAY | label);
    value.parray = array;
    element = elementType;
    dimensions = dimensionCount;
    lower = lowerBound;
    count = elementCount;
}

// Bits that are no pointers, so that a reader who takes them for some cannot get away with it.
void RandomVariant::FillElements(RandomEngine& random) {
    if (count == 0 || element == VT_DISPATCH || element == VT_UNKNOWN || element == VT_VARIANT) {
        return;
    }
    ULONG total = 1;
    for (UINT dimension = 0; dimension < dimensions; ++dimension) {
        total *= count;
    }
    void* data = nullptr;
    if (FAILED(::SafeArrayAccessData(array, &data))) {
        return;
    }
    if (element == VT_BSTR) {
        static_cast<BSTR*>(data)[total - 1] = ::SysAllocString(L"a text where something else is expected");
    } else {
        auto* const bytes = static_cast<BYTE*>(data);
        const std::size_t size = std::size_t{total} * ::SafeArrayGetElemsize(array);
        std::generate(bytes, bytes + size, [&] { return static_cast<BYTE>(random() | 1U); });
    }
    ::SafeArrayUnaccessData(array);
}

void RandomVariant::FillNullArray(VARTYPE label) {
    value.vt = static_cast<VARTYPE>(VT_ARRAY | label);
    value.parray = nullptr;
}

void RandomVariant::PutObject(LONG index, IUnknown* object) {
    ::SafeArrayPutElement(array, &index, object);
}

void RandomVariant::PutLong(LONG index, LONG number) {
    ::SafeArrayPutElement(array, &index, &number);
}

}  // namespace kvtest
