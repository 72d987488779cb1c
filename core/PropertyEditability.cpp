#include "core/PropertyEditability.h"

#include "framework/com/ComPtr.h"
#include "host_sdk/ErrorStatus.h"
#include "host_sdk/IPropertyEditability.h"

bool AskIsReadOnly(IDispatch* object, long dispid, bool& readOnly) {
    const auto editability = fw::QueryFrom<IPropertyEditability>(object);
    if (!editability) {
        return false;
    }
    BOOL editable = TRUE;
    try {
        if (FAILED(editability->Editable(dispid, &editable))) {
            return false;
        }
    } catch (const Tolm::ErrorStatus&) {
        // The host throws where an object is in no state to be asked; it cannot be edited then either.
        editable = FALSE;
    }
    readOnly = !editable;
    return true;
}
