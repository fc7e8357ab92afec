#include "TestComponents.h"

#include <stdexcept>

int TestComponent::s_alive = 0;

HRESULT STDMETHODCALLTYPE TestComponent::GetNumber(LONG* number)
{
    *number = 42;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE TestComponent::GetNameLength(LONG* length)
{
    *length = 7;
    return S_OK;
}

int TestConstructed::s_alive = 0;
HRESULT TestConstructed::s_answer = S_OK;
ULONG TestConstructed::s_countSeen = 99;
bool TestConstructed::s_called = false;

TestConstructed::~TestConstructed()
{
    --s_alive;
    UseAReferenceToThis();
}

HRESULT TestConstructed::FinalConstruct()
{
    s_called = true;
    s_countSeen = UseAReferenceToThis();
    return s_answer;
}

ULONG TestConstructed::UseAReferenceToThis()
{
    void* self = nullptr;
    NonDelegatingUnknown()->QueryInterface(__uuidof(ITestNumber), &self);
    return static_cast<ITestNumber*>(self)->Release();
}

HRESULT STDMETHODCALLTYPE TestConstructed::GetNumber(LONG* number)
{
    *number = 1;
    return S_OK;
}

TestThrowing::Way TestThrowing::s_way = TestThrowing::Way::BadAlloc;

TestThrowing::TestThrowing()
{
    if (s_way == Way::BadAlloc)
        throw std::bad_alloc();
    throw std::runtime_error("the constructor fails");
}

HRESULT STDMETHODCALLTYPE TestThrowing::GetNumber(LONG*)
{
    return E_NOTIMPL;
}

HRESULT STDMETHODCALLTYPE TestOuter::QueryInterface(REFIID iid, void** result)
{
    ++m_asked;
    *result = nullptr;
    if (!IsEqualIID(iid, __uuidof(IUnknown)) && !IsEqualIID(iid, __uuidof(ITestNumber)))
        return E_NOINTERFACE;
    *result = static_cast<ITestNumber*>(this);
    AddRef();
    return S_OK;
}

HRESULT STDMETHODCALLTYPE TestOuter::GetNumber(LONG* number)
{
    *number = 1000;
    return S_OK;
}
