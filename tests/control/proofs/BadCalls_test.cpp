// Random calls of what every control has, in a row that is shown, in edit, hidden and shown again.

#include "refhost/db/UndoController.h"
#include "refhost/testing/Answers.h"
#include "tests/control/proofs/AnswerToSetValue.h"
#include "tests/control/proofs/InitTriple.h"
#include "tests/control/support/AvailableClass.h"
#include "tests/control/support/ModuleLock.h"
#include "tests/control/support/RowContainer.h"
#include "tests/support/Rounds.h"

namespace {

using kvtest::PickBelow;
using kvtest::PickOnceIn;
using kvtest::RandomVariant;

int Calls() {
    return kvtest::RoundsOfEach(kvtest::AvailableClasses().size(), 10'000, 10'000);
}

int Triples() {
    return kvtest::RoundsOfEach(kvtest::AvailableClasses().size(), 2'400, 10'000);
}

class BadCalls : public kvtest::RowContainer, public ::testing::WithParamInterface<kvtest::AvailableClass> {
protected:
    BadCalls() { scenario.Arrange(document->GetDatabase()); }
    ~BadCalls() override {
        Discard();
        kvhost::Answers::Reset();
        EXPECT_EQ(kvtest::AskModuleCanUnload(), S_OK);
    }

    void Renew() {
        Discard();
        Create(*GetParam().id);
        kvhost::ScriptedObject& object = MakeObject(L"A", L"");
        scenario.Give(object, c_property, scenario.before);
        object.At(c_property).keepsPuts = false;
        ASSERT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
        ASSERT_EQ(InitEdit({&object}), S_OK);
    }
    // What the host and the object note.
    void Forget() {
        objects.front()->At(c_property).puts.clear();
        static_cast<void>(kvhost::Answers::TakeShown());
        undo->Clear();
        kvtest::PumpWaiting();
        Clear();
    }
    LONG PickNumber() {
        return PickOnceIn(random, 4) ? static_cast<LONG>(random())
                                     : static_cast<LONG>(PickBelow(random, 12)) - 9;
    }

    void CallDoVerb() {
        const LONG verb = PickNumber();
        const bool isStandard = verb <= OLEIVERB_PRIMARY && verb >= OLEIVERB_DISCARDUNDOSTATE;
        EXPECT_EQ(DoVerb(verb), isStandard ? S_OK : verb < 0 ? E_NOTIMPL : OLEOBJ_S_INVALIDVERB) << verb;
    }
    void CallExtent() {
        const auto object = As<IOleObject>();
        const auto aspect = PickOnceIn(random, 2) ? DWORD{DVASPECT_CONTENT} : static_cast<DWORD>(random());
        SIZEL put = {PickNumber(), PickNumber()};
        SIZEL former{};
        EXPECT_EQ(object->GetExtent(DVASPECT_CONTENT, &former), S_OK);
        const bool isSize = put.cx >= 0 && put.cy >= 0;
        const HRESULT expected = aspect != DVASPECT_CONTENT ? DV_E_DVASPECT : isSize ? S_OK : E_INVALIDARG;
        EXPECT_EQ(object->SetExtent(aspect, &put), expected) << aspect;
        SIZEL got{};
        EXPECT_EQ(object->GetExtent(aspect, &got), aspect != DVASPECT_CONTENT ? DV_E_DVASPECT : S_OK);
        EXPECT_EQ(object->GetExtent(DVASPECT_CONTENT, &got), S_OK);
        const SIZEL& kept = expected == S_OK ? put : former;
        EXPECT_TRUE(got.cx == kept.cx && got.cy == kept.cy);
    }
    void CallQuickActivate() {
        const auto pickSize = [this](ULONG size) {
            return PickOnceIn(random, 2) ? size : PickBelow(random, 2 * size);
        };
        QACONTAINER container{};
        container.cbSize = pickSize(sizeof container);
        container.pClientSite = site.Get();
        container.colorFore = random();
        container.colorBack = random();
        container.dwAmbientFlags = random();
        QACONTROL told{};
        told.cbSize = pickSize(sizeof told);
        const bool isWhole = container.cbSize >= sizeof container && told.cbSize >= sizeof told;
        EXPECT_EQ(As<IQuickActivate>()->QuickActivate(&container, &told), isWhole ? S_OK : E_INVALIDARG);
    }
    void CallMessages() {
        constexpr DISPID ambients[] = {DISPID_UNKNOWN, DISPID_AMBIENT_FONT, DISPID_FONT, DISPID_FORECOLOR,
                                       DISPID_BACKCOLOR};
        const DISPID ambient = PickOnceIn(random, 3) ? PickNumber() : ambients[PickBelow(random, 5)];
        EXPECT_EQ(As<IOleControl>()->OnAmbientPropertyChange(ambient), S_OK) << ambient;
        LRESULT result = 1;
        EXPECT_EQ(As<IOleInPlaceObjectWindowless>()->OnWindowMessage(random(), random(), random(), &result),
                  S_FALSE);
        EXPECT_EQ(result, 0);
    }
    void CallSetValue() {
        RandomVariant value;
        value.Fill(random, nullptr, nullptr);
        const LONG type = PickNumber();
        EXPECT_EQ(control->SetValue(&value.value, type),
                  kvtest::AnswerToSetValue(scenario, value.value, type, S_OK))
            << "type " << type << " of " << value.value.vt;
    }
    void CallInvoke();
    void CallAny() {
        constexpr void (BadCalls::*calls[])() = {&BadCalls::CallDoVerb,        &BadCalls::CallExtent,
                                                 &BadCalls::CallQuickActivate, &BadCalls::CallMessages,
                                                 &BadCalls::CallSetValue,      &BadCalls::CallInvoke};
        (this->*calls[PickBelow(random, 6)])();
    }

