#include "families/CPropertyEditorEllipsesHyperlinks.h"

#include "framework/com/Bstr.h"
#include "host_sdk/IKvHyperlinkHost.h"
#include "refhost/testing/ScriptedObject.h"
#include "tests/support/SelectionArrays.h"
#include "tests/unit/families/RowBench.h"

namespace {

class OpenHyperlinks : public CPropertyEditorEllipsesHyperlinks {
public:
    using CPropertyEditorEllipsesHyperlinks::CPropertyEditorEllipsesHyperlinks;
    using CPropertyEditorEllipsesHyperlinks::m_buttons;
    using CPropertyEditorEllipsesHyperlinks::m_nButtonSide;
    HRESULT OnCustomButton(WORD id) override {
        kvtest::Note(L"custom", id);
        return S_OK;
    }
};

// The value of a property that shows links: host, collection and link in one.
class LinkValue final : public IDispatch,
                        public IKvHyperlinkHost,
                        public IKvHyperlinkCollection,
                        public IKvHyperlink {
public:
    explicit LinkValue(std::vector<std::wstring> urls) : m_urls(std::move(urls)) {}

    STDMETHODIMP QueryInterface(REFIID id, void** result) override {
        *result = nullptr;
        if (id == IID_IUnknown || id == IID_IDispatch) {
            *result = static_cast<IDispatch*>(this);
        } else if (id == __uuidof(IKvHyperlinkHost)) {
            *result = static_cast<IKvHyperlinkHost*>(this);
        } else {
            return E_NOINTERFACE;
        }
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 1; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return E_NOTIMPL;
    }
    STDMETHODIMP GetHyperlinks(IKvHyperlinkCollection** hyperlinks) override {
        *hyperlinks = this;
        return S_OK;
    }
    STDMETHODIMP GetCount(long* count) override {
        *count = static_cast<long>(m_urls.size());
        return S_OK;
    }
    STDMETHODIMP GetItem(long index, IKvHyperlink** hyperlink) override {
        *hyperlink = nullptr;
        EXPECT_EQ(index, 0);
        RETURN_HR_IF(E_INVALIDARG, m_urls.empty());
        *hyperlink = this;
        return S_OK;
    }
    STDMETHODIMP GetUrl(BSTR* url) override {
        *url = ::SysAllocString(m_urls.front().c_str());
        return S_OK;
    }

private:
    std::vector<std::wstring> m_urls;
};

class HyperlinkRow : public kvtest::RowBench<OpenHyperlinks> {
protected:
    int Compare(LinkValue* first, LinkValue* second) {
        VARIANT left{};
        left.vt = VT_DISPATCH;
        left.pdispVal = first;
        VARIANT right{};
        right.vt = VT_DISPATCH;
        right.pdispVal = second;
        int result = 5;
        EXPECT_EQ(row->ComparePropertyValue(&left, &right, result), S_OK);
        return result;
    }
    void Init(kvhost::ScriptedObject& object) {
        ASSERT_EQ(kvtest::SelectionArrays().Add(&object).Init<CKvPeCtrlBase>(*row), S_OK);
    }
};

TEST_F(HyperlinkRow, BoxIsReadOnlyAndTheButtonStandsAtTheRight) {
    EXPECT_TRUE(row->m_editBoxReadOnly);
    EXPECT_EQ(row->m_nButtonSide, 2);
    Open();
    ASSERT_EQ(row->m_buttons.GetSize(), 1);
    EXPECT_EQ(row->m_buttons[0]->m_nId, 1043);
    EXPECT_FALSE(row->m_buttons[0]->m_bShowWhenReadOnly);
    EXPECT_TRUE(row->m_buttons[0]->m_pButton->HasFocus());
}

TEST_F(HyperlinkRow, Compare_OnlyTheFirstLinkCounts) {
    LinkValue first({L"https://example.org/a", L"https://example.org/b"});
    LinkValue second({L"https://example.org/a"});
    LinkValue other({L"https://example.org/b"});
    LinkValue upperCase({L"https://example.org/A"});
    LinkValue none({});
    LinkValue noneEither({});
    EXPECT_EQ(Compare(&first, &second), 0);
    EXPECT_EQ(Compare(&first, &other), -1);
    EXPECT_EQ(Compare(&first, &upperCase), -1);
    EXPECT_EQ(Compare(&first, &none), -1);
    EXPECT_EQ(Compare(&none, &noneEither), 0);
    EXPECT_EQ(Compare(nullptr, nullptr), 0);
    EXPECT_EQ(Compare(nullptr, &first), -1);
}

TEST_F(HyperlinkRow, Compare_OtherTypes_AsEveryRow) {
    fw::Variant first = fw::Variant::FromString(L"same");
    fw::Variant second = fw::Variant::FromString(L"SAME");
    fw::Variant number = fw::Variant::FromLong(1);
    int result = 5;
    EXPECT_EQ(row->ComparePropertyValue(first.Address(), second.Address(), result), S_OK);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(row->ComparePropertyValue(first.Address(), number.Address(), result), E_FAIL);
    EXPECT_EQ(row->ComparePropertyValue(nullptr, number.Address(), result), E_POINTER);
}

TEST_F(HyperlinkRow, AltArrow_PressesTheButtonEvenBeforeItIsMade) {
    bool handled = false;
    EXPECT_EQ(row->PropertySysKeyDown(VK_UP, 1, 0x2000, handled), S_OK);
    EXPECT_TRUE(handled);
    EXPECT_CALLS(journal, "custom 1043");
    handled = false;
    EXPECT_EQ(row->PropertySysKeyDown(VK_UP, 1, 0, handled), S_OK);
    EXPECT_FALSE(handled);
}

TEST_F(HyperlinkRow, Init_FlagsAnswerAnythingButOk_RowIsReadOnlyUntilItIsRefreshed) {
    const auto object = kvhost::ScriptedObject::Make(L"A", kvhost::OffersEditability);
    object->At(5).editableResult = S_FALSE;
    Init(*object);
    EXPECT_TRUE(row->m_readOnly);
    EXPECT_EQ(row->Handle_Refresh(), S_OK);
    EXPECT_FALSE(row->m_readOnly);
}

TEST_F(HyperlinkRow, Init_FlagsThrow_RowIsReadOnly) {
    const auto object = kvhost::ScriptedObject::Make(L"A", kvhost::OffersEditability);
    object->At(5).editableThrows = Tolm::eWasErased;
    Init(*object);
    EXPECT_TRUE(row->m_readOnly);
}

TEST_F(HyperlinkRow, Init_FlagsAnswerOk_RowIsWritable) {
    const auto object = kvhost::ScriptedObject::Make(L"A", kvhost::OffersEditability);
    Init(*object);
    EXPECT_FALSE(row->m_readOnly);
}

TEST_F(HyperlinkRow, Init_ObjectWithoutFlags_RowIsWritable) {
    const auto object = kvhost::ScriptedObject::Make(L"A");
    Init(*object);
    EXPECT_FALSE(row->m_readOnly);
}

TEST_F(HyperlinkRow, Refresh_ReadOnlyRow_LeavesItWritable) {
    row->m_readOnly = TRUE;
    EXPECT_EQ(row->Handle_Refresh(), S_OK);
    EXPECT_FALSE(row->m_readOnly);
    row->m_readOnly = TRUE;
    row->script.readResult = E_FAIL;
    EXPECT_EQ(row->Handle_Refresh(), E_FAIL);
    EXPECT_TRUE(row->m_readOnly);
}

}  // namespace
