#include "host_sdk/KvDbHostApplicationServices.h"

#include "refhost/db/Database.h"
#include "refhost/editor/Host.h"
#include "refhost/testing/ServiceCall.h"

namespace {

// Without state: it asks the host that runs.
class HostApplicationServices final : public KvDbHostApplicationServices {
public:
    [[nodiscard]] KvDbDatabase* workingDatabase() const override {
        kvhost::ServiceCall call(L"workingDatabase");
        const kvhost::Host* const host = call.Fails() ? nullptr : kvhost::Host::Current();
        kvhost::Database* const database = host != nullptr ? host->WorkingDatabase() : nullptr;
        call.Returns(database != nullptr);
        return database;
    }
};

}  // namespace

KvDbHostApplicationServices* kvdbHostApplicationServices() {
    static HostApplicationServices s_services;
    kvhost::ServiceCall call(L"kvdbHostApplicationServices");
    KvDbHostApplicationServices* const services =
        call.Fails() || kvhost::Host::Current() == nullptr ? nullptr : &s_services;
    call.Returns(services != nullptr);
    return services;
}
