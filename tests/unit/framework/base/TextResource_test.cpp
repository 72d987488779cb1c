#include "framework/base/TextResource.h"

#include <gtest/gtest.h>

#include "framework/base/CString.h"
#include "framework/base/ModuleState.h"
#include "tests/unit/framework/FrameworkTestIds.h"

namespace {

constexpr LANGID c_austrian = MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN_AUSTRIAN);
constexpr LANGID c_german = MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN);
constexpr LANGID c_french = MAKELANGID(LANG_FRENCH, SUBLANG_FRENCH);

class TextResource : public ::testing::Test {
protected:
    ~TextResource() override { AfxGetModuleState()->m_textLanguage = 0; }

    static CString Load(UINT id, LANGID language) {
        AfxGetModuleState()->m_textLanguage = language;
        CString text;
        text.LoadString(fw::ThisModule(), id);
        return text;
    }
};

TEST_F(TextResource, TranslatedText_IsFoundWhole) {
    EXPECT_EQ(Load(IDS_TEST_TRANSLATED, c_german),
              L"Ein \u00FCbersetzter Text, der um einiges l\u00E4nger als der englische ist");
}

TEST_F(TextResource, RegionWithoutTexts_UsesThoseOfTheLanguage) {
    EXPECT_EQ(Load(IDS_TEST_TRANSLATED, c_austrian), Load(IDS_TEST_TRANSLATED, c_german));
}

TEST_F(TextResource, LanguageWithoutTexts_UsesEnglish) {
    EXPECT_EQ(Load(IDS_TEST_TRANSLATED, c_french), L"A text with a translation");
}

TEST_F(TextResource, TextWithoutTranslation_IsEnglishBesideTranslatedOnes) {
    EXPECT_EQ(Load(IDS_TEST_UNTRANSLATED, c_german), L"A text without one");
}

TEST_F(TextResource, NoLanguageChosen_IsTheUsers) {
    EXPECT_EQ(Load(IDS_TEST_TRANSLATED, 0), Load(IDS_TEST_TRANSLATED, ::GetUserDefaultUILanguage()));
}

TEST_F(TextResource, MissingText_IsEmptyInEveryLanguage) {
    EXPECT_TRUE(Load(IDS_TEST_ABSENT, c_german).IsEmpty());
    EXPECT_TRUE(Load(IDS_TEST_ABSENT, 0).IsEmpty());
}

}  // namespace
