/* Makes HKEY_CURRENT_USER\Software\Classes a link to the machine's classes. Wine's component loader reads only the
   latter; with the link our per-user registration is found as it is on Windows. */
#include <windows.h>

int main(void)
{
    static const WCHAR target[] = L"\\Registry\\Machine\\Software\\Classes";
    static const WCHAR name[] = L"Software\\Classes";
    HKEY link;
    LONG result = RegDeleteTreeW(HKEY_CURRENT_USER, name);
    if (result != ERROR_SUCCESS && result != ERROR_FILE_NOT_FOUND)
        return 1;
    result = RegCreateKeyExW(HKEY_CURRENT_USER, name, 0, NULL, REG_OPTION_CREATE_LINK, KEY_ALL_ACCESS, NULL, &link, NULL);
    if (result != ERROR_SUCCESS)
        return 2;
    /* A link's value carries no final NUL. */
    result = RegSetValueExW(link, L"SymbolicLinkValue", 0, REG_LINK, (const BYTE*)target, sizeof target - sizeof *target);
    RegCloseKey(link);
    return result == ERROR_SUCCESS ? 0 : 3;
}
