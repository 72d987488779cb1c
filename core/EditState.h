#pragma once

/// How far a row is in its edit: the values of CKvPeCtrlBase::GetState.
enum EditState : int {
    EditState_NeverShown = 0,        ///< Made, no row shown yet.
    EditState_Shown = 1,             ///< Shown, no edit runs.
    EditState_InEdit = 2,            ///< This and every higher value: the child window lies over the row.
    EditState_InEditAfterClick = 3,  ///< In edit, and the user has clicked in the row.
    EditState_Committing = 4,        ///< The value is being written.
    EditState_ChoiceAccepted = 5,    ///< A list closed on a choice.
};
