#include "refhost/automation/ControlNames.h"
#include "refhost/automation/PropertyAccess.h"
#include "refhost/automation/PropertyDialogIds.h"
#include "refhost/automation/PropertyTables.h"
#include "refhost/db/Entity.h"

namespace kvhost {

namespace {

constexpr wchar_t c_general[] = L"General";

constexpr PropertyDescription c_rows[] = {
    {101, L"Color", L"Color", c_general, VT_I4, controls::Color, 0, ReadColor<Entity>, WriteColor<Entity>},
    {102, L"Layer", L"Layer", c_general, VT_BSTR, controls::Layer, 0, ReadText<Entity, &Entity::LayerName>,
     WriteText<Entity, &Entity::SetLayerName>},
    {103, L"Linetype", L"Linetype", c_general, VT_BSTR, controls::Linetype, 0,
     ReadText<Entity, &Entity::Linetype>, WriteText<Entity, &Entity::SetLinetype>},
    {104, L"Description", L"Description", c_general, VT_BSTR, controls::Text,
     PropertyUnspecified | PropertyExpression | PropertyDialog, ReadText<Entity, &Entity::Description>,
     WriteText<Entity, &Entity::SetDescription>, nullptr, L"none", &CLSID_TextDialogByObjects},
    {105, L"Hyperlink", L"Hyperlink", c_general, VT_BSTR, controls::Text,
     PropertyUnspecified | PropertyDialog, ReadText<Entity, &Entity::Hyperlink>,
     WriteText<Entity, &Entity::SetHyperlink>, nullptr, nullptr, &CLSID_TextDialogByIds},
    {106, L"Handle", L"Handle", c_general, VT_BSTR, controls::Text, PropertyReadOnly, ReadHandle, nullptr},
};

}  // namespace

std::span<const PropertyDescription> EntityProperties() {
    return c_rows;
}

}  // namespace kvhost
