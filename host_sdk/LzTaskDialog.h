#pragma once

#include <memory>

#include "host_sdk/Export.h"

class CWnd;

/// A message dialog that the host describes in a resource of its own and shows in its own look.
class KVHOST_API LzTaskDialog {
public:
    LzTaskDialog();
    ~LzTaskDialog();
    LzTaskDialog(const LzTaskDialog&) = delete;
    LzTaskDialog& operator=(const LzTaskDialog&) = delete;

    /// Reads the dialog with the id `dialogId` from the resource at `resource`; false when either is not
    /// there.
    [[nodiscard]] bool LoadFromFile(const wchar_t* resource, const wchar_t* dialogId);
    /// Shows the loaded dialog over `owner` (null: no owner) and returns the id of the button that ended it.
    int ShowDialog(CWnd* owner);

private:
    struct Description;
    std::unique_ptr<Description> m_description;
};
