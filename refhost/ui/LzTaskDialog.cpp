#include "host_sdk/LzTaskDialog.h"

#include "framework/window/CWnd.h"
#include "refhost/testing/Answers.h"
#include "refhost/testing/ServiceCall.h"
#include "refhost/ui/HostResources.h"
#include "refhost/ui/TaskDialogDescription.h"
#include "refhost/ui/TaskDialogWindow.h"

struct LzTaskDialog::Description {
    std::wstring id;
    kvhost::TaskDialogDescription dialog;
};

namespace {

// By which the journal tells the owners of dialogs apart.
std::wstring TitleOf(const CWnd* owner) {
    return owner != nullptr ? owner->GetWindowText().Std() : L"null";
}

}  // namespace

LzTaskDialog::LzTaskDialog() = default;

LzTaskDialog::~LzTaskDialog() = default;

bool LzTaskDialog::LoadFromFile(const wchar_t* resource, const wchar_t* dialogId) {
    kvhost::ServiceCall call(L"LoadFromFile", resource, dialogId);
    m_description.reset();
    if (call.Fails() || resource == nullptr || dialogId == nullptr) {
        return call.Returns(false);
    }
    auto dialog = kvhost::ParseTaskDialog(kvhost::FindTaskDialogResource(resource), dialogId);
    if (dialog) {
        m_description = std::make_unique<Description>(Description{dialogId, *std::move(dialog)});
    }
    return call.Returns(m_description != nullptr);
}

int LzTaskDialog::ShowDialog(CWnd* owner) {
    kvhost::ServiceCall call(L"LzTaskDialog", m_description ? m_description->id.c_str() : nullptr,
                             [&] { return TitleOf(owner); });
    if (call.Fails() || !m_description) {
        return call.Returns(IDCANCEL);
    }
    const kvhost::TaskDialogDescription& dialog = m_description->dialog;
    kvhost::Answers::NoteShown(dialog.instruction);
    if (const auto answer = kvhost::Answers::Take({dialog.defaultButton, {}})) {
        return call.Returns(answer->button);
    }
    const kvhost::HostResources resources;
    kvhost::TaskDialogWindow window(dialog, owner != nullptr ? owner->GetSafeHwnd() : nullptr);
    return call.Returns(static_cast<int>(window.DoModal()));
}
