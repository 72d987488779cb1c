#include "palette/window/MainMenu.h"

#include <span>

#include "palette/window/CommandIds.h"

namespace kvpalette {

namespace {

struct MenuItem {
    int command;  // 0: a line
    const wchar_t* text;
};

constexpr MenuItem c_fileItems[] = {
    {CommandOpen, L"&Open...\tCtrl+O"},
    {CommandSave, L"&Save\tCtrl+S"},
    {CommandSaveAs, L"Save &as...\tCtrl+Shift+S"},
    {0, L""},
    {CommandExit, L"E&xit"},
};
constexpr MenuItem c_editItems[] = {
    {CommandUndo, L"&Undo\tCtrl+Z"},
    {CommandRedo, L"&Redo\tCtrl+Y"},
    {0, L""},
    {CommandSelectAll, L"Select &all\tCtrl+A"},
    {CommandSelectNone, L"Select &none\tEsc"},
};
constexpr MenuItem c_viewItems[] = {
    {CommandZoomExtents, L"Zoom &extents\tCtrl+E"},
    {CommandZoomSelection, L"Zoom &selection"},
    {CommandZoomIn, L"Zoom &in"},
    {CommandZoomOut, L"Zoom &out"},
};

HMENU MakePopup(std::span<const MenuItem> items) {
    const HMENU popup = ::CreatePopupMenu();
    for (const MenuItem& item : items) {
        ::AppendMenuW(popup, item.command ? MF_STRING : MF_SEPARATOR, static_cast<UINT_PTR>(item.command),
                      item.text);
    }
    return popup;
}

void AppendPopup(HMENU menu, std::span<const MenuItem> items, const wchar_t* text) {
    ::AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(MakePopup(items)), text);
}

}  // namespace

fw::UniqueMenu MakeMainMenu() {
    fw::UniqueMenu menu(::CreateMenu());
    AppendPopup(menu.Get(), c_fileItems, L"&File");
    AppendPopup(menu.Get(), c_editItems, L"&Edit");
    AppendPopup(menu.Get(), c_viewItems, L"&View");
    return menu;
}

int CommandOfKey(WPARAM key, bool control, bool shift) {
    if (!control) {
        return 0;
    }
    switch (key) {
        case 'O':
            return CommandOpen;
        case 'S':
            return shift ? CommandSaveAs : CommandSave;
        case 'Z':
            return shift ? CommandRedo : CommandUndo;
        case 'Y':
            return CommandRedo;
        case 'A':
            return CommandSelectAll;
        case 'E':
            return CommandZoomExtents;
        default:
            return 0;
    }
}

}  // namespace kvpalette
