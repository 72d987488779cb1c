#include "tests/support/SelectionArrays.h"

#include <type_traits>

#include "core/DispatchIds.h"

namespace kvtest {

namespace {

template <class Element>
fw::Variant MakeArray(VARTYPE type, const std::vector<Element>& elements, LONG lowerBound) {
    SAFEARRAYBOUND bound{static_cast<ULONG>(elements.size()), lowerBound};
    SAFEARRAY* const array = ::SafeArrayCreate(type, 1, &bound);
    if (!array) {
        return {};
    }
    fw::Variant result = fw::Variant::FromArray(type, array);
    LONG index = lowerBound;
    for (const Element& element : elements) {
        void* source = nullptr;
        if constexpr (std::is_integral_v<Element>) {
            source = const_cast<Element*>(&element);
        } else {
            source = element.Get();
        }
        if (FAILED(::SafeArrayPutElement(array, &index, source))) {
            return {};
        }
        ++index;
    }
    return result;
}

}  // namespace

SelectionArrays::SelectionArrays(const std::vector<IDispatch*>& objects, long dispid) {
    for (IDispatch* const object : objects) {
        Add(object, dispid);
    }
}

SelectionArrays& SelectionArrays::Add(IDispatch* object, long dispid, IUnknown* dynamicProperty) {
    m_objects.emplace_back(object);
    m_dynamicProperties.emplace_back(dynamicProperty);
    m_dispids.push_back(dispid);
    return *this;
}

SelectionArrays& SelectionArrays::AddDynamic(IDispatch* object, kvhost::ScriptedDynamicProperty* property) {
    return Add(object, DISPID_DYNAMIC, property != nullptr ? property->Identity() : nullptr);
}

fw::Variant SelectionArrays::Objects(LONG lowerBound) const {
    return MakeArray(VT_DISPATCH, m_objects, lowerBound);
}

fw::Variant SelectionArrays::DynamicProperties(LONG lowerBound) const {
    return MakeArray(VT_UNKNOWN, m_dynamicProperties, lowerBound);
}

fw::Variant SelectionArrays::Dispids(LONG lowerBound) const {
    return MakeArray(VT_I4, m_dispids, lowerBound);
}

}  // namespace kvtest
