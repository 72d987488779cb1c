#pragma once

#include "host_sdk/ErrorStatus.h"
#include "host_sdk/Export.h"
#include "host_sdk/KvDbObjectId.h"
#include "host_sdk/ResultBuffer.h"

// Selection sets. Functions return KVED_RTNORM, or KVED_RTERROR and leave their results alone.

/// The current grip set and pick-first set as chains of one RTPICKS buffer each (null when empty); the caller
/// frees the chains with kvutRelRb and the sets in them with kvedSSFree. RTERROR when nothing is selected.
KVHOST_API int kvedSSGetFirst(resbuf** gripSet, resbuf** pickFirstSet);
/// Makes `gripSet` the grip set and `pickFirstSet` the pick-first set. Without `pickFirstSet` the objects
/// with grips are the picked ones too; without both nothing is selected. The sets stay the caller's.
KVHOST_API int kvedSSSetFirst(const kved_name gripSet, const kved_name pickFirstSet);
KVHOST_API int kvedSSLength(const kved_name set, long* length);
/// Name of the entity at `index`.
KVHOST_API int kvedSSName(const kved_name set, long index, kved_name entity);
/// Adds `entity` to `set`. With a null `set` a new set is made into `result`; with a null `entity` it is
/// empty.
KVHOST_API int kvedSSAdd(const kved_name entity, const kved_name set, kved_name result);
KVHOST_API int kvedSSFree(const kved_name set);

/// Id of an entity's name: eOk, or eUnknownHandle.
[[nodiscard]] KVHOST_API Tolm::ErrorStatus kvdbGetObjectId(KvDbObjectId& id, const kved_name entity);
