#include "refhost/automation/DialogEdit.h"

#include "framework/base/CString.h"
#include "framework/base/Hresult.h"
#include "framework/base/MessageBox.h"
#include "framework/com/Bstr.h"
#include "framework/com/Variant.h"
#include "refhost/automation/IAutomationIdentity.h"
#include "refhost/automation/IPropertyOfDialog.h"
#include "refhost/db/Database.h"
#include "refhost/ui/PropertyTextDialog.h"

namespace kvhost {

namespace {

// One step of undo in the drawing of the object; nothing for an object that is in none.
class DialogStep {
public:
    explicit DialogStep(IDispatch* object) : m_undo(UndoOf(object)) {
        if (m_undo != nullptr && m_undo->BeginGroup(L"Dialog") != Tolm::eOk) {
            m_undo = nullptr;
        }
    }
    DialogStep(const DialogStep&) = delete;
    DialogStep& operator=(const DialogStep&) = delete;
    ~DialogStep() {
        if (m_undo != nullptr) {
            static_cast<void>(m_undo->EndGroup());  // a group that began can end
        }
    }

private:
    static UndoController* UndoOf(IDispatch* object) {
        const auto identity = fw::QueryFrom<IAutomationIdentity>(object);
        auto* const database =
            identity ? static_cast<Database*>(identity->DatabaseObject().database()) : nullptr;
        return database != nullptr ? &database->Undo() : nullptr;
    }

    UndoController* m_undo;  // the drawing's
};

bool Put(REFCLSID dialog, IDispatch* object, const std::wstring& text) {
    const auto properties = fw::QueryFrom<IPropertyOfDialog>(object);
    const DISPID dispid = properties ? properties->PropertyOfDialog(dialog) : DISPID_UNKNOWN;
    if (dispid == DISPID_UNKNOWN) {
        return false;
    }
    fw::Variant value = fw::Variant::FromString(text);
    DISPID named = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{value.Address(), &named, 1, 1};
    return SUCCEEDED(object->Invoke(dispid, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &parameters,
                                    nullptr, nullptr, nullptr));
}

void TellRefusals(std::size_t refused, std::size_t all) {
    CString message;
    message.Format(L"%d of %d objects could not be changed.", static_cast<int>(refused),
                   static_cast<int>(all));
    fw::ShowMessageBox(nullptr, message, nullptr, MB_ICONEXCLAMATION);
}

}  // namespace

HRESULT EditInDialog(REFCLSID dialog, const std::vector<fw::ComPtr<IDispatch>>& objects,
                     std::size_t objectCount, BSTR* text) {
    const std::wstring former(fw::Bstr::ViewOf(*text));
    std::wstring edited = former;
    RETURN_HR_IF(S_FALSE, !EditPropertyText(edited, objectCount));
    fw::Bstr result;
    RETURN_IF_FAILED(fw::MakeBstr(edited, result.Put()));
    if (edited != former && !objects.empty()) {
        std::size_t refused = 0;
        {
            const DialogStep step(objects.front().Get());
            for (const fw::ComPtr<IDispatch>& object : objects) {
                refused += Put(dialog, object.Get(), edited) ? 0U : 1U;
            }
        }
        if (refused > 0) {
            TellRefusals(refused, objects.size());
        }
        RETURN_HR_IF(E_FAIL, refused == objects.size());
    }
    ::SysFreeString(*text);
    *text = result.Detach();
    return S_OK;
}

}  // namespace kvhost
