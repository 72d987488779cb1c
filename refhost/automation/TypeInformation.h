#pragma once

#include "framework/com/ComPtr.h"
#include "host_sdk/Export.h"

namespace kvhost {

class PropertyTable;

/// Type information of the class's dispatch interface, made from its table: a property get, and a put unless
/// it is read-only, for each row; enumerated properties refer to their enumeration. One type library holds
/// all.
[[nodiscard]] KVHOST_API HRESULT GetTypeInformation(const PropertyTable& table, ITypeInfo** info);

}  // namespace kvhost
