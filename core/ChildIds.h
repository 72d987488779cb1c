#pragma once

// Ids of the child windows inside a control.
inline constexpr unsigned KVPE_ID_LIST = 1002;
inline constexpr unsigned KVPE_ID_EDIT = 1038;
inline constexpr unsigned KVPE_ID_LAUNCHER_BUTTON = 1039;
inline constexpr unsigned KVPE_ID_FIRST_SMALL_BUTTON = 1043;
inline constexpr unsigned KVPE_ID_CALCULATOR_BUTTON = 1046;
inline constexpr unsigned KVPE_ID_PICK_BUTTON = 1047;
inline constexpr unsigned KVPE_ID_LAST_SMALL_BUTTON = 1048;
inline constexpr unsigned KVPE_ID_PASSWORD_EDIT = 1049;
/// The hidden edit box that shows the row's value to a running command.
inline constexpr unsigned KVPE_ID_PRESET_EDIT = 4321;

/// User data by which a text tip's window is known; also the WPARAM of its request to paint.
inline constexpr long KVPE_TEXT_TIP_MARK = 1042;
