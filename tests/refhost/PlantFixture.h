// What the tests of the reference host share: a plant, values for its calls, and the end of all its objects.
#pragma once

#include "HostVariant.h"
#include "Plant.h"
#include "SampleFolder.h"

#include "Bstr.h"
#include "ComPtr.h"
#include "Variant.h"

#include "qpobjects.h"
#include "qpservices.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

/// A string argument, written where the call takes a BSTR.
class Text
{
public:
    // NOLINTNEXTLINE(google-explicit-constructor): a text is the argument
    Text(const wchar_t* text) : m_text(text) {}
    // NOLINTNEXTLINE(google-explicit-constructor)
    operator BSTR() const { return m_text.get(); }

private:
    const Bstr m_text;
};

/// A value argument or output, open to changes.
class Value
{
public:
    Value() = default;
    explicit Value(const wchar_t* text)
    {
        get().vt = VT_BSTR;
        get().bstrVal = text ? SysAllocString(text) : nullptr;
    }
    explicit Value(int number)
    {
        get().vt = VT_I4;
        get().lVal = number;
    }
    explicit Value(bool flag)
    {
        get().vt = VT_BOOL;
        get().boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
    }
    explicit Value(IUnknown* object)
    {
        get().vt = VT_UNKNOWN;
        get().punkVal = object;
        if (object)
            object->AddRef();
    }
    template <class T>
    explicit Value(const ComPtr<T>& object) : Value(static_cast<IUnknown*>(object.get()))
    {
    }
    // NOLINTNEXTLINE(google-explicit-constructor)
    operator VARIANT() const { return get(); }

    VARIANT& get() { return const_cast<VARIANT&>(m_value.get()); }
    const VARIANT& get() const { return m_value.get(); }
    VARIANT* operator->() { return &get(); }
    const VARIANT* operator->() const { return &get(); }

    /// Converts in place.
    void Become(VARTYPE type) { refhost::Become(m_value, type); }

private:
    Variant m_value;
};

/// The object's attribute as a value; returns what the call returned.
inline HRESULT Read(IQP_BaseDataObject* object, const wchar_t* name, Value& value)
{
    VariantClear(&value.get());
    return object->GetAttribute(Text(name), &value.get());
}

/// The object's attribute as text; "<none>" if it has none.
inline std::wstring ReadText(IQP_BaseDataObject* object, const wchar_t* name)
{
    Value value;
    if (Read(object, name, value) != S_OK || value->vt != VT_BSTR)
        return L"<none>";
    return value->bstrVal;
}

/// The names of all objects that are left in an enumerator.
inline std::vector<std::wstring> NamesOf(IEnumBaseDataObject* objects)
{
    std::vector<std::wstring> names;
    ComPtr<IQP_BaseDataObject> object;
    while (objects && objects->GetSingleNext(object.put()) == S_OK)
        names.push_back(ReadText(object.get(), L"name"));
    return names;
}

using Names = std::vector<std::wstring>;
using Lines = std::vector<std::string>;

/// Fails the test if an object of the reference host outlives it.
class AllReleased
{
public:
    AllReleased() : m_before(refhost::Plant::LiveObjects()) {}
    ~AllReleased() { EXPECT_EQ(refhost::Plant::LiveObjects(), m_before) << "objects of the host are left"; }
    AllReleased(const AllReleased&) = delete;
    AllReleased& operator=(const AllReleased&) = delete;

private:
    long m_before;
};

/// A test on an empty plant.
class EmptyPlant : public ::testing::Test
{
protected:
    const AllReleased released;
    const std::unique_ptr<refhost::Plant> plant = refhost::Plant::OpenMemory();
};

/// A test on the sample plant.
class SamplePlant : public EmptyPlant
{
protected:
    SamplePlant() { plant->Load(refhost::SampleFolder()); }
    ComPtr<IQP_BaseDataObject> Find(const wchar_t* table, const wchar_t* name) const
    {
        ComPtr<IQP_BaseDataObject> object = plant->Find(table, name);
        EXPECT_TRUE(object);
        return object;
    }
};

/// A folder of its own that is removed again.
class Folder
{
public:
    Folder()
    {
        static int count = 0;
        const auto stamp = std::to_string(reinterpret_cast<std::uintptr_t>(this)) + "_" +
                           std::to_string(++count) + "_" +
                           std::to_string(std::chrono::system_clock::now().time_since_epoch().count());
        m_path = std::filesystem::temp_directory_path() / ("refhost_" + stamp);
        std::filesystem::create_directories(m_path);
    }
    ~Folder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    const std::filesystem::path& Path() const { return m_path; }

private:
    std::filesystem::path m_path;
};
