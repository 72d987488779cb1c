#include "refhost/automation/ControlNames.h"
#include "refhost/automation/PropertyAccess.h"
#include "refhost/automation/PropertyDialogIds.h"
#include "refhost/automation/PropertyTables.h"
#include "refhost/db/Attribute.h"
#include "refhost/db/BlockReference.h"
#include "refhost/db/Text.h"

namespace kvhost {

namespace {

constexpr wchar_t c_geometry[] = L"Geometry";
constexpr wchar_t c_text[] = L"Text";
constexpr wchar_t c_block[] = L"Block";
constexpr wchar_t c_attribute[] = L"Attribute";
constexpr VARTYPE c_numbers = VT_ARRAY | VT_R8;

constexpr EnumerationEntry c_alignmentEntries[] = {
    {L"kvAlignmentLeft", L"Left", 0},
    {L"kvAlignmentCenter", L"Center", 1},
    {L"kvAlignmentRight", L"Right", 2},
    {L"kvAlignmentMiddleLeft", L"Middle left", 3},
    {L"kvAlignmentMiddleCenter", L"Middle center", 4},
    {L"kvAlignmentMiddleRight", L"Middle right", 5},
    {L"kvAlignmentTopLeft", L"Top left", 6},
    {L"kvAlignmentTopCenter", L"Top center", 7},
    {L"kvAlignmentTopRight", L"Top right", 8},
    {L"kvAlignmentBottomLeft", L"Bottom left", 9},
    {L"kvAlignmentBottomCenter", L"Bottom center", 10},
    {L"kvAlignmentBottomRight", L"Bottom right", 11},
};
static_assert(std::size(c_alignmentEntries) == c_textAlignmentNames.size());
constexpr Enumeration c_alignment = {L"KvTextAlignment", c_alignmentEntries};

constexpr PropertyDescription c_textRows[] = {
    {231, L"TextString", L"Contents", c_text, VT_BSTR, controls::Text, PropertyExpression,
     ReadText<Text, &Text::Content>, WriteText<Text, &Text::SetContent>},
    {232, L"StyleName", L"Style", c_text, VT_BSTR, controls::Text, 0, ReadText<Text, &Text::StyleName>,
     WriteText<Text, &Text::SetStyleName>},
    {233, L"Height", L"Height", c_text, VT_R8, controls::Length, PropertyExpression,
     ReadNumber<Text, &Text::Height>, WriteNumber<Text, &Text::SetHeight>},
    {234, L"Rotation", L"Rotation", c_text, VT_R8, controls::Length, PropertyAngle,
     ReadNumber<Text, &Text::Rotation>, WriteNumber<Text, &Text::SetRotation>},
    {237, L"Alignment", L"Alignment", c_text, VT_I4, controls::Choice, 0, ReadChoice<Text, &Text::Alignment>,
     WriteChoice<Text, TextAlignment, &Text::SetAlignment>, &c_alignment},
    {236, L"Passcode", L"Access code", c_text, VT_BSTR, controls::Password, PropertyMasked,
     ReadText<Text, &Text::Passcode>, WriteText<Text, &Text::SetPasscode>},
    {235, L"InsertionPoint", L"Position", c_geometry, c_numbers, controls::Coordinates, 0,
     ReadPoint<Text, &Text::Position>, WritePoint<Text, &Text::SetPosition>},
};

constexpr PropertyDescription c_attributeRows[] = {
    {251, L"TagString", L"Tag", c_attribute, VT_BSTR, controls::Text, 0, ReadText<Attribute, &Attribute::Tag>,
     WriteText<Attribute, &Attribute::SetTag>},
    {252, L"PromptString", L"Prompt", c_attribute, VT_BSTR, controls::DialogOnly, PropertyDialog,
     ReadText<Attribute, &Attribute::Prompt>, WriteText<Attribute, &Attribute::SetPrompt>, nullptr, nullptr,
     &CLSID_PromptDialog},
    {DispidAttributeValue, L"TextString", L"Value", c_attribute, VT_BSTR, controls::TextWithExpression,
     PropertyExpression, ReadText<Attribute, &Attribute::Value>, WriteText<Attribute, &Attribute::SetValue>},
    {254, L"Height", L"Height", c_attribute, VT_R8, controls::Length, 0,
     ReadNumber<Attribute, &Attribute::Height>, WriteNumber<Attribute, &Attribute::SetHeight>},
    {255, L"Rotation", L"Rotation", c_attribute, VT_R8, controls::Length, PropertyAngle,
     ReadNumber<Attribute, &Attribute::Rotation>, WriteNumber<Attribute, &Attribute::SetRotation>},
    {257, L"Invisible", L"Invisible", c_attribute, VT_BOOL, controls::Truth, 0,
     ReadTruth<Attribute, &Attribute::IsInvisible>, WriteTruth<Attribute, &Attribute::SetInvisible>},
    {256, L"InsertionPoint", L"Position", c_geometry, c_numbers, controls::Coordinates, 0,
     ReadPoint<Attribute, &Attribute::Position>, WritePoint<Attribute, &Attribute::SetPosition>},
};

template <double Point3::*Axis>
Tolm::ErrorStatus ReadScale(const Object& object, fw::Variant& value) {
    value = fw::Variant::FromDouble(static_cast<const BlockReference&>(object).Scale().*Axis);
    return Tolm::eOk;
}
template <double Point3::*Axis>
Tolm::ErrorStatus WriteScale(Object& object, const fw::Variant& value) {
    auto& reference = static_cast<BlockReference&>(object);
    Point3 factors = reference.Scale();
    factors.*Axis = value.DoubleOr(0);
    return reference.SetScale(factors);
}

constexpr PropertyDescription c_blockReferenceRows[] = {
    {241, L"Name", L"Block name", c_block, VT_BSTR, controls::Text, PropertyReadOnly,
     ReadText<BlockReference, &BlockReference::BlockName>, nullptr},
    {242, L"XScaleFactor", L"Scale X", c_block, VT_R8, controls::Length, PropertyPlain, ReadScale<&Point3::x>,
     WriteScale<&Point3::x>},
    {243, L"YScaleFactor", L"Scale Y", c_block, VT_R8, controls::Length, PropertyPlain, ReadScale<&Point3::y>,
     WriteScale<&Point3::y>},
    {244, L"ZScaleFactor", L"Scale Z", c_block, VT_R8, controls::Length, PropertyPlain, ReadScale<&Point3::z>,
     WriteScale<&Point3::z>},
    {245, L"Rotation", L"Rotation", c_block, VT_R8, controls::Length, PropertyAngle,
     ReadNumber<BlockReference, &BlockReference::Rotation>,
     WriteNumber<BlockReference, &BlockReference::SetRotation>},
    {246, L"InsertionPoint", L"Position", c_geometry, c_numbers, controls::Coordinates, 0,
     ReadPoint<BlockReference, &BlockReference::Position>,
     WritePoint<BlockReference, &BlockReference::SetPosition>},
};

}  // namespace

const PropertyTable& TextProperties() {
    static const PropertyTable table(
        L"Text", {0x1C5A2F06, 0x7D3B, 0x4E86, {0x9A, 0x41, 0x5E, 0x0C, 0x88, 0x21, 0xB7, 0x10}},
        EntityProperties(), c_textRows);
    return table;
}

const PropertyTable& AttributeProperties() {
    static const PropertyTable table(
        L"Attribute", {0x1C5A2F07, 0x7D3B, 0x4E86, {0x9A, 0x41, 0x5E, 0x0C, 0x88, 0x21, 0xB7, 0x10}},
        EntityProperties(), c_attributeRows);
    return table;
}

const PropertyTable& BlockReferenceProperties() {
    static const PropertyTable table(
        L"BlockReference", {0x1C5A2F08, 0x7D3B, 0x4E86, {0x9A, 0x41, 0x5E, 0x0C, 0x88, 0x21, 0xB7, 0x10}},
        EntityProperties(), c_blockReferenceRows);
    return table;
}

}  // namespace kvhost
