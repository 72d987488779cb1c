#include <gtest/gtest.h>

#include <array>
#include <string_view>
#include <utility>

#include "framework/com/Variant.h"
#include "host_sdk/IHostApplication.h"
#include "host_sdk/IKvPiPropertyIdentifier.h"
#include "host_sdk/IPropertyDialogByIds.h"
#include "host_sdk/IPropertyDialogByObjects.h"
#include "host_sdk/IPropertyElementAccess.h"
#include "host_sdk/IPropertyElementAccess2.h"
#include "host_sdk/KvApDocument.h"
#include "host_sdk/KvDbUndoController.h"
#include "host_sdk/KvRxClass.h"
#include "host_sdk/KvRxDictionary.h"
#include "host_sdk/KvRxDynamicLinker.h"
#include "refhost/testing/ScriptedDynamicProperty.h"
#include "refhost/testing/ScriptedObject.h"
#include "tests/support/ExpectCalls.h"

// Modules made elsewhere know host interfaces by the positions of their operations alone. Each test calls an
// operation through its position and sees which one was reached.

namespace {

using kvhost::ScriptedDynamicProperty;
using kvhost::ScriptedObject;

// Calls the operation at a position of an interface, which takes the interface as its first argument.
template <class... Arguments>
HRESULT CallSlot(IUnknown* object, std::size_t slot, Arguments... arguments) {
    using Operation = HRESULT(STDMETHODCALLTYPE*)(IUnknown*, Arguments...);
    void** const table = *reinterpret_cast<void***>(object);
    return reinterpret_cast<Operation>(table[slot])(object, arguments...);
}

// Positions without operation answer E_NOTIMPL.
void ExpectReserved(IUnknown* object, std::initializer_list<std::size_t> slots) {
    for (const std::size_t slot : slots) {
        EXPECT_EQ(CallSlot(object, slot), E_NOTIMPL) << slot;
    }
}

class InterfaceSlotsTest : public ::testing::Test {
protected:
    InterfaceSlotsTest() {
        m_object->At(5).Set(L"text");
        m_object->At(5).unspecifiedText = L"none";
        m_key.vt = VT_I4;
        m_key.lVal = 5;
    }

    template <class Interface>
    fw::ComPtr<IUnknown> ObjectAs() {
        return m_object.As<Interface>();
    }
    template <class Interface>
    fw::ComPtr<IUnknown> PropertyAs() {
        return fw::QueryFrom<Interface>(m_property->Identity());
    }

