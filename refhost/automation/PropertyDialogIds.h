#pragma once

#include "framework/base/WindowsApi.h"

namespace kvhost {

/// Class of the dialog that is given the selected objects.
inline constexpr CLSID CLSID_TextDialogByObjects = {
    0xA4F0C1D2, 0x5B7E, 0x4C39, {0x8E, 0x16, 0x3D, 0x90, 0x72, 0xB5, 0xC4, 0x01}};
/// Class of the dialog that is given the ids of the selected objects.
inline constexpr CLSID CLSID_TextDialogByIds = {
    0xA4F0C1D3, 0x5B7E, 0x4C39, {0x8E, 0x16, 0x3D, 0x90, 0x72, 0xB5, 0xC4, 0x01}};
/// The same for the prompts of attributes: a class of dialog edits one property of an object.
inline constexpr CLSID CLSID_PromptDialog = {
    0xA4F0C1D4, 0x5B7E, 0x4C39, {0x8E, 0x16, 0x3D, 0x90, 0x72, 0xB5, 0xC4, 0x01}};

}  // namespace kvhost
