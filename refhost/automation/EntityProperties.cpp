#include "refhost/automation/ControlNames.h"
#include "refhost/automation/PropertyAccess.h"
#include "refhost/automation/PropertyDialogIds.h"
#include "refhost/automation/PropertyTables.h"
#include "refhost/db/Entity.h"

namespace kvhost {

namespace {

constexpr wchar_t c_general[] = L"General";

constexpr EnumerationEntry c_lineweightEntries[] = {
    {L"kvLineweightByLayer", L"ByLayer", -1}, {L"kvLineweightByBlock", L"ByBlock", -2},
    {L"kvLineweightDefault", L"Default", -3}, {L"kvLineweight000", L"0.00 mm", 0},
    {L"kvLineweight005", L"0.05 mm", 5},      {L"kvLineweight009", L"0.09 mm", 9},
    {L"kvLineweight013", L"0.13 mm", 13},     {L"kvLineweight015", L"0.15 mm", 15},
    {L"kvLineweight018", L"0.18 mm", 18},     {L"kvLineweight020", L"0.20 mm", 20},
    {L"kvLineweight025", L"0.25 mm", 25},     {L"kvLineweight030", L"0.30 mm", 30},
    {L"kvLineweight035", L"0.35 mm", 35},     {L"kvLineweight040", L"0.40 mm", 40},
    {L"kvLineweight050", L"0.50 mm", 50},     {L"kvLineweight053", L"0.53 mm", 53},
    {L"kvLineweight060", L"0.60 mm", 60},     {L"kvLineweight070", L"0.70 mm", 70},
    {L"kvLineweight080", L"0.80 mm", 80},     {L"kvLineweight090", L"0.90 mm", 90},
    {L"kvLineweight100", L"1.00 mm", 100},    {L"kvLineweight106", L"1.06 mm", 106},
    {L"kvLineweight120", L"1.20 mm", 120},    {L"kvLineweight140", L"1.40 mm", 140},
    {L"kvLineweight158", L"1.58 mm", 158},    {L"kvLineweight200", L"2.00 mm", 200},
    {L"kvLineweight211", L"2.11 mm", 211},
};
constexpr Enumeration c_lineweight = {L"KvLineweight", c_lineweightEntries};

constexpr PropertyDescription c_rows[] = {
    {101, L"Color", L"Color", c_general, VT_I4, controls::Color, 0, ReadColor<Entity>, WriteColor<Entity>},
    {102, L"Layer", L"Layer", c_general, VT_BSTR, controls::Layer, 0, ReadText<Entity, &Entity::LayerName>,
     WriteText<Entity, &Entity::SetLayerName>},
    {103, L"Linetype", L"Linetype", c_general, VT_BSTR, controls::Linetype, 0,
     ReadText<Entity, &Entity::Linetype>, WriteText<Entity, &Entity::SetLinetype>},
    {107, L"Lineweight", L"Lineweight", c_general, VT_I4, controls::Choice, 0,
     ReadChoice<Entity, &Entity::Lineweight>, WriteChoice<Entity, std::int32_t, &Entity::SetLineweight>,
     &c_lineweight},
    {104, L"Description", L"Description", c_general, VT_BSTR, controls::TextWithDialog,
     PropertyUnspecified | PropertyExpression | PropertyDialog, ReadText<Entity, &Entity::Description>,
     WriteText<Entity, &Entity::SetDescription>, nullptr, L"none", &CLSID_TextDialogByObjects},
    {105, L"Hyperlink", L"Hyperlink", c_general, VT_BSTR, controls::Hyperlinks,
     PropertyUnspecified | PropertyDialog, ReadText<Entity, &Entity::Hyperlink>,
     WriteText<Entity, &Entity::SetHyperlink>, nullptr, nullptr, &CLSID_TextDialogByIds},
    {108, L"Visible", L"Visible", c_general, VT_BOOL, controls::Truth, 0,
     ReadTruth<Entity, &Entity::IsVisible>, WriteTruth<Entity, &Entity::SetVisible>},
    {106, L"Handle", L"Handle", c_general, VT_BSTR, controls::Text, PropertyReadOnly, ReadHandle, nullptr},
};

}  // namespace

std::span<const PropertyDescription> EntityProperties() {
    return c_rows;
}

}  // namespace kvhost
