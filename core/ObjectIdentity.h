#pragma once

#include "framework/base/WindowsApi.h"
#include "host_sdk/KvDbObjectId.h"

/// Id of the database object that `object` stands for; E_NOINTERFACE for an object that stands for none.
[[nodiscard]] HRESULT GetDatabaseObjectId(IUnknown* object, KvDbObjectId& id);

/// The same, and for an object that stands for a part of a database object the outermost id of its path. Null
/// when there is neither.
[[nodiscard]] KvDbObjectId GetOwningObjectId(IUnknown* object);

/// Class of the object in the host; false when the object does not tell.
[[nodiscard]] bool GetHostClassId(IUnknown* object, CLSID& classId);
