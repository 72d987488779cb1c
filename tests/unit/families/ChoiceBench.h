#pragma once

#include "framework/window/CComboBox.h"
#include "framework/window/CWnd.h"
#include "tests/support/MessagePump.h"
#include "tests/unit/core/ControlBench.h"

namespace kvtest {

/// A list row over scripted objects, with a window that its drop-down can lie in. `Row` opens its fields.
template <class Row>
class ChoiceTest : public ControlTest {
protected:
    static constexpr RECT c_client = {0, 0, 120, 20};

    ChoiceTest() {
        frame.Create(s_windowClass, L"bench", WS_POPUP | WS_VISIBLE, {100, 100, 400, 300}, nullptr);
        window.Create(s_windowClass, L"", WS_CHILD | WS_VISIBLE, {10, 10, 130, 30}, frame);
        shell.window = window.m_hWnd;
        row = std::make_unique<Row>(static_cast<CIPropEditUIEvents*>(&shell),
                                    static_cast<CKvPeBasePrivate*>(&shell));
        PumpWaiting();
        journal.Clear();
    }
    ~ChoiceTest() override {
        row.reset();
        window.DestroyWindow();
        frame.DestroyWindow();
    }

    /// An object whose property has this value.
    kvhost::ScriptedObject& MakeObjectOf(const wchar_t* name, const fw::Variant& held,
                                         unsigned interfaces = 0) {
        kvhost::ScriptedObject& object = MakeObject(name, L"", interfaces);
        object.At(c_property).Set(held.Get());
        return object;
    }
    /// Hands the objects over; the first read runs.
    HRESULT Init() {
        SelectionArrays arrays;
        for (const auto& object : objects) {
            arrays.Add(object.Get(), dispid);
        }
        return arrays.Init(*row);
    }
    /// The same for the objects through a dynamic property.
    HRESULT InitDynamic(kvhost::ScriptedDynamicProperty& property) {
        SelectionArrays arrays;
        for (const auto& object : objects) {
            arrays.AddDynamic(object.Get(), &property);
        }
        return arrays.Init(*row);
    }

    void Open() {
        EXPECT_EQ(row->BeginEdit(c_client), S_OK);
        PumpWaiting();
        journal.Clear();
    }
    CComboBox& List() { return *row->m_pList; }
    std::vector<std::wstring> Rows() {
        std::vector<std::wstring> texts;
        for (int index = 0; index < List().GetCount(); ++index) {
            texts.emplace_back(List().GetLBText(index).View());
        }
        return texts;
    }

    inline static const fw::WindowClass s_windowClass{.name = L"KvTestChoice"};

    CWnd frame;
    CWnd window;
    std::unique_ptr<Row> row;
    DISPID dispid = c_property;
};

using Texts = std::vector<std::wstring>;

inline fw::Variant Long(long number) {
    return fw::Variant::FromLong(number);
}

}  // namespace kvtest
