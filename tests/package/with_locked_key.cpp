// Runs a program while access to a registry key is denied to every user: with_locked_key KEY COMMAND_LINE
// KEY is a path below HKEY_LOCAL_MACHINE. A key that is not there is created, and deleted in the end. The
// exit code is that of the program.
#include "RunProgram.h"

#include <windows.h>

#include <shellapi.h>

#include <cstdio>

namespace
{
/// An empty access list denies the key to every user, a null list gives it back.
bool SetAccess(HKEY key, ACL* list)
{
    SECURITY_DESCRIPTOR descriptor;
    InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION);
    SetSecurityDescriptorDacl(&descriptor, TRUE, list, FALSE);
    return RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, &descriptor) == ERROR_SUCCESS;
}

bool Lock(HKEY key)
{
    alignas(ACL) BYTE list[sizeof(ACL)];
    auto* nobody = reinterpret_cast<ACL*>(list);
    InitializeAcl(nobody, sizeof list, ACL_REVISION);
    return SetAccess(key, nobody);
}
} // namespace

int main()
{
    int count = 0;
    LPWSTR* words = CommandLineToArgvW(GetCommandLineW(), &count);
    HKEY key = nullptr;
    DWORD disposition = 0;
    if (!words || count != 3 ||
        RegCreateKeyExW(HKEY_LOCAL_MACHINE, words[1], 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                        &disposition) != ERROR_SUCCESS ||
        !Lock(key))
    {
        std::printf("with_locked_key: the key cannot be locked\n");
        return 101;
    }
    const DWORD code = RunProgram(words[2]).value_or(102);
    SetAccess(key, nullptr);
    RegCloseKey(key);
    if (disposition == REG_CREATED_NEW_KEY)
        RegDeleteKeyW(HKEY_LOCAL_MACHINE, words[1]);
    LocalFree(words);
    return static_cast<int>(code);
}
