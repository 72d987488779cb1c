#pragma once

#include "framework/base/WindowsApi.h"

/// The library with all texts, pictures and dialogs: set once at attach, never freed. Null before.
[[nodiscard]] HINSTANCE KvPeSatellite();

/// Loads the satellite for the module `module`. False, after a message to the user, when there is none.
[[nodiscard]] bool LoadKvPeSatellite(HINSTANCE module);
