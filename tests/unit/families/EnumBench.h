#pragma once

#include "core/ModuleTexts.h"
#include "families/CPropertyEditorEnum.h"
#include "families/KvPeEnumTypeInfo.h"
#include "tests/unit/families/ChoiceBench.h"
#include "tests/unit/families/TypeInfoBuilder.h"

namespace kvtest {

/// An enumeration row with its fields open.
class OpenEnumRow : public CPropertyEditorEnum {
public:
    using CPropertyEditorEnum::CPropertyEditorEnum;
    using CPropertyEditorEnum::m_allowUnspecified;
    using CPropertyEditorEnum::m_entries;
    using CPropertyEditorEnum::m_nCurItem;
    using CPropertyEditorEnum::m_nUnspecifiedItem;
    using CPropertyEditorEnum::m_nVariesItem;
    using CPropertyEditorEnum::m_pBrowsing;
    using CPropertyEditorEnum::m_pEnumProperty;
    using CPropertyEditorEnum::m_pList;
    using CPropertyEditorEnum::m_pTypeEnum;
    using CPropertyEditorEnum::m_strText;
    using CPropertyEditorEnum::m_unspecifiedText;

    Texts Names() const {
        Texts names;
        for (const KvPeEnumEntry& entry : m_entries) {
            names.emplace_back(entry.name.View());
        }
        return names;
    }
    std::vector<long> Numbers() const {
        std::vector<long> numbers;
        for (const KvPeEnumEntry& entry : m_entries) {
            numbers.push_back(entry.value.LongOr(-9));
        }
        return numbers;
    }
};

class EnumTest : public ChoiceTest<OpenEnumRow> {
protected:
    /// An object that browses three sizes.
    kvhost::ScriptedObject& MakeBrowsing(const wchar_t* name, const fw::Variant& held, unsigned further = 0) {
        kvhost::ScriptedObject& object = MakeObjectOf(name, held, kvhost::OffersBrowsing | further);
        object.At(c_property).predefinedStrings = {L"small", L"middle", L"big"};
        object.At(c_property).predefinedValues = {Long(10), Long(20), Long(30)};
        return object;
    }
    /// An object whose type library names three sizes.
    kvhost::ScriptedObject& MakeTyped(const wchar_t* name, const fw::Variant& held, unsigned further = 0) {
        kvhost::ScriptedObject& object = MakeObjectOf(name, held, further);
        object.typeInfo = TypeOfSizes();
        return object;
    }
    static fw::ComPtr<ITypeInfo> TypeOfSizes() {
        TypeInfoBuilder builder;
        const auto sizes = builder.MakeEnumeration(
            L"Sizes", {{L"szSmall", Long(10)}, {L"szMiddle", Long(20)}, {L"szBig", Long(30)}});
        return builder.AddGetter(c_property, L"Size", sizes.Get()).Finish();
    }
    kvhost::ScriptedDynamicProperty& MakeValues(unsigned further = 0) {
        kvhost::ScriptedDynamicProperty& property =
            MakeProperty(L"P", kvhost::OffersByObject | kvhost::OffersValues | further);
        property.values = {{L"low", Long(1)}, {L"high", Long(2)}};
        property.shared.Set(2L);
        return property;
    }
};

}  // namespace kvtest
