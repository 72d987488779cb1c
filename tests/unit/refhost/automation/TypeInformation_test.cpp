#include "refhost/automation/TypeInformation.h"

#include <map>

#include "refhost/automation/PropertyTable.h"
#include "refhost/db/Circle.h"
#include "refhost/db/Polyline.h"
#include "tests/support/ExpectCalls.h"
#include "tests/unit/refhost/automation/AutomationFixture.h"

namespace {

using kvhost::PropertyTable;

class TypeInformationTest : public kvtest::AutomationFixture {
protected:
    fw::ComPtr<ITypeInfo> InfoOfCircle() { return InfoOf(Add<kvhost::Circle>()); }
    fw::ComPtr<ITypeInfo> InfoOfPolyline() {
        return InfoOf(Add<kvhost::Polyline>([](kvhost::Polyline& polyline) {
            EXPECT_EQ(polyline.SetVertices({{0, 0, 0}, {1, 0, 0}}), Tolm::eOk);
        }));
    }

    static fw::ComPtr<ITypeInfo> InfoOf(KvDbObjectId id) {
        const auto object = ObjectOf(id);
        UINT count = 0;
        EXPECT_EQ(object->GetTypeInfoCount(&count), S_OK);
        EXPECT_EQ(count, 1U);
        fw::ComPtr<ITypeInfo> info;
        EXPECT_EQ(object->GetTypeInfo(0, ::GetSystemDefaultLCID(), info.Put()), S_OK);
        return info;
    }

    // Runs `look` on each function of the interface.
    template <class Look>
    static void ForEachFunction(ITypeInfo* info, Look look) {
        TYPEATTR* attributes = nullptr;
        ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
        const UINT count = attributes->cFuncs;
        info->ReleaseTypeAttr(attributes);
        for (UINT i = 0; i < count; ++i) {
            FUNCDESC* function = nullptr;
            ASSERT_EQ(info->GetFuncDesc(i, &function), S_OK);
            look(*function);
            info->ReleaseFuncDesc(function);
        }
    }
};

TEST_F(TypeInformationTest, GetTypeInfo_IndexOtherThanZero_Refused) {
    const auto object = ObjectOf(Add<kvhost::Circle>());
    fw::ComPtr<ITypeInfo> info;
    EXPECT_EQ(object->GetTypeInfo(1, 0, info.Put()), DISP_E_BADINDEX);
    EXPECT_EQ(object->GetTypeInfo(0, 0, nullptr), E_POINTER);
}

TEST_F(TypeInformationTest, Functions_GetForEachRowAndPutUnlessReadOnly) {
    const auto info = InfoOfCircle();
    std::map<MEMBERID, int> kinds;
    ForEachFunction(info.Get(), [&](const FUNCDESC& function) { kinds[function.memid] |= function.invkind; });
    for (const kvhost::PropertyDescription& row : PropertyTable::Of(L"Circle")->Rows()) {
        const int expected =
            row.Has(kvhost::PropertyReadOnly) ? INVOKE_PROPERTYGET : INVOKE_PROPERTYGET | INVOKE_PROPERTYPUT;
        EXPECT_EQ(kinds[row.dispid], expected) << kvtest::ToUtf8(row.name);
    }
}

TEST_F(TypeInformationTest, GetIDsOfNames_AgreesWithTheObject) {
    const auto object = ObjectOf(Add<kvhost::Circle>());
    const auto info = InfoOfCircle();
    for (const kvhost::PropertyDescription& row : PropertyTable::Of(L"Circle")->Rows()) {
        LPOLESTR name = const_cast<LPOLESTR>(row.name);
        MEMBERID id = 0;
        EXPECT_EQ(info->GetIDsOfNames(&name, 1, &id), S_OK);
        EXPECT_EQ(id, row.dispid);
        EXPECT_EQ(IdOfName(object.Get(), row.name), row.dispid);
    }
}

TEST_F(TypeInformationTest, EnumeratedProperty_RefersToItsEnumeration) {
    const auto info = InfoOfPolyline();
    HREFTYPE reference = 0;
    ForEachFunction(info.Get(), [&](const FUNCDESC& function) {
        if (function.memid == 264 && function.invkind == INVOKE_PROPERTYGET) {
            EXPECT_EQ(function.elemdescFunc.tdesc.vt, VT_USERDEFINED);
            reference = function.elemdescFunc.tdesc.hreftype;
        }
    });
    fw::ComPtr<ITypeInfo> enumeration;
    ASSERT_EQ(info->GetRefTypeInfo(reference, enumeration.Put()), S_OK);
    VARDESC* constant = nullptr;
    ASSERT_EQ(enumeration->GetVarDesc(1, &constant), S_OK);
    EXPECT_EQ(constant->varkind, VAR_CONST);
    EXPECT_EQ(constant->lpvarValue->lVal, 1);
    fw::Bstr name;
    UINT count = 0;
    EXPECT_EQ(enumeration->GetNames(constant->memid, name.Put(), 1, &count), S_OK);
    EXPECT_EQ(name.View(), L"kvDirectionCounterclockwise");
    enumeration->ReleaseVarDesc(constant);
}

TEST_F(TypeInformationTest, Arrays_AreSafeArraysOfTheirElement) {
    const auto info = InfoOfCircle();
    bool seen = false;
    ForEachFunction(info.Get(), [&](const FUNCDESC& function) {
        if (function.memid == 201 && function.invkind == INVOKE_PROPERTYGET) {
            seen = true;
            ASSERT_EQ(function.elemdescFunc.tdesc.vt, VT_SAFEARRAY);
            EXPECT_EQ(function.elemdescFunc.tdesc.lptdesc->vt, VT_R8);
        }
    });
    EXPECT_TRUE(seen);
}

TEST_F(TypeInformationTest, AllClasses_StandInOneLibrary) {
    fw::ComPtr<ITypeLib> library;
    UINT index = 0;
    ASSERT_EQ(InfoOfCircle()->GetContainingTypeLib(library.Put(), &index), S_OK);
    for (const PropertyTable* const table : PropertyTable::All()) {
        fw::ComPtr<ITypeInfo> info;
        ASSERT_EQ(kvhost::GetTypeInformation(*table, info.Put()), S_OK);
        fw::ComPtr<ITypeLib> own;
        ASSERT_EQ(info->GetContainingTypeLib(own.Put(), &index), S_OK);
        EXPECT_TRUE(fw::IsSameObject(own.Get(), library.Get()));
    }
}

}  // namespace
