#include "refhost/db/UndoController.h"
#include "refhost/editor/HostSession.h"
#include "refhost/testing/Answers.h"
#include "tests/control/proofs/AnswerToSetValue.h"
#include "tests/control/proofs/InitTriple.h"
#include "tests/control/support/AvailableClass.h"
#include "tests/control/support/ModuleLock.h"
#include "tests/support/HeapBlocks.h"
#include "tests/support/Rounds.h"

namespace {

using kvtest::InitTriple;
using kvtest::PickBelow;
using kvtest::PickOnceIn;
using kvtest::RandomVariant;

// The first ones fill what is made once and kept.
constexpr int c_firstRounds = 200;

// Of each class.
int Triples() {
    return kvtest::RoundsOfEach(kvtest::AvailableClasses().size(), 100'000, 100'000);
}
int Calls() {
    return kvtest::RoundsOfEach(kvtest::AvailableClasses().size(), 20'000, 20'000);
}

class BadInput : public ::testing::TestWithParam<kvtest::AvailableClass> {
protected:
    BadInput() {
        GetParam().scenario->Arrange(database);
        Renew();
    }
    ~BadInput() override {
        control.Reset();
        EXPECT_TRUE(pool.IsReleased());
        EXPECT_EQ(kvtest::AskModuleCanUnload(), S_OK);
        kvhost::Answers::Reset();
    }

    void Renew() {
        control.Reset();
        ASSERT_EQ(::CoCreateInstance(*GetParam().id, nullptr, CLSCTX_INPROC_SERVER,
                                     __uuidof(IKvPiPropertyEditControl2), control.PutVoid()),
                  S_OK);
    }
    /// Runs that many rounds, which leave nothing in memory.
    template <class Round>
    void ExpectSameMemory(int rounds, const Round& run) {
        long blocks = 0;
        for (round = 0; round < rounds && !HasFailure(); ++round) {
            if (round == c_firstRounds) {
                Renew();
                blocks = kvtest::CountHeapBlocks();
            }
            run();
            Forget();
        }
        ASSERT_FALSE(HasFailure()) << "round " << round;
        Renew();
        EXPECT_LE(kvtest::CountHeapBlocks() - blocks, kvtest::c_heapNoise);
    }
    // What the host and the objects note.
    void Forget() {
        for (kvhost::ScriptedObject* object : {pool.same.Get(), pool.alike.Get(), pool.other.Get()}) {
            object->At(kvtest::SelectionPool::c_property).puts.clear();
        }
        // What was said while nobody looks.
        static_cast<void>(kvhost::Answers::TakeShown());
        undo->Clear();
    }

    /// True when a new row has accepted its arguments.
    bool InitRandomTriple() {
        Renew();  // a row keeps the selection that it has got until its end
        EXPECT_TRUE(pool.IsReleased());
        HRESULT result = S_OK;
        {
            InitTriple triple(random, pool);
            result = control->InitEditControl(triple.Objects(), triple.DynamicProperties(), triple.Dispids(),
                                              static_cast<VARIANT_BOOL>(random()));
            EXPECT_EQ(result, triple.Expected()) << triple;
        }
        // A row that reads in its window only answers no success here; what it accepts it keeps.
        return GetParam().scenario->readsInWindow ? !pool.IsReleased() : SUCCEEDED(result);
    }
    void InitThree() {
        RandomVariant objects;
        RandomVariant dynamicProperties;
        RandomVariant dispids;
        objects.FillArray(VT_DISPATCH, VT_DISPATCH, 1, 0, 3);
        dynamicProperties.FillArray(VT_UNKNOWN, VT_UNKNOWN, 1, 0, 3);
        dispids.FillArray(VT_I4, VT_I4, 1, 0, 3);
        LONG index = 0;
        for (kvhost::ScriptedObject* object : {pool.same.Get(), pool.alike.Get(), pool.other.Get()}) {
            objects.PutObject(index, static_cast<IDispatch*>(object));
            object->At(kvtest::SelectionPool::c_property).keepsPuts = false;
            dispids.PutLong(index++, kvtest::SelectionPool::c_property);
        }
        dispids.PutLong(2, kvtest::SelectionPool::c_unknownProperty);
        // The last object cannot be read; the selection is there all the same.
        EXPECT_EQ(control->InitEditControl(&objects.value, &dynamicProperties.value, &dispids.value, 0),
                  pool.scenario.AnswerToInit(DISP_E_MEMBERNOTFOUND));
    }
    void CallSetValue() {
        RandomVariant value;
        value.Fill(random, pool.dynamicProperty->Identity(), pool.same.Get());
        const LONG type =
            PickOnceIn(random, 3) ? static_cast<LONG>(random()) : static_cast<LONG>(PickBelow(random, 6)) - 1;
        // The last object has no such property.
        EXPECT_EQ(control->SetValue(&value.value, type),
                  kvtest::AnswerToSetValue(pool.scenario, value.value, type, DISP_E_MEMBERNOTFOUND))
            << "type " << type << " of " << value.value.vt;
    }
    void CallLaunchDialog() {
        RandomVariant value;
        value.Fill(random, nullptr, nullptr);
        BSTR const text = value.value.vt == VT_BSTR ? value.value.bstrVal : nullptr;
        const LONG flags = PickOnceIn(random, 2) ? static_cast<LONG>(random()) : 8;
        const HRESULT button = (flags & 24) == 24 ? pool.scenario.buttonAnswer : E_UNEXPECTED;
        EXPECT_EQ(control->LaunchDialog(text, flags), (flags & 24) == 8 ? S_OK : button) << flags;
    }
    void CallColors() {
        const OLE_COLOR put = random();
        OLE_COLOR got = ~put;
        EXPECT_EQ(control->put_BackColor(put), S_OK);
        EXPECT_EQ(control->get_BackColor(&got), S_OK);
        EXPECT_EQ(got, put);
        EXPECT_EQ(control->put_ReadOnlyBackColor(put), S_OK);
        EXPECT_EQ(control->put_ForeColor(~put), S_OK);
        EXPECT_EQ(control->get_ForeColor(&got), S_OK);
        EXPECT_EQ(got, ~put);
        EXPECT_EQ(control->put_ReadOnlyForeColor(put), S_OK);
    }
    void CallObjects() {
        IUnknown* const objects[] = {nullptr, pool.dynamicProperty->Identity(),
                                     static_cast<IDispatch*>(pool.same.Get())};
        IUnknown* const object = objects[PickBelow(random, 3)];
        EXPECT_EQ(control->put_Font(object), object ? E_NOINTERFACE : E_POINTER);
        EXPECT_EQ(control->put_PropertyIdentifier(object), object ? E_NOINTERFACE : S_OK);
    }

