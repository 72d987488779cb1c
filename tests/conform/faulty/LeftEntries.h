#pragma once

/// When the run asks for it: while the module is registered, leaves entries of its own among the classes of
/// the user, and takes out the entry KvConformOther that is not its own.
void LeaveEntries();
