#include "refhost/automation/Redraw.h"

#include <vector>

namespace kvhost {

namespace {

long g_count = 0;

std::vector<RedrawObserver*>& Observers() {
    static std::vector<RedrawObserver*> observers;
    return observers;
}

}  // namespace

void AddRedrawObserver(RedrawObserver* observer) {
    Observers().push_back(observer);
}

void RemoveRedrawObserver(RedrawObserver* observer) {
    std::erase(Observers(), observer);
}

long RedrawCount() {
    return g_count;
}

void NotifyRedrawn(KvDbObjectId id) {
    ++g_count;
    // An observer may detach itself while it is told.
    const std::vector<RedrawObserver*> observers = Observers();
    for (RedrawObserver* const observer : observers) {
        observer->ObjectRedrawn(id);
    }
}

}  // namespace kvhost
