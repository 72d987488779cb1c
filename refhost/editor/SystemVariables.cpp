#include "refhost/editor/SystemVariables.h"

#include <array>
#include <cerrno>
#include <cmath>
#include <cwchar>

#include "refhost/db/Layer.h"
#include "refhost/db/NameRules.h"
#include "refhost/db/ScopedOpen.h"
#include "refhost/db/Settings.h"
#include "refhost/editor/DocumentManager.h"
#include "refhost/editor/Host.h"

namespace kvhost {

namespace {

using Outcome = SystemVariables::Outcome;

/// A variable: of the session when it has no `read`, read-only when it has `read` but no `write`.
struct Variable {
    const wchar_t* name;
    VariableValue initial;
    double lowest;
    double highest;
    VariableValue (*read)(const Host& host) = nullptr;
    Tolm::ErrorStatus (*write)(Database& database, const VariableValue& value) = nullptr;
};

template <auto Getter>
VariableValue ReadSetting(const Host& host) {
    const Database* const database = host.WorkingDatabase();
    using Value = decltype((std::declval<const Settings&>().*Getter)());
    return database != nullptr ? (database->GetSettings().*Getter)() : Value{};
}

template <auto Setter, class Value = int>
Tolm::ErrorStatus WriteSetting(Database& database, const VariableValue& value) {
    const ScopedOpen<Settings> settings(database.SettingsId(), KvDb::kForWrite);
    return settings ? ((*settings).*Setter)(std::get<Value>(value)) : settings.Status();
}

VariableValue ReadCurrentLayer(const Host& host) {
    const Database* const database = host.WorkingDatabase();
    const Layer* const layer =
        database != nullptr ? Database::PeekAs<Layer>(database->GetSettings().CurrentLayer()) : nullptr;
    return layer != nullptr ? layer->Name() : std::wstring();
}

Tolm::ErrorStatus WriteCurrentLayer(Database& database, const VariableValue& value) {
    const ScopedOpen<Settings> settings(database.SettingsId(), KvDb::kForWrite);
    return settings ? settings->SetCurrentLayer(database.LayerNamed(std::get<std::wstring>(value)))
                    : settings.Status();
}

VariableValue ReadCurrentViewport(const Host& host) {
    const Database* const database = host.WorkingDatabase();
    return database != nullptr ? database->GetSettings().CurrentViewport() : std::wstring();
}

Tolm::ErrorStatus WriteCurrentViewport(Database& database, const VariableValue& value) {
    const ScopedOpen<Settings> settings(database.SettingsId(), KvDb::kForWrite);
    return settings ? settings->SetCurrentViewport(std::get<std::wstring>(value)) : settings.Status();
}

const Document* CurrentDocument(const Host& host) {
    return const_cast<Host&>(host).Documents().Current();
}

VariableValue ReadFileName(const Host& host) {
    const Document* const document = CurrentDocument(host);
    return document != nullptr ? document->Title() : std::wstring();
}

VariableValue ReadFolder(const Host& host) {
    const Document* const document = CurrentDocument(host);
    return document != nullptr ? document->Path().substr(0, document->Path().find_last_of(L"\\/") + 1)
                               : std::wstring();
}

VariableValue ReadIsTitled(const Host& host) {
    const Document* const document = CurrentDocument(host);
    return document != nullptr && document->IsTitled() ? 1 : 0;
}

VariableValue ReadIsModified(const Host& host) {
    const Document* const document = CurrentDocument(host);
    return document != nullptr && document->IsDirty() ? 1 : 0;
}

constexpr double c_largeReal = 1e99;

constexpr double c_fullTurn = 6.283185307179586;

const std::array s_variables{
    Variable{L"ANGBASE", 0.0, -c_fullTurn, c_fullTurn, ReadSetting<&Settings::AngleBase>,
             WriteSetting<&Settings::SetAngleBase, double>},
    Variable{L"ANGDIR", 0, 0, 1, ReadSetting<&Settings::AngleDirection>,
             WriteSetting<&Settings::SetAngleDirection>},
    Variable{L"AUNITS", 0, 0, 4, ReadSetting<&Settings::AngularUnits>,
             WriteSetting<&Settings::SetAngularUnits>},
    Variable{L"AUPREC", 0, 0, 8, ReadSetting<&Settings::AngularPrecision>,
             WriteSetting<&Settings::SetAngularPrecision>},
    Variable{L"CLAYER", std::wstring(L"0"), 0, 0, ReadCurrentLayer, WriteCurrentLayer},
    Variable{L"DBMOD", 0, 0, 1, ReadIsModified},
    Variable{L"GRIPOBJLIMIT", 100, 0, 32767},
    Variable{L"GRIPS", 2, 0, 2},
    Variable{L"HIGHLIGHT", 1, 0, 1},
    Variable{L"LUNITS", 2, 1, 5, ReadSetting<&Settings::LinearUnits>,
             WriteSetting<&Settings::SetLinearUnits>},
    Variable{L"LUPREC", 4, 0, 8, ReadSetting<&Settings::LinearPrecision>,
             WriteSetting<&Settings::SetLinearPrecision>},
    Variable{L"PICKFIRST", 1, 0, 1},
    Variable{L"PROPERTYPREVIEW", 1, 0, 1},
    Variable{L"QDFNAME", std::wstring(), 0, 0, ReadFileName},
    Variable{L"QDFPREFIX", std::wstring(), 0, 0, ReadFolder},
    Variable{L"QDFTITLED", 0, 0, 1, ReadIsTitled},
    Variable{L"ROWCONTROLS", std::wstring(), 0, 0},
    Variable{L"TEXTSIZE", 2.5, 1e-6, c_largeReal},
    Variable{L"USERNAME", std::wstring(), 0, 0},
    Variable{L"VIEWPORT", std::wstring(), 0, 0, ReadCurrentViewport, WriteCurrentViewport},
};

const Variable* FindVariable(std::wstring_view name) {
    for (const Variable& variable : s_variables) {
        if (SameName(name, variable.name)) {
            return &variable;
        }
    }
    return nullptr;
}

bool IsInRange(const Variable& variable, const VariableValue& value) {
    if (const int* const integer = std::get_if<int>(&value)) {
        return *integer >= variable.lowest && *integer <= variable.highest;
    }
    if (const double* const real = std::get_if<double>(&value)) {
        return *real >= variable.lowest && *real <= variable.highest;
    }
    return IsWellFormed(std::get<std::wstring>(value));
}

Outcome WriteToDrawing(const Variable& variable, const VariableValue& value) {
    Host* const host = Host::Current();
    Database* const database = host != nullptr ? host->WorkingDatabase() : nullptr;
    if (database == nullptr) {
        return Outcome::ReadOnly;
    }
    database->Undo().BeginGroup(variable.name);
    const Tolm::ErrorStatus status = variable.write(*database, value);
    database->Undo().EndGroup();
    return status == Tolm::eOk ? Outcome::Done : Outcome::OutOfRange;
}

}  // namespace

SystemVariables::SystemVariables() {
    for (const Variable& variable : s_variables) {
        if (variable.read == nullptr) {
            m_sessionValues.emplace(variable.name, variable.initial);
        }
    }
}

SystemVariables::~SystemVariables() = default;

Outcome SystemVariables::Get(std::wstring_view name, VariableValue& value) const {
    const Variable* const variable = FindVariable(name);
    if (variable == nullptr) {
        return Outcome::Unknown;
    }
    if (variable->read == nullptr) {
        value = m_sessionValues.find(variable->name)->second;
    } else {
        const Host* const host = Host::Current();
        value = host != nullptr ? variable->read(*host) : variable->initial;
    }
    return Outcome::Done;
}

Outcome SystemVariables::Set(std::wstring_view name, const VariableValue& value) {
    const Variable* const variable = FindVariable(name);
    if (variable == nullptr) {
        return Outcome::Unknown;
    }
    if (variable->read != nullptr && variable->write == nullptr) {
        return Outcome::ReadOnly;
    }
    VariableValue typed = value;
    const int* const integer = std::get_if<int>(&value);
    if (integer != nullptr && std::holds_alternative<double>(variable->initial)) {
        typed = static_cast<double>(*integer);
    }
    if (typed.index() != variable->initial.index()) {
        return Outcome::WrongType;
    }
    if (!IsInRange(*variable, typed)) {
        return Outcome::OutOfRange;
    }
    if (variable->write != nullptr) {
        return WriteToDrawing(*variable, typed);
    }
    m_sessionValues.find(variable->name)->second = typed;
    return Outcome::Done;
}

Outcome SystemVariables::SetText(std::wstring_view name, std::wstring_view text) {
    const Variable* const variable = FindVariable(name);
    if (variable == nullptr || std::holds_alternative<std::wstring>(variable->initial)) {
        return Set(name, std::wstring(text));
    }
    const std::wstring digits(text);
    wchar_t* end = nullptr;
    if (std::holds_alternative<double>(variable->initial)) {
        const double real = std::wcstod(digits.c_str(), &end);
        return digits.empty() || *end != L'\0' ? Outcome::WrongType : Set(name, real);
    }
    errno = 0;
    const long integer = std::wcstol(digits.c_str(), &end, 10);
    if (digits.empty() || *end != L'\0') {
        return Outcome::WrongType;
    }
    return errno == ERANGE ? Outcome::OutOfRange : Set(name, static_cast<int>(integer));
}

std::vector<std::wstring> SystemVariables::Names() const {
    std::vector<std::wstring> names;
    names.reserve(s_variables.size());
    for (const Variable& variable : s_variables) {
        names.emplace_back(variable.name);
    }
    return names;
}

std::wstring SystemVariables::Explain(std::wstring_view name, Outcome outcome) {
    const std::wstring shown(name);
    switch (outcome) {
        case Outcome::Done:
            return {};
        case Outcome::Unknown:
            return L"There is no system variable '" + shown + L"'.";
        case Outcome::ReadOnly:
            return L"The system variable '" + shown + L"' can't be changed.";
        case Outcome::WrongType:
            return L"The system variable '" + shown + L"' takes a value of another type.";
        case Outcome::OutOfRange:
            return L"The value is out of the range of the system variable '" + shown + L"'.";
    }
    return {};
}

int SystemVariables::Integer(std::wstring_view name) const {
    VariableValue value;
    const bool isKnown = Get(name, value) == Outcome::Done;
    const int* const integer = std::get_if<int>(&value);
    return isKnown && integer != nullptr ? *integer : 0;
}

}  // namespace kvhost
