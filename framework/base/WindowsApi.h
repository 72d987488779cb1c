// The one place that includes the system headers: its switches and the order of the files matter.
#pragma once

#include <windows.h>

#include <commctrl.h>
#include <ocidl.h>
#include <ole2.h>
#include <oleauto.h>
#include <olectl.h>
