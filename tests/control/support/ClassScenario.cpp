#include "tests/control/support/ClassScenario.h"

#include <gtest/gtest.h>

#include "refhost/automation/PropertyTable.h"
#include "refhost/db/ScopedOpen.h"

namespace kvtest {
namespace {

fw::Variant As(VARTYPE type, const VARIANT& value) {
    fw::Variant converted;
    EXPECT_EQ(::VariantChangeTypeEx(converted.Put(), const_cast<VARIANT*>(&value), LOCALE_INVARIANT, 0, type),
              S_OK)
        << "from type " << value.vt << " to " << type;
    return converted;
}

const kvhost::PropertyDescription& PropertyOf(const ClassScenario& scenario) {
    const kvhost::PropertyTable* const table = kvhost::PropertyTable::Of(scenario.objectClass);
    const kvhost::PropertyDescription* const property =
        table ? table->Find(scenario.objectProperty) : nullptr;
    if (!property) {
        ADD_FAILURE() << scenario.coclass << ": the drawing's objects have no property "
                      << scenario.objectProperty;
        std::abort();
    }
    return *property;
}

}  // namespace

fw::Variant ScenarioValue::Make() const {
    return As(type, fw::Variant::FromString(text).Get());
}

bool ScenarioValue::IsSameAs(const fw::Variant& value) const {
    return As(VT_BSTR, value.Get()).StringView() == As(VT_BSTR, Make().Get()).StringView();
}

void ClassScenario::Give(kvhost::ScriptedObject& object, DISPID property, const ScenarioValue& value) const {
    object.At(property).Set(value.Make().Get());
    if (prepareObject) {
        prepareObject(object, property);
    }
}

void ClassScenario::Give(kvhost::ScriptedDynamicProperty& property, const ScenarioValue& value) const {
    property.shared.Set(value.Make().Get());
    if (prepareDynamicProperty) {
        prepareDynamicProperty(property);
    }
}

void ClassScenario::Arrange(kvhost::Database& database) const {
    if (arrange) {
        arrange(database);
    }
}

HRESULT ClassScenario::AnswerToInit(HRESULT result) const {
    const bool isPlainFailure = FAILED(result) && initAnswer == InitAnswer::Fail;
    return readsInWindow || isPlainFailure ? E_FAIL : result;
}

void ClassScenario::SetDrawn(KvDbObjectId object, const ScenarioValue& value) const {
    const kvhost::ScopedOpen<kvhost::Object> opened(object, KvDb::kForWrite);
    ASSERT_TRUE(static_cast<bool>(opened));
    EXPECT_EQ(PropertyOf(*this).set(*opened, value.Make()), Tolm::eOk);
}

bool ClassScenario::IsDrawn(KvDbObjectId object, const ScenarioValue& value) const {
    fw::Variant found;
    const kvhost::Object* const peeked = kvhost::Database::Peek(object);
    return peeked && PropertyOf(*this).get(*peeked, found) == Tolm::eOk && value.IsSameAs(found);
}

}  // namespace kvtest
