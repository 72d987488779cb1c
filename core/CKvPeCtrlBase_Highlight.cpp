#include "core/CKvPeCtrlBase.h"
#include "core/HostDocument.h"
#include "core/OpenEntity.h"

namespace {

OpenEntity OpenEntityOf(const KvDbFullSubentPath& path) {
    const KvArray<KvDbObjectId>& ids = path.objectIds();
    return OpenEntityForRead(ids.isEmpty() ? KvDbObjectId() : ids[ids.length() - 1]);
}

}  // namespace

void CKvPeCtrlBase::highlightSubEntities(const KvArray<KvDbFullSubentPath>& paths) {
    if (paths.isEmpty()) {
        return;
    }
    for (const KvDbFullSubentPath& path : paths) {
        if (m_highlightedPaths.contains(path)) {
            continue;
        }
        if (const OpenEntity entity = OpenEntityOf(path)) {
            // Only the look of the drawing depends on it; what was asked for is remembered for the pop.
            fw::Ignore(entity->pushHighlight(path, KVDB_HIGHLIGHT_SUBENTITY));
            m_highlightedPaths.append(path);
        }
    }
    FocusMainWindow();
}

void CKvPeCtrlBase::unhighlightSubEntities() {
    for (const KvDbFullSubentPath& path : m_highlightedPaths) {
        if (const OpenEntity entity = OpenEntityOf(path)) {
            // A highlight that the host has dropped already needs no second one.
            fw::Ignore(entity->popHighlight(path));
        }
    }
    m_highlightedPaths.setLogicalLength(0);
}
