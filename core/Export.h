#pragma once

// KVPEX_API marks the classes that modules with editors of their own derive from.
#ifdef KVPEX_BUILD
#define KVPEX_API __declspec(dllexport)
#else
#define KVPEX_API __declspec(dllimport)
#endif
