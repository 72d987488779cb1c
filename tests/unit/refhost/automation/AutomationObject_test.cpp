#include "refhost/automation/AutomationObject.h"

#include <numbers>

#include "refhost/automation/PropertyAccess.h"
#include "refhost/automation/PropertyTable.h"
#include "refhost/automation/Redraw.h"
#include "refhost/db/BlockReference.h"
#include "refhost/db/Circle.h"
#include "refhost/db/Layer.h"
#include "refhost/db/Polyline.h"
#include "refhost/db/Text.h"
#include "refhost/testing/Faults.h"
#include "tests/support/ExpectCalls.h"
#include "tests/unit/refhost/automation/AutomationFixture.h"

namespace {

using kvhost::Circle;
using kvhost::Layer;
using kvhost::Text;

class AutomationObjectTest : public kvtest::AutomationFixture {
protected:
    ~AutomationObjectTest() override { kvhost::Faults::Reset(); }

    KvDbObjectId AddCircle(double radius) {
        return Add<Circle>([&](Circle& circle) { EXPECT_EQ(circle.SetRadius(radius), Tolm::eOk); });
    }
    KvDbObjectId AddText(const wchar_t* content) {
        return Add<Text>([&](Text& text) { EXPECT_EQ(text.SetContent(content), Tolm::eOk); });
    }
    void LockLayerZero() {
        Write<Layer>(m_database.LayerNamed(L"0"), [](Layer& layer) { return layer.SetLocked(true); });
    }
};

TEST_F(AutomationObjectTest, GetAutomationObject_SameObjectTwice_GivesOneIdentity) {
    const KvDbObjectId id = AddCircle(1);
    const auto first = ObjectOf(id);
    const auto second = ObjectOf(id);
    EXPECT_TRUE(fw::IsSameObject(first.Get(), second.Get()));
}

TEST_F(AutomationObjectTest, GetAutomationObject_NullIdOrClassWithoutTable_Refused) {
    fw::ComPtr<IDispatch> object;
    EXPECT_EQ(kvhost::GetAutomationObject({}, object.Put()), E_INVALIDARG);
    EXPECT_EQ(kvhost::GetAutomationObject(m_database.SettingsId(), object.Put()), E_INVALIDARG);
    EXPECT_EQ(kvhost::GetAutomationObject({}, nullptr), E_POINTER);
}

TEST_F(AutomationObjectTest, Get_EveryPropertyOfEveryClass_HasItsType) {
    const std::vector<KvDbObjectId> ids{
        AddCircle(2), AddText(L"a"), m_database.LayerNamed(L"0"),
        Add<kvhost::Polyline>([](kvhost::Polyline& polyline) {
            EXPECT_EQ(polyline.SetVertices({{0, 0, 0}, {1, 0, 0}}), Tolm::eOk);
        })};
    for (const KvDbObjectId id : ids) {
        const auto object = ObjectOf(id);
        const auto* const table = kvhost::PropertyTable::Of(kvhost::Database::Peek(id)->ClassName());
        ASSERT_NE(table, nullptr);
        for (const kvhost::PropertyDescription& row : table->Rows()) {
            fw::Variant value;
            EXPECT_EQ(Get(object.Get(), row.dispid, value), S_OK) << kvtest::ToUtf8(row.name);
            EXPECT_EQ(value.Type(), row.type) << kvtest::ToUtf8(row.name);
        }
    }
}

TEST_F(AutomationObjectTest, Put_Text_ChangesTheDrawingAsOneStepOfUndo) {
    const KvDbObjectId id = AddText(L"before");
    m_database.Undo().Clear();
    const auto object = ObjectOf(id);

    EXPECT_EQ(Put(object.Get(), L"TextString", fw::Variant::FromString(L"after")), S_OK);
    EXPECT_EQ(kvhost::Database::PeekAs<Text>(id)->Content(), L"after");
    EXPECT_EQ(m_database.Undo().UndoCount(), 1);
    EXPECT_EQ(m_database.Undo().Undo(1), Tolm::eOk);
    EXPECT_EQ(GetText(object.Get(), L"TextString"), L"before");
}

TEST_F(AutomationObjectTest, Put_WithinOpenGroup_IsUndoneWithTheGroup) {
    const auto first = ObjectOf(AddText(L"a"));
    const auto second = ObjectOf(AddText(L"b"));
    ASSERT_EQ(m_database.Undo().BeginGroup(L"change"), Tolm::eOk);
    EXPECT_EQ(Put(first.Get(), L"TextString", fw::Variant::FromString(L"x")), S_OK);
    EXPECT_EQ(Put(second.Get(), L"TextString", fw::Variant::FromString(L"x")), S_OK);
    ASSERT_EQ(m_database.Undo().EndGroup(), Tolm::eOk);

    EXPECT_EQ(m_database.Undo().Undo(1), Tolm::eOk);
    EXPECT_EQ(GetText(first.Get(), L"TextString"), L"a");
    EXPECT_EQ(GetText(second.Get(), L"TextString"), L"b");
}

TEST_F(AutomationObjectTest, Put_OtherType_IsConverted) {
    const auto circle = ObjectOf(AddCircle(1));
    EXPECT_EQ(Put(circle.Get(), L"Radius", fw::Variant::FromLong(3)), S_OK);
    EXPECT_EQ(Get(circle.Get(), L"Radius").DoubleOr(0), 3);
    EXPECT_EQ(Put(circle.Get(), L"Radius", fw::Variant::FromString(L"no number")), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(Put(circle.Get(), L"Description", fw::Variant::FromLong(7)), S_OK);
    EXPECT_EQ(GetText(circle.Get(), L"Description"), L"7");
}

TEST_F(AutomationObjectTest, Put_ByReference_TakesTheValue) {
    const auto circle = ObjectOf(AddCircle(1));
    double number = 5;
    fw::Variant reference;
    reference.Address()->vt = VT_R8 | VT_BYREF;
    reference.Address()->pdblVal = &number;
    EXPECT_EQ(Put(circle.Get(), L"Radius", reference), S_OK);
    EXPECT_EQ(Get(circle.Get(), L"Radius").DoubleOr(0), 5);
}

TEST_F(AutomationObjectTest, Put_RefusedByTheDatabase_IsExceptionWithReason) {
    const auto circle = ObjectOf(AddCircle(1));
    EXCEPINFO exception{};
    EXPECT_EQ(Put(circle.Get(), L"Radius", fw::Variant::FromDouble(-1), &exception), DISP_E_EXCEPTION);
    EXPECT_EQ(exception.scode, static_cast<SCODE>(0x80200000UL | Tolm::eInvalidInput));
    EXPECT_GT(::SysStringLen(exception.bstrDescription), 0U);
    FreeException(exception);
    EXPECT_EQ(Put(circle.Get(), L"Radius", fw::Variant::FromDouble(-1), nullptr), DISP_E_EXCEPTION);
    EXPECT_EQ(Get(circle.Get(), L"Radius").DoubleOr(0), 1);
}

TEST_F(AutomationObjectTest, Put_LockedLayer_IsExceptionOfTheLockedLayer) {
    const auto circle = ObjectOf(AddCircle(1));
    LockLayerZero();
    EXCEPINFO exception{};
    EXPECT_EQ(Put(circle.Get(), L"Radius", fw::Variant::FromDouble(2), &exception), DISP_E_EXCEPTION);
    EXPECT_EQ(exception.scode, static_cast<SCODE>(0x80200000UL | Tolm::eOnLockedLayer));
    FreeException(exception);
}

TEST_F(AutomationObjectTest, Invoke_WrongCalls_GiveTheResultsOfThePlatform) {
    const auto circle = ObjectOf(AddCircle(1));
    fw::Variant value;
    DISPPARAMS none{};
    EXPECT_EQ(Get(circle.Get(), 9999, value), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(Put(circle.Get(), L"Handle", fw::Variant::FromString(L"1")), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(circle->Invoke(202, IID_IUnknown, 0, DISPATCH_PROPERTYGET, &none, nullptr, nullptr, nullptr),
              DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(circle->Invoke(202, IID_NULL, 0, DISPATCH_PROPERTYGET, nullptr, nullptr, nullptr, nullptr),
              E_POINTER);
    EXPECT_EQ(circle->Invoke(202, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
              DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(circle->Invoke(202, IID_NULL, 0, DISPATCH_PROPERTYPUT, &none, nullptr, nullptr, nullptr),
              DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(circle->Invoke(202, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, nullptr, nullptr, nullptr), S_OK);
}

TEST_F(AutomationObjectTest, GetIDsOfNames_AnyCaseAndUnknown) {
    const auto circle = ObjectOf(AddCircle(1));
    EXPECT_EQ(IdOfName(circle.Get(), L"rADIUS"), 202);
    wchar_t name[] = L"Colour of the sea";
    LPOLESTR text = name;
    DISPID dispid = 0;
    EXPECT_EQ(circle->GetIDsOfNames(IID_NULL, &text, 1, 0, &dispid), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(dispid, DISPID_UNKNOWN);
}

TEST_F(AutomationObjectTest, CircleMeasures_FollowEachOther) {
    const auto circle = ObjectOf(AddCircle(2));
    EXPECT_EQ(Get(circle.Get(), L"Diameter").DoubleOr(0), 4);
    EXPECT_DOUBLE_EQ(Get(circle.Get(), L"Area").DoubleOr(0), 4 * std::numbers::pi);
    EXPECT_EQ(Put(circle.Get(), L"Circumference", fw::Variant::FromDouble(2 * std::numbers::pi)), S_OK);
    EXPECT_DOUBLE_EQ(Get(circle.Get(), L"Radius").DoubleOr(0), 1);
    EXPECT_EQ(Put(circle.Get(), L"Area", fw::Variant::FromDouble(9 * std::numbers::pi)), S_OK);
    EXPECT_DOUBLE_EQ(Get(circle.Get(), L"Radius").DoubleOr(0), 3);
    EXPECT_EQ(Put(circle.Get(), L"Area", fw::Variant::FromDouble(0)), DISP_E_EXCEPTION);
}

TEST_F(AutomationObjectTest, Points_AreArraysOfThreeNumbers) {
    const auto circle = ObjectOf(AddCircle(2));
    const kvhost::Point3 point{1, 2, 3};
    EXPECT_EQ(Put(circle.Get(), L"Center", kvhost::PointToVariant(point)), S_OK);
    kvhost::Point3 read;
    EXPECT_EQ(kvhost::PointFromVariant(Get(circle.Get(), L"Center"), read), Tolm::eOk);
    EXPECT_EQ(read, point);
    EXPECT_EQ(Put(circle.Get(), L"Center", fw::Variant::FromDouble(1)), DISP_E_EXCEPTION);
}

TEST_F(AutomationObjectTest, Color_IsAnIndexOrTrueColor) {
    const auto circle = ObjectOf(AddCircle(2));
    EXPECT_EQ(Get(circle.Get(), L"Color").LongOr(-1), 256);
    for (const long number : {0L, 5L, 255L, static_cast<long>(0xC2112233UL)}) {
        EXPECT_EQ(Put(circle.Get(), L"Color", fw::Variant::FromLong(number)), S_OK);
        EXPECT_EQ(Get(circle.Get(), L"Color").LongOr(-1), number);
    }
    EXPECT_EQ(Put(circle.Get(), L"Color", fw::Variant::FromLong(257)), DISP_E_EXCEPTION);
}

TEST_F(AutomationObjectTest, Identity_GivesIdAndClass) {
    const KvDbObjectId id = AddCircle(1);
    const auto identity = ObjectOf(id).As<IDatabaseObjectIdentity>();
    KvDbObjectId read;
    CLSID classId{};
    EXPECT_EQ(identity->GetObjectId(&read), S_OK);
    EXPECT_EQ(read, id);
    EXPECT_EQ(identity->GetClassId(&classId), S_OK);
    EXPECT_EQ(classId, kvhost::PropertyTable::Of(L"Circle")->ClassId());
}

TEST_F(AutomationObjectTest, DrawingClosed_ObjectHeldOn_AnswersThatItIsGone) {
    const auto circle = ObjectOf(AddCircle(1));
    m_session->Documents().Close(&m_document);
    fw::Variant value;
    EXCEPINFO exception{};
    EXPECT_EQ(Get(circle.Get(), 202, value, &exception), DISP_E_EXCEPTION);
    EXPECT_EQ(exception.scode, static_cast<SCODE>(0x80200000UL | Tolm::eNullObjectId));
    FreeException(exception);
    KvDbObjectId id;
    EXPECT_EQ(circle.As<IDatabaseObjectIdentity>()->GetObjectId(&id), E_FAIL);
}

TEST_F(AutomationObjectTest, Editable_FlagLockedLayerAndErased) {
    const KvDbObjectId id = AddCircle(1);
    const auto editability = ObjectOf(id).As<IPropertyEditability>();
    BOOL editable = 7;
    EXPECT_EQ(editability->Editable(202, &editable), S_OK);
    EXPECT_EQ(editable, TRUE);
    EXPECT_EQ(editability->Editable(106, &editable), S_OK);
    EXPECT_EQ(editable, FALSE);
    EXPECT_EQ(editability->Editable(9999, &editable), E_INVALIDARG);

    LockLayerZero();
    EXPECT_EQ(editability->Editable(202, &editable), S_OK);
    EXPECT_EQ(editable, FALSE);

    Write<Circle>(id, [](Circle& circle) { return circle.Erase(); });
    EXPECT_THROW(fw::Ignore(editability->Editable(202, &editable)), Tolm::ErrorStatus);
}

TEST_F(AutomationObjectTest, Unspecified_IsKeptInTheDrawingAndUndone) {
    const auto circle = ObjectOf(AddCircle(1));
    const auto support = circle.As<IPropertyUnspecifiedSupport>();
    const VARIANT description = KeyOf(IdOfName(circle.Get(), L"Description"));
    VARIANT_BOOL answer = VARIANT_FALSE;
    EXPECT_EQ(support->IsUnspecifiedAllowed(description, &answer), S_OK);
    EXPECT_EQ(answer, VARIANT_TRUE);
    EXPECT_EQ(support->SetUnspecified(description, VARIANT_TRUE), S_OK);
    EXPECT_EQ(support->IsUnspecified(description, &answer), S_OK);
    EXPECT_EQ(answer, VARIANT_TRUE);

    EXPECT_EQ(m_database.Undo().Undo(1), Tolm::eOk);
    EXPECT_EQ(support->IsUnspecified(description, &answer), S_OK);
    EXPECT_EQ(answer, VARIANT_FALSE);
}

TEST_F(AutomationObjectTest, Unspecified_NoChange_MakesNoStepOfUndo) {
    const auto circle = ObjectOf(AddCircle(1));
    m_database.Undo().Clear();
    const auto support = circle.As<IPropertyUnspecifiedSupport>();
    EXPECT_EQ(support->SetUnspecified(KeyOf(104), VARIANT_FALSE), S_OK);
    EXPECT_EQ(m_database.Undo().UndoCount(), 0);
}

TEST_F(AutomationObjectTest, Unspecified_PlainValueTakesItAway) {
    const auto circle = ObjectOf(AddCircle(1));
    const auto support = circle.As<IPropertyUnspecifiedSupport>();
    ASSERT_EQ(support->SetUnspecified(KeyOf(104), VARIANT_TRUE), S_OK);
    EXPECT_EQ(Put(circle.Get(), 104, fw::Variant::FromString(L"round")), S_OK);
    VARIANT_BOOL answer = VARIANT_TRUE;
    EXPECT_EQ(support->IsUnspecified(KeyOf(104), &answer), S_OK);
    EXPECT_EQ(answer, VARIANT_FALSE);
}

TEST_F(AutomationObjectTest, Unspecified_OtherPropertiesAndTexts) {
    const auto circle = ObjectOf(AddCircle(1));
    const auto support = circle.As<IPropertyUnspecifiedSupport>();
    VARIANT_BOOL answer = VARIANT_TRUE;
    EXPECT_EQ(support->IsUnspecifiedAllowed(KeyOf(202), &answer), S_OK);
    EXPECT_EQ(answer, VARIANT_FALSE);
    EXPECT_EQ(support->SetUnspecified(KeyOf(202), VARIANT_TRUE), E_INVALIDARG);
    EXPECT_EQ(support->IsUnspecifiedAllowed(KeyOf(circle.Get()), &answer), E_INVALIDARG);

    fw::Bstr text;
    EXPECT_EQ(support->GetUnspecifiedText(KeyOf(104), text.Put()), S_OK);
    EXPECT_EQ(text.View(), L"none");
    EXPECT_EQ(support->GetUnspecifiedText(KeyOf(105), text.Put()), E_NOTIMPL);
}

TEST_F(AutomationObjectTest, Expression_SetsValueAndBindingAndIsUndone) {
    const auto circle = ObjectOf(AddCircle(2));
    const auto support = circle.As<IPropertyExpressionSupport>();
    wchar_t expression[] = L"Radius * 2 + 1";
    EXPECT_EQ(support->SetExpression(KeyOf(202), expression), S_OK);
    EXPECT_EQ(Get(circle.Get(), L"Radius").DoubleOr(0), 5);
    fw::Bstr read;
    EXPECT_EQ(support->GetExpression(KeyOf(202), read.Put()), S_OK);
    EXPECT_EQ(read.View(), expression);

    EXPECT_EQ(m_database.Undo().Undo(1), Tolm::eOk);
    EXPECT_EQ(Get(circle.Get(), L"Radius").DoubleOr(0), 2);
    EXPECT_EQ(support->GetExpression(KeyOf(202), read.Put()), S_OK);
    EXPECT_EQ(read.View(), L"");
}

TEST_F(AutomationObjectTest, Expression_RefusedOnes_ChangeNothing) {
    const auto circle = ObjectOf(AddCircle(2));
    m_database.Undo().Clear();
    const auto support = circle.As<IPropertyExpressionSupport>();
    for (const wchar_t* const text : {L"1 +", L"Nothing", L"1/0", L"\"text\"", L"-3"}) {
        std::wstring expression = text;
        EXPECT_EQ(support->SetExpression(KeyOf(202), expression.data()),
                  static_cast<HRESULT>(0x80200000UL | Tolm::eInvalidInput))
            << kvtest::ToUtf8(text);
    }
    EXPECT_EQ(Get(circle.Get(), L"Radius").DoubleOr(0), 2);
    EXPECT_EQ(m_database.Undo().UndoCount(), 0);
    ::SetErrorInfo(0, nullptr);
}

TEST_F(AutomationObjectTest, Expression_TextProperty_JoinsNumbersAndAttributes) {
    const KvDbObjectId id = AddCircle(2);
    Write<Circle>(id, [](Circle& circle) { return circle.SetCustomAttribute(L"Owner", L"city"); });
    const auto circle = ObjectOf(id);
    const auto support = circle.As<IPropertyExpressionSupport>();
    wchar_t expression[] = L"\"r=\" & Radius & \" \" & Owner";
    EXPECT_EQ(support->SetExpression(KeyOf(104), expression), S_OK);
    EXPECT_EQ(GetText(circle.Get(), L"Description"), L"r=2 city");
    EXPECT_EQ(Put(circle.Get(), 104, fw::Variant::FromString(L"plain")), S_OK);
    fw::Bstr read;
    EXPECT_EQ(support->GetExpression(KeyOf(104), read.Put()), S_OK);
    EXPECT_TRUE(read.IsEmpty());
}

TEST_F(AutomationObjectTest, Expression_NotSupported_Refused) {
    const auto circle = ObjectOf(AddCircle(2));
    const auto support = circle.As<IPropertyExpressionSupport>();
    VARIANT_BOOL answer = VARIANT_TRUE;
    EXPECT_EQ(support->IsExpressionSupported(KeyOf(203), &answer), S_OK);
    EXPECT_EQ(answer, VARIANT_FALSE);
    wchar_t expression[] = L"1";
    EXPECT_EQ(support->SetExpression(KeyOf(203), expression), E_INVALIDARG);
    EXPECT_EQ(support->SetExpression(KeyOf(202), nullptr), E_POINTER);
}

TEST_F(AutomationObjectTest, Update_CountsAndTellsObservers) {
    struct Observer : kvhost::RedrawObserver {
        std::vector<KvDbObjectId> seen;
        void ObjectRedrawn(KvDbObjectId id) override { seen.push_back(id); }
    } observer;
    const KvDbObjectId id = AddCircle(1);
    const auto update = ObjectOf(id).As<IGraphicalObjectUpdate>();
    const long before = kvhost::RedrawCount();
    kvhost::AddRedrawObserver(&observer);
    EXPECT_EQ(update->Update(), S_OK);
    kvhost::RemoveRedrawObserver(&observer);
    EXPECT_EQ(update->Update(), S_OK);
    EXPECT_EQ(kvhost::RedrawCount() - before, 2);
    EXPECT_EQ(observer.seen, std::vector{id});
    EXPECT_FALSE(ObjectOf(m_database.LayerNamed(L"0")).As<IGraphicalObjectUpdate>());
}

TEST_F(AutomationObjectTest, Journal_NamesOperationsInOrder) {
    const KvDbObjectId id = AddText(L"a");
    const auto text = ObjectOf(id);
    kvhost::Journal journal;
    fw::Variant value;
    EXPECT_EQ(Get(text.Get(), 231, value), S_OK);
    EXPECT_EQ(Put(text.Get(), 231, fw::Variant::FromString(L"b")), S_OK);
    EXPECT_EQ(Put(text.Get(), 236, fw::Variant::FromString(L"secret")), S_OK);
    BOOL editable = FALSE;
    EXPECT_EQ(text.As<IPropertyEditability>()->Editable(231, &editable), S_OK);
    EXPECT_EQ(text.As<IGraphicalObjectUpdate>()->Update(), S_OK);

    const std::string handle = kvtest::ToUtf8(kvhost::AsText(id));
    EXPECT_CALLS(journal, "Invoke " + handle + " get 231", "Invoke " + handle + " put 231 \"b\"",
                 "Invoke " + handle + " put 236 ***", "Editable " + handle + " 231", "Update " + handle);
    EXPECT_EQ(journal.Entries()[0].result, L"0x00000000");
}

TEST_F(AutomationObjectTest, Faults_FailTheNamedOperation) {
    const auto circle = ObjectOf(AddCircle(1));
    kvhost::Faults::FailService(L"Invoke", 2);
    fw::Variant value;
    EXPECT_EQ(Get(circle.Get(), 202, value), S_OK);
    EXPECT_EQ(Put(circle.Get(), 202, fw::Variant::FromDouble(9)), E_FAIL);
    EXPECT_EQ(Get(circle.Get(), L"Radius").DoubleOr(0), 1);
}

TEST_F(AutomationObjectTest, BlockReference_NameIsReadOnlyAndScalesAreApart) {
    KvDbObjectId block;
    ASSERT_EQ(m_database.AddBlock(L"Tree", block), Tolm::eOk);
    const auto reference = ObjectOf(Add<kvhost::BlockReference>(
        [&](kvhost::BlockReference& made) { EXPECT_EQ(made.SetBlockId(block), Tolm::eOk); }));
    EXPECT_EQ(GetText(reference.Get(), L"Name"), L"Tree");
    EXPECT_EQ(Put(reference.Get(), L"YScaleFactor", fw::Variant::FromDouble(3)), S_OK);
    EXPECT_EQ(Get(reference.Get(), L"XScaleFactor").DoubleOr(0), 1);
    EXPECT_EQ(Get(reference.Get(), L"YScaleFactor").DoubleOr(0), 3);
    EXPECT_EQ(Put(reference.Get(), L"ZScaleFactor", fw::Variant::FromDouble(0)), DISP_E_EXCEPTION);
}

}  // namespace
