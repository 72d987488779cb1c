#include "refhost/db/Layer.h"

#include <algorithm>

#include "host_sdk/KvRxClass.h"
#include "refhost/db/Database.h"
#include "refhost/db/Dictionary.h"
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

auto FindOverride(auto& overrides, std::wstring_view viewport) {
    return std::find_if(overrides.begin(), overrides.end(),
                        [&](const auto& entry) { return SameName(entry.first, viewport); });
}

/// Whether each override has a viewport and a colour that it can have.
bool AreOverrides(const TextPairs& overrides) {
    return std::all_of(overrides.begin(), overrides.end(), [](const auto& entry) {
        const std::optional<ColorValue> color = ColorValue::FromText(entry.second);
        return !entry.first.empty() && color && IsOwnColor(*color);
    });
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

bool Layer::isFrozen() const {
    ServiceCall call(L"isFrozen", Id());
    return call.Returns(!call.Fails() && m_frozen);
}

bool Layer::isOff() const {
    ServiceCall call(L"isOff", Id());
    return call.Returns(!call.Fails() && !m_on);
}

bool Layer::hasOverrides(KvDbObjectId viewport) const {
    ServiceCall call(L"hasOverrides", Id(), viewport);
    const Dictionary* const record = call.Fails() ? nullptr : Database::PeekAs<Dictionary>(viewport);
    return call.Returns(record != nullptr && HasOverrides(record->Name()));
}

Tolm::ErrorStatus Layer::getName(wchar_t*& name) const {
    ServiceCall call(L"getName", Id());
    name = nullptr;
    if (call.Fails()) {
        return call.Returns(Tolm::eOutOfMemory);
    }
    auto copy = std::make_unique<wchar_t[]>(m_name.size() + 1);
    std::copy_n(m_name.c_str(), m_name.size() + 1, copy.get());
    name = copy.release();  // the caller's
    return call.Returns(Tolm::eOk);
}

bool Layer::isDependent() const {
    ServiceCall call(L"isDependent", Id());
    return call.Returns(!call.Fails() && m_external);
}

bool Layer::HasOverrides(std::wstring_view viewport) const {
    return FindOverride(m_overrides, viewport) != m_overrides.end();
}

ColorValue Layer::ColorIn(std::wstring_view viewport) const {
    const auto found = FindOverride(m_overrides, viewport);
    return found != m_overrides.end() ? ColorValue::FromText(found->second).value_or(m_color) : m_color;
}

Tolm::ErrorStatus Layer::SetOverrideColor(std::wstring_view viewport,
                                          const std::optional<ColorValue>& color) {
    if (viewport.empty() || !IsWellFormed(viewport) || (color && !IsOwnColor(*color))) {
        return Tolm::eInvalidInput;
    }
    TextPairs overrides = m_overrides;
    const auto found = FindOverride(overrides, viewport);
    if (!color) {
        if (found != overrides.end()) {
            overrides.erase(found);
        }
    } else if (found != overrides.end()) {
        found->second = color->Text();
    } else {
        overrides.emplace_back(viewport, color->Text());
    }
    return Change(m_overrides, overrides);
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
    visitor.Pairs("overrides", m_overrides);
}

std::wstring Layer::Complaint() const {
    if (!IsSymbolName(m_name, m_external)) {
        return L"name: '" + m_name + L"' is no name for a layer";
    }
    if (!IsOwnColor(m_color)) {
        return L"color: a layer has a colour of its own";
    }
    return AreOverrides(m_overrides) ? std::wstring()
                                     : L"overrides: a colour of its own is needed for each viewport";
}

}  // namespace kvhost
