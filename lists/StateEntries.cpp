#include "lists/StateEntries.h"

#include "framework/base/Hresult.h"

void StateEntries::SyncVariesItem(bool wanted, const CString& text) {
    const int index = m_find(text);
    if (!wanted) {
        if (index >= 0) {
            m_list.DeleteString(index);
        }
        return;
    }
    // Deliberate: an entry at the very top is not recognised and gets a twin.
    if (index <= 0) {
        Append(text);
    }
}

void StateEntries::SyncUnspecifiedItem(bool wanted, const CString& text) {
    const int index = m_list.FindStringExact(-1, text);
    if (!wanted) {
        if (index >= 0) {
            m_list.DeleteString(index);
        }
        return;
    }
    if (index >= 0) {
        if (m_list.GetLBText(index).CompareNoCase(text) == 0) {
            return;
        }
        m_list.DeleteString(index);
    }
    Append(text);
}

void StateEntries::Append(const CString& text) {
    std::unique_ptr<COwnerDrawItem> item = m_make();
    item->name = text;
    fw::Ignore(m_list.InsertItem(-1, std::move(item)));  // a list that takes no more lacks the entry
}
