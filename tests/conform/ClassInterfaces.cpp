#include "tests/conform/ClassInterfaces.h"

#include <array>

#include "KvPEXCtl_h.h"

namespace kvconform {
namespace {

#define KV_INTERFACE(name)     \
    NamedInterface {           \
#name, &__uuidof(name) \
    }

const std::array s_common{
    KV_INTERFACE(IDispatch),
    KV_INTERFACE(IKvPiPropertyEditControl),
    KV_INTERFACE(IKvPiPropertyEditControl2),
    KV_INTERFACE(IOleControl),
    KV_INTERFACE(IOleObject),
    KV_INTERFACE(IOleInPlaceActiveObject),
    KV_INTERFACE(IViewObjectEx),
    KV_INTERFACE(IViewObject2),
    KV_INTERFACE(IViewObject),
    KV_INTERFACE(IOleInPlaceObjectWindowless),
    KV_INTERFACE(IOleInPlaceObject),
    KV_INTERFACE(IOleWindow),
    KV_INTERFACE(IConnectionPointContainer),
    KV_INTERFACE(IQuickActivate),
};

const std::array s_further{
    KV_INTERFACE(IKvPeNumericEditor),   KV_INTERFACE(IKvPeVariantCtrl),     KV_INTERFACE(IKvPeColorCtrl),
    KV_INTERFACE(IKvPeSpinCtrl),        KV_INTERFACE(IKvPeNoPickVariantRW), KV_INTERFACE(IKvPeButtonEditCtrl),
    KV_INTERFACE(IKvPePick2PointsCtrl), KV_INTERFACE(IKvPeCalculatorCtrl),
};

#undef KV_INTERFACE

}  // namespace

std::span<const NamedInterface> CommonInterfaces() {
    return s_common;
}

std::span<const NamedInterface> FurtherInterfaces() {
    return s_further;
}

bool IsListed(std::string_view list, std::string_view name) {
    const auto place = list.find(name);
    return place != std::string_view::npos && place + name.size() < list.size() &&
           (list[place + name.size()] == ',' || list[place + name.size()] == ')');
}

std::vector<NamedInterface> InterfacesOf(std::string_view list) {
    std::vector<NamedInterface> interfaces{{"IUnknown", &IID_IUnknown}};
    interfaces.insert(interfaces.end(), s_common.begin(), s_common.end());
    for (const NamedInterface& further : s_further) {
        if (IsListed(list, further.name)) {
            interfaces.push_back(further);
        }
    }
    return interfaces;
}

}  // namespace kvconform
