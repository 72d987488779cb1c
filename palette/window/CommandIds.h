#pragma once

namespace kvpalette {

/// Commands of menu, buttons and keys.
enum CommandId : int {
    CommandOpen = 100,
    CommandSave,
    CommandSaveAs,
    CommandExit,
    CommandUndo,
    CommandRedo,
    CommandSelectAll,
    CommandSelectNone,
    CommandZoomExtents,
    CommandZoomSelection,
    CommandZoomIn,
    CommandZoomOut,
};

}  // namespace kvpalette
