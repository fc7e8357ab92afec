// The configuration of a host in memory: a factory of types, and their pages, groups, attributes and values.
//
//     MemoryType* action = host.Config().Type(L"scriptaction");
//     action->Attribute(L"actiontype")->Value(L"Create", 1)->Value(L"Check in", 25);
//     MemoryType* cell = host.Config().Type(L"workcell", true);
//     cell->Page(L"General", 1);
//     cell->Page(L"Internal", 2, false);
//     cell->Group(L"Usage", 102)->Fail(2, E_FAIL);
#pragma once

#include "CountedObject.h"
#include "MemoryEnum.h"
#include "MemoryRecord.h"
#include "MemoryValue.h"

#include "ComPtr.h"

#include "qpconfig.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

/// The host's answer to a call that returns a list.
template <class Object>
struct MemoryListAnswer
{
    std::vector<ComPtr<Object>> objects; ///< some may be null
    HRESULT status = S_OK;
    bool null = false;                         ///< no enumerator is handed out
    std::map<std::size_t, HRESULT> statuses{}; ///< of the enumerator's calls, see MemoryList

    template <class Enum, class Element>
    HRESULT Give(MemoryRecord& record, const std::string& name, const std::vector<ComPtr<Object>>& chosen,
                 Enum** list) const
    {
        *list = nullptr;
        if (!null)
        {
            auto* made = new MemoryList<Enum, Element>(record, chosen, name);
            made->AddRef();
            made->statuses = statuses;
            *list = made;
        }
        return status;
    }
};

/// What all configuration objects have in common: an answer for each key and each member. E_INVALIDARG for
/// any other.
template <class Config>
class MemoryConfig : public CountedObject<Config>
{
public:
    MemoryConfig(MemoryRecord& record, std::string name)
        : m_record(record), m_life(record), m_name(std::move(name))
    {
    }

    /// What Get answers for that key.
    MemoryConfig* Set(const std::wstring& key, const MemoryValue& value, HRESULT status = S_OK)
    {
        m_keys[key] = {status, XQPComVariant(value.Value())};
        return this;
    }
    /// What GetProperty answers for that member.
    MemoryConfig* Set(int member, const MemoryValue& value, HRESULT status = S_OK)
    {
        m_members[member] = {status, XQPComVariant(value.Value())};
        return this;
    }
    template <class KeyOrMember>
    MemoryConfig* Fail(const KeyOrMember& which, HRESULT status)
    {
        return Set(which, MemoryValue(), status);
    }

    const std::string& Name() const noexcept { return m_name; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override
    {
        if (iid == __uuidof(IQPConfigObject))
            return Give(static_cast<Config*>(this), result);
        return CountedObject<Config>::QueryInterface(iid, result);
    }

    HRESULT STDMETHODCALLTYPE Get(BSTR key, VARIANT* value) override
    {
        const MemoryRecord::CallScope call;
        Record([&] { return "Get(" + Utf8OrNull(key) + ")"; });
        return Answer(m_keys, std::wstring(key, SysStringLen(key)), value);
    }
    HRESULT STDMETHODCALLTYPE GetProperty(int member, VARIANT* value) override
    {
        const MemoryRecord::CallScope call;
        Record([&] { return "GetProperty(" + std::to_string(member) + ")"; });
        return Answer(m_members, member, value);
    }

protected:
    ~MemoryConfig() override = default;

    /// `call` gives the text; it is not called unless calls are recorded.
    template <class Text>
    void Record(Text&& call) const
    {
        if (m_record.recording)
            m_record.Record(m_name + "." + call());
    }

    MemoryRecord& m_record;

private:
    template <class Key>
    static HRESULT Answer(const std::map<Key, MemoryAnswer>& answers, const Key& key, VARIANT* value)
    {
        const auto found = answers.find(key);
        if (found == answers.end())
            return E_INVALIDARG;
        VariantCopy(value, const_cast<VARIANT*>(&found->second.value.Value()));
        return found->second.status;
    }

    const MemoryRecord::Life m_life;
    const std::string m_name;
    std::map<std::wstring, MemoryAnswer> m_keys;
    std::map<int, MemoryAnswer> m_members;
};

using MemoryPage = MemoryConfig<IQPPage>;
using MemoryGroup = MemoryConfig<IQPGroup>;
using MemoryAttributeType = MemoryConfig<IQPAttributeType>;

class MemoryAttribute final : public MemoryConfig<IQPAttribute>
{
public:
    using MemoryConfig::MemoryConfig;

