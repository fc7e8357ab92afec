// The gateway to the server of a host in memory.
#pragma once

#include "CallScript.h"
#include "CountedObject.h"
#include "MemoryRecord.h"

#include "ComPtr.h"

#include "qpobjects.h"
#include "qpservices.h"

/// Numbers its clients, and hands out one object for every class. Each call is recorded, and can be made to
/// differ:
///
///     gateway.GetClientIdByName(XBookmarkManager)
///     gateway.GetServerCOMObject(1, {ABF23E6F-1714-4A08-85A3-8E8A8DB5166F}, IQP_Query)
class MemoryGateway final : public CountedObject<IQPFObject, IQPIPDClient>
{
public:
    /// The query is borrowed.
    MemoryGateway(MemoryRecord& record, IUnknown* query) : m_record(record), m_query(query) {}

    /// The calls that differ.
    CallScript script;
    /// What GetServerCOMObject queries for the interface in place of the host's query.
    ComPtr<IUnknown> object;
    /// What GetClientIdByName answers, whatever the name.
    LONG clientId = 1;
    /// Whether the object, asked for IQPIPDClient, has it.
    bool offersGateway = true;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override;

    HRESULT STDMETHODCALLTYPE GetServerCOMObject(LONG client, REFCLSID clsid, REFIID iid,
                                                 void** result) override;
    HRESULT STDMETHODCALLTYPE Reserved1() override;
    HRESULT STDMETHODCALLTYPE GetClientIdByName(BSTR name, LONG* client) override;

private:
    ~MemoryGateway() override = default;

    MemoryRecord& m_record;
    IUnknown* const m_query;
};
