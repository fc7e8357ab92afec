#include "MemoryConfig.h"

#include "ForwardingType.h"

#include "XQPComBSTR.h"

#include <algorithm>
#include <iterator>

namespace
{
std::string NameText(const wchar_t* name)
{
    const XQPComBSTR text(name);
    return Utf8Of(text);
}

/// The object of that name in the record; null if there is none.
template <class Object>
Object* Find(const std::vector<ComPtr<Object>>& objects, BSTR name)
{
    const auto found = std::find_if(objects.begin(), objects.end(), [&](const ComPtr<Object>& object) {
        return object && object->Name() == Utf8Of(name);
    });
    return found == objects.end() ? nullptr : found->get();
}

template <class Object, class Interface>
HRESULT HandOut(Object* object, HRESULT status, bool null, Interface** result)
{
    ComPtr<Interface>(null ? nullptr : object).copyTo(result);
    return object ? status : E_INVALIDARG;
}

/// Another pointer to a type.
class TypeCopy final : public ForwardingType<CountedObject<IQPType>>
{
public:
    TypeCopy(MemoryRecord& record, MemoryType& type) : ForwardingType(&type), m_life(record) {}

private:
    ~TypeCopy() override = default;

    const MemoryRecord::Life m_life;
};
} // namespace

MemoryAttribute* MemoryAttribute::Value(const wchar_t* name, const MemoryValue& value)
{
    const ComPtr<MemoryAttributeType> made(new MemoryAttributeType(m_record, Name() + "=" + NameText(name)));
    made->Set(L"name", name)->Set(L"value", value);
    values.objects.push_back(made);
    return this;
}

HRESULT MemoryAttribute::GetAttributeTypeEnum(IQPAttributeTypeEnum** list)
{
    const MemoryRecord::CallScope call;
    Record([&] { return std::string("GetAttributeTypeEnum()"); });
    return values.Give<IQPAttributeTypeEnum, IQPAttributeType>(m_record, Name() + " values", values.objects,
                                                               list);
}

MemoryPage* MemoryType::Page(const wchar_t* name, int number, bool shown)
{
    const ComPtr<MemoryPage> page(new MemoryPage(m_record, Name() + "/" + NameText(name)));
    pages.objects.push_back(page);
    return page->Set(0, name)->Set(5, shown)->Set(6, number);
}

MemoryGroup* MemoryType::Group(const wchar_t* name, int number, bool shown)
{
    const ComPtr<MemoryGroup> group(new MemoryGroup(m_record, Name() + "/" + NameText(name)));
    groups.objects.push_back(group);
    return group->Set(0, name)->Set(2, number)->Set(9, shown);
}

MemoryAttribute* MemoryType::Attribute(const wchar_t* name, int typeCode, int copyMode)
{
    const ComPtr<MemoryAttribute> attribute(new MemoryAttribute(m_record, NameText(name)));
    attribute->Set(L"attributename", name)->Set(0, name)->Set(3, typeCode)->Set(54, copyMode);
    attributes.objects.push_back(attribute);
    return attribute.get();
}

HRESULT MemoryType::GetPageEnum(IQPPageEnum** list)
{
    const MemoryRecord::CallScope call;
    Record([&] { return std::string("GetPageEnum()"); });
    return pages.Give<IQPPageEnum, IQPPage>(m_record, Name() + " pages", pages.objects, list);
}

HRESULT MemoryType::GetGroupEnum(IQPGroupEnum** list)
{
    const MemoryRecord::CallScope call;
    Record([&] { return std::string("GetGroupEnum()"); });
    return groups.Give<IQPGroupEnum, IQPGroup>(m_record, Name() + " groups", groups.objects, list);
}

HRESULT MemoryType::GetDisplayAttributeEnum(LONG mask, IQPAttributeEnum** list)
{
    const MemoryRecord::CallScope call;
    Record([&] { return "GetDisplayAttributeEnum(" + std::to_string(mask) + ")"; });
    std::vector<ComPtr<MemoryAttribute>> chosen;
    std::copy_if(attributes.objects.begin(), attributes.objects.end(), std::back_inserter(chosen),
                 [mask](const ComPtr<MemoryAttribute>& a) { return !a || (a->mask & mask) != 0; });
    return attributes.Give<IQPAttributeEnum, IQPAttribute>(m_record, Name() + " attributes", chosen, list);
}

HRESULT MemoryType::GetAttribute(BSTR name, IQPAttribute** attribute)
{
    const MemoryRecord::CallScope call;
    Record([&] { return "GetAttribute(" + Utf8OrNull(name) + ")"; });
    return HandOut(Find(attributes.objects, name), attributeStatus, attributeNull, attribute);
}

MemoryType* MemoryFactory::Type(const wchar_t* name, bool isPlanType)
{
    const ComPtr<MemoryType> type(new MemoryType(m_record, NameText(name)));
    type->Set(L"typename", name)->Set(L"captionsingular", name)->Set(L"isplantype", isPlanType);
    types.objects.push_back(type);
    return type.get();
}

HRESULT MemoryFactory::GetTypeEnum(BSTR configName, IQPTypeEnum** list)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
        m_record.Record("GetTypeEnum(" + Utf8OrNull(configName) + ")");
    return types.Give<IQPTypeEnum, IQPType>(m_record, "types", types.objects, list);
}

HRESULT MemoryFactory::GetType(BSTR typeName, BSTR configName, IQPType** type)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
        m_record.Record("GetType(" + Utf8OrNull(typeName) + ", " + Utf8OrNull(configName) + ")");
    return TypeNamed(typeName, configName, type);
}

MemoryType* MemoryFactory::Find(const wchar_t* name) const
{
    const XQPComBSTR text(name);
    return ::Find(types.objects, text);
}

HRESULT MemoryFactory::TypeNamed(BSTR typeName, BSTR configName, IQPType** type) const
{
    const BSTR wanted = SysStringLen(configName) ? configName : typeName;
    MemoryType* const found = ::Find(types.objects, wanted);
    const ComPtr<IQPType> given(found && typeCopies ? new TypeCopy(m_record, *found)
                                                    : static_cast<IQPType*>(found));
    return HandOut(given.get(), typeStatus, typeNull, type);
}
