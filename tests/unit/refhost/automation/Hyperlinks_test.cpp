#include "host_sdk/IKvHyperlinkHost.h"

#include "framework/com/Bstr.h"
#include "refhost/db/Circle.h"
#include "refhost/db/ScopedOpen.h"
#include "refhost/testing/Faults.h"
#include "tests/support/ExpectCalls.h"
#include "tests/unit/refhost/automation/AutomationFixture.h"

namespace {

class HyperlinksTest : public kvtest::AutomationFixture {
protected:
    HyperlinksTest() : circle(Add<kvhost::Circle>()) {}
    ~HyperlinksTest() override { kvhost::Faults::Reset(); }

    fw::ComPtr<IKvHyperlinkCollection> LinksOf(const wchar_t* text) {
        {
            const kvhost::ScopedOpen<kvhost::Circle> opened(circle, KvDb::kForWrite);
            EXPECT_EQ(opened->SetHyperlink(text), Tolm::eOk);
        }
        fw::ComPtr<IKvHyperlinkCollection> links;
        EXPECT_EQ(ObjectOf(circle).As<IKvHyperlinkHost>()->GetHyperlinks(links.Put()), S_OK);
        return links;
    }
    static std::wstring UrlAt(IKvHyperlinkCollection& links, long index) {
        fw::ComPtr<IKvHyperlink> link;
        fw::Bstr url;
        EXPECT_EQ(links.GetItem(index, link.Put()), S_OK);
        EXPECT_EQ(link->GetUrl(url.Put()), S_OK);
        return std::wstring(url.View());
    }

    KvDbObjectId circle;
};

TEST_F(HyperlinksTest, ObjectWithoutLinks_HasAnEmptyCollection) {
    const auto links = LinksOf(L"");
    long count = -1;
    EXPECT_EQ(links->GetCount(&count), S_OK);
    EXPECT_EQ(count, 0);
    fw::ComPtr<IKvHyperlink> link;
    EXPECT_EQ(links->GetItem(0, link.Put()), E_INVALIDARG);
    EXPECT_FALSE(link);
}

TEST_F(HyperlinksTest, LinksSeparatedByBlanks_AreItemsInTheirOrder) {
    const auto links = LinksOf(L"https://example.org/a  https://example.org/b");
    long count = 0;
    EXPECT_EQ(links->GetCount(&count), S_OK);
    ASSERT_EQ(count, 2);
    EXPECT_EQ(UrlAt(*links, 0), L"https://example.org/a");
    EXPECT_EQ(UrlAt(*links, 1), L"https://example.org/b");
    fw::ComPtr<IKvHyperlink> link;
    EXPECT_EQ(links->GetItem(-1, link.Put()), E_INVALIDARG);
    EXPECT_EQ(links->GetItem(2, link.Put()), E_INVALIDARG);
}

TEST_F(HyperlinksTest, ToldToFail_GivesNothing) {
    kvhost::Faults::FailService(L"GetHyperlinks", 1);
    fw::ComPtr<IKvHyperlinkCollection> links;
    EXPECT_EQ(ObjectOf(circle).As<IKvHyperlinkHost>()->GetHyperlinks(links.Put()), E_FAIL);
    EXPECT_FALSE(links);
    EXPECT_EQ(ObjectOf(circle).As<IKvHyperlinkHost>()->GetHyperlinks(nullptr), E_POINTER);
}

}  // namespace
