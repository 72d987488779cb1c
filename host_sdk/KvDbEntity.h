#pragma once

#include "host_sdk/KvDbFullSubentPath.h"
#include "host_sdk/KvDbObject.h"

/// An object that is drawn and lies on a layer.
class KVHOST_API KvDbEntity : public KvDbObject {
public:
    [[nodiscard]] static KvRxClass* desc();

    [[nodiscard]] virtual KvDbObjectId layerId() const = 0;
    /// Draws the part at `path` highlighted in the given style until it is popped; pushes of one path count.
    virtual Tolm::ErrorStatus pushHighlight(const KvDbFullSubentPath& path, int style) = 0;
    /// Takes the last highlight of `path` off. eInvalidInput when there is none.
    virtual Tolm::ErrorStatus popHighlight(const KvDbFullSubentPath& path) = 0;

protected:
    ~KvDbEntity() = default;
};

/// Highlight style of selected parts, told apart from the highlight of whole objects.
inline constexpr int KVDB_HIGHLIGHT_SUBENTITY = 2;

/// As kvdbOpenKvDbObject; eNotThatKindOfClass for an object that is no entity.
[[nodiscard]] KVHOST_API Tolm::ErrorStatus kvdbOpenKvDbEntity(KvDbEntity*& entity, KvDbObjectId id,
                                                              KvDb::OpenMode mode, bool openErased = false);
