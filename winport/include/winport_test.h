// What tests may do to winport that a program on Windows cannot do with an API call.
#pragma once

#include "windows.h"

/// Answers a message box: gets the box's arguments and returns the ID* of the button that is pressed. Called
/// in the thread that shows the box. The title is never null (the system's own title stands in for a null
/// one).
using WinportBoxHook = int (*)(HWND owner, const wchar_t* text, const wchar_t* title, UINT type);

/// Installs what answers message boxes from here on, in all threads; null takes it out. With none a message
/// box ends the run with its text, because there is no screen and nobody who could answer. Returns the hook
/// before.
WinportBoxHook WinportSetBoxHook(WinportBoxHook hook);

/// What GetActiveWindow of the calling thread answers from here on; null at first. Windows that are set this
/// way are valid for IsWindow while they are set.
void WinportSetActiveWindow(HWND window);

/// Makes the key `path` under `root` refuse access (or grant it again): opening, creating and deleting it
/// fail with ERROR_ACCESS_DENIED, and so does creating a key directly beneath it. Keys beneath it that exist
/// stay open to access by their own path. The key need not exist.
void WinportDenyKey(HKEY root, const wchar_t* path, bool deny);

/// Empties the registry, whose open keys count as deleted, and forgets which keys refuse access.
void WinportClearRegistry();
