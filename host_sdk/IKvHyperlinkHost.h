#pragma once

#include "host_sdk/InterfaceSlots.h"

/// One hyperlink of an object.
struct IKvHyperlink : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetUrl(BSTR* url) = 0;
};

__CRT_UUID_DECL(IKvHyperlink, 0x0F3B2A64, 0x51C7, 0x4E2D, 0x8A, 0x19, 0x6D, 0x40, 0xB7, 0x93, 0x5C, 0x02)

/// The hyperlinks of an object, in order.
struct IKvHyperlinkCollection : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetCount(long* count) = 0;
    /// `index` starts at 0. E_INVALIDARG beyond the end.
    virtual HRESULT STDMETHODCALLTYPE GetItem(long index, IKvHyperlink** hyperlink) = 0;
};

__CRT_UUID_DECL(IKvHyperlinkCollection, 0x7D81C5A0, 0x2E4F, 0x4B63, 0x9C, 0x7A, 0x13, 0x58, 0xE0, 0x2F, 0x6B,
                0xD4)

/// An object that carries hyperlinks, also the value of a property that shows them.
struct IKvHyperlinkHost : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetHyperlinks(IKvHyperlinkCollection** hyperlinks) = 0;
};

__CRT_UUID_DECL(IKvHyperlinkHost, 0xC823CC0C, 0x3D96, 0x48A0, 0x92, 0x93, 0x2F, 0x08, 0xB6, 0xB2, 0x41, 0x69)
