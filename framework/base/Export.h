#pragma once

#if defined(KVFRAME_BUILD)
#define FW_API __declspec(dllexport)
#else
#define FW_API __declspec(dllimport)
#endif
