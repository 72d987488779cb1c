#include "refhost/editor/SystemVariables.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "host_sdk/KvEdVariables.h"
#include "refhost/db/Layer.h"
#include "refhost/db/ScopedOpen.h"
#include "refhost/db/Settings.h"
#include "refhost/editor/DocumentManager.h"
#include "refhost/editor/HostSession.h"

namespace {

using kvhost::SystemVariables;
using kvhost::VariableValue;
using Outcome = SystemVariables::Outcome;

class Variables : public testing::Test {
protected:
    VariableValue Get(const wchar_t* name) {
        VariableValue value;
        EXPECT_EQ(m_variables.Get(name, value), Outcome::Done);
        return value;
    }

    kvhost::HostSession m_session;
    SystemVariables& m_variables = m_session->Variables();
};

TEST_F(Variables, InitialValues_AreTheDocumentedOnes) {
    EXPECT_EQ(Get(L"GRIPS"), VariableValue(2));
    EXPECT_EQ(Get(L"gripobjlimit"), VariableValue(100));
    EXPECT_EQ(Get(L"PropertyPreview"), VariableValue(1));
    EXPECT_EQ(Get(L"TEXTSIZE"), VariableValue(2.5));
    EXPECT_EQ(Get(L"QDFTITLED"), VariableValue(0));
    EXPECT_EQ(Get(L"QDFNAME"), VariableValue(std::wstring()));
}

TEST_F(Variables, SettingsOfTheDrawing_AreSetInItAndUndone) {
    kvhost::Document& document = m_session->Documents().New();
    kvhost::Database& database = document.GetDatabase();
    EXPECT_EQ(Get(L"LUNITS"), VariableValue(2));
    EXPECT_EQ(m_variables.Set(L"lunits", 4), Outcome::Done);
    EXPECT_EQ(m_variables.Set(L"LUPREC", 8), Outcome::Done);
    EXPECT_EQ(m_variables.Set(L"AUNITS", 3), Outcome::Done);
    EXPECT_EQ(m_variables.Set(L"AUPREC", 2), Outcome::Done);
    EXPECT_EQ(database.GetSettings().LinearUnits(), 4);
    EXPECT_EQ(database.GetSettings().LinearPrecision(), 8);
    EXPECT_EQ(database.GetSettings().AngularUnits(), 3);
    EXPECT_EQ(database.GetSettings().AngularPrecision(), 2);
    EXPECT_EQ(m_variables.Set(L"ANGBASE", 1.5), Outcome::Done);
    EXPECT_EQ(m_variables.Set(L"ANGDIR", 1), Outcome::Done);
    EXPECT_EQ(database.GetSettings().AngleBase(), 1.5);
    EXPECT_EQ(database.GetSettings().AngleDirection(), 1);
    EXPECT_EQ(Get(L"ANGBASE"), VariableValue(1.5));
    EXPECT_EQ(database.Undo().UndoText(), L"ANGDIR");
    database.Undo().UndoByUser(6);
    EXPECT_EQ(Get(L"ANGBASE"), VariableValue(0.0));
    EXPECT_EQ(Get(L"LUNITS"), VariableValue(2));
    EXPECT_EQ(Get(L"QDFNAME"), VariableValue(std::wstring(L"Drawing1")));
}

TEST_F(Variables, CurrentLayer_IsSetByName) {
    kvhost::Database& database = m_session->Documents().New().GetDatabase();
    KvDbObjectId layer;
    ASSERT_EQ(database.AddLayer(L"Walls", layer), Tolm::eOk);
    EXPECT_EQ(Get(L"CLAYER"), VariableValue(std::wstring(L"0")));
    EXPECT_EQ(m_variables.Set(L"CLAYER", std::wstring(L"walls")), Outcome::Done);
    EXPECT_EQ(Get(L"CLAYER"), VariableValue(std::wstring(L"Walls")));
    EXPECT_EQ(m_variables.Set(L"CLAYER", std::wstring(L"Doors")), Outcome::OutOfRange);
    kvhost::ScopedOpen<kvhost::Layer>(database.LayerNamed(L"0"), KvDb::kForWrite)->SetFrozen(true);
    EXPECT_EQ(m_variables.Set(L"CLAYER", std::wstring(L"0")), Outcome::OutOfRange);
    EXPECT_EQ(m_variables.Set(L"CLAYER", 3), Outcome::WrongType);
}

TEST_F(Variables, WithoutDrawing_ItsSettingsCantBeSet) {
    EXPECT_EQ(m_variables.Set(L"LUNITS", 3), Outcome::ReadOnly);
    EXPECT_EQ(Get(L"CLAYER"), VariableValue(std::wstring()));
}

struct SetCase {
    const wchar_t* name;
    const wchar_t* text;
    Outcome outcome;
};

class VariableTexts : public testing::TestWithParam<SetCase> {};

TEST_P(VariableTexts, AreTakenOrRefused) {
    const kvhost::HostSession session;
    session->Documents().New();
    const Outcome outcome = session->Variables().SetText(GetParam().name, GetParam().text);
    EXPECT_EQ(outcome, GetParam().outcome);
    EXPECT_EQ(SystemVariables::Explain(GetParam().name, outcome).empty(), outcome == Outcome::Done);
}

INSTANTIATE_TEST_SUITE_P(
    Table, VariableTexts,
    testing::Values(
        SetCase{L"GRIPS", L"0", Outcome::Done}, SetCase{L"GRIPS", L"3", Outcome::OutOfRange},
        SetCase{L"GRIPS", L"-1", Outcome::OutOfRange}, SetCase{L"GRIPS", L"", Outcome::WrongType},
        SetCase{L"GRIPS", L"one", Outcome::WrongType}, SetCase{L"GRIPS", L"1.5", Outcome::WrongType},
        SetCase{L"GRIPOBJLIMIT", L"32767", Outcome::Done},
        SetCase{L"GRIPOBJLIMIT", L"32768", Outcome::OutOfRange},
        SetCase{L"GRIPOBJLIMIT", L"99999999999", Outcome::OutOfRange},
        SetCase{L"LUNITS", L"0", Outcome::OutOfRange}, SetCase{L"LUNITS", L"5", Outcome::Done},
        SetCase{L"LUNITS", L"6", Outcome::OutOfRange}, SetCase{L"AUPREC", L"9", Outcome::OutOfRange},
        SetCase{L"ANGBASE", L"-6.28", Outcome::Done}, SetCase{L"ANGBASE", L"6.3", Outcome::OutOfRange},
        SetCase{L"ANGBASE", L"nan", Outcome::OutOfRange}, SetCase{L"ANGDIR", L"2", Outcome::OutOfRange},
        SetCase{L"TEXTSIZE", L"3", Outcome::Done}, SetCase{L"TEXTSIZE", L"1e-3", Outcome::Done},
        SetCase{L"TEXTSIZE", L"0", Outcome::OutOfRange}, SetCase{L"TEXTSIZE", L"nan", Outcome::OutOfRange},
        SetCase{L"TEXTSIZE", L"2x", Outcome::WrongType}, SetCase{L"USERNAME", L"Jürgen", Outcome::Done},
        SetCase{L"QDFNAME", L"a", Outcome::ReadOnly}, SetCase{L"QDFTITLED", L"1", Outcome::ReadOnly},
        SetCase{L"DBMOD", L"0", Outcome::ReadOnly}, SetCase{L"NOSUCH", L"1", Outcome::Unknown}));

TEST_F(Variables, Names_AreAlphabeticalAndReadable) {
    m_session->Documents().New();
    const std::vector<std::wstring> names = m_variables.Names();
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
    for (const std::wstring& name : names) {
        Get(name.c_str());
    }
    EXPECT_EQ(m_variables.Integer(L"GRIPS"), 2);
    EXPECT_EQ(m_variables.Integer(L"USERNAME"), 0);
    EXPECT_EQ(m_variables.Integer(L"NOSUCH"), 0);
}

TEST_F(Variables, Services_ExchangeResultBuffers) {
    resbuf buffer{};
    ASSERT_EQ(kvedGetVar(L"grips", &buffer), KVED_RTNORM);
    EXPECT_EQ(buffer.restype, KVED_RTSHORT);
    EXPECT_EQ(buffer.resval.rint, 2);
    buffer.resval.rint = 0;
    EXPECT_EQ(kvedSetVar(L"GRIPS", &buffer), KVED_RTNORM);
    EXPECT_EQ(m_variables.Integer(L"GRIPS"), 0);
    buffer.resval.rint = 9;
    EXPECT_EQ(kvedSetVar(L"GRIPS", &buffer), KVED_RTERROR);
    buffer.restype = KVED_RTLONG;
    buffer.resval.rlong = 1;
    EXPECT_EQ(kvedSetVar(L"GRIPS", &buffer), KVED_RTNORM);
    buffer.restype = KVED_RTREAL;
    buffer.resval.rreal = 1;
    EXPECT_EQ(kvedSetVar(L"GRIPS", &buffer), KVED_RTERROR);
    EXPECT_EQ(kvedSetVar(L"TEXTSIZE", &buffer), KVED_RTNORM);
    ASSERT_EQ(kvedGetVar(L"TEXTSIZE", &buffer), KVED_RTNORM);
    EXPECT_EQ(buffer.restype, KVED_RTREAL);
    EXPECT_EQ(buffer.resval.rreal, 1);
    wchar_t name[] = L"Anna";
    buffer.restype = KVED_RTSTR;
    buffer.resval.rstring = name;
    EXPECT_EQ(kvedSetVar(L"USERNAME", &buffer), KVED_RTNORM);
    ASSERT_EQ(kvedGetVar(L"USERNAME", &buffer), KVED_RTNORM);
    EXPECT_EQ(buffer.restype, KVED_RTSTR);
    EXPECT_STREQ(buffer.resval.rstring, L"Anna");
    delete[] buffer.resval.rstring;
    buffer.restype = KVED_RTENAME;
    EXPECT_EQ(kvedSetVar(L"GRIPS", &buffer), KVED_RTERROR);
    EXPECT_EQ(kvedSetVar(L"GRIPS", nullptr), KVED_RTERROR);
    EXPECT_EQ(kvedSetVar(nullptr, &buffer), KVED_RTERROR);
    EXPECT_EQ(kvedGetVar(L"NOSUCH", &buffer), KVED_RTERROR);
    EXPECT_EQ(kvedGetVar(L"GRIPS", nullptr), KVED_RTERROR);
}

}  // namespace
