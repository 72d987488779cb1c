// A row is given its objects, through the interface and by id: both read the same.

#include "refhost/editor/DocumentManager.h"
#include "refhost/editor/Host.h"
#include "refhost/testing/ScriptedObject.h"
#include "tests/conform/Checks.h"
#include "tests/conform/ControlBench.h"
#include "tests/conform/Invocation.h"
#include "tests/control/support/ClassScenarios.h"
#include "tests/support/SelectionArrays.h"

namespace kvconform {
namespace {

constexpr DISPID c_initEditControl = 1;

/// A drawing of its own, current for its scope, with what rows of a kind look up there.
class ScopedDrawing {
public:
    explicit ScopedDrawing(const kvtest::ClassScenario& scenario)
        : m_before(Documents().Current()), m_drawing(Documents().New()) {
        Documents().SetCurrent(&m_drawing);
        scenario.Arrange(m_drawing.GetDatabase());
    }
    ScopedDrawing(const ScopedDrawing&) = delete;
    ScopedDrawing& operator=(const ScopedDrawing&) = delete;
    ~ScopedDrawing() {
        static_cast<void>(Documents().Close(&m_drawing));
        Documents().SetCurrent(m_before);
    }

private:
    static kvhost::DocumentManager& Documents() { return kvhost::Host::Current()->Documents(); }

    kvhost::Document* m_before;
    kvhost::Document& m_drawing;
};

/// A row in its container, and an object with the property that rows of its kind show.
class InitBench {
public:
    InitBench(const TestedModule& module, const kvtest::ClassRow& row, const kvtest::ClassScenario& scenario)
        : control(module, *row.id), m_object(kvhost::ScriptedObject::Make(L"object")) {
        scenario.Give(*m_object.Get(), kvtest::c_property, scenario.before);
        const kvtest::SelectionArrays arrays({m_object.Get()});
        objects = arrays.Objects();
        dynamicProperties = arrays.DynamicProperties();
        dispids = arrays.Dispids();
        control.GiveSite();
        static_cast<void>(control.DoVerb(OLEIVERB_INPLACEACTIVATE));
        static_cast<void>(control.TakeCalls());
    }

    ControlBench control;
    fw::Variant objects;
    fw::Variant dynamicProperties;
    fw::Variant dispids;

private:
    fw::ComPtr<kvhost::ScriptedObject> m_object;
};

}  // namespace

void CheckInit(Report& report, const TestedModule& module, const kvtest::ClassRow& row) {
    const kvtest::ClassScenario* const scenario = kvtest::FindScenario(ToText(row.name));
    if (!scenario) {
        return;  // nobody has said yet what such a row shows
    }
    const ScopedDrawing drawing(*scenario);
    InitBench direct(module, row, *scenario);
    report.Expect(
        "init: through the interface", S_OK,
        direct.control.control->InitEditControl(direct.objects.Address(), direct.dynamicProperties.Address(),
                                                direct.dispids.Address(), VARIANT_FALSE));
    const Lines asked = direct.control.TakeObjectCalls();
    report.Expect("init: the object is asked for its property", true,
                  std::ranges::find(asked, "Invoke object get 5") != asked.end());

    InitBench byId(module, row, *scenario);
    const fw::Variant writable = fw::Variant::FromBool(false);
    report.Expect(
        "init: by id", S_OK,
        Invoke(*byId.control.control.Get(), c_initEditControl, DISPATCH_METHOD,
               {writable.Get(), byId.dispids.Get(), byId.dynamicProperties.Get(), byId.objects.Get()}));
    report.Expect("init: by id the object is asked the same", asked, byId.control.TakeObjectCalls());
}

}  // namespace kvconform
