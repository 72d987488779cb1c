#include "tests/support/DrawnText.h"

#include <set>

#include "framework/base/Handles.h"

namespace kvtest {
namespace {

struct Walk {
    std::vector<DrawnText> drawn;
    COLORREF textColor = 0;
    COLORREF backColor = 0xFFFFFF;
    int backMode = OPAQUE;
    std::set<DWORD> fonts;  // made by the work
    int stockFont = SYSTEM_FONT;
};

template <class Record>
const Record& As(const ENHMETARECORD* record) {
    return *reinterpret_cast<const Record*>(record);
}

void NoteText(const EMREXTTEXTOUTW& record, Walk& walk) {
    const auto* const bytes = reinterpret_cast<const BYTE*>(&record);
    const auto* const text = reinterpret_cast<const wchar_t*>(bytes + record.emrtext.offString);
    const RECTL& bounds = record.emrtext.rcl;
    DrawnText drawn;
    drawn.text.assign(text, record.emrtext.nChars);
    drawn.origin = {record.emrtext.ptlReference.x, record.emrtext.ptlReference.y};
    drawn.bounds = {bounds.left, bounds.top, bounds.right, bounds.bottom};
    drawn.options = record.emrtext.fOptions;
    drawn.textColor = walk.textColor;
    drawn.backColor = walk.backColor;
    drawn.backMode = walk.backMode;
    drawn.stockFont = walk.stockFont;
    walk.drawn.push_back(drawn);
}

void NoteSelected(DWORD object, Walk& walk) {
    const bool isStock = (object & ENHMETA_STOCK_OBJECT) != 0;
    const int index = static_cast<int>(object & ~ENHMETA_STOCK_OBJECT);
    if (isStock && index >= OEM_FIXED_FONT && index <= DEFAULT_GUI_FONT && index != DEFAULT_PALETTE) {
        walk.stockFont = index;
    } else if (walk.fonts.contains(object)) {
        walk.stockFont = -1;
    }
}

int CALLBACK OnRecord(HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM parameter) {
    Walk& walk = *reinterpret_cast<Walk*>(parameter);
    switch (record->iType) {
        case EMR_SETTEXTCOLOR:
            walk.textColor = As<EMRSETTEXTCOLOR>(record).crColor;
            break;
        case EMR_SETBKCOLOR:
            walk.backColor = As<EMRSETBKCOLOR>(record).crColor;
            break;
        case EMR_SETBKMODE:
            walk.backMode = static_cast<int>(As<EMRSETBKMODE>(record).iMode);
            break;
        case EMR_EXTCREATEFONTINDIRECTW:
            walk.fonts.insert(As<EMREXTCREATEFONTINDIRECTW>(record).ihFont);
            break;
        case EMR_SELECTOBJECT:
            NoteSelected(As<EMRSELECTOBJECT>(record).ihObject, walk);
            break;
        case EMR_EXTTEXTOUTW:
            NoteText(As<EMREXTTEXTOUTW>(record), walk);
            break;
        default:
            break;
    }
    return TRUE;
}

}  // namespace

std::vector<DrawnText> RecordText(const std::function<void(HDC)>& work) {
    const HDC dc = ::CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
    work(dc);
    const fw::UniqueMetafile metafile(::CloseEnhMetaFile(dc));
    Walk walk;
    ::EnumEnhMetaFile(nullptr, metafile.Get(), &OnRecord, &walk, nullptr);
    return walk.drawn;
}

}  // namespace kvtest
