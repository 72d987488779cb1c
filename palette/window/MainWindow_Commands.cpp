#include "palette/window/MainWindow.h"

#include <commdlg.h>

#include <algorithm>

#include "framework/base/Hresult.h"
#include "framework/base/MessageBox.h"
#include "palette/window/CommandIds.h"
#include "palette/window/MainMenu.h"

namespace kvpalette {

namespace {

constexpr wchar_t c_openFilter[] =
    L"Drawings (*.qxf, *.qdf, *.geojson)\0*.qxf;*.qdf;*.geojson;*.json\0All files\0*.*\0";
constexpr wchar_t c_saveFilter[] = L"Exchange format (*.qxf)\0*.qxf\0Binary format (*.qdf)\0*.qdf\0";
constexpr wchar_t c_caption[] = L"kvpalette";
constexpr double c_zoomStep = 1.5;

// Empty when the user changes his mind.
std::wstring AskFile(HWND owner, const wchar_t* filter, bool toOpen) {
    wchar_t path[MAX_PATH] = L"";
    OPENFILENAMEW question{};
    question.lStructSize = sizeof(question);
    question.hwndOwner = owner;
    question.lpstrFilter = filter;
    question.lpstrFile = path;
    question.nMaxFile = static_cast<DWORD>(std::size(path));
    question.lpstrDefExt = L"qxf";
    question.Flags = toOpen ? OFN_FILEMUSTEXIST | OFN_NOCHANGEDIR : OFN_OVERWRITEPROMPT | OFN_NOCHANGEDIR;
    const BOOL chosen = toOpen ? ::GetOpenFileNameW(&question) : ::GetSaveFileNameW(&question);
    return chosen ? path : L"";
}

bool IsEditWithUndo(HWND window) {
    wchar_t name[16] = L"";
    ::GetClassNameW(window, name, static_cast<int>(std::size(name)));
    return ::lstrcmpiW(name, L"Edit") == 0;
}

}  // namespace

// A box in which the user types has keys of its own for undo and for marking all of its text.
BOOL MainWindow::PreTranslateMessage(MSG* message) {
    if (message->message == WM_KEYDOWN) {
        const int command =
            CommandOfKey(message->wParam, ::GetKeyState(VK_CONTROL) < 0, ::GetKeyState(VK_SHIFT) < 0);
        const bool ofEdit = command == CommandUndo || command == CommandSelectAll;
        if (command != 0 && !(ofEdit && IsEditWithUndo(message->hwnd))) {
            DoCommand(command);
            return TRUE;
        }
    }
    return CWnd::PreTranslateMessage(message);
}

LRESULT MainWindow::OnCommand(UINT, WPARAM wParam, LPARAM lParam, BOOL& handled) {
    if (lParam != 0) {
        handled = FALSE;
        return 0;
    }
    DoCommand(LOWORD(wParam));
    return 0;
}

void MainWindow::DoCommand(int command) {
    switch (command) {
        case CommandOpen:
            AskOpen();
            break;
        case CommandSave:
            SaveOrAsk();
            break;
        case CommandSaveAs:
            AskSaveAs();
            break;
        case CommandExit:
            PostMessage(WM_CLOSE);
            break;
        case CommandUndo:
            fw::Ignore(Undo(1));  // without a step there is nothing to tell
            break;
        case CommandRedo:
            fw::Ignore(Redo(1));  // likewise
            break;
        case CommandSelectAll:
            SelectAll();
            break;
        case CommandSelectNone:
            m_document->GetSelection().Clear();
            break;
        case CommandZoomExtents:
            m_view.ZoomExtents();
            break;
        case CommandZoomSelection:
            m_view.ZoomHighlighted();
            break;
        case CommandZoomIn:
            m_view.ZoomBy(c_zoomStep);
            break;
        case CommandZoomOut:
            m_view.ZoomBy(1 / c_zoomStep);
            break;
        default:
            break;
    }
}

void MainWindow::AskOpen() {
    if (!MayLoseDrawing()) {
        return;
    }
    const std::wstring path = AskFile(m_hWnd, c_openFilter, true);
    std::wstring error;
    if (!path.empty() && !OpenDrawing(path, error)) {
        Complain(error);
    }
}

void MainWindow::AskSaveAs() {
    const std::wstring path = AskFile(m_hWnd, c_saveFilter, false);
    std::wstring error;
    if (!path.empty() && !SaveDrawing(path, error)) {
        Complain(error);
    }
}

// A map that was imported has no file of a format that can be written: its user names one.
void MainWindow::SaveOrAsk() {
    m_palette.Pane().LeaveRow();
    const std::wstring& path = m_document->Path();
    if (!path.ends_with(L".qxf") && !path.ends_with(L".qdf")) {
        AskSaveAs();
        return;
    }
    const std::wstring error = m_document->Save();
    if (!error.empty()) {
        Complain(error);
    }
    UpdateState();
}

bool MainWindow::MayLoseDrawing() {
    return !m_document || !m_document->IsDirty() ||
           fw::ShowMessageBox(m_hWnd, L"The drawing has changes that are not saved. Leave it all the same?",
                              c_caption, MB_YESNO | MB_ICONQUESTION) == IDYES;
}

void MainWindow::Complain(const std::wstring& reason) {
    fw::ShowMessageBox(m_hWnd, reason.c_str(), c_caption, MB_OK | MB_ICONWARNING);
}

void MainWindow::Pick(const std::vector<KvDbObjectId>& ids, DrawingView::PickMode mode) {
    kvhost::Selection& selection = m_document->GetSelection();
    std::vector<KvDbObjectId> picked;
    if (mode != DrawingView::PickMode::Replace) {
        picked = selection.PickFirst();
    }
    for (const KvDbObjectId id : ids) {
        const auto found = std::find(picked.begin(), picked.end(), id);
        if (found == picked.end()) {
            picked.push_back(id);
        } else if (mode == DrawingView::PickMode::Toggle) {
            picked.erase(found);
        }
    }
    selection.Pick(picked);
}

}  // namespace kvpalette
