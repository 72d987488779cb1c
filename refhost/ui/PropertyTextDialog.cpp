#include "refhost/ui/PropertyTextDialog.h"

#include <utility>

#include "refhost/testing/Answers.h"
#include "refhost/ui/HostResources.h"
#include "refhost/ui/ResourceIds.h"

namespace kvhost {

PropertyTextDialog::PropertyTextDialog(std::wstring text, std::size_t objectCount, HWND owner)
    : CDialog(KVHOST_DIALOG_PROPERTY_TEXT, owner), m_text(std::move(text)), m_objectCount(objectCount) {
}

PropertyTextDialog::~PropertyTextDialog() {
    DestroyWindow();
}

bool PropertyTextDialog::ExchangeData(bool toMembers) {
    if (toMembers) {
        m_text = GetDlgItemText(KVHOST_PROPERTY_TEXT).Std();
        return true;
    }
    SetDlgItemText(KVHOST_PROPERTY_TEXT, m_text.c_str());
    CString label;
    label.Format(m_objectCount == 1 ? L"Text of %d object:" : L"Text of %d objects:",
                 static_cast<int>(m_objectCount));
    SetDlgItemText(KVHOST_PROPERTY_OBJECTS, label);
    return true;
}

bool EditPropertyText(std::wstring& text, std::size_t objectCount) {
    Answers::NoteShown(text);
    if (const auto answer = Answers::Take({IDOK, {}})) {
        if (answer->button == IDOK && answer->text) {
            text = *answer->text;
        }
        return answer->button == IDOK;
    }
    const HostResources resources;
    PropertyTextDialog dialog(text, objectCount, nullptr);
    if (dialog.DoModal() != IDOK) {
        return false;
    }
    text = dialog.Text();
    return true;
}

}  // namespace kvhost
