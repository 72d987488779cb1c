#include "core/ReadFailures.h"

#include "tests/unit/core/ControlBench.h"

namespace {

using kvtest::SelectionArrays;

constexpr SCODE c_noValue = static_cast<SCODE>(0x80200003);
constexpr SCODE c_partsDisagree = static_cast<SCODE>(0x80200002);

constexpr CLSID c_valueless1 = {0x82A6B685, 0x6316, 0x4A73, {0xB2, 0x87, 0xCC, 0x2C, 0x59, 0xBF, 0xB6, 0x42}};
constexpr CLSID c_valueless2 = {0xCBECB295, 0x246A, 0x4A97, {0x8F, 0xF8, 0x4E, 0x6C, 0x7F, 0xE3, 0xE1, 0x49}};
constexpr CLSID c_compound1 = {0x6D6809F5, 0xE09B, 0x45F7, {0xA9, 0x02, 0x79, 0x0F, 0x39, 0x81, 0x00, 0xBA}};
constexpr CLSID c_compound2 = {0xD8A3FC19, 0x3298, 0x4004, {0x80, 0x08, 0xB5, 0xA6, 0x09, 0x23, 0x3A, 0xAF}};

class ReadFailures : public kvtest::ControlTest {
protected:
    // An object that raises the exception for the property.
    kvhost::ScriptedObject& MakeRaising(const wchar_t* name, SCODE code, const CLSID& classId, long dispid,
                                        unsigned identity = kvhost::OffersIdentity) {
        kvhost::ScriptedObject& object = MakeObject(name, L"same", identity);
        object.classId = classId;
        object.At(dispid).getResult = DISP_E_EXCEPTION;
        object.At(dispid).exception.scode = code;
        object.At(dispid).exception.source = L"source";
        object.At(dispid).exception.description = L"description";
        object.At(dispid).exception.helpFile = L"help";
        return object;
    }

