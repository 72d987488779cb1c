#pragma once

namespace kvtest {

/// Drops lists of both kinds, of texts and of pictures, for the first time: what the system keeps of that for
/// ever exists then before the first test.
void WarmUpLists();

}  // namespace kvtest
