#include "refhost/db/Layer.h"

#include "host_sdk/KvRxClass.h"
#include "refhost/db/Database.h"
#include "refhost/db/NameRules.h"
#include "refhost/testing/ServiceCall.h"

namespace kvhost {

namespace {

constexpr const wchar_t* c_layerZero = L"0";
constexpr const wchar_t* c_plainLinetype = L"Continuous";
const ColorValue c_plainColor = ColorValue::OfIndex(7);

bool IsOwnColor(const ColorValue& color) {
    return color.method == ColorValue::Method::Rgb ||
           (color.method == ColorValue::Method::Index && color.index > 0);
}

}  // namespace

Layer::Layer() = default;
Layer::~Layer() = default;

KvRxClass* Layer::desc() {
    return KvDbLayerTableRecord::desc();
}

Tolm::ErrorStatus Layer::SetName(std::wstring_view name) {
    if (GetDatabase() != nullptr) {
        if (m_external || m_name == c_layerZero) {
            return Tolm::eNotAllowed;
        }
        const KvDbObjectId other = GetDatabase()->LayerNamed(name);
        if (!other.isNull() && other != Id()) {
            return Tolm::eDuplicateKey;
        }
    }
    return IsSymbolName(name, m_external) ? Change(m_name, name) : Tolm::eInvalidInput;
}

Tolm::ErrorStatus Layer::SetColor(const ColorValue& color) {
    return IsOwnColor(color) ? Change(m_color, color) : Tolm::eInvalidInput;
}

bool Layer::isLocked() const {
    ServiceCall call(L"isLocked", Id());
    return call.Returns(!call.Fails() && m_locked);
}

void Layer::VisitFields(FieldVisitor& visitor) {
    visitor.Text("name", m_name, L"");
    visitor.Color("color", m_color, c_plainColor);
    visitor.Flag("on", m_on, true);
    visitor.Flag("frozen", m_frozen, false);
    visitor.Flag("locked", m_locked, false);
    visitor.Flag("external", m_external, false);
    visitor.Text("linetype", m_linetype, c_plainLinetype);
    visitor.Text("description", m_description, L"");
}

std::wstring Layer::Complaint() const {
    if (!IsSymbolName(m_name, m_external)) {
        return L"name: '" + m_name + L"' is no name for a layer";
    }
    return IsOwnColor(m_color) ? std::wstring() : L"color: a layer has a colour of its own";
}

}  // namespace kvhost
