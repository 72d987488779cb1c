#pragma once

// Shared with the resource script.
#define KVPALETTE_ICON 1
