#include "host_sdk/KvEdVariables.h"

#include <algorithm>

#include "host_sdk/KvRxVariablesDictionary.h"
#include "refhost/editor/Host.h"
#include "refhost/editor/SystemVariables.h"
#include "refhost/testing/ServiceCall.h"

using kvhost::Host;
using kvhost::ServiceCall;
using kvhost::SystemVariables;
using kvhost::VariableValue;

namespace {

/// False for types that no variable has.
bool ReadBuffer(const resbuf* buffer, VariableValue& value) {
    if (buffer == nullptr) {
        return false;
    }
    switch (buffer->restype) {
        case KVED_RTSHORT:
            value = static_cast<int>(buffer->resval.rint);
            return true;
        case KVED_RTLONG:
            value = static_cast<int>(buffer->resval.rlong);
            return true;
        case KVED_RTREAL:
            value = buffer->resval.rreal;
            return true;
        case KVED_RTSTR:
            value = std::wstring(buffer->resval.rstring != nullptr ? buffer->resval.rstring : L"");
            return true;
        default:
            return false;
    }
}

void WriteBuffer(const VariableValue& value, resbuf& buffer) {
    if (const int* const integer = std::get_if<int>(&value)) {
        buffer.restype = KVED_RTSHORT;
        buffer.resval.rint = static_cast<short>(*integer);
    } else if (const double* const real = std::get_if<double>(&value)) {
        buffer.restype = KVED_RTREAL;
        buffer.resval.rreal = *real;
    } else {
        const std::wstring& text = std::get<std::wstring>(value);
        buffer.restype = KVED_RTSTR;
        buffer.resval.rstring = new wchar_t[text.size() + 1];
        std::copy_n(text.c_str(), text.size() + 1, buffer.resval.rstring);
    }
}

std::wstring ValueText(const resbuf* buffer) {
    VariableValue value;
    if (!ReadBuffer(buffer, value)) {
        return L"null";
    }
    return std::visit([](const auto& held) { return kvhost::AsText(held); }, value);
}

}  // namespace

int kvedGetVar(const wchar_t* name, resbuf* result) {
    ServiceCall call(L"kvedGetVar", name);
    Host* const host = call.Fails() ? nullptr : Host::Current();
    VariableValue value;
    if (host == nullptr || name == nullptr || result == nullptr ||
        host->Variables().Get(name, value) != SystemVariables::Outcome::Done) {
        return call.Returns(KVED_RTERROR);
    }
    WriteBuffer(value, *result);
    return call.Returns(KVED_RTNORM);
}

int kvedSetVar(const wchar_t* name, const resbuf* value) {
    ServiceCall call(L"kvedSetVar", name, ValueText(value));
    Host* const host = call.Fails() ? nullptr : Host::Current();
    VariableValue wanted;
    if (host == nullptr || name == nullptr || !ReadBuffer(value, wanted) ||
        host->Variables().Set(name, wanted) != SystemVariables::Outcome::Done) {
        return call.Returns(KVED_RTERROR);
    }
    return call.Returns(KVED_RTNORM);
}

bool KvRxVariablesDictionary::getBool(const wchar_t* name, bool otherwise) {
    ServiceCall call(L"getBool", name);
    Host* const host = call.Fails() ? nullptr : Host::Current();
    VariableValue value;
    const bool isKnown = host != nullptr && name != nullptr &&
                         host->Variables().Get(name, value) == SystemVariables::Outcome::Done;
    const int* const integer = std::get_if<int>(&value);
    return call.Returns(isKnown && integer != nullptr ? *integer != 0 : otherwise);
}
