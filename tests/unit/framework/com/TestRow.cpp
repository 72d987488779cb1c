#include "tests/unit/framework/com/TestRow.h"

#include "framework/com/ErrorInfo.h"
#include "tests/support/LeakCheck.h"
#include "tests/unit/framework/com/CallLog.h"

namespace kvtest {

namespace {

std::string Text(const RECT& area) {
    return std::to_string(area.left) + "," + std::to_string(area.top) + "," + std::to_string(area.right) +
           "," + std::to_string(area.bottom);
}

CComModule s_module;
const LeakCounter s_locks("test module locks", [] { return long{TestModule().GetLockCount()}; });

}  // namespace

CallLines& Log() {
    static CallLines log;
    return log;
}

CComModule& TestModule() {
    static const fw::ObjectMapEntry s_objects[] = {{&CLSID_TestRowControl, &CComObject<TestRow>::Create,
                                                    L"KvFrameTest.Row.1", L"KvFrameTest.Row",
                                                    TestRowDescription, fw::ControlMiscStatus, nullptr}};
    static const HRESULT s_made = s_module.Init(s_objects);
    fw::Ignore(s_made);
    return s_module;
}

fw::ComPtr<CComObject<TestRow>> MakeRow() {
    fw::ComPtr<CComObject<TestRow>> row;
    EXPECT_EQ(CComObject<TestRow>::CreateInstance(&TestModule(), row.Put()), S_OK);
    return row;
}

std::span<const fw::InterfaceEntry> TestRow::Interfaces() {
    static constexpr auto s_interfaces = fw::JoinInterfaces(
        std::array{fw::Implements<TestRow, ITestRow>(), fw::Implements<TestRow, IDispatch, ITestRow>()},
        fw::ControlInterfaces<TestRow>);
    return s_interfaces;
}

STDMETHODIMP TestRow::get_Text(BSTR* text) {
    return m_text.CopyTo(text);
}

STDMETHODIMP TestRow::put_Text(BSTR text) {
    m_text = fw::Bstr(fw::Bstr::ViewOf(text));
    return S_OK;
}

STDMETHODIMP TestRow::Add(LONG left, LONG right, LONG* sum) {
    RETURN_IF_NULL_POINTER(sum);
    *sum = left + right;
    return S_OK;
}

STDMETHODIMP TestRow::Refuse() {
    return fw::SetErrorText(DISP_E_OVERFLOW, __uuidof(ITestRow), L"TestRow", L"too much");
}

STDMETHODIMP TestRow::Quit() {
    return E_ABORT;
}

const CLSID& TestRow::ClassId() const noexcept {
    return CLSID_TestRowControl;
}

STDMETHODIMP TestRow::OnAmbientPropertyChange(DISPID id) {
    NoteHook("row.OnAmbientPropertyChange " + std::to_string(id));
    return S_OK;
}

HRESULT TestRow::OnDrawAdvanced(ATL_DRAWINFO& info) {
    return draw ? draw(info) : S_OK;
}

HRESULT TestRow::OnUserActivated(const RECT& client) {
    NoteHook("row.OnUserActivated " + Text(client));
    if (whenActivated) {
        whenActivated();
    }
    return S_OK;
}

HRESULT TestRow::OnUIDeactivating() {
    NoteHook("row.OnUIDeactivating");
    return S_OK;
}

HRESULT TestRow::OnObjectRectsSet(const RECT& position, const RECT& clip) {
    NoteHook("row.OnObjectRectsSet " + Text(position) + " clip " + Text(clip));
    return S_OK;
}

bool TestRow::OnTranslateAccelerator(MSG*) {
    return swallowsKeys;
}

void TestRow::NoteHook(const std::string& hook) const {
    if (logsHooks) {
        Note(hook);
    }
}

}  // namespace kvtest
