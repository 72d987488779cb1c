#pragma once

/// What the selected objects hold in the way of expressions: values of CKvPeCtrlBase's expression state.
enum ExpressionState : int {
    ExpressionState_Unsupported = 0,   ///< No object supports expressions.
    ExpressionState_NoExpression = 1,  ///< Supported, and there is none.
    ExpressionState_Mixed = 2,         ///< Supported, and the objects differ.
    ExpressionState_Shared = 3,        ///< All objects read so far have one expression.
};
