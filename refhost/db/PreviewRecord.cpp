#include "refhost/db/PreviewRecord.h"

#include <utility>

#include "refhost/db/SwapNotice.h"

namespace kvhost {

void PreviewRecord::TakeBack() {
    if (m_recording || m_changes.IsEmpty()) {
        return;
    }
    ChangeSet changes = std::exchange(m_changes, ChangeSet(ChangeSet::Kind::Preview));
    SwapNotice notice;
    notice.Add(changes);
    changes.Swap();
    notice.Send();
}

}  // namespace kvhost
