#include "core/CTemporaryResourceOverride.h"

#include "core/Satellite.h"
#include "framework/base/ModuleState.h"

CTemporaryResourceOverride::CTemporaryResourceOverride()
    : m_savedHandle(AfxGetModuleState()->m_hCurrentResourceHandle) {
    const HINSTANCE satellite = KvPeSatellite();
    if (satellite != nullptr && satellite != m_savedHandle) {
        AfxGetModuleState()->m_hCurrentResourceHandle = satellite;
    }
}

CTemporaryResourceOverride::~CTemporaryResourceOverride() {
    if (AfxGetModuleState()->m_hCurrentResourceHandle != m_savedHandle) {
        AfxGetModuleState()->m_hCurrentResourceHandle = m_savedHandle;
    }
}
