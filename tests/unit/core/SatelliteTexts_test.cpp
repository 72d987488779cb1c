// The satellite's texts: each one stands there in all of its languages.
#include <gtest/gtest.h>

#include <map>
#include <regex>
#include <string>
#include <string_view>

#include "core/Satellite.h"
#include "framework/base/WindowsApi.h"
#include "resources/Ids.h"

namespace {

constexpr LANGID c_english = MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US);
constexpr LANGID c_german = MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN);
constexpr unsigned c_textsPerBlock = 16;

using TextsById = std::map<unsigned, std::wstring>;

struct Search {
    LANGID language;
    TextsById texts;
};

// A block is sixteen texts, each behind its length; those that are not there are empty.
void TakeBlock(HMODULE satellite, unsigned block, Search& search) {
    const HRSRC resource = ::FindResourceExW(satellite, RT_STRING, MAKEINTRESOURCEW(block), search.language);
    ASSERT_NE(resource, nullptr);
    const auto* next = static_cast<const wchar_t*>(::LockResource(::LoadResource(satellite, resource)));
    ASSERT_NE(next, nullptr);
    for (unsigned index = 0; index < c_textsPerBlock; ++index) {
        const std::wstring_view text(next + 1, static_cast<std::size_t>(*next));
        if (!text.empty()) {
            search.texts[(block - 1) * c_textsPerBlock + index] = text;
        }
        next += text.size() + 1;
    }
}

// Only languages that a block stands in are looked up: the system answers others with another language's
// block.
BOOL CALLBACK TakeBlockOfLanguage(HMODULE satellite, const wchar_t*, const wchar_t* block, WORD language,
                                  LONG_PTR search) {
    auto& wanted = *reinterpret_cast<Search*>(search);
    if (language == wanted.language) {
        TakeBlock(satellite, LOWORD(block), wanted);
    }
    return TRUE;
}

BOOL CALLBACK TakeLanguagesOfBlock(HMODULE satellite, const wchar_t* type, wchar_t* block, LONG_PTR search) {
    return ::EnumResourceLanguagesW(satellite, type, block, &TakeBlockOfLanguage, search);
}

TextsById TextsOf(LANGID language) {
    Search search{language, {}};
    EXPECT_TRUE(::EnumResourceNamesW(KvPeSatellite(), RT_STRING, &TakeLanguagesOfBlock,
                                     reinterpret_cast<LONG_PTR>(&search)));
    return search.texts;
}

std::wstring ArgumentsOf(const std::wstring& text) {
    static const std::wregex s_argument(L"%[a-zA-Z0-9.]+");
    std::wstring found;
    for (std::wsregex_iterator place(text.begin(), text.end(), s_argument), end; place != end; ++place) {
        found += place->str() + L' ';
    }
    return found;
}

TEST(SatelliteTexts, AreFoundByTheirIds) {
    const TextsById english = TextsOf(c_english);
    const TextsById german = TextsOf(c_german);
    ASSERT_TRUE(english.contains(IDS_BOOL_TRUE) && german.contains(IDS_BOOL_TRUE));
    EXPECT_EQ(english.at(IDS_BOOL_TRUE), L"Yes");
    EXPECT_EQ(german.at(IDS_BOOL_TRUE), L"Ja");
}

TEST(SatelliteTexts, EachEnglishText_HasItsGermanOne) {
    const TextsById german = TextsOf(c_german);
    for (const auto& [id, text] : TextsOf(c_english)) {
        ASSERT_TRUE(german.contains(id)) << id;
        EXPECT_NE(german.at(id), text) << id;
    }
}

TEST(SatelliteTexts, EachGermanText_HasItsEnglishOne) {
    const TextsById english = TextsOf(c_english);
    for (const auto& [id, text] : TextsOf(c_german)) {
        EXPECT_TRUE(english.contains(id)) << id;
    }
}

TEST(SatelliteTexts, Translations_TakeTheSameArguments) {
    const TextsById german = TextsOf(c_german);
    for (const auto& [id, text] : TextsOf(c_english)) {
        ASSERT_TRUE(german.contains(id)) << id;
        EXPECT_EQ(ArgumentsOf(german.at(id)), ArgumentsOf(text)) << id;
    }
}

}  // namespace
