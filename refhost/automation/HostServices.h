#pragma once

#include "framework/com/ComPtr.h"
#include "host_sdk/IHostApplication.h"
#include "refhost/automation/PropertyDialogs.h"
#include "refhost/ui/MessageBoxes.h"

namespace kvhost {

/// What a running host offers beside its documents: its message boxes, its property dialogs and its
/// automation object. At the end it unloads the plug-in modules and forgets prepared answers.
class HostServices {
public:
    HostServices();
    HostServices(const HostServices&) = delete;
    HostServices& operator=(const HostServices&) = delete;
    ~HostServices();

    [[nodiscard]] IHostApplication* Application() const { return m_application.Get(); }

private:
    MessageBoxes m_messageBoxes;
    PropertyDialogs m_propertyDialogs;
    fw::ComPtr<IHostApplication> m_application;
};

}  // namespace kvhost
