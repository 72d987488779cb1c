#include <algorithm>

#include "host_sdk/KvDbUnits.h"
#include "refhost/db/Database.h"
#include "refhost/db/Settings.h"
#include "refhost/editor/Host.h"
#include "refhost/testing/ServiceCall.h"
#include "refhost/units/AngularText.h"
#include "refhost/units/LinearText.h"

using kvhost::AngularBase;
using kvhost::AngularFormat;
using kvhost::LinearFormat;
using kvhost::ServiceCall;
using kvhost::Settings;

namespace {

/// Null while no drawing works: the settings of a new drawing hold then.
const Settings* WorkingSettings() {
    const kvhost::Host* const host = kvhost::Host::Current();
    const kvhost::Database* const database = host != nullptr ? host->WorkingDatabase() : nullptr;
    return database != nullptr ? &database->GetSettings() : nullptr;
}

constexpr int c_newLinearUnits = 2;
constexpr int c_newLinearPrecision = 4;
constexpr int c_newAngularUnits = 0;
constexpr int c_newAngularPrecision = 0;

template <class Value>
Value Setting(Value (Settings::*getter)() const, Value otherwise) {
    const Settings* const settings = WorkingSettings();
    return settings != nullptr ? (settings->*getter)() : otherwise;
}

int LinearMode(int unitMode) {
    return unitMode == KVDB_CURRENT_SETTING ? Setting(&Settings::LinearUnits, c_newLinearUnits) : unitMode;
}

int AngularMode(int unitMode) {
    return unitMode == KVDB_CURRENT_SETTING ? Setting(&Settings::AngularUnits, c_newAngularUnits) : unitMode;
}

bool IsLinearFormat(int unitMode) {
    return unitMode >= static_cast<int>(LinearFormat::Scientific) &&
           unitMode <= static_cast<int>(LinearFormat::Fractional);
}

bool IsAngularFormat(int unitMode) {
    return unitMode >= static_cast<int>(AngularFormat::Degrees) &&
           unitMode <= static_cast<int>(AngularFormat::Surveyor);
}

int Precision(int precision, int current) {
    return precision < 0 ? current : std::min(precision, kvhost::c_highestPrecision);
}

AngularBase WorkingBase() {
    return {Setting(&Settings::AngleBase, 0.0), Setting(&Settings::AngleDirection, 0) != 0};
}

int GiveText(ServiceCall& call, const std::wstring& text, wchar_t* buffer) {
    if (text.empty() || text.size() >= KVDB_NUMBER_TEXT_SIZE) {
        return call.Returns(KVED_RTERROR);
    }
    std::copy_n(text.c_str(), text.size() + 1, buffer);
    return call.Returns(KVED_RTNORM);
}

int GiveValue(ServiceCall& call, const std::optional<double>& read, double* value) {
    if (!read || value == nullptr) {
        return call.Returns(KVED_RTERROR);
    }
    *value = *read;
    return call.Returns(KVED_RTNORM);
}

/// Clears the buffer; false for a call that is told to fail and for a missing buffer.
bool IsReady(const ServiceCall& call, wchar_t* buffer) {
    if (buffer != nullptr) {
        *buffer = L'\0';
    }
    return buffer != nullptr && !call.Fails();
}

}  // namespace

int kvdbRToS(double value, int unitMode, int precision, wchar_t* buffer) {
    ServiceCall call(L"kvdbRToS", value, unitMode, precision);
    const int format = LinearMode(unitMode);
    if (!IsReady(call, buffer) || !IsLinearFormat(format)) {
        return call.Returns(KVED_RTERROR);
    }
    const int places = Precision(precision, Setting(&Settings::LinearPrecision, c_newLinearPrecision));
    return GiveText(call, kvhost::LinearText(value, static_cast<LinearFormat>(format), places), buffer);
}

int kvdbAngToS(double value, int unitMode, int precision, wchar_t* buffer) {
    ServiceCall call(L"kvdbAngToS", value, unitMode, precision);
    const int format = AngularMode(unitMode);
    if (!IsReady(call, buffer) || !IsAngularFormat(format)) {
        return call.Returns(KVED_RTERROR);
    }
    const int places = Precision(precision, Setting(&Settings::AngularPrecision, c_newAngularPrecision));
    const auto angularFormat = static_cast<AngularFormat>(format);
    return GiveText(call, kvhost::AngleText(value, angularFormat, places, WorkingBase()), buffer);
}

int kvdbRawAngToS(double value, int unitMode, int precision, wchar_t* buffer) {
    ServiceCall call(L"kvdbRawAngToS", value, unitMode, precision);
    const int format = AngularMode(unitMode);
    if (!IsReady(call, buffer) || !IsAngularFormat(format)) {
        return call.Returns(KVED_RTERROR);
    }
    const int places = Precision(precision, Setting(&Settings::AngularPrecision, c_newAngularPrecision));
    return GiveText(call, kvhost::RawAngleText(value, static_cast<AngularFormat>(format), places), buffer);
}

int kvdbDisToF(const wchar_t* text, int unitMode, double* value) {
    ServiceCall call(L"kvdbDisToF", text, unitMode);
    const int format = LinearMode(unitMode);
    if (call.Fails() || text == nullptr || !IsLinearFormat(format)) {
        return call.Returns(KVED_RTERROR);
    }
    return GiveValue(call, kvhost::ReadLinear(text, static_cast<LinearFormat>(format)), value);
}

int kvdbAngToF(const wchar_t* text, int unitMode, double* value) {
    ServiceCall call(L"kvdbAngToF", text, unitMode);
    const int format = AngularMode(unitMode);
    if (call.Fails() || text == nullptr || !IsAngularFormat(format)) {
        return call.Returns(KVED_RTERROR);
    }
    return GiveValue(call, kvhost::ReadAngle(text, static_cast<AngularFormat>(format), WorkingBase()), value);
}

int kvdbRawAngToF(const wchar_t* text, int unitMode, double* value) {
    ServiceCall call(L"kvdbRawAngToF", text, unitMode);
    const int format = AngularMode(unitMode);
    if (call.Fails() || text == nullptr || !IsAngularFormat(format)) {
        return call.Returns(KVED_RTERROR);
    }
    return GiveValue(call, kvhost::ReadRawAngle(text, static_cast<AngularFormat>(format)), value);
}
