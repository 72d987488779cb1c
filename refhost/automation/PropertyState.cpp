#include "refhost/automation/PropertyState.h"

#include <string>

#include "framework/com/Bstr.h"
#include "refhost/automation/AutomationError.h"
#include "refhost/automation/PropertyTable.h"
#include "refhost/db/Database.h"
#include "refhost/db/ScopedOpen.h"

namespace kvhost {

namespace {

std::optional<ExpressionValue> AsExpressionValue(const fw::Variant& value) {
    switch (value.Type()) {
        case VT_R8:
            return value.DoubleOr(0);
        case VT_I4:
            return static_cast<double>(value.LongOr(0));
        case VT_BSTR:
            return std::wstring(value.StringView());
        default:
            return std::nullopt;
    }
}

// What expressions of the object may name: its properties, then its attributes.
std::optional<ExpressionValue> ValueOfName(const Object& object, std::wstring_view name) {
    const PropertyTable* const table = PropertyTable::Of(object.ClassName());
    const PropertyDescription* const property = table != nullptr ? table->FindByName(name) : nullptr;
    if (property != nullptr && !property->Has(PropertyMasked)) {
        fw::Variant value;
        return property->get(object, value) == Tolm::eOk ? AsExpressionValue(value) : std::nullopt;
    }
    const std::wstring* const text = object.CustomAttribute(name);
    return text != nullptr ? std::optional<ExpressionValue>(*text) : std::nullopt;
}

}  // namespace

Tolm::ErrorStatus ChangeObject(KvDbObjectId id, const ObjectWriter& write) {
    const Tolm::ErrorStatus allowed = Database::CanWrite(id);
    if (allowed != Tolm::eOk) {
        return allowed;
    }
    const ScopedOpen<Object> object(id, KvDb::kForWrite);
    return object ? write(*object) : object.Status();
}

Tolm::ErrorStatus WritePlainValue(KvDbObjectId id, std::wstring_view property, const ObjectWriter& write) {
    return ChangeObject(id, [&](Object& object) {
        Tolm::ErrorStatus status = write(object);
        if (status == Tolm::eOk && object.IsUnspecified(property)) {
            status = object.SetUnspecified(property, false);
        }
        if (status == Tolm::eOk && !object.Expression(property).empty()) {
            status = object.SetExpression(property, {});
        }
        return status;
    });
}

HRESULT ReadUnspecified(KvDbObjectId id, std::wstring_view property, VARIANT_BOOL* unspecified) {
    const ScopedOpen<Object> object(id);
    if (!object) {
        return ScodeOf(object.Status());
    }
    *unspecified = object->IsUnspecified(property) ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
}

Tolm::ErrorStatus WriteUnspecified(KvDbObjectId id, std::wstring_view property, VARIANT_BOOL unspecified) {
    return ChangeObject(id, [&](Object& object) {
        const bool wanted = unspecified != VARIANT_FALSE;
        // A state that is there already makes no step of undo.
        return object.IsUnspecified(property) == wanted ? Tolm::eOk : object.SetUnspecified(property, wanted);
    });
}

HRESULT ReadExpression(KvDbObjectId id, std::wstring_view property, BSTR* expression) {
    const ScopedOpen<Object> object(id);
    return object ? fw::MakeBstr(object->Expression(property), expression) : ScodeOf(object.Status());
}

Tolm::ErrorStatus WriteExpression(KvDbObjectId id, std::wstring_view property, const wchar_t* expression,
                                  const ExpressionWriter& write) {
    return ChangeObject(id, [&](Object& object) {
        if (*expression == L'\0') {
            return object.SetExpression(property, {});
        }
        const std::optional<ExpressionValue> value =
            EvaluateExpression(expression, [&](std::wstring_view name) { return ValueOfName(object, name); });
        if (!value) {
            return Tolm::eInvalidInput;
        }
        Tolm::ErrorStatus status = write(object, *value);
        if (status == Tolm::eOk) {
            status = object.SetExpression(property, expression);
        }
        return status == Tolm::eOk && object.IsUnspecified(property) ? object.SetUnspecified(property, false)
                                                                     : status;
    });
}

Tolm::ErrorStatus SetFromExpression(Object& object, const PropertyDescription& property,
                                    const ExpressionValue& value) {
    if (property.type == VT_BSTR) {
        return property.set(object, fw::Variant::FromString(ExpressionText(value)));
    }
    const double* const number = std::get_if<double>(&value);
    return number != nullptr && property.type == VT_R8
               ? property.set(object, fw::Variant::FromDouble(*number))
               : Tolm::eInvalidInput;
}

}  // namespace kvhost