    HRESULT ReadOne(kvhost::ScriptedObject& object, long dispid) {
        Select(SelectionArrays().Add(&object, dispid));
        const HRESULT read = Read();
        EXPECT_EQ(control.Cleanup(), S_OK);
        return read;
    }
};

TEST_F(ReadFailures, NoValueOfKnownClass_ReadsAsEmpty) {
    for (const CLSID& classId : {c_valueless1, c_valueless2}) {
        EXPECT_EQ(ReadOne(MakeRaising(L"A", c_noValue, classId, 10), 10), S_OK);
        EXPECT_EQ(type, ValueType_Specific);
        EXPECT_TRUE(value.IsEmpty());
    }
}

TEST_F(ReadFailures, NoValueOfOtherPropertyOrClass_Fails) {
    EXPECT_EQ(ReadOne(MakeRaising(L"A", c_noValue, c_valueless1, 11), 11), DISP_E_EXCEPTION);
    EXPECT_EQ(ReadOne(MakeRaising(L"A", c_noValue, c_compound1, 10), 10), DISP_E_EXCEPTION);
    EXPECT_EQ(ReadOne(MakeRaising(L"A", c_noValue, CLSID_NULL, 10), 10), DISP_E_EXCEPTION);
}

TEST_F(ReadFailures, PartsDisagree_ReadsAsEmptyAndVariesForTheTwoSharedProperties) {
    for (const CLSID& classId : {c_compound1, c_compound2}) {
        for (const long dispid : {1L, 2L, 3L, 10L}) {
            EXPECT_EQ(ReadOne(MakeRaising(L"A", c_partsDisagree, classId, dispid), dispid), S_OK);
            EXPECT_EQ(type, dispid <= 2 ? ValueType_Varies : ValueType_Specific) << dispid;
            EXPECT_TRUE(value.IsEmpty());
        }
    }
}

TEST_F(ReadFailures, PartsDisagreeOfOtherClass_Fails) {
    EXPECT_EQ(ReadOne(MakeRaising(L"A", c_partsDisagree, c_valueless1, 1), 1), DISP_E_EXCEPTION);
    EXPECT_EQ(type, ValueType_Specific);
}

TEST_F(ReadFailures, OtherException_Fails) {
    EXPECT_EQ(ReadOne(MakeRaising(L"A", E_ACCESSDENIED, c_compound1, 1), 1), DISP_E_EXCEPTION);
}

TEST_F(ReadFailures, FailureWithoutException_IsNotTolerated) {
    kvhost::ScriptedObject& object = MakeRaising(L"A", c_partsDisagree, c_compound1, 1);
    object.At(1).getResult = c_partsDisagree;
    EXPECT_EQ(ReadOne(object, 1), c_partsDisagree);
}

TEST_F(ReadFailures, ObjectOfPart_IsAskedByItsTransientIdentity) {
    EXPECT_EQ(ReadOne(MakeRaising(L"A", c_noValue, c_valueless1, 10, kvhost::OffersTransientIdentity), 10),
              S_OK);
}

TEST_F(ReadFailures, ObjectWithoutIdentity_Fails) {
    EXPECT_EQ(ReadOne(MakeRaising(L"A", c_noValue, c_valueless1, 10, 0), 10), DISP_E_EXCEPTION);
}

TEST_F(ReadFailures, ClassCannotBeAsked_Fails) {
    kvhost::ScriptedObject& object = MakeRaising(L"A", c_noValue, c_valueless1, 10);
    object.classIdResult = E_FAIL;
    EXPECT_EQ(ReadOne(object, 10), DISP_E_EXCEPTION);
}

TEST_F(ReadFailures, FirstObjectVariesInItself_NoFurtherObjectIsRead) {
    Select(SelectionArrays()
               .Add(&MakeRaising(L"A", c_partsDisagree, c_compound1, 1), 1)
               .Add(&MakeObject(L"B"), 1));
    EXPECT_EQ(Read(), S_OK);
    EXPECT_EQ(type, ValueType_Varies);
    EXPECT_CALLS(journal, "Invoke A get 1", "GetClassId A");
}

TEST_F(ReadFailures, FurtherObjectVariesInItself_EndsTheReadWithVaries) {
    MakeObject(L"A").At(1).Set(L"same");
    MakeObject(L"C").At(1).Set(L"same");
    Select(SelectionArrays()
               .Add(objects[0].Get(), 1)
               .Add(&MakeRaising(L"B", c_partsDisagree, c_compound1, 1), 1)
               .Add(objects[1].Get(), 1));
    EXPECT_EQ(Read(), S_OK);
    EXPECT_EQ(type, ValueType_Varies);
    EXPECT_EQ(ValueText(), L"same");
    EXPECT_EQ(control.comparisons, 0);
    EXPECT_CALLS(journal, "Invoke A get 1", "Invoke B get 1", "GetClassId B");
}

TEST_F(ReadFailures, ValuelessFurtherObject_VariesFromText) {
    MakeObject(L"A").At(10).Set(L"same");
    Select(
        SelectionArrays().Add(objects[0].Get(), 10).Add(&MakeRaising(L"B", c_noValue, c_valueless2, 10), 10));
    EXPECT_EQ(Read(), S_OK);
    EXPECT_EQ(type, ValueType_Varies);
}

TEST_F(ReadFailures, Exception_OfFirstObjectIsJudgedBehindItsExpression_OfFurtherOnesBefore) {
    const unsigned interfaces = kvhost::OffersIdentity | kvhost::OffersExpression;
    Select(SelectionArrays()
               .Add(&MakeRaising(L"A", c_noValue, c_valueless1, 10, interfaces), 10)
               .Add(&MakeRaising(L"B", c_noValue, c_valueless1, 10, interfaces), 10));
    EXPECT_EQ(Read(), S_OK);
    EXPECT_EQ(type, ValueType_Varies);  // empty values never compare equal
    EXPECT_CALLS(journal, "Invoke A get 10", "IsExpressionSupported A 10", "GetClassId A", "Invoke B get 10",
                 "GetClassId B", "IsExpressionSupported B 10");
}

TEST_F(ReadFailures, Predicate_NullObject_IsNotTolerated) {
    ValueType outcome = ValueType_Specific;
    EXPECT_FALSE(IsToleratedReadFailure(DISP_E_EXCEPTION, c_partsDisagree, nullptr, 1, outcome));
    EXPECT_EQ(outcome, ValueType_Specific);
}

}  // namespace