    fw::ComPtr<ScriptedObject> m_object = ScriptedObject::Make(L"A", ~0U);
    fw::ComPtr<ScriptedDynamicProperty> m_property = ScriptedDynamicProperty::Make(L"P", ~0U);
    kvhost::Journal m_journal;
    VARIANT m_key{};
    VARIANT_BOOL m_truth = VARIANT_FALSE;
    BOOL m_bool = FALSE;
    fw::Bstr m_text;
    fw::Variant m_value;
};

TEST_F(InterfaceSlotsTest, PropertyUnspecifiedSupport) {
    const auto raw = ObjectAs<IPropertyUnspecifiedSupport>();
    CallSlot(raw.Get(), 3, m_key, &m_truth);
    CallSlot(raw.Get(), 4, m_key, VARIANT_BOOL{VARIANT_TRUE});
    CallSlot(raw.Get(), 5, m_key, &m_truth);
    CallSlot(raw.Get(), 6, m_key, m_text.Put());
    EXPECT_CALLS(m_journal, "IsUnspecified A 5", "SetUnspecified A 5 -1", "IsUnspecifiedAllowed A 5",
                 "GetUnspecifiedText A 5");
}

TEST_F(InterfaceSlotsTest, PropertyExpressionSupport) {
    const auto raw = ObjectAs<IPropertyExpressionSupport>();
    wchar_t expression[] = L"1";
    CallSlot(raw.Get(), 3, m_key, &m_truth);
    CallSlot(raw.Get(), 4, m_key, m_text.Put());
    CallSlot(raw.Get(), 5, m_key, expression);
    EXPECT_CALLS(m_journal, "IsExpressionSupported A 5", "GetExpression A 5", "SetExpression A 5 1");
}

TEST_F(InterfaceSlotsTest, PropertyEditability) {
    const auto raw = ObjectAs<IPropertyEditability>();
    ExpectReserved(raw.Get(), {3});
    CallSlot(raw.Get(), 4, 5L, &m_bool);
    CallSlot(raw.Get(), 5, 5L, &m_bool);
    EXPECT_CALLS(m_journal, "Editable A 5", "PropertyShown A 5");
}

TEST_F(InterfaceSlotsTest, DatabaseObjectIdentity) {
    const auto raw = ObjectAs<IDatabaseObjectIdentity>();
    KvDbObjectId id;
    CLSID classId{};
    ExpectReserved(raw.Get(), {3, 5});
    CallSlot(raw.Get(), 4, &id);
    CallSlot(raw.Get(), 6, &classId);
    EXPECT_CALLS(m_journal, "GetObjectId A", "GetClassId A");
}

TEST_F(InterfaceSlotsTest, TransientObjectIdentity) {
    const auto raw = ObjectAs<ITransientObjectIdentity>();
    KvDbFullSubentPath path;
    CLSID classId{};
    ExpectReserved(raw.Get(), {3, 4});
    CallSlot(raw.Get(), 5, &path);
    CallSlot(raw.Get(), 6, &classId);
    EXPECT_CALLS(m_journal, "GetFullSubentPath A", "GetClassId A");
}

TEST_F(InterfaceSlotsTest, GraphicalObjectUpdate) {
    const auto raw = ObjectAs<IGraphicalObjectUpdate>();
    ExpectReserved(raw.Get(), {3, 10, 61, 64, 79, 81, 84});
    CallSlot(raw.Get(), 85);
    EXPECT_CALLS(m_journal, "Update A");
}

TEST_F(InterfaceSlotsTest, DynamicProperty) {
    const auto raw = PropertyAs<IDynamicProperty>();
    long count = 0;
    VARTYPE type = VT_EMPTY;
    ExpectReserved(raw.Get(), {5, 7, 8});
    CallSlot(raw.Get(), 3, &count);
    CallSlot(raw.Get(), 4, 0L, m_text.Put());
    CallSlot(raw.Get(), 6, &m_bool);
    CallSlot(raw.Get(), 9, &type);
    CallSlot(raw.Get(), 10, KvDbObjectId(), m_value.Put());
    CallSlot(raw.Get(), 11, KvDbObjectId(), m_key);
    EXPECT_CALLS(m_journal, "GetPropertyNameCount P", "GetPropertyName P 0", "IsPropertyReadOnly P",
                 "GetCurrentValueType P", "GetCurrentValueData P null", "SetCurrentValueData P null i4:5");
}

TEST_F(InterfaceSlotsTest, DynamicPropertyByObject) {
    const auto raw = PropertyAs<IDynamicPropertyByObject>();
    auto* const object = static_cast<IUnknown*>(static_cast<IDispatch*>(m_object.Get()));
    VARTYPE type = VT_EMPTY;
    ExpectReserved(raw.Get(), {3, 4, 5, 7, 8});
    CallSlot(raw.Get(), 6, &m_bool);
    CallSlot(raw.Get(), 9, &type);
    CallSlot(raw.Get(), 10, object, m_value.Put());
    CallSlot(raw.Get(), 11, object, m_key);
    EXPECT_CALLS(m_journal, "IsPropertyReadOnly P", "GetCurrentValueType P", "GetCurrentValueData P A",
                 "SetCurrentValueData P A i4:5");
}

TEST_F(InterfaceSlotsTest, DynamicPropertyDialog) {
    const auto raw = PropertyAs<IDynamicPropertyDialog>();
    KvPropertyDialogProcedure procedure = nullptr;
    CallSlot(raw.Get(), 3, &procedure);
    CallSlot(raw.Get(), 4, m_text.Put());
    EXPECT_CALLS(m_journal, "GetDialogProcedure P", "GetDialogMacro P");
}

// Interfaces that only a part of the program implements: a stand-in that writes down what was reached.
template <class Interface>
struct StandIn : Interface {
    std::string reached;
    virtual ~StandIn() = default;
    STDMETHODIMP QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }

