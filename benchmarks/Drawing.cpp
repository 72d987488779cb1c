#include "benchmarks/Drawing.h"

#include "core/DispatchIds.h"
#include "refhost/automation/PropertyRows.h"
#include "refhost/db/Database.h"
#include "refhost/db/Text.h"
#include "refhost/db/UndoController.h"
#include "refhost/editor/DocumentManager.h"

namespace kvbench {
namespace {

constexpr const wchar_t* c_label = L"Label";

std::unique_ptr<kvhost::Text> MakeText(double height) {
    auto text = std::make_unique<kvhost::Text>();
    Require(text->SetContent(L"shared content") == Tolm::eOk && text->SetHeight(height) == Tolm::eOk &&
                text->SetRotation(Drawing::c_rotation) == Tolm::eOk &&
                text->SetCustomAttribute(c_label, L"shared label") == Tolm::eOk,
            "a text takes its values");
    return text;
}

long IdOfName(IDispatch& object, const wchar_t* name) {
    LPOLESTR text = const_cast<LPOLESTR>(name);
    DISPID dispid = DISPID_UNKNOWN;
    Require(object.GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &dispid) == S_OK,
            "a text has the property");
    return dispid;
}

fw::ComPtr<IUnknown> FindLabel(KvDbObjectId id) {
    for (const kvhost::PropertyRow& row : kvhost::RowsOf(std::span(&id, 1))) {
        if (row.name == c_label) {
            return row.entries[0].dynamicProperty;
        }
    }
    throw std::runtime_error("the label has a row");
}

// The elements are copied, with references of their own.
template <class Element>
fw::Variant MakeArray(VARTYPE type, int count, Element elementAt) {
    SAFEARRAYBOUND bound{static_cast<ULONG>(count), 0};
    SAFEARRAY* const array = ::SafeArrayCreate(type, 1, &bound);
    Require(array != nullptr, "there is memory for an array");
    for (LONG index = 0; index < count; ++index) {
        Require(::SafeArrayPutElement(array, &index, elementAt(index)) == S_OK, "an array takes an element");
    }
    return fw::Variant::FromArray(type, array);
}

}  // namespace

Drawing::Drawing(int count) : m_document(m_host->Documents().New()) {
    std::vector<KvDbObjectId> ids(static_cast<std::size_t>(count));
    m_objects.resize(ids.size());
    for (std::size_t index = 0; index < ids.size(); ++index) {
        Require(m_document.GetDatabase().AppendEntity(MakeText(index == 1 ? 2 : 1), ids[index]) == Tolm::eOk,
                "the drawing takes a text");
        Require(kvhost::GetAutomationObject(ids[index], m_objects[index].Put()) == S_OK,
                "a text has an automation object");
    }
    m_contentId = IdOfName(*m_objects[0], L"TextString");
    m_heightId = IdOfName(*m_objects[0], L"Height");
    m_rotationId = IdOfName(*m_objects[0], L"Rotation");
    m_label = FindLabel(ids[0]);
    ForgetUndo();
}

Drawing::~Drawing() = default;

void Drawing::Select(CKvPeCtrlBase& control, int count, long dispid) const {
    long dispidElement = dispid;
    fw::Variant objects = MakeArray(VT_DISPATCH, count, [&](LONG index) {
        return static_cast<void*>(m_objects[static_cast<std::size_t>(index)].Get());
    });
    fw::Variant dynamicProperties = MakeArray(VT_UNKNOWN, count, [&](LONG) {
        return static_cast<void*>(dispid == DISPID_DYNAMIC ? m_label.Get() : nullptr);
    });
    fw::Variant dispids = MakeArray(VT_I4, count, [&](LONG) { return static_cast<void*>(&dispidElement); });
    Require(control.Handle_InitEditControl(objects.Address(), dynamicProperties.Address(), dispids.Address(),
                                           VARIANT_FALSE) == S_OK,
            "a control takes the selection");
}

void Drawing::ForgetUndo() {
    m_document.GetDatabase().Undo().Clear();
}

}  // namespace kvbench
