#pragma once

#include <unordered_set>
#include <vector>

#include "host_sdk/KvDbObjectId.h"

namespace kvhost {

class ChangeSet;

/// Collects the objects of an undo or redo before it, and tells their reactors after it what became of them.
class SwapNotice {
public:
    void Add(const ChangeSet& changes);
    void Send() const;

private:
    struct Before {
        KvDbStub* stub;
        bool erased;
    };

    std::vector<Before> m_objects;
    std::unordered_set<KvDbStub*> m_known;
};

}  // namespace kvhost
