#pragma once

#include <functional>

#include "TestRow_h.h"
#include "framework/com/CComObject.h"

namespace kvtest {

/// An event sink that runs what a test puts into it.
class TestSink : public fw::ComObjectRoot, public ITestRowEvents, public IPropertyNotifySink {
public:
    static std::span<const fw::InterfaceEntry> Interfaces() {
        static constexpr std::array s_interfaces{fw::Implements<TestSink, ITestRowEvents>(),
                                                 fw::Implements<TestSink, IPropertyNotifySink>()};
        return s_interfaces;
    }

    // ITestRowEvents, and IPropertyNotifySink's operation of the same form
    STDMETHODIMP OnChanged(LONG value) override {
        lastValue = value;
        ++calls;
        // A copy: what runs may take itself out.
        if (const auto action = whenCalled) {
            action();
        }
        return S_OK;
    }
    // IPropertyNotifySink
    STDMETHODIMP OnRequestEdit(DISPID) override { return S_OK; }

    IUnknown* Events() { return static_cast<ITestRowEvents*>(this); }

    LONG lastValue = 0;
    int calls = 0;
    std::function<void()> whenCalled;
};

inline fw::ComPtr<CComObject<TestSink>> MakeSink() {
    fw::ComPtr<CComObject<TestSink>> sink;
    fw::Ignore(CComObject<TestSink>::CreateInstance(nullptr, sink.Put()));
    return sink;
}

}  // namespace kvtest
