#pragma once

#include "framework/base/CString.h"

/// The host's string is the framework's: one representation on both sides of the border.
using KvString = CString;
