// A test on the configured types of the sample plant.
#pragma once

#include "PlantFixture.h"

#include "qpconfig.h"

class ConfigPlant : public SamplePlant
{
protected:
    const ComPtr<IQPConfigFactory> factory = plant->ConfigFactory();

    ComPtr<IQPType> Type(const wchar_t* name) const
    {
        ComPtr<IQPType> type;
        EXPECT_EQ(factory->GetType(Text(name), nullptr, type.put()), S_OK);
        return type;
    }

    ComPtr<IQPAttribute> Attribute(const wchar_t* type, const wchar_t* name) const
    {
        ComPtr<IQPAttribute> attribute;
        EXPECT_EQ(Type(type)->GetAttribute(Text(name), attribute.put()), S_OK);
        return attribute;
    }

    /// The rest of a list by the texts of a member.
    template <class Element, class Enum>
    static Names Members(const ComPtr<Enum>& list, int member)
    {
        Names names;
        ComPtr<Element> element;
        while (list && list->GetSingleNext(element.put()) == S_OK)
            names.push_back(MemberText(element.get(), member));
        return names;
    }

    /// The value of a member, empty if the object has none.
    static void Member(IQPConfigObject* object, int member, Value& value)
    {
        const HRESULT status = object->GetProperty(member, &value.get());
        EXPECT_EQ(status, value->vt == VT_EMPTY ? S_FALSE : S_OK);
    }

    static std::wstring MemberText(IQPConfigObject* object, int member)
    {
        Value value;
        Member(object, member, value);
        return AsText(value);
    }

    static std::wstring KeyText(IQPConfigObject* object, const wchar_t* key)
    {
        Value value;
        const HRESULT status = object->Get(Text(key), &value.get());
        EXPECT_EQ(status, value->vt == VT_EMPTY ? S_FALSE : S_OK);
        return AsText(value);
    }

private:
    static std::wstring AsText(Value& value)
    {
        if (value->vt == VT_EMPTY)
            return L"<none>";
        value.Become(VT_BSTR);
        return value->bstrVal;
    }
};
