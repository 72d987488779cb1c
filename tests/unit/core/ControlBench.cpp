#include "tests/unit/core/ControlBench.h"

#include "core/Satellite.h"
#include "framework/base/MessageBox.h"
#include "refhost/db/Layer.h"
#include "refhost/db/ScopedOpen.h"
#include "refhost/db/Text.h"
#include "tests/support/LeakCheck.h"
#include "tests/support/WarmUp.h"

namespace kvtest {

namespace {

const LeakCounter s_objects("scripted objects", kvhost::ScriptedObject::LiveCount);
const LeakCounter s_properties("scripted dynamic properties", kvhost::ScriptedDynamicProperty::LiveCount);
const LeakCounter s_identifiers("identifiers", FakeIdentifier::LiveCount);
// Loaded once, as the module does at its attach.
const WarmUpStep s_satellite([] { EXPECT_TRUE(LoadKvPeSatellite(::GetModuleHandleW(nullptr))); });

int NoteMessageBox(HWND owner, const wchar_t* text, const wchar_t* caption, UINT flags) {
    EXPECT_EQ(caption, nullptr);
    Note(L"MessageBox", std::wstring(owner != nullptr ? L"owned" : L"ownerless"), text, flags);
    return IDOK;
}

}  // namespace

MessageBoxWatch::MessageBoxWatch() : m_former(fw::SetMessageBoxHook(&NoteMessageBox)) {
}

MessageBoxWatch::~MessageBoxWatch() {
    fw::SetMessageBoxHook(m_former);
}

ControlTest::ControlTest() {
    document = &host->Documents().New();
    journal.Clear();
}

ControlTest::~ControlTest() = default;

kvhost::ScriptedObject& ControlTest::MakeObject(const wchar_t* name, const wchar_t* text,
                                                unsigned interfaces) {
    objects.push_back(kvhost::ScriptedObject::Make(name, interfaces));
    objects.back()->At(c_property).Set(text);
    return *objects.back();
}

kvhost::ScriptedDynamicProperty& ControlTest::MakeProperty(const wchar_t* name, unsigned interfaces) {
    properties.push_back(kvhost::ScriptedDynamicProperty::Make(name, interfaces));
    properties.back()->shared.Set(L"same");
    return *properties.back();
}

KvDbObjectId ControlTest::MakeEntity(kvhost::ScriptedObject* object) {
    KvDbObjectId id;
    EXPECT_EQ(Drawing().AppendEntity(std::make_unique<kvhost::Text>(), id), Tolm::eOk);
    if (object != nullptr) {
        object->objectId = id;
        object->interfaces |= kvhost::OffersIdentity;
    }
    journal.Clear();
    return id;
}

void ControlTest::LockLayerOf(KvDbObjectId entity) {
    KvDbObjectId layer;
    const std::wstring name = L"locked" + std::to_wstring(entity.handle());
    ASSERT_EQ(Drawing().AddLayer(name, layer), Tolm::eOk);
    {
        const kvhost::ScopedOpen<kvhost::Layer> opened(layer, KvDb::kForWrite);
        ASSERT_EQ(opened->SetLocked(true), Tolm::eOk);
    }
    const kvhost::ScopedOpen<kvhost::Text> opened(entity, KvDb::kForWrite);
    ASSERT_EQ(opened->SetLayerId(layer), Tolm::eOk);
    journal.Clear();
}

void ControlTest::Select(const SelectionArrays& arrays, VARIANT_BOOL readOnly) {
    EXPECT_EQ(arrays.Init(control, readOnly), S_OK);
    journal.Clear();
}

HRESULT ControlTest::Read() {
    return control.GetPropertyValue(value.Put(), type);
}

HRESULT ControlTest::WriteText(const wchar_t* text, ValueType valueType) {
    fw::Variant written = fw::Variant::FromString(text);
    return control.SetPropertyValue(written.Address(), valueType);
}

CallLines EditCalls(const kvhost::Journal& journal) {
    return CallsIgnoring(journal, {"kvDocManagerPtr", "curDocument", "database", "undoController",
                                   "GetObjectId", "GetFullSubentPath", "kvdb", "isLocked", "close",
                                   "getActiveTransaction", "kvedIs", "isQuiescent"});
}

}  // namespace kvtest