    const kvtest::ClassScenario& scenario = *GetParam().scenario;
    kvhost::UndoController* const undo =
        static_cast<kvhost::UndoController*>(document->GetDatabase().undoController());
    kvtest::RandomEngine random{20'240'608};
    int accepted = 0;  // by Invoke
};

// Any member, known or not, with arguments of any number and type.
void BadCalls::CallInvoke() {
    constexpr DISPID members[] = {1, 2, 3, 4, 5, 6, -501, -512, -513, -2000, -2001};
    const bool isMember = !PickOnceIn(random, 4);
    const DISPID member = isMember ? members[PickBelow(random, 11)] : 7 + static_cast<DISPID>(random() >> 2);
    constexpr WORD kinds[] = {DISPATCH_METHOD, DISPATCH_PROPERTYGET, DISPATCH_PROPERTYPUT,
                              DISPATCH_PROPERTYPUTREF, DISPATCH_METHOD | DISPATCH_PROPERTYGET};
    const WORD kind = kinds[PickBelow(random, 5)];
    RandomVariant filled[3];
    VARIANT arguments[3];
    for (std::size_t index = 0; index < 3; ++index) {
        filled[index].Fill(random, nullptr, nullptr);
        arguments[index] = filled[index].value;
    }
    DISPID named = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{arguments, &named, PickBelow(random, 4), 0};
    parameters.cNamedArgs = (kind & DISPATCH_PROPERTYPUT) != 0 && parameters.cArgs > 0 ? 1 : 0;
    const IID& reserved = PickOnceIn(random, 10) ? IID_IUnknown : IID_NULL;
    fw::Variant result;
    EXCEPINFO exception{};
    UINT badArgument = 0;
    const HRESULT called = control->Invoke(member, reserved, LOCALE_USER_DEFAULT, kind, &parameters,
                                           result.Put(), &exception, &badArgument);
    if (&reserved != &IID_NULL) {
        EXPECT_EQ(called, DISP_E_UNKNOWNINTERFACE);
    } else if (!isMember) {
        EXPECT_EQ(called, DISP_E_MEMBERNOTFOUND) << member;
    } else if (SUCCEEDED(called)) {
        ++accepted;
    }
    ::SysFreeString(exception.bstrSource);
    ::SysFreeString(exception.bstrDescription);
    ::SysFreeString(exception.bstrHelpFile);
}

TEST_P(BadCalls, RowInItsWindow_RandomArguments_GiveTheResultOfTheRules) {
    int inEdit = 0;
    const int rounds = Calls();
    for (int round = 0; round < rounds && !HasFailure(); ++round) {
        if (round % 50 == 0) {
            Renew();
        }
        if (PickOnceIn(random, 4)) {
            EXPECT_EQ(DoVerb(OLEIVERB_UIACTIVATE), S_OK);
            inEdit += kvtest::ChildInFocus(Row()) ? 1 : 0;
        }
        CallAny();
        Forget();
        EXPECT_FALSE(HasFailure()) << "round " << round;
    }
    EXPECT_GT(inEdit, rounds / 10);
    EXPECT_GT(accepted, rounds / 200);
}

// Rows that read in their window have their say only here.
TEST_P(BadCalls, RowInItsWindow_RandomTriples_GiveTheResultOfTheRulesAndAreLetGo) {
    kvtest::ClassScenario inWindow = scenario;
    inWindow.readsInWindow = false;
    if (scenario.readsInWindow) {
        inWindow.alike = inWindow.before;  // names that differ in case are no entry of a filled list
    }
    kvtest::SelectionPool pool(inWindow);
    int taken = 0;
    const int triples = Triples();
    for (int round = 0; round < triples && !HasFailure(); ++round) {
        Discard();
        EXPECT_TRUE(pool.IsReleased());
        Create(*GetParam().id);
        ASSERT_EQ(DoVerb(OLEIVERB_INPLACEACTIVATE), S_OK);
        kvtest::InitTriple triple(random, pool);
        const HRESULT result = control->InitEditControl(triple.Objects(), triple.DynamicProperties(),
                                                        triple.Dispids(), VARIANT_FALSE);
        EXPECT_EQ(result, triple.Expected()) << "round " << round << triple;
        taken += SUCCEEDED(result) ? 1 : 0;
        Clear();
    }
    Discard();
    EXPECT_TRUE(pool.IsReleased());
    EXPECT_GT(taken, triples / 20);
    EXPECT_LT(taken, triples / 2);
}

KV_FOR_EACH_AVAILABLE_CLASS(BadCalls);

}  // namespace
