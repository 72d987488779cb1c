#pragma once

#include "framework/base/CString.h"

// Texts that all controls share. They are loaded from the satellite on first need and live as long as the
// module.

/// Shown where the selected objects disagree. Filled by LoadValueTexts.
[[nodiscard]] const CString& VariesText();
/// Shown for the unspecified state where the host has no text for it. Filled by LoadValueTexts.
[[nodiscard]] const CString& DefaultUnspecifiedText();
/// Loads both, unless both are there.
void LoadValueTexts();

/// Name of a property change in the undo record; loaded here while it is empty.
[[nodiscard]] const CString& UndoPropertyChangeText();
