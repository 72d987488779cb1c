// Every operation by its dispatch id and through the interface: both give the same.

#include <set>

#include "tests/conform/Checks.h"
#include "tests/conform/ControlBench.h"
#include "tests/conform/Fonts.h"
#include "tests/conform/Invocation.h"
#include "tests/conform/TypeInfoReading.h"

namespace kvconform {
namespace {

using Control = IKvPiPropertyEditControl2;

struct ColorProperty {
    const char* name;
    DISPID id;
    HRESULT (STDMETHODCALLTYPE Control::*put)(OLE_COLOR);
    HRESULT (STDMETHODCALLTYPE Control::*get)(OLE_COLOR*);
};

const ColorProperty c_colors[] = {
    {"BackColor", -501, &Control::put_BackColor, &Control::get_BackColor},
    {"ForeColor", -513, &Control::put_ForeColor, &Control::get_ForeColor},
    {"ReadOnlyBackColor", -2000, &Control::put_ReadOnlyBackColor, &Control::get_ReadOnlyBackColor},
    {"ReadOnlyForeColor", -2001, &Control::put_ReadOnlyForeColor, &Control::get_ReadOnlyForeColor},
};

class DispatchCheck {
public:
    DispatchCheck(Report& report, const TestedModule& module, const kvtest::ClassRow& row)
        : m_report(report), m_bench(module, *row.id), m_control(*m_bench.control.Get()) {}

    void Run() {
        CheckDescription();
        for (const ColorProperty& color : c_colors) {
            CheckColor(color);
        }
        CheckKeepFocus();
        CheckFont();
        CheckIdentifier();
        CheckMethods();
        CheckUnknown();
        CheckAllCovered();
    }

private:
    void CheckDescription() {
        UINT count = 0;
        m_report.Expect("dispatch: GetTypeInfoCount succeeds", S_OK, m_control.GetTypeInfoCount(&count));
        m_report.Expect("dispatch: there is one description", DWORD{1}, DWORD{count});
        m_report.Expect("dispatch: GetTypeInfo succeeds", S_OK,
                        m_control.GetTypeInfo(0, LOCALE_USER_DEFAULT, m_info.Put()));
        m_report.Expect("dispatch: GetTypeInfo of another index is refused", DISP_E_BADINDEX,
                        m_control.GetTypeInfo(1, LOCALE_USER_DEFAULT, fw::ComPtr<ITypeInfo>().Put()));
        if (!m_info) {
            return;
        }
        m_report.Expect("dispatch: the description is that of the control's interface",
                        __uuidof(IKvPiPropertyEditControl2), IdOf(*m_info.Get()));
        for (const DescribedFunction& function : DispatchFunctionsOf(*m_info.Get())) {
            std::wstring name = function.name;
            LPOLESTR names[] = {name.data()};
            DISPID id = DISPID_UNKNOWN;
            static_cast<void>(m_control.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id));
            m_report.Expect("dispatch: the id of " + ToText(name), static_cast<DWORD>(function.id),
                            static_cast<DWORD>(id));
            m_described.insert(function.id);
        }
        wchar_t unknown[] = L"NoSuchMember";
        LPOLESTR names[] = {unknown};
        DISPID id = 0;
        m_report.Expect("dispatch: an unknown name is refused", DISP_E_UNKNOWNNAME,
                        m_control.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id));
    }

    void CheckColor(const ColorProperty& color) {
        const std::string rule = std::string("dispatch: ") + color.name;
        fw::Variant value = fw::Variant::FromLong(0x123456);
        m_report.Expect(rule + " is put by id", S_OK, Call(color.id, DISPATCH_PROPERTYPUT, {value.Get()}));
        OLE_COLOR read = 0;
        m_report.Expect(rule + " is got through the interface", S_OK, (m_control.*color.get)(&read));
        m_report.Expect(rule + " put by id is got through the interface", OLE_COLOR{0x123456}, read);
        m_report.Expect(rule + " is put through the interface", S_OK, (m_control.*color.put)(0x80000005));
        fw::Variant got;
        m_report.Expect(rule + " is got by id", S_OK, Call(color.id, DISPATCH_PROPERTYGET, {}, got.Put()));
        m_report.Expect(rule + " put through the interface is got by id", DWORD{0x80000005}, got.Get().ulVal);
        m_report.Expect(rule + " cannot be called as a method", DISP_E_MEMBERNOTFOUND,
                        Call(color.id, DISPATCH_METHOD, {value.Get()}));
    }

    void CheckKeepFocus() {
        VARIANT_BOOL keeps = VARIANT_TRUE;
        m_report.Expect("dispatch: KeepFocus is got through the interface", S_OK,
                        m_control.get_KeepFocus(&keeps));
        fw::Variant got;
        m_report.Expect("dispatch: KeepFocus is got by id", S_OK,
                        Call(3, DISPATCH_PROPERTYGET, {}, got.Put()));
        m_report.Expect("dispatch: KeepFocus is the same both ways", keeps != VARIANT_FALSE,
                        got.Get().boolVal != VARIANT_FALSE);
        m_report.Expect("dispatch: KeepFocus has the type of a flag", DWORD{VT_BOOL}, DWORD{got.Type()});
        const fw::Variant value = fw::Variant::FromBool(true);
        m_report.Expect("dispatch: KeepFocus cannot be put", true,
                        FAILED(Call(3, DISPATCH_PROPERTYPUT, {value.Get()})));
    }