    HRESULT Reached(const char* operation) {
        reached = operation;
        return S_OK;
    }
};

TEST(InterfaceSlots, HostApplication) {
    struct Application final : StandIn<IHostApplication> {
        STDMETHODIMP RunMacro(BSTR) override { return Reached("RunMacro"); }
    } application;
    ExpectReserved(&application, {3, 9, 10, 39, 40, 43});
    CallSlot(&application, 44, static_cast<BSTR>(nullptr));
    EXPECT_EQ(application.reached, "RunMacro");
}

TEST(InterfaceSlots, PropertyIdentifier) {
    struct Identifier final : StandIn<IKvPiPropertyIdentifier> {
        STDMETHODIMP PutCurrentValue(VARIANT) override { return Reached("PutCurrentValue"); }
        STDMETHODIMP PutCurrentValueText(BSTR) override { return Reached("PutCurrentValueText"); }
    } identifier;
    ExpectReserved(&identifier, {3, 13, 15, 17});
    CallSlot(&identifier, 14, VARIANT{});
    EXPECT_EQ(identifier.reached, "PutCurrentValue");
    CallSlot(&identifier, 18, static_cast<BSTR>(nullptr));
    EXPECT_EQ(identifier.reached, "PutCurrentValueText");
}

TEST(InterfaceSlots, PropertyDialogs) {
    struct ByObjects final : StandIn<IPropertyDialogByObjects> {
        STDMETHODIMP ShowDialog(BSTR*, VARIANT) override { return Reached("ByObjects"); }
    } byObjects;
    CallSlot(&byObjects, 3, static_cast<BSTR*>(nullptr), VARIANT{});
    EXPECT_EQ(byObjects.reached, "ByObjects");

    struct ByIds final : StandIn<IPropertyDialogByIds> {
        STDMETHODIMP ShowDialog(BSTR*, KvArray<KvDbObjectId>*) override { return Reached("ByIds"); }
    } byIds;
    CallSlot(&byIds, 3, static_cast<BSTR*>(nullptr), static_cast<KvArray<KvDbObjectId>*>(nullptr));
    EXPECT_EQ(byIds.reached, "ByIds");
}

TEST(InterfaceSlots, DynamicPropertyEnum) {
    struct Values final : StandIn<IDynamicPropertyEnum> {
        STDMETHODIMP GetValueCount(long*) override { return Reached("Count"); }
        STDMETHODIMP GetValueName(long, BSTR*) override { return Reached("Name"); }
        STDMETHODIMP GetValueData(long, VARIANT*) override { return Reached("Data"); }
    } values;
    CallSlot(&values, 3, static_cast<long*>(nullptr));
    EXPECT_EQ(values.reached, "Count");
    CallSlot(&values, 4, 1L, static_cast<BSTR*>(nullptr));
    EXPECT_EQ(values.reached, "Name");
    CallSlot(&values, 5, 1L, static_cast<VARIANT*>(nullptr));
    EXPECT_EQ(values.reached, "Data");
}

TEST(InterfaceSlots, NamesOfListRows_AreNoInterfacesOfTheirOwn) {
    static_assert(std::is_same_v<IPropertyElementAccessOld, IPropertyElementAccess>);
    static_assert(std::is_same_v<IDynamicPropertyNames, IDynamicProperty>);
    static_assert(std::is_same_v<IKvBaseObject, IDatabaseObjectIdentity>);
}

