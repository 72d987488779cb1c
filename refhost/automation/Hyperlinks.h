#pragma once

#include <string>

#include "host_sdk/IKvHyperlinkHost.h"

namespace kvhost {

/// The collection of the links that a text names, which blanks separate.
[[nodiscard]] HRESULT MakeHyperlinks(const std::wstring& text, IKvHyperlinkCollection** hyperlinks);

}  // namespace kvhost
