#include "TypeLibraryText.h"

#include "Utf8.h"

#include <cstdio>
#include <map>

namespace
{
/// A text that the automation library handed out.
std::string Take(BSTR text)
{
    const std::string narrow = text ? Narrow(text) : std::string();
    SysFreeString(text);
    return narrow;
}

template <class Source>
Documented Documentation(Source* source, MEMBERID member)
{
    BSTR name = nullptr;
    BSTR help = nullptr;
    if (source->GetDocumentation(member, &name, &help, nullptr, nullptr) < 0)
        return {"undocumented", ""};
    return {Take(name), Take(help)};
}

std::string TypeText(ITypeInfo* context, const TYPEDESC& type)
{
    static const std::map<VARTYPE, std::string> simple = {
        {VT_I2, "short"},          {VT_UI2, "unsigned short"},
        {VT_I4, "long"},           {VT_UI4, "unsigned long"},
        {VT_INT, "int"},           {VT_BSTR, "BSTR"},
        {VT_VARIANT, "VARIANT"},   {VT_HRESULT, "HRESULT"},
        {VT_UNKNOWN, "IUnknown*"}, {VT_VOID, "void"}};
    if (type.vt == VT_PTR)
        return TypeText(context, *type.lptdesc) + "*";
    if (type.vt == VT_SAFEARRAY)
        return "SAFEARRAY(" + TypeText(context, *type.lptdesc) + ")";
    if (type.vt == VT_USERDEFINED)
    {
        ComPtr<ITypeInfo> referenced;
        if (context->GetRefTypeInfo(type.hreftype, referenced.put()) < 0)
            return "unresolved";
        return DocumentationOf(referenced.get()).name;
    }
    const auto found = simple.find(type.vt);
    return found != simple.end() ? found->second : "type " + std::to_string(type.vt);
}

std::string FlagsText(USHORT flags)
{
    std::string text;
    if (flags & PARAMFLAG_FIN)
        text += "in ";
    if (flags & PARAMFLAG_FOUT)
        text += "out ";
    if (flags & PARAMFLAG_FRETVAL)
        text += "retval ";
    if (flags & ~(PARAMFLAG_FIN | PARAMFLAG_FOUT | PARAMFLAG_FRETVAL))
        text += "other flags ";
    return text;
}

/// One method's description; freed with the object.
class CMethod
{
public:
    CMethod(ITypeInfo* type, UINT index) : m_ptrType(type) { type->GetFuncDesc(index, &m_method); }
    ~CMethod()
    {
        if (m_method)
            m_ptrType->ReleaseFuncDesc(m_method);
    }
    CMethod(const CMethod&) = delete;
    CMethod& operator=(const CMethod&) = delete;

    const FUNCDESC* operator->() const { return m_method; }

    std::string Text() const
    {
        std::vector<BSTR> names(m_method->cParams + 1U, nullptr);
        UINT count = 0;
        m_ptrType->GetNames(m_method->memid, names.data(), static_cast<UINT>(names.size()), &count);
        std::string text = Take(names[0]) + "(";
        for (SHORT i = 0; i < m_method->cParams; ++i)
        {
            const ELEMDESC& parameter = m_method->lprgelemdescParam[i];
            text += (i > 0 ? ", " : "") + FlagsText(parameter.paramdesc.wParamFlags) +
                    TypeText(m_ptrType.get(), parameter.tdesc) + " " + Take(names[i + 1U]);
        }
        return text + ")" + Oddities();
    }

private:
    /// What a method of this library never has, so that a test sees it if one does.
    std::string Oddities() const
    {
        std::string text;
        if (m_method->elemdescFunc.tdesc.vt != VT_HRESULT)
            text += " returns " + TypeText(m_ptrType.get(), m_method->elemdescFunc.tdesc);
        if (m_method->callconv != CC_STDCALL)
            text += " convention " + std::to_string(m_method->callconv);
        if (m_method->funckind != FUNC_PUREVIRTUAL)
            text += " kind " + std::to_string(m_method->funckind);
        if (m_method->invkind != INVOKE_FUNC)
            text += " invoked as " + std::to_string(m_method->invkind);
        return text;
    }

    ComPtr<ITypeInfo> m_ptrType;
    FUNCDESC* m_method = nullptr;
};

std::string FieldText(ITypeInfo* type, const VARDESC& field)
{
    BSTR name = nullptr;
    UINT count = 0;
    type->GetNames(field.memid, &name, 1, &count);
    const std::string text = Take(name);
    if (field.varkind == VAR_CONST)
        return text + " = " + std::to_string(field.lpvarValue->lVal);
    return TypeText(type, field.elemdescVar.tdesc) + " " + text;
}
} // namespace

std::string Narrow(const std::wstring& text)
{
    return Utf8FromWide(text);
}

std::string TextOf(const GUID& id)
{
    wchar_t text[40];
    StringFromGUID2(id, text, 40);
    return Narrow(text);
}

Documented DocumentationOf(ITypeLib* library)
{
    return Documentation(library, MEMBERID_NIL);
}

Documented DocumentationOf(ITypeInfo* type)
{
    return Documentation(type, MEMBERID_NIL);
}

CTypeAttributes::CTypeAttributes(ITypeInfo* type) : m_ptrType(type)
{
    type->GetTypeAttr(&m_attributes);
}

CTypeAttributes::~CTypeAttributes()
{
    if (m_attributes)
        m_ptrType->ReleaseTypeAttr(m_attributes);
}

ComPtr<ITypeInfo> FindType(ITypeLib* library, const std::wstring& name)
{
    for (UINT i = 0; i < library->GetTypeInfoCount(); ++i)
    {
        ComPtr<ITypeInfo> type;
        if (library->GetTypeInfo(i, type.put()) >= 0 && DocumentationOf(type.get()).name == Narrow(name))
            return type;
    }
    return nullptr;
}

std::string BaseOf(ITypeInfo* type)
{
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> base;
    if (type->GetRefTypeOfImplType(0, &reference) < 0 || type->GetRefTypeInfo(reference, base.put()) < 0)
        return "none";
    return DocumentationOf(base.get()).name;
}

std::vector<std::string> MethodsOf(ITypeInfo* type)
{
    const CTypeAttributes attributes(type);
    std::vector<std::string> methods;
    for (UINT i = 0; i < attributes->cFuncs; ++i)
        methods.push_back(CMethod(type, i).Text());
    return methods;
}

std::vector<int> SlotsOf(ITypeInfo* type)
{
    const CTypeAttributes attributes(type);
    std::vector<int> slots;
    for (UINT i = 0; i < attributes->cFuncs; ++i)
        slots.push_back(CMethod(type, i)->oVft / static_cast<int>(sizeof(void*)));
    return slots;
}

std::vector<std::string> FieldsOf(ITypeInfo* type)
{
    const CTypeAttributes attributes(type);
    std::vector<std::string> fields;
    for (UINT i = 0; i < attributes->cVars; ++i)
    {
        VARDESC* field = nullptr;
        if (type->GetVarDesc(i, &field) < 0)
            continue;
        fields.push_back(FieldText(type, *field));
        type->ReleaseVarDesc(field);
    }
    return fields;
}
