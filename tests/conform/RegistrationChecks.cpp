// The two ways in which clients find the classes: registered for the user, and by the manifest alone.

#include "tests/conform/Checks.h"
#include "tests/conform/UserClasses.h"
#include "tests/control/support/RegisterProgram.h"

namespace kvconform {
namespace {

constexpr wchar_t c_libraryId[] = L"{5C232F67-F20E-4855-BBD8-C092659BF77A}";

/// An activation context for its scope.
class ScopedContext {
public:
    ScopedContext(const std::wstring& manifest, const std::wstring& folder) {
        ACTCTXW description{};
        description.cbSize = sizeof description;
        description.dwFlags = ACTCTX_FLAG_ASSEMBLY_DIRECTORY_VALID;
        description.lpSource = manifest.c_str();
        description.lpAssemblyDirectory = folder.c_str();
        m_context = ::CreateActCtxW(&description);
        m_isActive = m_context != INVALID_HANDLE_VALUE && ::ActivateActCtx(m_context, &m_cookie);
    }
    ScopedContext(const ScopedContext&) = delete;
    ScopedContext& operator=(const ScopedContext&) = delete;
    ~ScopedContext() {
        if (m_isActive) {
            ::DeactivateActCtx(0, m_cookie);
        }
        if (m_context != INVALID_HANDLE_VALUE) {
            ::ReleaseActCtx(m_context);
        }
    }
    [[nodiscard]] bool IsActive() const { return m_isActive; }

private:
    HANDLE m_context = INVALID_HANDLE_VALUE;
    ULONG_PTR m_cookie = 0;
    bool m_isActive = false;
};

std::wstring TextOf(const GUID& id) {
    wchar_t text[64]{};
    ::StringFromGUID2(id, text, 64);
    return text;
}

/// A text value under the user's classes, empty when there is none.
std::wstring UserText(const std::wstring& path, const wchar_t* name = nullptr) {
    wchar_t text[1024]{};
    DWORD size = sizeof text;
    const LSTATUS read = ::RegGetValueW(HKEY_CURRENT_USER, (L"Software\\Classes\\" + path).c_str(), name,
                                        RRF_RT_REG_SZ, nullptr, text, &size);
    return read == ERROR_SUCCESS ? text : std::wstring();
}

void CheckRegisteredClass(Report& report, const TestedModule& module, const kvtest::ClassRow& row) {
    const std::string rule = "registered: " + ToText(row.name);
    CLSID id{};
    report.Expect(rule + " is found by its name", S_OK, ::CLSIDFromProgID(row.progId, &id));
    report.Expect(rule + " has the id of its name", *row.id, id);
    const std::wstring key = L"CLSID\\" + TextOf(*row.id);
    report.Expect(rule + " has its description", row.description, UserText(key));
    report.Expect(rule + " lies in the module", module.Path(), UserText(key + L"\\InprocServer32"));
    report.Expect(rule + " belongs to the thread that made it", L"Apartment",
                  UserText(key + L"\\InprocServer32", L"ThreadingModel"));
    report.Expect(rule + " tells its name", row.progId, UserText(key + L"\\ProgID"));
    report.Expect(rule + " tells its type library", c_libraryId, UserText(key + L"\\TypeLib"));
}

/// What creation by the component runtime gives, beside what the module itself says.
void CheckCreated(Report& report, const TestedModule& module, const kvtest::ClassRow& row,
                  const std::string& rule) {
    fw::ComPtr<IUnknown> direct;
    fw::ComPtr<IUnknown> created;
    report.Expect(
        rule + " is created as the module does it", module.Create(*row.id, IID_IUnknown, direct.PutVoid()),
        ::CoCreateInstance(*row.id, nullptr, CLSCTX_INPROC_SERVER, IID_IUnknown, created.PutVoid()));
}

/// In the context of a manifest the id that a name gives is one of its own: what it creates tells the class.
void CheckCreatedByName(Report& report, const kvtest::ClassRow& row, REFCLSID id, const std::string& rule) {
    fw::ComPtr<IOleObject> created;
    CLSID classId{};
    if (SUCCEEDED(::CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IOleObject, created.PutVoid())) &&
        SUCCEEDED(created->GetUserClassID(&classId))) {
        report.Expect(rule + " is the class that its name creates", *row.id, classId);
    }
}

DWORD Register(const TestedModule& module) {
    return kvtest::RunRegister(L" \"" + module.Path() + L"\"");
}

DWORD Remove(const TestedModule& module) {
    return kvtest::RunRegister(L" /u \"" + module.Path() + L"\"");
}

}  // namespace

void CheckManifest(Report& report, const TestedModule& module) {
    const std::wstring path = module.Path();
    const std::wstring manifest = path.substr(0, path.find_last_of(L'.')) + L".manifest";
    const ScopedContext context(manifest, module.Folder());
    if (!report.Expect("manifest: it lies beside the module and is well formed", true, context.IsActive())) {
        return;
    }
    for (const kvtest::ClassRow& row : kvtest::s_classRows) {
        const std::string rule = "manifest: " + ToText(row.name);
        CLSID id{};
        report.Expect(rule + " is found by its name", S_OK, ::CLSIDFromProgID(row.progId, &id));
        CheckCreatedByName(report, row, id, rule);
        CheckCreated(report, module, row, rule);
    }
}

void CheckRegisteredClasses(Report& report, const TestedModule& module) {
    for (const kvtest::ClassRow& row : kvtest::s_classRows) {
        CheckRegisteredClass(report, module, row);
        CheckCreated(report, module, row, "registered: " + ToText(row.name));
    }
    report.Expect("registered: the type library lies in the module", module.Path(),
                  UserText(std::wstring(L"TypeLib\\") + c_libraryId + L"\\1.0\\409\\win64"));
}

void CheckRegistration(Report& report, const TestedModule& module) {
    const UserClasses before;
    if (!report.Expect("registered: the classes are not registered yet", std::wstring(),
                       UserText(L"CLSID\\" + TextOf(*kvtest::s_classRows[0].id) + L"\\InprocServer32"))) {
        return;
    }
    if (report.Expect("registered: the register program registers the module", DWORD{0}, Register(module))) {
        CheckRegisteredClasses(report, module);
        const UserClasses once;
        report.Expect("registered: a second time succeeds", DWORD{0}, Register(module));
        report.Expect("registered: a second time adds nothing", Lines{}, UserClasses().Without(once));
    }
    report.Expect("removed: the register program takes the module out", DWORD{0}, Remove(module));
    const UserClasses after;
    report.Expect("removed: entries that are left", Lines{}, after.Without(before));
    report.Expect("removed: entries of others that have gone", Lines{}, before.Without(after));
    report.Expect("removed: a second time succeeds", DWORD{0}, Remove(module));
}

}  // namespace kvconform
