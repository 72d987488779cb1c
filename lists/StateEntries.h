#pragma once

#include <functional>
#include <memory>

#include "families/CPeComboCustom.h"

/// The entries of a list that stand for no value of their own: that the objects disagree, and the unspecified
/// state. They come after the values, whatever their texts.
class StateEntries {
public:
    using Find = std::function<int(const wchar_t* text)>;
    using MakeItem = std::function<std::unique_ptr<COwnerDrawItem>()>;

    /// `find` is the list's own, -1 for none; `make` gives a new entry in the row's colours.
    StateEntries(CPeComboCustom& list, Find find, MakeItem make)
        : m_list(list), m_find(std::move(find)), m_make(std::move(make)) {}

    void SyncVariesItem(bool wanted, const CString& text);
    void SyncUnspecifiedItem(bool wanted, const CString& text);

private:
    void Append(const CString& text);

    CPeComboCustom& m_list;
    Find m_find;
    MakeItem m_make;
};
