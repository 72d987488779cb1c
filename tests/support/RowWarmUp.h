#pragma once

namespace kvtest {

/// Uses what rows use for the first time: cursors, a tool window over a window, an edit box with its menu.
/// What the system keeps of them for ever exists then before the first test.
void WarmUpRows();

}  // namespace kvtest
