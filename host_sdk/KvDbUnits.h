#pragma once

#include "host_sdk/Export.h"
#include "host_sdk/ResultBuffer.h"

// Text forms of numbers. Lengths are in drawing units (inches where a format knows feet), angles in radians.
// Linear formats: 1 scientific, 2 decimal, 3 engineering, 4 architectural, 5 fractional. Angular formats:
// 0 decimal degrees, 1 degrees-minutes-seconds, 2 grads, 3 radians, 4 surveyor's bearings.
// KVED_RTNORM, or KVED_RTERROR for a format that does not exist, a null pointer, a number that is no finite
// one and a text that is no number. The buffer is then empty, the value untouched.

/// As unit mode or precision: the setting of the working drawing (LUNITS, LUPREC, AUNITS, AUPREC).
inline constexpr int KVDB_CURRENT_SETTING = -1;
inline constexpr int KVDB_DECIMAL_UNITS = 2;
inline constexpr int KVDB_FRACTIONAL_UNITS = 5;

/// Characters of the buffer that the three functions to text fill, the end mark among them.
inline constexpr int KVDB_NUMBER_TEXT_SIZE = 64;

/// `precision` counts decimal places or, for fractions, the halvings of the smallest one; 8 at most.
KVHOST_API int kvdbRToS(double value, int unitMode, int precision, wchar_t* buffer);
/// The angle as seen from the drawing's base direction (ANGBASE, ANGDIR), from zero up to a full turn.
KVHOST_API int kvdbAngToS(double value, int unitMode, int precision, wchar_t* buffer);
/// The angle as it stands, with its sign and its full turns.
KVHOST_API int kvdbRawAngToS(double value, int unitMode, int precision, wchar_t* buffer);

/// The unit mode tells whether feet and inches have a meaning: they have in 3 and 4.
KVHOST_API int kvdbDisToF(const wchar_t* text, int unitMode, double* value);
/// The unit mode tells the unit of a number that names none. The value is from zero up to a full turn.
KVHOST_API int kvdbAngToF(const wchar_t* text, int unitMode, double* value);
KVHOST_API int kvdbRawAngToF(const wchar_t* text, int unitMode, double* value);
