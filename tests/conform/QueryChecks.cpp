// Creation, identity and the interfaces that a class answers.

#include "tests/conform/Checks.h"
#include "tests/conform/ClassInterfaces.h"
#include "tests/conform/ControlBench.h"

namespace kvconform {
namespace {

/// The identity of whoever answers; null when it has none.
IUnknown* IdentityOf(IUnknown* object) {
    fw::ComPtr<IUnknown> identity;
    // Compared only: the object is held by its caller.
    return SUCCEEDED(object->QueryInterface(IID_IUnknown, identity.PutVoid())) ? identity.Get() : nullptr;
}

/// The interfaces that the object does not answer, or answers by another object.
Lines LostFrom(IUnknown* object, IUnknown* identity, const std::vector<NamedInterface>& all) {
    Lines lost;
    for (const NamedInterface& to : all) {
        fw::ComPtr<IUnknown> answer;
        if (FAILED(object->QueryInterface(*to.id, answer.PutVoid())) ||
            IdentityOf(answer.Get()) != identity) {
            lost.emplace_back(to.name);
        }
    }
    return lost;
}

void CheckFrom(Report& report, const NamedInterface& from, IUnknown* object, IUnknown* identity,
               const std::vector<NamedInterface>& all) {
    const std::string name = from.name;
    report.Expect("query: " + name + " has the identity of the control", true,
                  IdentityOf(object) == identity);
    for (const NamedInterface& to : all) {
        const std::string way = "query: " + name + " leads to " + to.name;
        fw::ComPtr<IUnknown> answer;
        if (report.Expect(way, S_OK, object->QueryInterface(*to.id, answer.PutVoid()))) {
            report.Expect(way + " of the same control", true, IdentityOf(answer.Get()) == identity);
            report.Expect(way + ", which leads on to all but", Lines{},
                          LostFrom(answer.Get(), identity, all));
        }
    }
}

void CheckRefused(Report& report, IUnknown* control, const NamedInterface& other) {
    void* answer = &report;
    const HRESULT result = control->QueryInterface(*other.id, &answer);
    const std::string name = other.name;
    if (report.Expect("query: " + name + ", which the class table does not give the class, is refused",
                      E_NOINTERFACE, result)) {
        report.Expect("query: a refused " + name + " gives a null pointer", true, answer == nullptr);
    } else if (SUCCEEDED(result)) {
        static_cast<IUnknown*>(answer)->Release();
    }
}

}  // namespace

void CheckCreation(Report& report, TestedModule& module, const kvtest::ClassRow& row) {
    {
        ControlBench bench(module, *row.id);
        if (!report.Expect("create: the class factory makes the control", true,
                           static_cast<bool>(bench.control))) {
            return;
        }
        report.Expect("create: the module cannot be unloaded while a control lives", S_FALSE,
                      module.CanUnloadNow());
        CLSID classId{};
        report.Expect("create: IOleObject::GetUserClassID succeeds", S_OK,
                      bench.As<IOleObject>()->GetUserClassID(&classId));
        report.Expect("create: the control names its own class", *row.id, classId);
        report.Expect("create: releasing the last reference ends the control", ULONG{0},
                      bench.control.Detach()->Release());
        fw::ComPtr<IClassFactory> factory;
        if (!report.Expect("create: the class has a factory", S_OK,
                           module.GetClassObject(*row.id, IID_IClassFactory, factory.PutVoid()))) {
            return;
        }
        fw::ComPtr<IUnknown> aggregated;
        report.Expect("create: a control cannot be made part of another object", CLASS_E_NOAGGREGATION,
                      factory->CreateInstance(factory.Get(), IID_IUnknown, aggregated.PutVoid()));
    }
    report.Expect("create: the module can be unloaded when no control lives", S_OK, module.CanUnloadNow());
    report.Expect("create: the module unloads and loads again", true, module.Reload());
    fw::ComPtr<IUnknown> again;
    report.Expect("create: the class can be created in the module that was loaded again", S_OK,
                  module.Create(*row.id, IID_IUnknown, again.PutVoid()));
}

bool CheckQueryRules(Report& report, const TestedModule& module, const kvtest::ClassRow& row) {
    const ControlBench bench(module, *row.id);
    const std::vector<NamedInterface> interfaces = InterfacesOf(row.further);
    IUnknown* const identity = IdentityOf(bench.control.Get());
    bool areAllAnswered = true;
    for (const NamedInterface& from : interfaces) {
        fw::ComPtr<IUnknown> object;
        if (report.Expect(std::string("query: ") + from.name + " is answered", S_OK,
                          bench.control->QueryInterface(*from.id, object.PutVoid()))) {
            CheckFrom(report, from, object.Get(), identity, interfaces);
        } else {
            areAllAnswered = false;
        }
    }
    for (const NamedInterface& other : FurtherInterfaces()) {
        if (!IsListed(row.further, other.name)) {
            CheckRefused(report, bench.control.Get(), other);
        }
    }
    CheckRefused(report, bench.control.Get(), {"IPersistStreamInit", &IID_IPersistStreamInit});
    return areAllAnswered;
}

}  // namespace kvconform
