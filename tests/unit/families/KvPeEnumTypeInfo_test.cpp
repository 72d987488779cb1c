#include "families/KvPeEnumTypeInfo.h"

#include "tests/unit/core/ControlBench.h"
#include "tests/unit/families/TypeInfoBuilder.h"

namespace {

using kvtest::c_property;
using kvtest::TypeInfoBuilder;

class EnumTypeInfo : public kvtest::ControlTest {
protected:
    EnumTypeInfo() {
        colours = builder.MakeEnumeration(
            L"Colours", {{L"clRed", fw::Variant::FromLong(1)}, {L"clGreen", fw::Variant::FromLong(2)}});
        sizes = builder.MakeEnumeration(L"Sizes", {{L"szSmall", fw::Variant::FromLong(10)}});
    }
    KvPeEnumTypeInfo Read() {
        kvhost::ScriptedObject& object = MakeObject(L"A");
        object.typeInfo = builder.Finish();
        return KvPeEnumTypeInfo(&object, c_property);
    }

    TypeInfoBuilder builder;
    fw::ComPtr<ITypeInfo> colours;
    fw::ComPtr<ITypeInfo> sizes;
};

TEST_F(EnumTypeInfo, Variable_GivesIdentifiersAndConstants) {
    builder.AddVariable(c_property, L"Colour", colours.Get());
    const KvPeEnumTypeInfo info = Read();
    ASSERT_EQ(info.count, 2);
    EXPECT_EQ(info.names[0].View(), L"clRed");
    EXPECT_EQ(info.values[0].LongOr(0), 1);
    EXPECT_EQ(info.names[1].View(), L"clGreen");
    EXPECT_EQ(info.values[1].LongOr(0), 2);
}

TEST_F(EnumTypeInfo, Function_IsFoundByItsReturnType) {
    builder.AddSetter(c_property, L"Colour", colours.Get()).AddGetter(c_property, L"Colour", colours.Get());
    EXPECT_EQ(Read().count, 2);
}

TEST_F(EnumTypeInfo, VariableAndFunction_TheVariableCounts) {
    builder.AddGetter(c_property, L"Colour", colours.Get()).AddVariable(c_property, L"Size", sizes.Get());
    EXPECT_EQ(Read().count, 1);
}

TEST_F(EnumTypeInfo, TwoFunctions_TheFirstCounts) {
    builder.AddGetter(c_property, L"Colour", colours.Get()).AddGetter(c_property, L"Size", sizes.Get());
    EXPECT_EQ(Read().count, 2);
}

TEST_F(EnumTypeInfo, PlainVariable_LeavesTheSearchToTheFunctions) {
    builder.AddVariable(c_property, L"Plain", nullptr).AddGetter(c_property, L"Colour", colours.Get());
    EXPECT_EQ(Read().count, 2);
}

TEST_F(EnumTypeInfo, OtherProperty_HasNoEntries) {
    builder.AddVariable(c_property + 1, L"Colour", colours.Get())
        .AddGetter(c_property + 2, L"Size", sizes.Get())
        .AddGetter(c_property, L"Plain", nullptr);
    EXPECT_EQ(Read().count, 0);
}

TEST_F(EnumTypeInfo, NoTypeInformation_HasNoEntries) {
    kvhost::ScriptedObject& object = MakeObject(L"A");
    const KvPeEnumTypeInfo info(&object, c_property);
    EXPECT_EQ(info.count, 0);
    EXPECT_TRUE(info.values.empty());
    EXPECT_TRUE(info.names.empty());
    EXPECT_CALLS(journal, "GetTypeInfo A 0");
}

TEST_F(EnumTypeInfo, MembersThatAreNoConstants_HaveNamesAlone) {
    const auto record = builder.MakeRecord(L"Place", {L"x", L"y"});
    builder.AddVariable(c_property, L"Place", record.Get());
    const KvPeEnumTypeInfo info = Read();
    ASSERT_EQ(info.count, 2);
    EXPECT_EQ(info.names[1].View(), L"y");
    EXPECT_TRUE(info.values[1].IsEmpty());
}

}  // namespace
