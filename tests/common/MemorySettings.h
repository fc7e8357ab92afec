// The settings service of a host in memory.
#pragma once

#include "CountedObject.h"
#include "MemoryRecord.h"
#include "MemoryValue.h"

#include "ComPtr.h"

#include "qpservices.h"

#include <map>
#include <string>
#include <utility>

/// Answers GetValue; everything else is E_NOTIMPL. Each call is recorded:
/// `settings.GetValue(properties, enablemcmscriptactions, 11, 1)`.
class MemorySettings final : public CountedObject<IQPSessionDataManager>
{
public:
    explicit MemorySettings(MemoryRecord& record) : m_record(record) {}

    /// What GetValue answers for that value of that section, in the type that is set here whatever type is
    /// wanted. S_FALSE and no value for one that was never set.
    MemorySettings* Set(const wchar_t* section, const wchar_t* name, const MemoryValue& value,
                        HRESULT status = S_OK);

    /// What the creation by class identifier gives, see Offered. A failure gives no object.
    HRESULT createStatus = S_OK;

    /// While one of these lives, CoCreateInstance gives this service for its class identifier, on this
    /// thread, whose apartment it enters. Without one there is no such class.
    class Offered
    {
    public:
        explicit Offered(MemorySettings& settings);
        ~Offered();
        Offered(const Offered&) = delete;
        Offered& operator=(const Offered&) = delete;

    private:
        DWORD m_registration = 0;
    };

    HRESULT STDMETHODCALLTYPE Reserved1() override { return Unexpected("Reserved1"); }
    HRESULT STDMETHODCALLTYPE Reserved2() override { return Unexpected("Reserved2"); }
    HRESULT STDMETHODCALLTYPE Reserved3() override { return Unexpected("Reserved3"); }
    HRESULT STDMETHODCALLTYPE Reserved4() override { return Unexpected("Reserved4"); }
    HRESULT STDMETHODCALLTYPE Reserved5() override { return Unexpected("Reserved5"); }
    HRESULT STDMETHODCALLTYPE GetSubKeys(BSTR, LONG, ULONG*, BSTR**, LONG) override;
    HRESULT STDMETHODCALLTYPE GetValue(BSTR section, BSTR name, unsigned short type, VARIANT* value,
                                       LONG scope) override;
    HRESULT STDMETHODCALLTYPE SetValue(BSTR, BSTR, VARIANT*, LONG) override;
    HRESULT STDMETHODCALLTYPE GetStringList(BSTR, ULONG*, struct tagSTRINGPAIR**, LONG) override;
    HRESULT STDMETHODCALLTYPE WriteStringList(BSTR, ULONG, struct tagSTRINGPAIR*, LONG) override;
    HRESULT STDMETHODCALLTYPE DeleteKey(BSTR, LONG) override;
    HRESULT STDMETHODCALLTYPE PrepareScope(LONG) override;

private:
    ~MemorySettings() override = default;
    HRESULT Unexpected(const char* method);

    MemoryRecord& m_record;
    std::map<std::pair<std::wstring, std::wstring>, MemoryAnswer> m_values;
};
