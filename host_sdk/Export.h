#pragma once

// KVHOST_API marks what a host library exports to its plug-in modules.
#ifdef KVHOST_BUILD
#define KVHOST_API __declspec(dllexport)
#else
#define KVHOST_API __declspec(dllimport)
#endif