TEST(InterfaceSlots, ElementAccess) {
    struct Access final : StandIn<IPropertyElementAccess> {
        STDMETHODIMP GetElementValue(long, unsigned, VARIANT*) override { return Reached("Get"); }
        STDMETHODIMP SetElementValue(long, unsigned, VARIANT) override { return Reached("Set"); }
        STDMETHODIMP GetGroupSize(long, unsigned*) override { return Reached("Size"); }
        STDMETHODIMP GetGroupCount(long, long*) override { return Reached("Count"); }
    } access;
    ExpectReserved(&access, {5});
    CallSlot(&access, 3, 1L, 2U, static_cast<VARIANT*>(nullptr));
    EXPECT_EQ(access.reached, "Get");
    CallSlot(&access, 4, 1L, 2U, VARIANT{});
    EXPECT_EQ(access.reached, "Set");
    CallSlot(&access, 6, 1L, static_cast<unsigned*>(nullptr));
    EXPECT_EQ(access.reached, "Size");
    CallSlot(&access, 7, 1L, static_cast<long*>(nullptr));
    EXPECT_EQ(access.reached, "Count");
}

TEST(InterfaceSlots, ElementAccessWithObject) {
    struct Access final : StandIn<IPropertyElementAccess2> {
        STDMETHODIMP GetElementValue(long, IDispatch*, unsigned, VARIANT*) override { return Reached("Get"); }
        STDMETHODIMP SetElementValue(long, IDispatch*, unsigned, VARIANT) override { return Reached("Set"); }
        STDMETHODIMP GetGroupSize(long, IDispatch*, unsigned*) override { return Reached("Size"); }
        STDMETHODIMP GetGroupCount(long, IDispatch*, long*) override { return Reached("Count"); }
    } access;
    auto* const object = static_cast<IDispatch*>(nullptr);
    ExpectReserved(&access, {5});
    CallSlot(&access, 3, 1L, object, 2U, static_cast<VARIANT*>(nullptr));
    EXPECT_EQ(access.reached, "Get");
    CallSlot(&access, 4, 1L, object, 2U, VARIANT{});
    EXPECT_EQ(access.reached, "Set");
    CallSlot(&access, 6, 1L, object, static_cast<unsigned*>(nullptr));
    EXPECT_EQ(access.reached, "Size");
    CallSlot(&access, 7, 1L, object, static_cast<long*>(nullptr));
    EXPECT_EQ(access.reached, "Count");
}

// And by their ids.
TEST(InterfaceIds, AreThoseThatOtherModulesKnow) {
    const std::pair<IID, std::wstring_view> rows[] = {
        {__uuidof(IPropertyUnspecifiedSupport), L"{63ECCF04-51B1-4FE1-972C-9EFD420ADEF4}"},
        {__uuidof(IPropertyExpressionSupport), L"{214D0B04-B4BF-4D7C-A2B8-364E945EF311}"},
        {__uuidof(IPropertyEditability), L"{1236EAA4-7715-11D1-A2DA-0060B06B2D46}"},
        {__uuidof(IDynamicProperty), L"{8B384028-ACA9-11D1-A2B4-080009DC639A}"},
        {__uuidof(IDynamicPropertyByObject), L"{9CAF41C2-CA86-4FFB-B05A-AC43C424D076}"},
        {__uuidof(IDatabaseObjectIdentity), L"{5F3C54C0-49E1-11CF-93D5-0800099EB3B7}"},
        {__uuidof(ITransientObjectIdentity), L"{B374D885-EECE-4138-8C82-3FB20C538788}"},
        {__uuidof(IGraphicalObjectUpdate), L"{2122AAFA-E832-4CFC-B50D-02C87486AEB9}"},
        {__uuidof(IDynamicPropertyDialog), L"{8B384028-ACB2-11D1-A2B4-080009DC639A}"},
        {__uuidof(IHostApplication), L"{070AA05D-DFC1-4E64-8379-432269B48B07}"},
        {__uuidof(IPropertyDialogByObjects), L"{9F82F13D-C850-444A-980C-B5EDC6679F4A}"},
        {__uuidof(IPropertyDialogByIds), L"{8B384029-ACB0-11D1-A2B4-080009DC639A}"},
        {__uuidof(IDynamicPropertyEnum), L"{8B384028-ACB1-11D1-A2B4-080009DC639A}"},
        {__uuidof(IPropertyElementAccess), L"{5D535710-D49A-11D1-B616-0060B087E235}"},
        {__uuidof(IPropertyElementAccess2), L"{D0F45FEB-71D5-44EA-B1A0-6E2F27B2085D}"},
    };
    for (const auto& [id, published] : rows) {
        std::array<wchar_t, 40> text{};
        ::StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
        EXPECT_EQ(std::wstring_view(text.data()), published);
    }
}

