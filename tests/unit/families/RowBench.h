#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "core/CIPropEditUIEvents.h"
#include "core/CKvPeBasePrivate.h"
#include "core/EditState.h"
#include "core/PrivateMessages.h"
#include "families/CKvPeEditBase.h"
#include "framework/base/DeviceContexts.h"
#include "framework/com/Variant.h"
#include "framework/window/CWnd.h"
#include "tests/support/ExpectCalls.h"
#include "tests/support/JournalNote.h"
#include "tests/support/MessagePump.h"
#include "tests/support/RowFont.h"

namespace kvtest {

/// What the row's property gives and takes.
struct RowScript {
    fw::Variant value = fw::Variant::FromString(L"alpha");
    ValueType type = ValueType_Specific;
    HRESULT readResult = S_OK;
    HRESULT writeResult = S_OK;
    std::function<void()> onWrite;
};

/// A row whose reads and writes are scripted and noted as "read" and "write type text", with its fields open.
template <class Row>
class TestRow : public Row {
public:
    using Row::m_allowUnspecified;
    using Row::m_changeNotified;
    using Row::m_childWindow;
    using Row::m_edit;
    using Row::m_editBoxReadOnly;
    using Row::m_keepEditOnHide;
    using Row::m_readOnly;
    using Row::m_state;
    using Row::m_text;
    using Row::m_textTip;
    using Row::m_unspecifiedText;
    using Row::PresetNumber;
    using Row::PresetText;
    using Row::Row;

    RowScript script;

    HRESULT GetPropertyValue(VARIANT* value, ValueType& type) override {
        Note(L"read");
        type = script.type;
        RETURN_IF_FAILED_EXPECTED(script.readResult);
        return script.value.CopyTo(value);
    }
    HRESULT SetPropertyValue(VARIANT* value, ValueType type) override {
        Note(L"write", type, std::wstring(fw::Variant::ViewString(*value)));
        if (script.onWrite) {
            script.onWrite();
        }
        RETURN_IF_FAILED_EXPECTED(script.writeResult);
        return script.value.CopyFrom(*value);
    }
};

/// A shell without a component: a window for the row, and its events noted as "KeyDown 13 1".
class BenchShell : public CIPropEditUIEvents, public CKvPeBasePrivate {
public:
    HWND window = nullptr;
    bool hasWindowObject = true;
    std::function<void(const std::wstring& event)> onEvent;

    HRESULT FireKeyDownEvent(UINT_PTR key, LONG_PTR keyData) override {
        return Tell(L"KeyDown", key, keyData);
    }
    HRESULT FireKeyUpEvent(UINT_PTR key, LONG_PTR keyData) override { return Tell(L"KeyUp", key, keyData); }
    HRESULT FireRButtonDownEvent(UINT_PTR keys, LONG_PTR point) override {
        return Tell(L"RButtonDown", keys, point);
    }
    HRESULT FireMButtonDownEvent(UINT_PTR keys, LONG_PTR point) override {
        return Tell(L"MButtonDown", keys, point);
    }
    HRESULT FireBeginPropertyUpdateEvent() override { return Tell(L"BeginUpdate"); }
    HRESULT FireEndPropertyUpdateEvent() override { return Tell(L"EndUpdate"); }
    HRESULT FireClickEvent() override { return Tell(L"Click"); }
    HRESULT FireBeginModalEvent(UINT code) override { return Tell(L"BeginModal", code); }
    HRESULT FireEndModalEvent(UINT code) override { return Tell(L"EndModal", code); }

    HWND* GetControlWindowPtr() override { return hasWindowObject ? &window : nullptr; }
    IOleInPlaceSite* GetInPlaceSite() override { return nullptr; }

private:
    template <class... Arguments>
    HRESULT Tell(const wchar_t* event, const Arguments&... arguments) {
        Note(event, arguments...);
        if (onEvent) {
            onEvent(event);
        }
        return S_OK;
    }
};

/// The window that the shell would be: passes on to the row what the edit shells pass on, and notes the
/// wheel.
class RowWindow : public CWnd {
public:
    ~RowWindow() override { DestroyWindow(); }

    CKvPeCtrlBase* row = nullptr;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    LRESULT OnChildMessage(UINT message, WPARAM wParam, LPARAM lParam);
};

/// A frame window with one row in it.
template <class Row>
class RowBench : public ::testing::Test {
protected:
    static constexpr RECT c_rowRect = {10, 10, 130, 30};
    static constexpr RECT c_clientRect = {0, 0, 120, 20};

    RowBench() {
        frame.Create(s_windowClass, L"bench", WS_POPUP | WS_VISIBLE, {100, 100, 400, 300}, nullptr);
        frame.SetFocus();
        window.Create(s_windowClass, L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, c_rowRect, frame);
        shell.window = window.m_hWnd;
        row = std::make_unique<TestRow<Row>>(static_cast<CIPropEditUIEvents*>(&shell),
                                             static_cast<CKvPeBasePrivate*>(&shell));
        window.row = row.get();
        const fw::ComPtr<IFont> font = MakeRowFont();
        EXPECT_TRUE(font);
        EXPECT_EQ(row->Handle_put_Font(font.Get()), S_OK);
        row->m_text = L"alpha";
        PumpWaiting();
        journal.Clear();
    }

    ~RowBench() override { EndRow(); }

    void EndRow() {
        window.row = nullptr;
        row.reset();
    }

    CEditEx& Edit() { return *row->m_edit; }

    /// Opens the row as a user does and forgets what that led to.
    void Open() {
        EXPECT_EQ(row->BeginEdit(c_clientRect), S_OK);
        PumpWaiting();
        journal.Clear();
    }

    /// What a user's typing leaves in the box.
    void Type(const wchar_t* text) { Edit().SetWindowText(text); }

    void Key(UINT key, LPARAM keyData = 1) {
        ::PostMessageW(Edit().m_hWnd, WM_KEYDOWN, key, keyData);
        PumpWaiting();
    }

    void Focus(HWND target) {
        ::SetFocus(target);
        PumpWaiting();
    }

    inline static const fw::WindowClass s_windowClass{.name = L"KvTestRow", .style = CS_DBLCLKS};

    kvhost::Journal journal;
    BenchShell shell;
    CWnd frame;
    RowWindow window;
    std::unique_ptr<TestRow<Row>> row;
};

}  // namespace kvtest
