#include "benchmarks/Drawing.h"
#include "benchmarks/Workloads.h"
#include "core/ModelessMarks.h"
#include "core/ModuleTexts.h"
#include "host_sdk/IDatabaseObjectIdentity.h"
#include "host_sdk/IGraphicalObjectUpdate.h"
#include "host_sdk/KvApDocument.h"
#include "host_sdk/KvDbAssoc.h"
#include "host_sdk/KvDbDatabase.h"
#include "host_sdk/KvDbEntity.h"
#include "host_sdk/KvDbGlobals.h"
#include "host_sdk/KvDbLayerTableRecord.h"
#include "host_sdk/KvDbUndoController.h"
#include "host_sdk/KvEdServices.h"

// The floor: the host calls of a write with what they oblige their caller to (close, release), nothing else.
namespace kvbench {
namespace {

void RequireWritable(IDispatch* object) {
    fw::ComPtr<IDatabaseObjectIdentity> identity;
    KvDbObjectId id;
    Require(object->QueryInterface(__uuidof(IDatabaseObjectIdentity), identity.PutVoid()) == S_OK &&
                identity->GetObjectId(&id) == S_OK,
            "an object has an id");
    KvDbEntity* entity = nullptr;
    Require(kvdbOpenKvDbEntity(entity, id, KvDb::kForRead) == Tolm::eOk, "an entity opens");
    KvDbObject* layer = nullptr;
    Require(kvdbOpenKvDbObject(layer, entity->layerId(), KvDb::kForRead) == Tolm::eOk, "a layer opens");
    const auto* const record = kvrxCast<KvDbLayerTableRecord>(layer);
    Require(record != nullptr && !record->isLocked(), "a layer is not locked");
    fw::Ignore(layer->close());
    const KvDbGlobals* const globals = kvdbWorkingGlobals();
    Require(globals != nullptr && globals->workingSetOwner == nullptr, "no block is edited in place");
    Require(KvDbAssocArrayEditTransaction::getActiveTransaction() == nullptr, "no array is edited");
    fw::Ignore(entity->close());
}

void WriteObject(IDispatch* object, long dispid, VARIANT& value) {
    RequireWritable(object);
    kvedDisableUsrbrk();
    DISPID putName = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{&value, &putName, 1, 1};
    EXCEPINFO exception{};
    Require(object->Invoke(dispid, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &parameters, nullptr,
                           &exception, nullptr) == S_OK,
            "an object takes the value");
    fw::ComPtr<IGraphicalObjectUpdate> shown;
    Require(object->QueryInterface(__uuidof(IGraphicalObjectUpdate), shown.PutVoid()) == S_OK &&
                shown->Update() == S_OK,
            "an object is redrawn");
    kvedEnableUsrbrk();
}

KvDbDatabase* CurrentDatabase() {
    return kvDocManagerPtr()->curDocument()->database();
}

void WriteDirectly(const Drawing& drawing, int count, VARIANT& value) {
    Require(!kvedIsDragging() && !kvedIsLivePreviewStarted() &&
                !kvedIsInCommandStack(KVED_COMMAND_WRITES_PROPERTIES),
            "the editor is idle");
    Require(CurrentDatabase() != nullptr && !kvedIsLivePreviewStarted(), "a drawing is open");
    kvedSendModelessOperationStart(KVPE_MARK_CHANGE_PROPERTY);
    fw::Ignore(
        CurrentDatabase()->undoController()->undoGroup(KVDB_UNDO_GROUP_BEGIN, UndoPropertyChangeText()));
    for (int index = 0; index < count; ++index) {
        WriteObject(drawing.Objects()[static_cast<std::size_t>(index)].Get(), drawing.ContentId(), value);
    }
    Require(!kvedIsLivePreviewStarted(), "no preview has begun");
    KvApDocument* const document = kvDocManagerPtr()->curDocument();
    fw::Ignore(document->database()->undoController()->undoGroup(KVDB_UNDO_GROUP_END, nullptr));
    kvedSendModelessOperationEnded(KVPE_MARK_CHANGE_PROPERTY);
    KvDbAssocManager::enableProgressMeter(false, KvString());
    if (document->isQuiescent()) {
        kvedPostCommandPrompt();
    }
}

class WrittenTexts {
public:
    // By turns, so that every write changes the objects.
    VARIANT& Next() {
        m_odd = !m_odd;
        return *(m_odd ? m_first : m_second).Address();
    }

private:
    fw::Variant m_first = fw::Variant::FromString(L"first content");
    fw::Variant m_second = fw::Variant::FromString(L"other content");
    bool m_odd = false;
};

}  // namespace

void MeasureWrites(Drawing& drawing, std::span<const int> sizes, std::vector<Figure>& figures) {
    constexpr const char* c_name = "write";
    for (const int size : sizes) {
        CKvPeCtrlBase control(nullptr, nullptr);
        drawing.Select(control, size, drawing.ContentId());
        WrittenTexts texts;
        const auto writeValue = [&](VARIANT& value) {
            Require(control.SetPropertyValue(&value, ValueType_Specific) == S_OK,
                    "the row writes its objects");
        };
        const auto write = [&] { writeValue(texts.Next()); };
        const auto writeDirectly = [&] { WriteDirectly(drawing, size, texts.Next()); };
        if (size <= 100) {
            // Not by turns here: the journals tell the values, too.
            VARIANT& value = texts.Next();
            RequireSameCalls([&] { writeValue(value); }, [&] { WriteDirectly(drawing, size, value); },
                             c_name);
        }
        figures.push_back(Measure(c_name, size, write, writeDirectly, [&] { drawing.ForgetUndo(); }));
    }
    drawing.ForgetUndo();
}

}  // namespace kvbench