    void CallNumbers() {
        if (const auto numeric = As<IKvPeNumericEditor>()) {
            const LONG type = PickOnceIn(random, 2) ? static_cast<LONG>(random())
                                                    : static_cast<LONG>(PickBelow(random, 9)) - 1;
            const HRESULT result = numeric->SetNumericDataType(static_cast<KvPeNumericType>(type));
            EXPECT_TRUE(result == S_OK || (result == E_FAIL && (type < 0 || type > 2))) << type;
        }
        if (const auto calculator = As<IKvPeCalculatorCtrl>()) {
            EXPECT_EQ(calculator->SetCalculatorMode(static_cast<VARIANT_BOOL>(random())), S_OK);
        }
    }
    void CallElements() {
        if (const auto elements = As<IKvPeVariantCtrl>()) {
            RandomVariant cookies;
            cookies.Fill(random, pool.dynamicProperty->Identity(), pool.same.Get());
            const bool isUsable = cookies.value.vt == (VT_ARRAY | VT_I4) && cookies.array;
            const HRESULT result = elements->SetDwCookies(cookies.value);
            EXPECT_TRUE(result == E_FAIL || (isUsable && result == S_OK)) << cookies.value.vt;
            EXPECT_EQ(elements->SetGroupOffset(random()), S_OK);
            EXPECT_EQ(elements->SetElementCount(random()), S_OK);
        }
    }
    void CallPictures() {
        const auto pictures = As<IKvPeButtonEditCtrl>();
        if (!pictures) {
            return;
        }
        EXPECT_EQ(pictures->put_DefaultPicture(pool.dynamicProperty->Identity()), E_NOINTERFACE);
        EXPECT_EQ(pictures->put_DisabledPicture(static_cast<IDispatch*>(pool.same.Get())), E_NOINTERFACE);
        EXPECT_EQ(pictures->put_DefaultPicture(nullptr), S_OK);
        EXPECT_EQ(pictures->put_DisabledPicture(nullptr), S_OK);
        fw::ComPtr<IUnknown> picture;
        EXPECT_EQ(pictures->get_DefaultPicture(picture.Put()), S_OK);
        EXPECT_FALSE(picture);
    }

    template <class Interface>
    fw::ComPtr<Interface> As() const {
        return control.As<Interface>();
    }

    kvhost::HostSession host;
    kvhost::Database& database = host->Documents().New().GetDatabase();
    kvhost::UndoController* const undo = static_cast<kvhost::UndoController*>(database.undoController());
    kvtest::SelectionPool pool{*GetParam().scenario};
    kvtest::RandomEngine random{20'240'607};
    fw::ComPtr<IKvPiPropertyEditControl2> control;
    int round = 0;
};

TEST_P(BadInput, InitEditControl_RandomTriples_GiveTheResultOfTheRulesAndKeepNothing) {
    const int triples = Triples();
    int accepted = 0;
    ExpectSameMemory(triples, [&] { accepted += InitRandomTriple() ? 1 : 0; });
    EXPECT_GT(accepted, triples / 20);
    EXPECT_LT(accepted, triples / 2);
}

TEST_P(BadInput, InitEditControl_LowerBoundGoneAstray_IsRefused) {
    RandomVariant objects;
    RandomVariant dynamicProperties;
    RandomVariant dispids;
    constexpr LONG lower = MAXLONG - 2;
    objects.FillArray(VT_DISPATCH, VT_DISPATCH, 1, lower, 2);
    dynamicProperties.FillArray(VT_UNKNOWN, VT_UNKNOWN, 1, lower, 2);
    dispids.FillArray(VT_I4, VT_I4, 1, lower, 2);
    EXPECT_EQ(control->InitEditControl(&objects.value, &dynamicProperties.value, &dispids.value, 0), E_FAIL);
}

// The row over three objects, one of them without the property.
TEST_P(BadInput, OtherOperations_RandomArguments_GiveTheResultOfTheRules) {
    ExpectSameMemory(Calls(), [this] {
        if (round % 50 == 0) {
            Renew();
            InitThree();
        }
        CallSetValue();
        CallLaunchDialog();
        EXPECT_EQ(control->Refresh(random()), S_OK);
        CallColors();
        CallObjects();
    });
}

// What only some rows have: the palette calls it between creation and initialisation.
TEST_P(BadInput, FurtherInterfaces_RandomArguments_GiveTheResultOfTheRules) {
    ExpectSameMemory(Calls(), [this] {
        if (round % 50 == 0) {
            Renew();
        }
        CallNumbers();
        CallElements();
        CallPictures();
        if (round % 50 == 49) {
            InitThree();
            EXPECT_EQ(control->Refresh(random()), S_OK);
        }
    });
}

KV_FOR_EACH_AVAILABLE_CLASS(BadInput);

}  // namespace