// The host's own classes are reached by position too.
template <class Result, class... Arguments>
Result CallClassSlot(void* object, std::size_t slot, Arguments... arguments) {
    using Operation = Result (*)(void*, Arguments...);
    void** const table = *static_cast<void***>(object);
    return reinterpret_cast<Operation>(table[slot])(object, arguments...);
}

TEST(ClassSlots, UndoController) {
    struct Controller final : KvDbUndoController {
        std::string reached;
        Tolm::ErrorStatus undo(int count) override {
            reached = "undo " + std::to_string(count);
            return Tolm::eOk;
        }
        Tolm::ErrorStatus undoGroup(int code, const wchar_t*) override {
            reached = "undoGroup " + std::to_string(code);
            return Tolm::eOk;
        }
    } controller;
    EXPECT_EQ(CallClassSlot<Tolm::ErrorStatus>(&controller, 5, 1), Tolm::eOk);
    EXPECT_EQ(controller.reached, "undo 1");
    EXPECT_EQ(CallClassSlot<Tolm::ErrorStatus>(&controller, 9, 8, L"text"), Tolm::eOk);
    EXPECT_EQ(controller.reached, "undoGroup 8");
}

TEST(ClassSlots, DocumentAndManager) {
    struct Document final : KvApDocument {
        KvDbDatabase* drawing = nullptr;
        KvDbDatabase* database() const override { return drawing; }
        bool isQuiescent() const override { return true; }
        bool allowsLivePreview() const override { return previews; }
        bool previews = true;
    } document;
    int somewhere = 0;
    document.drawing = reinterpret_cast<KvDbDatabase*>(&somewhere);
    EXPECT_EQ(CallClassSlot<void*>(&document, 10), &somewhere);
    EXPECT_TRUE(CallClassSlot<bool>(&document, 14));
    EXPECT_TRUE(CallClassSlot<bool>(&document, 15));
    document.previews = false;
    EXPECT_FALSE(CallClassSlot<bool>(&document, 15));

    struct Manager final : KvApDocManager {
        KvApDocument* current = nullptr;
        KvApDocument* curDocument() const override { return current; }
    } manager;
    manager.current = &document;
    EXPECT_EQ(CallClassSlot<KvApDocument*>(&manager, 7), &document);
}

TEST(ClassSlots, DictionaryAndDynamicLinker) {
    struct Linker final : KvRxDynamicLinker {
        std::string reached;
        KvRxClass* isA() const override { return KvRxDynamicLinker::desc(); }
        bool unlockApplication(void*) override {
            reached = "unlockApplication";
            return true;
        }
        bool registerAppMDIAware(void*) override {
            reached = "registerAppMDIAware";
            return true;
        }
    } linker;
    EXPECT_TRUE(CallClassSlot<bool>(&linker, 19, static_cast<void*>(nullptr)));
    EXPECT_EQ(linker.reached, "unlockApplication");
    EXPECT_TRUE(CallClassSlot<bool>(&linker, 21, static_cast<void*>(nullptr)));
    EXPECT_EQ(linker.reached, "registerAppMDIAware");

    struct Dictionary final : KvRxDictionary {
        KvRxObject* entry = nullptr;
        KvRxClass* isA() const override { return KvRxObject::desc(); }
        KvRxObject* at(const wchar_t*) const override { return entry; }
    } dictionary;
    dictionary.entry = &linker;
    EXPECT_EQ(CallClassSlot<KvRxObject*>(&dictionary, 8, L"DynamicLinker"), &linker);
}

}  // namespace
