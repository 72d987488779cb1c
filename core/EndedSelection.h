#pragma once

#include <memory>

#include "framework/base/WindowsApi.h"

/// The references of a selection that has ended, released with this object.
class EndedSelection {
public:
    /// Arrays of `count` references, each of which may be null, as may be the arrays.
    EndedSelection(std::unique_ptr<IDispatch*[]> objects, std::unique_ptr<IUnknown*[]> dynamicProperties,
                   int count);
    EndedSelection(EndedSelection&&) noexcept = default;
    EndedSelection& operator=(EndedSelection&&) = delete;
    EndedSelection(const EndedSelection&) = delete;
    EndedSelection& operator=(const EndedSelection&) = delete;
    ~EndedSelection();

private:
    std::unique_ptr<IDispatch*[]> m_objects;
    std::unique_ptr<IUnknown*[]> m_dynamicProperties;
    int m_count;
};
