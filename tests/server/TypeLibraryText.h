// A type library as text: one line for a method, in the style of an interface definition.
#pragma once

#include "ComPtr.h"

#include <windows.h>

#include <oleauto.h>

#include <string>
#include <vector>

std::string Narrow(const std::wstring& text);
std::string TextOf(const GUID& id);

/// Name and help string of a type, or of the whole library.
struct Documented
{
    std::string name;
    std::string help;
};
Documented DocumentationOf(ITypeLib* library);
Documented DocumentationOf(ITypeInfo* type);

/// A type description's attributes; they are freed with the object.
class CTypeAttributes
{
public:
    explicit CTypeAttributes(ITypeInfo* type);
    ~CTypeAttributes();
    CTypeAttributes(const CTypeAttributes&) = delete;
    CTypeAttributes& operator=(const CTypeAttributes&) = delete;

    const TYPEATTR* operator->() const { return m_attributes; }

private:
    ComPtr<ITypeInfo> m_ptrType;
    TYPEATTR* m_attributes = nullptr;
};

/// The type of that name, or null.
ComPtr<ITypeInfo> FindType(ITypeLib* library, const std::wstring& name);

/// Name of the interface that `type` derives from.
std::string BaseOf(ITypeInfo* type);

/// The methods that `type` adds to its base, in order, each as
/// "Name(in BSTR bstrName, out retval VARIANT* pvValue)".
std::vector<std::string> MethodsOf(ITypeInfo* type);

/// Position of each of these methods in the table, QueryInterface being 0.
std::vector<int> SlotsOf(ITypeInfo* type);

/// Fields of a record as "BSTR bstrParamName", constants of an enumeration as "SM_Normal = 0".
std::vector<std::string> FieldsOf(ITypeInfo* type);
