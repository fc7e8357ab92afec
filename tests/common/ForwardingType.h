// A configured type that passes its calls on to another one.
#pragma once

#include "CountedObject.h"

#include "ComPtr.h"

#include "qpconfig.h"

/// `Base` is an OwnedObject or a CountedObject.
template <class Base>
class ForwardingType : public Base
{
public:
    /// The further arguments are those of `Base`.
    template <class... Arguments>
    explicit ForwardingType(IQPType* type, Arguments&... arguments) : Base(arguments...), m_type(type)
    {
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override
    {
        if (iid == __uuidof(IQPConfigObject))
            return Give(static_cast<IQPType*>(this), result);
        return Base::QueryInterface(iid, result);
    }
    HRESULT STDMETHODCALLTYPE Get(BSTR key, VARIANT* value) override { return m_type->Get(key, value); }
    HRESULT STDMETHODCALLTYPE GetProperty(int member, VARIANT* value) override
    {
        return m_type->GetProperty(member, value);
    }
    HRESULT STDMETHODCALLTYPE GetPageEnum(IQPPageEnum** list) override { return m_type->GetPageEnum(list); }
    HRESULT STDMETHODCALLTYPE GetGroupEnum(IQPGroupEnum** list) override
    {
        return m_type->GetGroupEnum(list);
    }
    HRESULT STDMETHODCALLTYPE GetDisplayAttributeEnum(LONG mask, IQPAttributeEnum** list) override
    {
        return m_type->GetDisplayAttributeEnum(mask, list);
    }
    HRESULT STDMETHODCALLTYPE GetAttribute(BSTR name, IQPAttribute** attribute) override
    {
        return m_type->GetAttribute(name, attribute);
    }

private:
    const ComPtr<IQPType> m_type;
};
