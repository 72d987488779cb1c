#pragma once

#include "framework/base/WindowsApi.h"

/// Posted to a list row to cancel its drop-down when the message that opened it is done.
inline constexpr UINT WM_KVPE_CANCEL_DROPDOWN = WM_USER + 1;
/// A text tip asks its owner to paint the text.
inline constexpr UINT WM_KVPE_DRAW_TIP = WM_APP + 1;
/// The mouse rests on an entry of an open list.
inline constexpr UINT WM_KVPE_LIST_HOVER = 1824;
/// The one colour message that older systems sent for every kind of child; rows still answer it.
inline constexpr UINT WM_KVPE_CTLCOLOR = 25;
