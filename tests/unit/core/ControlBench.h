#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/CIPropEditUIEvents.h"
#include "core/CKvPeBasePrivate.h"
#include "core/CKvPeCtrlBase.h"
#include "core/CKvPeFamilyRole.h"
#include "core/DispatchIds.h"
#include "framework/com/Variant.h"
#include "refhost/editor/DocumentManager.h"
#include "refhost/editor/EditorState.h"
#include "refhost/editor/HostSession.h"
#include "refhost/testing/ScriptedDynamicProperty.h"
#include "refhost/testing/ScriptedObject.h"
#include "tests/support/ExpectCalls.h"
#include "tests/support/FakeIdentifier.h"
#include "tests/support/JournalNote.h"
#include "tests/support/SelectionArrays.h"

namespace kvtest {

/// A shell without a component: events are noted as "OnBeginPropertyUpdate" and may act.
class BenchShell final : public CIPropEditUIEvents, public CKvPeBasePrivate {
public:
    HWND window = nullptr;
    IOleInPlaceSite* site = nullptr;
    std::function<void(const std::wstring& event)> onEvent;
    HRESULT sinkResult = S_OK;

    HRESULT FireKeyDownEvent(UINT_PTR key, LONG_PTR keyData) override {
        return Tell(L"OnKeyDown", key, keyData);
    }
    HRESULT FireKeyUpEvent(UINT_PTR key, LONG_PTR keyData) override { return Tell(L"OnKeyUp", key, keyData); }
    HRESULT FireRButtonDownEvent(UINT_PTR keys, LONG_PTR point) override {
        return Tell(L"OnRButtonDown", keys, point);
    }
    HRESULT FireMButtonDownEvent(UINT_PTR keys, LONG_PTR point) override {
        return Tell(L"OnMButtonDown", keys, point);
    }
    HRESULT FireBeginPropertyUpdateEvent() override { return Tell(L"OnBeginPropertyUpdate"); }
    HRESULT FireEndPropertyUpdateEvent() override { return Tell(L"OnEndPropertyUpdate"); }
    HRESULT FireClickEvent() override { return Tell(L"OnClick"); }
    HRESULT FireBeginModalEvent(UINT code) override { return Tell(L"OnBeginModal", code); }
    HRESULT FireEndModalEvent(UINT code) override { return Tell(L"OnEndModal", code); }

    HWND* GetControlWindowPtr() override { return &window; }
    IOleInPlaceSite* GetInPlaceSite() override { return site; }

private:
    template <class... Arguments>
    HRESULT Tell(const wchar_t* event, const Arguments&... arguments) {
        Note(event, arguments...);
        if (onEvent) {
            onEvent(event);
        }
        return sinkResult;
    }
};

/// The control base with its fields open.
class OpenControl : public CKvPeCtrlBase {
public:
    using CKvPeCtrlBase::CKvPeCtrlBase;
    using CKvPeCtrlBase::EntryCount;
    using CKvPeCtrlBase::m_allowUnspecified;
    using CKvPeCtrlBase::m_backBrush;
    using CKvPeCtrlBase::m_changeNotified;
    using CKvPeCtrlBase::m_dispids;
    using CKvPeCtrlBase::m_dynamicProperties;
    using CKvPeCtrlBase::m_editBoxReadOnly;
    using CKvPeCtrlBase::m_expression;
    using CKvPeCtrlBase::m_expressionState;
    using CKvPeCtrlBase::m_failedObjectCount;
    using CKvPeCtrlBase::m_highlightedPaths;
    using CKvPeCtrlBase::m_initialReadOnly;
    using CKvPeCtrlBase::m_keepEditOnHide;
    using CKvPeCtrlBase::m_objectCount;
    using CKvPeCtrlBase::m_objects;
    using CKvPeCtrlBase::m_readOnly;
    using CKvPeCtrlBase::m_readOnlyBackBrush;
    using CKvPeCtrlBase::m_state;
    using CKvPeCtrlBase::m_textTip;
    using CKvPeCtrlBase::m_unspecifiedText;
    using CKvPeCtrlBase::SetFamilyRole;
    using CKvPeCtrlBase::SetTextTipOwner;
    using CKvPeCtrlBase::undoSSRetain;
    using CKvPeCtrlBase::UpdateExpressionSupportState;

    /// Notes the comparison and the hooks of a write when set.
    bool notesHooks = false;

    HRESULT ComparePropertyValue(VARIANT* first, VARIANT* second, int& result) override {
        ++comparisons;
        return CKvPeCtrlBase::ComparePropertyValue(first, second, result);
    }
    HRESULT PreSetPropertyValue(IDispatch* object, long dispid) override {
        if (notesHooks) {
            Note(L"PreSet", kvhost::ScriptedObject::NameOf(object), dispid);
        }
        if (preSetThrows) {
            throw 1;
        }
        return preSetResult;
    }

    int comparisons = 0;
    HRESULT preSetResult = S_OK;
    bool preSetThrows = false;
};

/// Shows no message box: notes it as "MessageBox owner text flags".
class MessageBoxWatch {
public:
    MessageBoxWatch();
    MessageBoxWatch(const MessageBoxWatch&) = delete;
    MessageBoxWatch& operator=(const MessageBoxWatch&) = delete;
    ~MessageBoxWatch();

private:
    int (*m_former)(HWND owner, const wchar_t* text, const wchar_t* caption, UINT flags);
};

/// A control over scripted objects, in a host with one drawing. The journal starts empty in each test.
class ControlTest : public ::testing::Test {
protected:
    ControlTest();
    ~ControlTest() override;

    /// A new scripted object named by its letter, with `text` as the property's value.
    kvhost::ScriptedObject& MakeObject(const wchar_t* name, const wchar_t* text = L"same",
                                       unsigned interfaces = 0);
    kvhost::ScriptedDynamicProperty& MakeProperty(const wchar_t* name, unsigned interfaces);
    /// A text entity of the drawing; its id is also given to `object` when that is not null.
    KvDbObjectId MakeEntity(kvhost::ScriptedObject* object = nullptr);
    void LockLayerOf(KvDbObjectId entity);
    void LockCurrentLayer() { LockLayerOf({}); }

    /// Hands the arrays over and clears the journal.
    void Select(const SelectionArrays& arrays, VARIANT_BOOL readOnly = VARIANT_FALSE);
    /// Reads; the outcome is in `value` and `type`.
    HRESULT Read();
    HRESULT WriteText(const wchar_t* text, ValueType valueType = ValueType_Specific);
    [[nodiscard]] std::wstring ValueText() const { return std::wstring(value.StringView()); }

    kvhost::Database& Drawing() { return document->GetDatabase(); }

    kvhost::HostSession host;
    kvhost::Document* document = nullptr;
    MessageBoxWatch messageBoxes;
    std::vector<fw::ComPtr<kvhost::ScriptedObject>> objects;
    std::vector<fw::ComPtr<kvhost::ScriptedDynamicProperty>> properties;
    BenchShell shell;
    OpenControl control{&shell, &shell};
    fw::Variant value;
    ValueType type = ValueType_Expression;
    kvhost::Journal journal;
};

/// The journal's lines without those of looking for the document and the writability of objects.
[[nodiscard]] CallLines EditCalls(const kvhost::Journal& journal);

}  // namespace kvtest
