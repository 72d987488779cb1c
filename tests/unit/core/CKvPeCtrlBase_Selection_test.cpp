#include "tests/unit/core/ControlBench.h"

namespace {

using kvhost::ScriptedObject;
using kvtest::SelectionArrays;

using CKvPeCtrlBase_Selection = kvtest::ControlTest;

// Hands three values over in place of the arrays.
HRESULT Init(CKvPeCtrlBase& control, fw::Variant objects, fw::Variant dynamicProperties,
             fw::Variant dispids) {
    return control.Handle_InitEditControl(objects.Address(), dynamicProperties.Address(), dispids.Address(),
                                          VARIANT_FALSE);
}

TEST_F(CKvPeCtrlBase_Selection, Init_NullArgument_Fails) {
    fw::Variant some = fw::Variant::FromLong(1);
    VARIANT* const given = some.Address();
    EXPECT_EQ(control.Handle_InitEditControl(nullptr, given, given, VARIANT_FALSE), E_FAIL);
    EXPECT_EQ(control.Handle_InitEditControl(given, nullptr, given, VARIANT_FALSE), E_FAIL);
    EXPECT_EQ(control.Handle_InitEditControl(given, given, nullptr, VARIANT_FALSE), E_FAIL);
}

TEST_F(CKvPeCtrlBase_Selection, Init_ArgumentLeftOut_Fails) {
    SelectionArrays arrays;
    arrays.Add(&MakeObject(L"A"));
    for (const fw::Variant& missing : {fw::Variant::Missing(), fw::Variant::Null(), fw::Variant(),
                                       fw::Variant::FromError(E_FAIL), fw::Variant::FromError(4)}) {
        EXPECT_EQ(Init(control, missing, arrays.DynamicProperties(), arrays.Dispids()), E_FAIL);
        EXPECT_EQ(Init(control, arrays.Objects(), missing, arrays.Dispids()), E_FAIL);
        EXPECT_EQ(Init(control, arrays.Objects(), arrays.DynamicProperties(), missing), E_FAIL);
    }
    EXPECT_EQ(control.m_objectCount, 0);
}

TEST_F(CKvPeCtrlBase_Selection, Init_SingleObject_Fails) {
    SelectionArrays arrays;
    arrays.Add(&MakeObject(L"A"));
    EXPECT_EQ(Init(control, fw::Variant::FromDispatch(objects[0].Get()), arrays.DynamicProperties(),
                   arrays.Dispids()),
              E_FAIL);
    EXPECT_EQ(Init(control, arrays.Objects(), fw::Variant::FromUnknown(nullptr), arrays.Dispids()), E_FAIL);
    EXPECT_EQ(Init(control, arrays.Objects(), arrays.DynamicProperties(), fw::Variant::FromLong(5)), E_FAIL);
}

TEST_F(CKvPeCtrlBase_Selection, Init_ArraysOfOtherTypes_Fails) {
    SelectionArrays arrays;
    arrays.Add(&MakeObject(L"A"));
    EXPECT_EQ(Init(control, arrays.DynamicProperties(), arrays.DynamicProperties(), arrays.Dispids()),
              E_FAIL);
    EXPECT_EQ(Init(control, arrays.Objects(), arrays.Objects(), arrays.Dispids()), E_FAIL);
    EXPECT_EQ(Init(control, arrays.Objects(), arrays.DynamicProperties(), arrays.Objects()), E_FAIL);
}

TEST_F(CKvPeCtrlBase_Selection, Init_ArrayTypeWithoutArray_Fails) {
    SelectionArrays arrays;
    arrays.Add(&MakeObject(L"A"));
    EXPECT_EQ(Init(control, fw::Variant::FromArray(VT_DISPATCH, nullptr), arrays.DynamicProperties(),
                   arrays.Dispids()),
              E_FAIL);
}

TEST_F(CKvPeCtrlBase_Selection, Init_TwoDimensions_Fails) {
    SelectionArrays arrays;
    arrays.Add(&MakeObject(L"A"));
    SAFEARRAYBOUND bounds[2] = {{1, 0}, {1, 0}};
    fw::Variant twoDimensions =
        fw::Variant::FromArray(VT_DISPATCH, ::SafeArrayCreate(VT_DISPATCH, 2, bounds));
    EXPECT_EQ(Init(control, twoDimensions, arrays.DynamicProperties(), arrays.Dispids()), E_FAIL);
}

TEST_F(CKvPeCtrlBase_Selection, Init_ShorterDispids_Fails) {
    SelectionArrays two;
    two.Add(&MakeObject(L"A")).Add(&MakeObject(L"B"));
    SelectionArrays one;
    one.Add(objects[0].Get());
    EXPECT_EQ(Init(control, two.Objects(), two.DynamicProperties(), one.Dispids()), E_FAIL);
}

TEST_F(CKvPeCtrlBase_Selection, Init_DispidEntry_KeepsObjectOnly) {
    ScriptedObject& object = MakeObject(L"A");
    kvhost::ScriptedDynamicProperty& property = MakeProperty(L"P", kvhost::OffersByObject);
    SelectionArrays arrays;
    arrays.AddDynamic(&object, &property);
    SelectionArrays byDispid;
    byDispid.Add(&object);
    const ULONG before = property.References();
    ASSERT_EQ(Init(control, arrays.Objects(), arrays.DynamicProperties(), byDispid.Dispids()), S_OK);
    EXPECT_EQ(control.m_objectCount, 1);
    EXPECT_EQ(control.m_objects[0], static_cast<IDispatch*>(&object));
    EXPECT_EQ(control.m_dynamicProperties[0], nullptr);
    EXPECT_EQ(property.References(), before);
}

TEST_F(CKvPeCtrlBase_Selection, Init_DynamicEntry_KeepsBothWithOneReferenceEach) {
    ScriptedObject& object = MakeObject(L"A");
    kvhost::ScriptedDynamicProperty& property = MakeProperty(L"P", kvhost::OffersByObject);
    const ULONG objectBefore = object.References();
    const ULONG propertyBefore = property.References();
    Select(SelectionArrays().AddDynamic(&object, &property));
    EXPECT_EQ(control.m_dispids[0], DISPID_DYNAMIC);
    EXPECT_EQ(control.m_dynamicProperties[0], property.Identity());
    EXPECT_EQ(object.References(), objectBefore + 1);
    EXPECT_EQ(property.References(), propertyBefore + 1);
    EXPECT_EQ(control.Cleanup(), S_OK);
    EXPECT_EQ(object.References(), objectBefore);
    EXPECT_EQ(property.References(), propertyBefore);
}

TEST_F(CKvPeCtrlBase_Selection, Init_NonZeroLowerBound_CountsFromZeroAndLeavesLowEntriesEmpty) {
    SelectionArrays arrays;
    arrays.Add(&MakeObject(L"A")).Add(&MakeObject(L"B"));
    ASSERT_EQ(Init(control, arrays.Objects(2), arrays.DynamicProperties(2), arrays.Dispids(2)), S_OK);
    EXPECT_EQ(control.m_objectCount, 4);
    EXPECT_EQ(control.m_objects[1], nullptr);
    EXPECT_EQ(control.m_objects[2], static_cast<IDispatch*>(objects[0].Get()));
    EXPECT_EQ(control.m_objects[3], static_cast<IDispatch*>(objects[1].Get()));
}

TEST_F(CKvPeCtrlBase_Selection, Init_ReadOnly_TakesEffectAtNextRead) {
    Select(SelectionArrays().Add(&MakeObject(L"A")), VARIANT_TRUE);
    int readOnly = 0;
    EXPECT_EQ(control.PropReadOnly(readOnly), S_OK);
    EXPECT_FALSE(readOnly);
    EXPECT_EQ(Read(), S_OK);
    EXPECT_EQ(control.PropReadOnly(readOnly), S_OK);
    EXPECT_TRUE(readOnly);
}

TEST_F(CKvPeCtrlBase_Selection, Init_ClearsFailureCounter) {
    control.m_failedObjectCount = 7;
    Select(SelectionArrays().Add(&MakeObject(L"A")));
    EXPECT_EQ(control.m_failedObjectCount, 0);
}

TEST_F(CKvPeCtrlBase_Selection, Init_SecondTime_LeavesEarlierReferences) {
    ScriptedObject& first = MakeObject(L"A");
    const ULONG before = first.References();
    Select(SelectionArrays().Add(&first));
    Select(SelectionArrays().Add(&MakeObject(L"B")));
    EXPECT_EQ(first.References(), before + 1);
    EXPECT_EQ(control.Cleanup(), S_OK);
    EXPECT_EQ(first.References(), before + 1);
    first.Release();
}

TEST_F(CKvPeCtrlBase_Selection, Init_Fails_KeepsEarlierSelection) {
    Select(SelectionArrays().Add(&MakeObject(L"A")));
    EXPECT_EQ(Init(control, {}, {}, {}), E_FAIL);
    EXPECT_EQ(control.EntryCount(), 1);
}

TEST_F(CKvPeCtrlBase_Selection, Cleanup_KeepsCountAndEndsSelection) {
    Select(SelectionArrays().Add(&MakeObject(L"A")));
    EXPECT_EQ(control.Cleanup(), S_OK);
    EXPECT_EQ(control.m_objectCount, 1);
    EXPECT_EQ(control.m_objects, nullptr);
    EXPECT_EQ(control.m_dynamicProperties, nullptr);
    EXPECT_EQ(control.m_dispids, nullptr);
    EXPECT_EQ(control.EntryCount(), 0);
    EXPECT_EQ(Read(), E_FAIL);
}

TEST_F(CKvPeCtrlBase_Selection, Cleanup_Twice_ReleasesOnce) {
    ScriptedObject& object = MakeObject(L"A");
    const ULONG before = object.References();
    Select(SelectionArrays().Add(&object));
    EXPECT_EQ(control.Cleanup(), S_OK);
    EXPECT_EQ(control.Cleanup(), S_OK);
    EXPECT_EQ(object.References(), before);
}

TEST_F(CKvPeCtrlBase_Selection, Destruction_ReleasesSelection) {
    ScriptedObject& object = MakeObject(L"A");
    const ULONG before = object.References();
    {
        kvtest::OpenControl ended(&shell, &shell);
        EXPECT_EQ(SelectionArrays().Add(&object).Init(ended), S_OK);
    }
    EXPECT_EQ(object.References(), before);
}

TEST_F(CKvPeCtrlBase_Selection, ObjectIds_SkipsObjectsWithoutIdentity) {
    ScriptedObject& first = MakeObject(L"A");
    const KvDbObjectId firstId = MakeEntity(&first);
    ScriptedObject& third = MakeObject(L"C");
    const KvDbObjectId thirdId = MakeEntity(&third);
    ScriptedObject& failing = MakeObject(L"D", L"same", kvhost::OffersIdentity);
    failing.objectIdResult = E_FAIL;
    Select(SelectionArrays().Add(&first).Add(nullptr).Add(&MakeObject(L"B")).Add(&third).Add(&failing));
    KvArray<KvDbObjectId> ids;
    ids.append(KvDbObjectId());
    EXPECT_EQ(control.GetCurrentSelectionObjectIdArray(ids), S_OK);
    ASSERT_EQ(ids.length(), 3);
    EXPECT_EQ(ids[1], firstId);
    EXPECT_EQ(ids[2], thirdId);
}

TEST_F(CKvPeCtrlBase_Selection, ObjectIds_BeforeInit_GivesNone) {
    KvArray<KvDbObjectId> ids;
    EXPECT_EQ(control.GetCurrentSelectionObjectIdArray(ids), S_OK);
    EXPECT_TRUE(ids.isEmpty());
}

}  // namespace
