#pragma once

#include "framework/base/WindowsApi.h"

/// Every load of a text, picture or dialog from the satellite runs in the scope of one. Scopes nest.
class CTemporaryResourceOverride {
public:
    CTemporaryResourceOverride();
    CTemporaryResourceOverride(const CTemporaryResourceOverride&) = delete;
    CTemporaryResourceOverride& operator=(const CTemporaryResourceOverride&) = delete;
    virtual ~CTemporaryResourceOverride();

private:
    HINSTANCE m_savedHandle;
};
