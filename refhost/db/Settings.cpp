#include "refhost/db/Settings.h"

#include "host_sdk/KvRxClass.h"
#include "refhost/db/Database.h"
#include "refhost/db/Layer.h"

namespace kvhost {

namespace {

constexpr double c_fullTurn = 6.283185307179586;

bool IsInFullTurn(double radians) {
    return radians >= -c_fullTurn && radians <= c_fullTurn;
}

bool IsInRange(int value, int lowest, int highest) {
    return value >= lowest && value <= highest;
}

}  // namespace

Settings::Settings() = default;
Settings::~Settings() = default;

KvRxClass* Settings::desc() {
    static KvRxClass s_class(L"KvDbSettings", KvDbObject::desc());
    return &s_class;
}

Tolm::ErrorStatus Settings::ChangeInRange(std::int32_t& field, int value, int lowest, int highest) {
    return IsInRange(value, lowest, highest) ? Change(field, value) : Tolm::eInvalidInput;
}

Tolm::ErrorStatus Settings::SetAngleBase(double radians) {
    return IsInFullTurn(radians) ? Change(m_angleBase, radians) : Tolm::eInvalidInput;
}

Tolm::ErrorStatus Settings::SetCurrentLayer(KvDbObjectId layer) {
    const Layer* const record = Database::PeekAs<Layer>(layer);
    if (record == nullptr || record->IsErased() || record->GetDatabase() != GetDatabase()) {
        return Tolm::eInvalidInput;
    }
    if (record->IsFrozen() || record->IsExternal()) {
        return Tolm::eNotAllowed;
    }
    return Change(m_currentLayer, layer);
}

Tolm::ErrorStatus Settings::SetCurrentViewport(std::wstring_view name) {
    const bool isKnown = name.empty() || !GetDatabase()->ViewportNamed(name).isNull();
    return isKnown ? ChangeText(m_currentViewport, name) : Tolm::eInvalidInput;
}

void Settings::VisitFields(FieldVisitor& visitor) {
    visitor.Integer("linearUnits", m_linearUnits, 2);
    visitor.Integer("linearPrecision", m_linearPrecision, 4);
    visitor.Integer("angularUnits", m_angularUnits, 0);
    visitor.Integer("angularPrecision", m_angularPrecision, 0);
    visitor.OptionalNumber("angleBase", m_angleBase, 0);
    visitor.Integer("angleDirection", m_angleDirection, 0);
    visitor.Symbol("currentLayer", SymbolKind::Layer, m_currentLayer);
    visitor.Text("currentViewport", m_currentViewport, L"");
}

std::wstring Settings::Complaint() const {
    if (!IsInRange(m_linearUnits, 1, 5)) {
        return L"linearUnits: must be 1 to 5";
    }
    if (!IsInRange(m_linearPrecision, 0, 8)) {
        return L"linearPrecision: must be 0 to 8";
    }
    if (!IsInRange(m_angularUnits, 0, 4)) {
        return L"angularUnits: must be 0 to 4";
    }
    if (!IsInRange(m_angularPrecision, 0, 8)) {
        return L"angularPrecision: must be 0 to 8";
    }
    if (!IsInFullTurn(m_angleBase)) {
        return L"angleBase: must lie within a full turn either way";
    }
    return IsInRange(m_angleDirection, 0, 1) ? std::wstring() : L"angleDirection: must be 0 or 1";
}

}  // namespace kvhost
