// Small components for tests of the framework's class templates.
#pragma once

#include "ComObject.h"

#include <unknwn.h>

MIDL_INTERFACE("5b0f6c6e-2f83-4c06-9a4a-1d4b8c1c6a01")
ITestNumber : public IUnknown
{
    virtual HRESULT STDMETHODCALLTYPE GetNumber(LONG * number) = 0;
};
__CRT_UUID_DECL(ITestNumber, 0x5b0f6c6e, 0x2f83, 0x4c06, 0x9a, 0x4a, 0x1d, 0x4b, 0x8c, 0x1c, 0x6a, 0x01)

MIDL_INTERFACE("5b0f6c6e-2f83-4c06-9a4a-1d4b8c1c6a02")
ITestName : public IUnknown
{
    virtual HRESULT STDMETHODCALLTYPE GetNameLength(LONG * length) = 0;
};
__CRT_UUID_DECL(ITestName, 0x5b0f6c6e, 0x2f83, 0x4c06, 0x9a, 0x4a, 0x1d, 0x4b, 0x8c, 0x1c, 0x6a, 0x02)

/// Has two interfaces and counts the live objects of its class.
class TestComponent final : public ComObject<TestComponent, ITestNumber, ITestName>
{
public:
    TestComponent() { ++s_alive; }
    ~TestComponent() { --s_alive; }

    HRESULT STDMETHODCALLTYPE GetNumber(LONG* number) override;
    HRESULT STDMETHODCALLTYPE GetNameLength(LONG* length) override;

    static int s_alive;
};

/// The test chooses what FinalConstruct returns and reads what it found. FinalConstruct adds and releases a
/// reference to the object, and so does the destructor.
class TestConstructed final : public ComObject<TestConstructed, ITestNumber>
{
public:
    TestConstructed() { ++s_alive; }
    ~TestConstructed();

    HRESULT FinalConstruct();
    HRESULT STDMETHODCALLTYPE GetNumber(LONG* number) override;

    static int s_alive;
    static bool s_called;     ///< whether FinalConstruct ran
    static HRESULT s_answer;  ///< what FinalConstruct returns
    static ULONG s_countSeen; ///< the reference count as FinalConstruct found it

private:
    /// Returns the count after Release.
    ULONG UseAReferenceToThis();
};

/// Throws the chosen way from its constructor.
class TestThrowing final : public ComObject<TestThrowing, ITestNumber>
{
public:
    enum class Way
    {
        BadAlloc,
        Other
    };

    TestThrowing();
    HRESULT STDMETHODCALLTYPE GetNumber(LONG* number) override;

    static Way s_way;
};

/// An outer object: counts its references and answers ITestNumber by its own means.
class TestOuter final : public ITestNumber
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** result) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_count; }
    ULONG STDMETHODCALLTYPE Release() override { return --m_count; }
    HRESULT STDMETHODCALLTYPE GetNumber(LONG* number) override;

    ULONG m_count = 1;
    int m_asked = 0; ///< how often QueryInterface was called
};
