#include "refhost/automation/Hyperlinks.h"

#include <algorithm>
#include <array>
#include <vector>

#include "framework/base/Hresult.h"
#include "framework/com/Bstr.h"
#include "framework/com/CComObject.h"
#include "refhost/automation/LiveObject.h"

namespace kvhost {

namespace {

class Hyperlink : public fw::ComObjectRoot, public IKvHyperlink, private LiveObject {
public:
    static std::span<const fw::InterfaceEntry> Interfaces() {
        static constexpr std::array interfaces{fw::Implements<Hyperlink, IKvHyperlink>()};
        return interfaces;
    }
    void Attach(std::wstring url) { m_url = std::move(url); }

    // IKvHyperlink
    STDMETHODIMP GetUrl(BSTR* url) override {
        RETURN_IF_NULL_POINTER(url);
        return fw::MakeBstr(m_url, url);
    }

protected:
    ~Hyperlink() = default;

private:
    std::wstring m_url;
};

class HyperlinkCollection : public fw::ComObjectRoot, public IKvHyperlinkCollection, private LiveObject {
public:
    static std::span<const fw::InterfaceEntry> Interfaces() {
        static constexpr std::array interfaces{fw::Implements<HyperlinkCollection, IKvHyperlinkCollection>()};
        return interfaces;
    }
    void Attach(std::vector<std::wstring> urls) { m_urls = std::move(urls); }

    // IKvHyperlinkCollection
    STDMETHODIMP GetCount(long* count) override {
        RETURN_IF_NULL_POINTER(count);
        *count = static_cast<long>(m_urls.size());
        return S_OK;
    }
    STDMETHODIMP GetItem(long index, IKvHyperlink** hyperlink) override {
        RETURN_IF_NULL_POINTER(hyperlink);
        *hyperlink = nullptr;
        RETURN_HR_IF(E_INVALIDARG, index < 0 || static_cast<std::size_t>(index) >= m_urls.size());
        CComObject<Hyperlink>* made = nullptr;
        RETURN_IF_FAILED(CComObject<Hyperlink>::CreateInstance(nullptr, &made));
        made->Attach(m_urls[static_cast<std::size_t>(index)]);
        *hyperlink = made;
        return S_OK;
    }

protected:
    ~HyperlinkCollection() = default;

private:
    std::vector<std::wstring> m_urls;
};

std::vector<std::wstring> UrlsIn(const std::wstring& text) {
    std::vector<std::wstring> urls;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find(L' ', begin), text.size());
        if (end > begin) {
            urls.push_back(text.substr(begin, end - begin));
        }
        begin = end + 1;
    }
    return urls;
}

}  // namespace

HRESULT MakeHyperlinks(const std::wstring& text, IKvHyperlinkCollection** hyperlinks) {
    RETURN_IF_NULL_POINTER(hyperlinks);
    *hyperlinks = nullptr;
    CComObject<HyperlinkCollection>* made = nullptr;
    RETURN_IF_FAILED(CComObject<HyperlinkCollection>::CreateInstance(nullptr, &made));
    made->Attach(UrlsIn(text));
    *hyperlinks = made;
    return S_OK;
}

}  // namespace kvhost
