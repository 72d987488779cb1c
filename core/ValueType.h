#pragma once

/// What a value stands for among the selected objects.
enum ValueType : int {
    ValueType_Specific = 0,     ///< The one value of all objects.
    ValueType_Varies = 1,       ///< The objects disagree; the value is that of the first.
    ValueType_Unspecified = 2,  ///< The host's unspecified state; the value is its text.
    ValueType_Expression = 3,   ///< For writing only: the value is the text of an expression.
};
