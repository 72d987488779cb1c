#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "KvPEXCtl_h.h"
#include "framework/com/Variant.h"
#include "framework/window/CWnd.h"
#include "refhost/editor/DocumentManager.h"
#include "refhost/editor/EditorState.h"
#include "refhost/editor/HostSession.h"
#include "refhost/testing/ScriptedDynamicProperty.h"
#include "refhost/testing/ScriptedObject.h"
#include "tests/support/ExpectCalls.h"
#include "tests/support/FakeSite.h"
#include "tests/support/MessagePump.h"
#include "tests/support/RecordingSink.h"
#include "tests/support/SelectionArrays.h"

namespace kvtest {

/// A window that holds one row, as a palette does, in a host with one drawing. Host calls, the container's
/// calls and events stand in one journal.
class RowContainer : public ::testing::Test {
protected:
    static constexpr RECT c_place = {10, 10, 130, 30};
    static constexpr DISPID c_property = kvtest::c_property;

    RowContainer();
    ~RowContainer() override;

    /// Makes the control, gives it its site and connects the sink.
    void Create(const CLSID& classId);
    /// The same for a text row over new scripted objects with these texts; active in place.
    void CreateTextRow(const std::vector<const wchar_t*>& texts, bool readOnly = false);
    HRESULT InitEdit(const std::vector<IDispatch*>& objects, bool readOnly = false);
    HRESULT DoVerb(LONG verb);
    /// Gives the row the palette's font.
    void GiveFont();
    /// As if the user had moved to the row.
    void UIActivate();
    /// Ends and lets go of the control, as the palette does with its rows.
    void Discard();

    kvhost::ScriptedObject& MakeObject(const wchar_t* name, const wchar_t* text, unsigned interfaces = 0);

    template <class Interface>
    fw::ComPtr<Interface> As() const {
        return control.As<Interface>();
    }
    HWND Row() const;
    HWND Box(int id = 1038) const { return ::GetDlgItem(Row(), id); }
    std::wstring BoxText() const;
    /// The events in the journal, in order, without host and container calls.
    CallLines Events() const;
    /// What the journal opened and did not close, or closed without opening; empty when all is paired.
    [[nodiscard]] std::string Unpaired() const;
    void Clear();

    kvhost::HostSession host;
    kvhost::Document* document = nullptr;
    CWnd frame;
    CWnd elsewhere;  // a child of the frame that can have the focus
    fw::ComPtr<FakeSite> site;
    fw::ComPtr<RecordingSink> sink;
    fw::ComPtr<IKvPiPropertyEditControl2> control;
    std::vector<fw::ComPtr<kvhost::ScriptedObject>> objects;
    kvhost::Journal journal;
    DWORD sinkCookie = 0;
    DISPID dispid = c_property;  // the property of the next InitEdit
};

}  // namespace kvtest
