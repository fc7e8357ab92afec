// What the type library must say, written out by hand.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string>
#include <vector>

struct InterfaceRow
{
    std::wstring name;
    std::string id;
    std::string base;
    int firstSlot; ///< of its own methods, QueryInterface being 0
    std::vector<std::string> methods;
};

struct ClassRow
{
    std::wstring name;
    std::string id;
    std::string interfaceName;
};

struct RecordRow
{
    std::wstring name;
    TYPEKIND kind;
    std::vector<std::string> fields;
};

extern const std::vector<InterfaceRow> kComponentInterfaces; ///< of the seven classes
extern const std::vector<InterfaceRow> kHostInterfaces;      ///< that the module calls
extern const std::vector<InterfaceRow> kCarriedInterfaces;   ///< that the module does not call: names only
extern const std::vector<ClassRow> kClasses;
extern const std::vector<RecordRow> kRecords;

/// Checks the whole library against the tables, and that it holds nothing else.
void ExpectWholeLibrary(ITypeLib* library);
