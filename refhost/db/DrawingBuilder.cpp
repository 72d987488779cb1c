#include "refhost/db/DrawingBuilder.h"

#include <utility>

#include "refhost/db/Layer.h"
#include "refhost/db/ObjectState.h"
#include "refhost/db/ObjectStore.h"
#include "refhost/db/RecordReader.h"

namespace kvhost {

namespace {

constexpr std::size_t c_longestHandle =
    15;  // Digits: the last handles are kept free, so that there is a next one.

}  // namespace

DrawingBuilder::DrawingBuilder() : m_database(std::make_unique<Database>()) {
}
DrawingBuilder::~DrawingBuilder() = default;

Object& DrawingBuilder::At(KvDbObjectId id) {
    return *ObjectStore::ObjectOf(id);
}

std::uint64_t DrawingBuilder::HandleOf(std::wstring_view text) {
    if (text.empty() || text.size() > c_longestHandle || text.front() == L'0') {
        return 0;
    }
    std::uint64_t handle = 0;
    for (const wchar_t digit : text) {
        if (digit >= L'0' && digit <= L'9') {
            handle = handle * 16 + static_cast<std::uint64_t>(digit - L'0');
        } else if (digit >= L'A' && digit <= L'F') {
            handle = handle * 16 + static_cast<std::uint64_t>(digit - L'A' + 10);
        } else {
            return 0;
        }
    }
    return handle;
}

std::wstring DrawingBuilder::Add(std::unique_ptr<Object> object, std::uint64_t handle, KvDbObjectId owner,
                                 KvDbObjectId& id) {
    std::wstring complaint = object->Complaint();
    if (!complaint.empty()) {
        return complaint;
    }
    const Layer* const layer = dynamic_cast<const Layer*>(object.get());
    if (layer != nullptr && layer->Name() == L"0") {
        if (owner != m_database->LayerTableId()) {
            return L"it can't be here";
        }
        // It stands in the drawing from the start, so that the drawing itself would take it again and again.
        if (std::exchange(m_hasLayerZero, true)) {
            return L"name: another object has it";
        }
        if (handle != 0 && handle != c_firstHandle) {
            return L"handle: that of layer \"0\" is " + HandleText(c_firstHandle);
        }
        id = m_database->IdOf(c_firstHandle);
        const std::string state = StateOf(*object);
        RecordReader reader(FieldsOfState(state), *m_database);
        At(id).VisitAllFields(reader);
        return {};
    }
    if (handle == 0) {
        handle = m_database->m_store->NextHandle();
    } else if (handle < c_firstHandle || !m_database->IdOf(handle).isNull()) {
        return L"handle: " + HandleText(handle) + L" is taken";
    }
    const Tolm::ErrorStatus status = m_database->CheckAppend(*object, owner);
    if (status != Tolm::eOk) {
        return status == Tolm::eDuplicateKey ? L"name: another object has it" : L"it can't be here";
    }
    id = KvDbObjectId(m_database->m_store->Add(std::move(object), handle, owner.stub()));
    return {};
}

std::unique_ptr<Database> DrawingBuilder::Finish() {
    return std::move(m_database);
}

std::wstring HandleText(std::uint64_t handle) {
    std::wstring text;
    do {
        text.insert(text.begin(), L"0123456789ABCDEF"[handle % 16]);
        handle /= 16;
    } while (handle != 0);
    return text;
}

}  // namespace kvhost
