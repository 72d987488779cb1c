// A module of somebody else, made with the kit alone: its editor is found by its name and works like ours.

#include "framework/com/Registration.h"
#include "tests/control/support/RegisterProgram.h"
#include "tests/control/support/RowContainer.h"
#include "tests/control/support/UserInput.h"

namespace {

constexpr wchar_t c_progId[] = L"KvExtension.UnitEditor.1";

DWORD RunRegsvr(const wchar_t* options) {
    const std::wstring program = fw::ModulePath(nullptr);
    const std::wstring folder = program.substr(0, program.find_last_of(L'\\') + 1);
    return kvtest::RunProgram(std::wstring(L"regsvr32.exe /s ") + options + L" \"" + folder +
                              L"KvExtension.qmx\"");
}

class Extension : public kvtest::RowContainer {
protected:
    static void SetUpTestSuite() { ASSERT_EQ(RunRegsvr(L""), 0U); }
    static void TearDownTestSuite() {
        EXPECT_EQ(RunRegsvr(L"/u"), 0U);
        CLSID id{};
        EXPECT_NE(::CLSIDFromProgID(c_progId, &id), S_OK);
    }

    void CreateUnitRow(const std::vector<const wchar_t*>& texts) {
        CLSID id{};
        ASSERT_EQ(::CLSIDFromProgID(c_progId, &id), S_OK);
        Create(id);
        std::vector<IDispatch*> selection;
        selection.reserve(texts.size());
        for (const wchar_t* text : texts) {
            selection.push_back(&MakeObject(L"A", text));
        }
        ASSERT_EQ(InitEdit(selection), S_OK);
        ASSERT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
        UIActivate();
    }

    std::wstring Stored(std::size_t index) const {
        return std::wstring(fw::Variant::ViewString(objects[index]->At(c_property).Get()));
    }
};

TEST_F(Extension, OwnComparison_DecidesWhetherTheValueVaries) {
    CreateUnitRow({L"12 mm", L"12mm"});
    EXPECT_EQ(BoxText(), L"12 mm");
    Discard();
    CreateUnitRow({L"12 mm", L"12 MM"});
    EXPECT_NE(BoxText(), L"12 mm") << "the base alone ignores case";
}

TEST_F(Extension, TypedText_IsWrittenToAllObjects) {
    CreateUnitRow({L"12 mm", L"12mm"});
    kvtest::TypeText(L"inch");
    kvtest::PressKey(VK_RETURN);
    EXPECT_EQ(Stored(0), L"inch");
    EXPECT_EQ(Stored(1), L"inch");
}

TEST_F(Extension, Dispatch_AnswersFromTheTypeLibraryInTheModule) {
    CreateUnitRow({L"mm"});
    wchar_t name[] = L"BackColor";
    LPOLESTR names[] = {name};
    DISPID id = DISPID_UNKNOWN;
    EXPECT_EQ(As<IDispatch>()->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id), S_OK);
    EXPECT_EQ(id, DISPID_BACKCOLOR);
}

}  // namespace
