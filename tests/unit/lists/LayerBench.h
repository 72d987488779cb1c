#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "core/EditState.h"
#include "families/CKvPeComboTempl.h"
#include "lists/CComboLayer.h"
#include "lists/COwnerDrawItemLayer.h"
#include "lists/CPropertyEditorLayer.h"
#include "refhost/db/Layer.h"
#include "refhost/db/ScopedOpen.h"
#include "refhost/editor/EditorState.h"
#include "refhost/testing/ScriptedObject.h"
#include "tests/support/ExpectCalls.h"
#include "tests/support/ShellBench.h"

namespace kvtest {

/// The layer row with its fields open.
class LayerRow : public CPropertyEditorLayer {
public:
    using CPropertyEditorLayer::CPropertyEditorLayer;
    using CPropertyEditorLayer::m_allowUnspecified;
    using CPropertyEditorLayer::m_bCancelled;
    using CPropertyEditorLayer::m_bNeedsActiveDatabase;
    using CPropertyEditorLayer::m_nCurItem;
    using CPropertyEditorLayer::m_nPreviewItem;
    using CPropertyEditorLayer::m_pComboList;
    using CPropertyEditorLayer::m_state;
    using CPropertyEditorLayer::m_strText;
    using CPropertyEditorLayer::m_tableId;
    using CPropertyEditorLayer::m_unspecifiedText;
};

}  // namespace kvtest

/// The tests' row has no place in the class table.
template <>
struct KvPeClassIdOf<kvtest::LayerRow> {
    static const CLSID& Get() noexcept { return CLSID_KvPePropertyEditorLayer; }
};

namespace kvtest {

class LayerShell : public CKvPeComboTempl<LayerRow> {
public:
    LayerRow& Row() { return *Logic(); }
};

/// A layer row in a palette, over entities of a drawing with the layers "0", "Doors", "Trees" and "Walls".
/// Host calls and events stand in one journal.
class LayerBench : public ShellBench<LayerShell> {
protected:
    LayerBench();
    ~LayerBench() override;

    /// A text entity on that layer.
    KvDbObjectId AddEntity(const wchar_t* layer);
    /// Hands the entities to the row and forgets what that led to.
    HRESULT Select(const std::vector<KvDbObjectId>& entities);
    HRESULT SelectObjects(const std::vector<IDispatch*>& selection, DISPID property);

    LayerRow& Row() { return shell->Row(); }
    CComboLayer& List() { return *static_cast<CComboLayer*>(Row().m_pComboList); }
    [[nodiscard]] std::vector<std::wstring> Entries();
    [[nodiscard]] int IndexOf(const wchar_t* name) { return List().FindItem(name); }
    COwnerDrawItemLayer& Item(const wchar_t* name);
    [[nodiscard]] std::wstring LayerOf(KvDbObjectId entity) const;

    template <class Change>
    void ChangeLayer(const wchar_t* name, const Change& change) {
        const kvhost::ScopedOpen<kvhost::Layer> layer(Drawing().LayerNamed(name), KvDb::kForWrite);
        ASSERT_TRUE(static_cast<bool>(layer));
        change(*layer);
    }
    void Freeze(const wchar_t* name) {
        ChangeLayer(name, [](kvhost::Layer& layer) { layer.SetFrozen(true); });
    }

    /// As the list says by WM_COMMAND.
    LRESULT Notify(int code);
    /// Chooses as a click on the entry of the open list does.
    void Choose(const wchar_t* name);
    void Cancel();
    /// The mouse over an entry of the open list; -1 is off it. The host runs what is queued.
    void Hover(int entry);

    kvhost::Database& Drawing() const { return document->GetDatabase(); }

    fw::ComPtr<IFont> font;
};

}  // namespace kvtest
