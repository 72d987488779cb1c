#include "benchmarks/PaletteRow.h"

#include "benchmarks/Drawing.h"

namespace kvbench {

PaletteRow::PaletteRow(IClassFactory& factory) {
    Require(factory.CreateInstance(nullptr, IID_IOleObject, m_control.PutVoid()) == S_OK,
            "the class factory makes a control");
}

void PaletteRow::Show(HWND palette, int index) {
    const RECT place{0, index * c_height, 180, (index + 1) * c_height};
    m_site = kvtest::FakeSite::Make(palette, place);
    Require(
        m_control->SetClientSite(m_site.Get()) == S_OK &&
            m_control->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, m_site.Get(), 0, palette, &place) == S_OK,
        "a row is shown");
}

void PaletteRow::End() {
    Require(m_control->Close(OLECLOSE_NOSAVE) == S_OK && m_control->SetClientSite(nullptr) == S_OK,
            "a row ends");
}

}  // namespace kvbench
