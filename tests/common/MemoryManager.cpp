#include "MemoryManager.h"

#include "InterfaceAnswer.h"
#include "Utf8.h"

#include <objbase.h>

namespace
{
std::string TextOf(REFCLSID clsid)
{
    wchar_t text[39] = L"";
    StringFromGUID2(clsid, text, 39);
    return Utf8FromWide(text);
}
} // namespace

HRESULT MemoryManager::QueryInterface(REFIID iid, void** result)
{
    if (iid == __uuidof(IQPFObjectManager) || iid == __uuidof(IUnknown))
        return Give(static_cast<IQPFObjectManager*>(this), result);
    return Refuse(result);
}

ULONG MemoryManager::Release()
{
    const ULONG left = --m_count;
    if (left == 0)
        delete this;
    return left;
}

HRESULT MemoryManager::GetRunningObjects(CLSID clsid, IEnumQPFObject** objects)
{
    m_record.Record("manager.GetRunningObjects(" + TextOf(clsid) + ")");
    *objects = nullptr;
    return E_NOTIMPL;
}

HRESULT MemoryManager::GetObject(CLSID clsid, LONG autoCreate, IQPFObject** result)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
        m_record.Record("manager.GetObject(" + TextOf(clsid) + ", " + std::to_string(autoCreate) + ")");
    object.copyTo(result);
    return status;
}