    /// Which display lists hold it: those whose mask shares a bit.
    LONG mask = 7;

    /// The configured values.
    MemoryListAnswer<MemoryAttributeType> values;

    /// Adds a value; its keys are "name" and "value".
    MemoryAttribute* Value(const wchar_t* name, const MemoryValue& value);

    HRESULT STDMETHODCALLTYPE GetAttributeTypeEnum(IQPAttributeTypeEnum** list) override;
};

class MemoryType final : public MemoryConfig<IQPType>
{
public:
    using MemoryConfig::MemoryConfig;

    MemoryListAnswer<MemoryPage> pages;
    MemoryListAnswer<MemoryGroup> groups;
    MemoryListAnswer<MemoryAttribute> attributes;

    /// What GetAttribute returns for an attribute that is there, which it hands out unless it is to be null.
    HRESULT attributeStatus = S_OK;
    bool attributeNull = false;

    /// Adds a page with the members 0 (name), 5 (shown) and 6 (number).
    MemoryPage* Page(const wchar_t* name, int number, bool shown = true);

    /// Adds a group with the members 0 (name), 2 (number) and 9 (shown).
    MemoryGroup* Group(const wchar_t* name, int number, bool shown = true);

    /// Adds an attribute with the key "attributename" and the members 0 (name), 3 (type code) and 54 (4:
    /// offered for an enhanced copy).
    MemoryAttribute* Attribute(const wchar_t* name, int typeCode = 1, int copyMode = 4);

    HRESULT STDMETHODCALLTYPE GetPageEnum(IQPPageEnum** list) override;
    HRESULT STDMETHODCALLTYPE GetGroupEnum(IQPGroupEnum** list) override;
    HRESULT STDMETHODCALLTYPE GetDisplayAttributeEnum(LONG mask, IQPAttributeEnum** list) override;

    /// The attribute of that name in the record; E_INVALIDARG and null if there is none.
    HRESULT STDMETHODCALLTYPE GetAttribute(BSTR name, IQPAttribute** attribute) override;
};

/// The factory of a host in memory.
class MemoryFactory final : public CountedObject<IQPConfigFactory>
{
public:
    explicit MemoryFactory(MemoryRecord& record) : m_record(record) {}

    /// What GetTypeEnum answers, and where GetType looks.
    MemoryListAnswer<MemoryType> types;

    /// What GetType returns for a type that is there, which it hands out unless it is to be null.
    HRESULT typeStatus = S_OK;
    bool typeNull = false;

    /// Whether each call of GetType hands out another pointer, which answers what the type answers. Its calls
    /// are recorded as those of the type.
    bool typeCopies = false;

    /// The type of that name in the record; null if there is none.
    MemoryType* Find(const wchar_t* name) const;

    /// GetType without a record of the call.
    HRESULT TypeNamed(BSTR typeName, BSTR configName, IQPType** type) const;

    /// Adds a type with the keys "typename" and "captionsingular", which are its name, and "isplantype".
    MemoryType* Type(const wchar_t* name, bool isPlanType = false);

    HRESULT STDMETHODCALLTYPE GetTypeEnum(BSTR configName, IQPTypeEnum** list) override;

    /// The type named `configName` or, if that is null or empty, `typeName`; E_INVALIDARG and null if there
    /// is none.
    HRESULT STDMETHODCALLTYPE GetType(BSTR typeName, BSTR configName, IQPType** type) override;

private:
    ~MemoryFactory() override = default;

    MemoryRecord& m_record;
};
