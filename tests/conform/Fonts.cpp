#include "tests/conform/Fonts.h"

namespace kvconform {

fw::ComPtr<IFont> MakeFont() {
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = const_cast<wchar_t*>(L"Tahoma");
    description.cySize.int64 = 82500;
    description.sWeight = FW_NORMAL;
    description.sCharset = DEFAULT_CHARSET;
    fw::ComPtr<IFont> font;
    // Without a font the rules that ask for it tell of it.
    static_cast<void>(::OleCreateFontIndirect(&description, IID_IFont, font.PutVoid()));
    return font;
}

}  // namespace kvconform