    void CheckFont() {
        const fw::ComPtr<IFont> font = MakeFont();
        const fw::Variant value = fw::Variant::FromUnknown(font.Get());
        m_report.Expect("dispatch: Font is put by id", S_OK,
                        Call(DISPID_FONT, DISPATCH_PROPERTYPUT, {value.Get()}));
        fw::ComPtr<IUnknown> read;
        m_report.Expect("dispatch: Font is got through the interface", S_OK, m_control.get_Font(read.Put()));
        m_report.Expect("dispatch: Font put by id is got through the interface", true,
                        fw::IsSameObject(read.Get(), font.Get()));
        const fw::ComPtr<IFont> other = MakeFont();
        m_report.Expect("dispatch: Font is put through the interface", S_OK, m_control.put_Font(other.Get()));
        fw::Variant got;
        m_report.Expect("dispatch: Font is got by id", S_OK,
                        Call(DISPID_FONT, DISPATCH_PROPERTYGET, {}, got.Put()));
        m_report.Expect("dispatch: Font put through the interface is got by id", true,
                        fw::IsSameObject(got.Unknown(), other.Get()));
        const fw::Variant none = fw::Variant::FromUnknown(nullptr);
        Same("Font without a font", m_control.put_Font(nullptr), DISPID_FONT, DISPATCH_PROPERTYPUT,
             {none.Get()}, E_POINTER);
    }

    void CheckIdentifier() {
        fw::ComPtr<IUnknown> read;
        m_report.Expect("dispatch: PropertyIdentifier is got through the interface", S_OK,
                        m_control.get_PropertyIdentifier(read.Put()));
        fw::Variant got;
        m_report.Expect("dispatch: PropertyIdentifier is got by id", S_OK,
                        Call(4, DISPATCH_PROPERTYGET, {}, got.Put()));
        m_report.Expect("dispatch: PropertyIdentifier is the same both ways", true,
                        fw::IsSameObject(read.Get(), got.Unknown()));
        const fw::Variant font = fw::Variant::FromUnknown(MakeFont().Get());
        Same("PropertyIdentifier that is none", m_control.put_PropertyIdentifier(font.Unknown()), 4,
             DISPATCH_PROPERTYPUT, {font.Get()}, E_NOINTERFACE);
        const fw::Variant none = fw::Variant::FromUnknown(nullptr);
        Same("PropertyIdentifier taken back", m_control.put_PropertyIdentifier(nullptr), 4,
             DISPATCH_PROPERTYPUT, {none.Get()}, S_OK);
    }

    void CheckMethods() {
        fw::Variant empty;
        const fw::Variant no = fw::Variant::FromBool(false);
        Same("InitEditControl without arrays",
             m_control.InitEditControl(empty.Address(), empty.Address(), empty.Address(), VARIANT_FALSE), 1,
             DISPATCH_METHOD, {no.Get(), empty.Get(), empty.Get(), empty.Get()}, E_FAIL);
        const fw::Variant flags = fw::Variant::FromLong(7);
        Same("Refresh", m_control.Refresh(7), 2, DISPATCH_METHOD, {flags.Get()}, S_OK);
        // What rows of numbers can read too; swapped, it would be another type, which gives another answer.
        fw::Variant text = fw::Variant::FromString(L"2");
        const fw::Variant varies = fw::Variant::FromLong(1);
        Same("SetValue of a value that varies", m_control.SetValue(text.Address(), 1), 5, DISPATCH_METHOD,
             {varies.Get(), text.Get()}, E_INVALIDARG);
        const fw::Variant noFlags = fw::Variant::FromLong(0);
        const fw::Variant likeFlags = fw::Variant::FromString(L"8");
        Same("LaunchDialog without a flag", m_control.LaunchDialog(likeFlags.Get().bstrVal, 0), 6,
             DISPATCH_METHOD, {noFlags.Get(), likeFlags.Get()}, E_UNEXPECTED);
        m_report.Expect("dispatch: a method with too few arguments is refused", DISP_E_BADPARAMCOUNT,
                        Call(2, DISPATCH_METHOD, {}));
    }

    void CheckUnknown() {
        m_report.Expect("dispatch: an unknown id is refused", DISP_E_MEMBERNOTFOUND,
                        Invoke(m_control, 12345, DISPATCH_METHOD, {}));
        DISPPARAMS none{};
        m_report.Expect("dispatch: an unknown reserved id is refused", DISP_E_UNKNOWNINTERFACE,
                        m_control.Invoke(2, IID_IUnknown, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none,
                                         nullptr, nullptr, nullptr));
    }

    // Guards this list: an id that the type library tells and nobody asked for is a hole in the checks.
    void CheckAllCovered() {
        Lines missed;
        for (const DISPID id : m_described) {
            if (!m_called.contains(id)) {
                missed.push_back(std::to_string(id));
            }
        }
        m_report.Expect("dispatch: ids of the type library that no rule covers", Lines{}, missed);
    }

    HRESULT Call(DISPID id, WORD flags, std::vector<VARIANT> arguments, VARIANT* result = nullptr) {
        m_called.insert(id);
        return Invoke(m_control, id, flags, std::move(arguments), result);
    }
    void Same(const std::string& what, HRESULT direct, DISPID id, WORD flags, std::vector<VARIANT> arguments,
              HRESULT expected) {
        m_report.Expect("dispatch: " + what + " through the interface", expected, direct);
        m_report.Expect("dispatch: " + what + " by id", expected, Call(id, flags, std::move(arguments)));
    }

    Report& m_report;
    ControlBench m_bench;
    Control& m_control;
    fw::ComPtr<ITypeInfo> m_info;
    std::set<DISPID> m_described;
    std::set<DISPID> m_called;
};

}  // namespace

void CheckDispatch(Report& report, const TestedModule& module, const kvtest::ClassRow& row) {
    DispatchCheck(report, module, row).Run();
}

}  // namespace kvconform
