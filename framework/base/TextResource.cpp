#include "framework/base/TextResource.h"

#include "framework/base/ModuleState.h"

namespace {

constexpr UINT c_textsPerBlock = 16;

// A block is sixteen texts, each behind its length.
std::wstring_view TextInBlock(const void* block, DWORD size, UINT index) {
    const auto* next = static_cast<const wchar_t*>(block);
    const wchar_t* const end = next + size / sizeof(wchar_t);
    for (; next < end; next += *next + 1) {
        if (index-- == 0) {
            return {next + 1, static_cast<std::size_t>(*next)};
        }
    }
    return {};
}

std::wstring_view TextOfLanguage(HINSTANCE module, UINT id, LANGID language) {
    // The system's own function takes no language.
    const HRSRC resource =
        ::FindResourceExW(module, RT_STRING, MAKEINTRESOURCEW(id / c_textsPerBlock + 1), language);
    const HGLOBAL loaded = resource ? ::LoadResource(module, resource) : nullptr;
    const void* const block = loaded ? ::LockResource(loaded) : nullptr;
    return block ? TextInBlock(block, ::SizeofResource(module, resource), id % c_textsPerBlock)
                 : std::wstring_view();
}

std::wstring_view TextOfAnyLanguage(HINSTANCE module, UINT id) {
    const wchar_t* text = nullptr;
    const int length = ::LoadStringW(module, id, reinterpret_cast<LPWSTR>(&text), 0);
    return text && length > 0 ? std::wstring_view(text, static_cast<std::size_t>(length))
                              : std::wstring_view();
}

LANGID LanguageId(LANGID primary, LANGID sub) {
    return static_cast<LANGID>(MAKELANGID(primary, sub));
}

}  // namespace

std::wstring_view fw::FindText(HINSTANCE module, UINT id) {
    const LANGID chosen = AfxGetModuleState()->m_textLanguage;
    const LANGID language = chosen ? chosen : ::GetUserDefaultUILanguage();
    const LANGID primary = PRIMARYLANGID(language);
    const LANGID order[] = {language, LanguageId(primary, SUBLANG_DEFAULT),
                            LanguageId(primary, SUBLANG_NEUTRAL),
                            LanguageId(LANG_ENGLISH, SUBLANG_ENGLISH_US)};
    for (const LANGID wanted : order) {
        const std::wstring_view text = TextOfLanguage(module, id, wanted);
        if (!text.empty()) {
            return text;
        }
    }
    return TextOfAnyLanguage(module, id);
}
