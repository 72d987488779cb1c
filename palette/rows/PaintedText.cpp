#include "palette/rows/PaintedText.h"

#include "framework/base/Handles.h"
#include "framework/base/Hresult.h"
#include "palette/container/HostedControl.h"

namespace kvpalette {

namespace {

// Wide enough that no text is shortened to the row.
constexpr RECT c_wideRow{0, 0, 30000, 20};

int CALLBACK CollectText(HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM target) {
    if (record->iType == EMR_EXTTEXTOUTW) {
        const auto* const text = reinterpret_cast<const EMREXTTEXTOUTW*>(record);
        const auto* const characters =
            reinterpret_cast<const wchar_t*>(reinterpret_cast<const BYTE*>(record) + text->emrtext.offString);
        if (text->emrtext.nChars != 0) {
            reinterpret_cast<std::wstring*>(target)->append(characters, text->emrtext.nChars);
        }
    }
    return TRUE;
}

}  // namespace

std::wstring TextOfMetafile(HENHMETAFILE metafile) {
    std::wstring text;
    ::EnumEnhMetaFile(nullptr, metafile, CollectText, &text, nullptr);
    return text;
}

std::wstring PaintedText(const HostedControl& control) {
    const HDC recorder = ::CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
    if (!recorder) {
        return {};
    }
    const HRESULT drawn = control.Draw(recorder, c_wideRow);
    const fw::UniqueMetafile metafile(::CloseEnhMetaFile(recorder));
    return SUCCEEDED(drawn) && metafile ? TextOfMetafile(metafile.Get()) : std::wstring();
}

}  // namespace kvpalette
