// The object manager of a host in memory.
#pragma once

#include "CallScript.h"
#include "CountedObject.h"
#include "MemoryEnum.h"
#include "MemoryRecord.h"

#include "ComPtr.h"

#include "qpobjects.h"

#include <map>
#include <string>

/// The running objects of a class.
using MemoryRunning = MemoryList<IEnumQPFObject, IQPFObject>;

/// Answers GetObject for every class, and GetRunningObjects for those that were set. Each call is recorded,
/// and can be made to differ: `manager.GetObject({C366570E-FCB6-4EE6-BB6E-57E1C1EB51D6}, 1)`.
class MemoryManager final : public CountedObject<IQPFObjectManager>
{
public:
    explicit MemoryManager(MemoryRecord& record) : m_record(record) {}

    /// What GetObject hands out for a class that is neither set nor a service of the host; may be null. The
    /// host's macro loader at first.
    ComPtr<IQPFObject> object;
    /// What GetObject returns for a class that is not set, along with the object.
    HRESULT status = S_OK;
    /// The calls that differ.
    CallScript script;

    /// What GetObject answers for that class; `given` may be null.
    MemoryManager* Set(REFCLSID clsid, IQPFObject* given, HRESULT result = S_OK);

    /// What GetRunningObjects answers for that class, from its beginning; `list` may be null. E_NOTIMPL for a
    /// class that was never set.
    MemoryManager* Running(REFCLSID clsid, const ComPtr<MemoryRunning>& list, HRESULT result = S_OK);

    /// Makes an object, which is borrowed, known under its class. For the host.
    void Service(REFCLSID clsid, IQPFObject* service);

    /// Releases all objects. For the host.
    void Clear();

    HRESULT STDMETHODCALLTYPE GetRunningObjects(CLSID clsid, IEnumQPFObject** objects) override;
    HRESULT STDMETHODCALLTYPE GetObject(CLSID clsid, LONG autoCreate, IQPFObject** result) override;

private:
    struct ObjectAnswer
    {
        ComPtr<IQPFObject> object;
        HRESULT status = S_OK;
    };
    struct RunningAnswer
    {
        ComPtr<MemoryRunning> list;
        HRESULT status = S_OK;
    };

    ~MemoryManager() override = default;

    MemoryRecord& m_record;
    // By the class identifier as text.
    std::map<std::string, IQPFObject*> m_services; ///< borrowed
    std::map<std::string, ObjectAnswer> m_objects;
    std::map<std::string, RunningAnswer> m_running;
};
