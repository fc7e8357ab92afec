// The macro loader of a host in memory.
#pragma once

#include "CountedObject.h"
#include "MemoryRecord.h"
#include "MemoryValue.h"

#include "qpobjects.h"
#include "qpservices.h"

#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

/// Answers Invoke with a bag that the test sets, and records each request: `loader.Invoke(pProject = UNKNOWN
/// project, bLogEnabled = I4 0, pVBAProjectsArray = ARRAY {first, second})`. An array is recorded as the set
/// of its elements, in the order of their names.
class MemoryLoader final : public CountedObject<IQPFObject, IVBALoaderManager>
{
public:
    /// The class identifier that its ProgID leads to while a test registers it:
    /// `const RegisteredProgId loader(MemoryLoader::kProgId, MemoryLoader::kClass);`
    static constexpr CLSID kClass = {
        0x3F0E8D7B, 0x52A6, 0x4B39, {0x9C, 0x14, 0x7D, 0x60, 0xE8, 0x2B, 0xA1, 0x45}};
    static constexpr const wchar_t* kProgId = L"VBALoader.VBALoaderManager";

    explicit MemoryLoader(MemoryRecord& record) : m_record(record) {}

    /// Adds an entry to the reply; a name may be null.
    MemoryLoader* Entry(const wchar_t* name, const MemoryValue& value);

    /// Adds the entries "Macro1", "Macro2" ... with these names of macros.
    MemoryLoader* Macros(std::initializer_list<const wchar_t*> names);

    /// Removes all entries.
    MemoryLoader* Clear();

    /// What Invoke returns, along with the reply.
    HRESULT status = S_OK;
    /// Whether Invoke hands out an array. The count is given in any case.
    bool givesArray = true;
    /// The count that Invoke gives in place of the number of entries. The array has so many entries, those
    /// beyond the reply's own empty.
    std::optional<ULONG> count;
    /// Whether the object, asked for IVBALoaderManager, has it.
    bool offersLoader = true;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override;

    HRESULT STDMETHODCALLTYPE Reserved1() override;

    /// The reply is in task memory and owned by the caller.
    HRESULT STDMETHODCALLTYPE Invoke(ULONG requestCount, struct tagINITVALUE* request, ULONG* resultCount,
                                     struct tagINITVALUE** results) override;

private:
    struct ReplyEntry
    {
        std::optional<std::wstring> name;
        XQPComVariant value;
    };

    ~MemoryLoader() override = default;
    std::string RequestText(ULONG requestCount, const tagINITVALUE* request) const;
    std::string ArrayText(SAFEARRAY* array) const;
    tagINITVALUE* Reply(ULONG size) const;

    MemoryRecord& m_record;
    std::vector<ReplyEntry> m_reply;
};
