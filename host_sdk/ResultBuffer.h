#pragma once

#include "host_sdk/Export.h"

/// Status of the host's editor functions.
inline constexpr int KVED_RTNORM = 5100;
inline constexpr int KVED_RTERROR = -5001;

/// Types of a result buffer's value.
inline constexpr short KVED_RTREAL = 5001;
inline constexpr short KVED_RTSHORT = 5003;
inline constexpr short KVED_RTSTR = 5005;
inline constexpr short KVED_RTENAME = 5006;
inline constexpr short KVED_RTPICKS = 5007;
inline constexpr short KVED_RTLONG = 5010;

/// Name of an entity or a selection set, an opaque pair of numbers.
typedef long long kved_name[2];

/// One value of the editor's functions; chains of buffers end with a null `rbnext`.
struct resbuf {
    resbuf* rbnext;
    short restype;
    union {
        double rreal;
        short rint;
        long rlong;
        wchar_t* rstring;
        kved_name rlname;
    } resval;
};

/// Frees a chain with the strings in it. Null is allowed.
KVHOST_API int kvutRelRb(resbuf* chain);
