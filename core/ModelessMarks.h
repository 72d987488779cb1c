#pragma once

// Marks of operations that come from a modeless window, sent to the host at their start and end.

inline constexpr const wchar_t* KVPE_MARK_CHANGE_PROPERTY = L"ZRB_CHGPROP";
/// In place of the former around a write that only shows on the drawing what an entry would do.
inline constexpr const wchar_t* KVPE_MARK_CHANGE_PROPERTY_PREVIEW = L"ZRB_CHGPROP_PREVIEW";
/// Around the change of form of a constraint.
inline constexpr const wchar_t* KVPE_MARK_CHANGE_CONSTRAINT_FORM = L"ZRB_CHGCONSTRFORM";
/// Around the write of a layer that is frozen or off.
inline constexpr const wchar_t* KVPE_MARK_CHANGE_LAYER = L"ZRB_CHGLAYER";
/// The palette sends the start when it changes the selection; a control ends it when it met a locked object.
inline constexpr const wchar_t* KVPE_MARK_CHANGE_SELECTION = L"ZRB_CHGSELECTION";
inline constexpr const wchar_t* KVPE_MARK_ERROR_CONDITION = L"ZRB_ERRORCONDITION";
