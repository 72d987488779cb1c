#include "refhost/automation/ControlNames.h"
#include "refhost/automation/PropertyAccess.h"
#include "refhost/automation/PropertyTables.h"
#include "refhost/db/Layer.h"

namespace kvhost {

namespace {

constexpr wchar_t c_layer[] = L"Layer";

constexpr EnumerationEntry c_switchEntries[] = {{L"kvLayerOn", L"On", 1}, {L"kvLayerOff", L"Off", 0}};
constexpr Enumeration c_switch = {L"KvLayerSwitch", c_switchEntries};

constexpr PropertyDescription c_rows[] = {
    {281, L"Name", L"Name", c_layer, VT_BSTR, controls::Text, 0, ReadText<Layer, &Layer::Name>,
     WriteText<Layer, &Layer::SetName>},
    {282, L"Description", L"Description", c_layer, VT_BSTR, controls::Text, 0,
     ReadText<Layer, &Layer::Description>, WriteText<Layer, &Layer::SetDescription>},
    {283, L"Color", L"Color", c_layer, VT_I4, controls::Color, 0, ReadColor<Layer>, WriteColor<Layer>},
    {284, L"Linetype", L"Linetype", c_layer, VT_BSTR, controls::Linetype, 0,
     ReadText<Layer, &Layer::Linetype>, WriteText<Layer, &Layer::SetLinetype>},
    {285, L"LayerOn", L"Shown", c_layer, VT_BOOL, controls::Truth, 0, ReadTruth<Layer, &Layer::IsOn>,
     WriteTruth<Layer, &Layer::SetOn>, &c_switch},
    {286, L"Freeze", L"Frozen", c_layer, VT_BOOL, controls::Truth, 0, ReadTruth<Layer, &Layer::IsFrozen>,
     WriteTruth<Layer, &Layer::SetFrozen>},
    {287, L"Lock", L"Locked", c_layer, VT_BOOL, controls::Truth, 0, ReadTruth<Layer, &Layer::IsLocked>,
     WriteTruth<Layer, &Layer::SetLocked>},
    {288, L"Handle", L"Handle", c_layer, VT_BSTR, controls::Text, PropertyReadOnly, ReadHandle, nullptr},
};

}  // namespace

const PropertyTable& LayerProperties() {
    static const PropertyTable table(
        L"Layer", {0x1C5A2F09, 0x7D3B, 0x4E86, {0x9A, 0x41, 0x5E, 0x0C, 0x88, 0x21, 0xB7, 0x10}}, {}, c_rows);
    return table;
}

}  // namespace kvhost
