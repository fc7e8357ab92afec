#include "RegisteredProgId.h"

#include "RegistryKey.h"

#include <cstdio>
#include <cstdlib>

namespace
{
const std::wstring kUserClasses = L"Software\\Classes\\";

void Expect(bool good, const char* what)
{
    if (good)
        return;
    std::fprintf(stderr, "RegisteredProgId: %s\n", what);
    std::abort();
}

#ifdef _WIN32
/// Returns a mutex that this thread owns. One that its owner left behind at its end is as good as free.
HANDLE TakeTurn()
{
    constexpr DWORD kLongest = 60000;
    const HANDLE turn = CreateMutexW(nullptr, FALSE, L"qptools tests: a ProgID");
    Expect(turn != nullptr, "no mutex");
    const DWORD waited = WaitForSingleObject(turn, kLongest);
    Expect(waited == WAIT_OBJECT_0 || waited == WAIT_ABANDONED, "another program keeps the ProgID");
    return turn;
}

void EndTurn(HANDLE turn)
{
    ReleaseMutex(turn);
    CloseHandle(turn);
}
#else
HANDLE TakeTurn()
{
    return nullptr;
}

void EndTurn(HANDLE) {}
#endif

std::wstring TextOf(REFCLSID clsid)
{
    wchar_t text[39] = L"";
    StringFromGUID2(clsid, text, 39);
    return text;
}
} // namespace

RegisteredProgId::RegisteredProgId(const wchar_t* progId) : m_path(progId), m_turn(TakeTurn())
{
    Remove();
}

RegisteredProgId::RegisteredProgId(const wchar_t* progId, REFCLSID clsid) : RegisteredProgId(progId)
{
    // Only an administrator may write the machine's classes. Those of a user are found as well.
    RegistryKey key;
    Expect((key.Create(HKEY_CLASSES_ROOT, m_path + L"\\CLSID", KEY_WRITE) == ERROR_SUCCESS ||
            key.Create(HKEY_CURRENT_USER, kUserClasses + m_path + L"\\CLSID", KEY_WRITE) == ERROR_SUCCESS) &&
               key.SetText({}, TextOf(clsid)) == ERROR_SUCCESS,
           "the registry refuses the ProgID");
}

RegisteredProgId::~RegisteredProgId()
{
    Remove();
    EndTurn(m_turn);
}

void RegisteredProgId::Remove() const
{
    std::wstring failed;
    Expect(DeleteRegistryTree(HKEY_CURRENT_USER, kUserClasses + m_path, failed) == ERROR_SUCCESS &&
               DeleteRegistryTree(HKEY_CLASSES_ROOT, m_path, failed) == ERROR_SUCCESS,
           "the registry keeps the ProgID");
}
