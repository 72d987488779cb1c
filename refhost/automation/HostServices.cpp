#include "refhost/automation/HostServices.h"

#include "refhost/automation/ApplicationObject.h"
#include "refhost/rx/Modules.h"
#include "refhost/testing/Answers.h"

namespace kvhost {

HostServices::HostServices() : m_application(MakeApplicationObject()) {
}

HostServices::~HostServices() {
    // Modules may still show a message while they are told to stop.
    Modules::UnloadAll();
    Answers::Reset();
}

}  // namespace kvhost
