#include "MemoryNavigator.h"

MemoryView* MemoryView::Show(const wchar_t* project, HRESULT status)
{
    m_shown[project] = status;
    return this;
}

HRESULT MemoryView::QueryInterface(REFIID iid, void** result)
{
    if (iid == __uuidof(IQPExplorerView) && !offersView)
        return Refuse(result);
    return CountedObject::QueryInterface(iid, result);
}

HRESULT MemoryView::Reserved1()
{
    m_record.Record(m_name + ".Reserved1()");
    return E_NOTIMPL;
}

HRESULT MemoryView::IsProjectShown(BSTR project)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
        m_record.Record(m_name + ".IsProjectShown(" + Utf8OrNull(project) + ")");
    const auto found = m_shown.find(std::wstring(project, SysStringLen(project)));
    return found == m_shown.end() ? S_FALSE : found->second;
}

HRESULT MemoryExpander::QueryInterface(REFIID iid, void** result)
{
    if (iid == __uuidof(IQPBrowserTreeExpander) && !offersExpander)
        return Refuse(result);
    if (iid == __uuidof(IQPExplorerView) && !offersView)
        return Refuse(result);
    return CountedObject::QueryInterface(iid, result);
}

HRESULT MemoryExpander::Unexpected(const char* method)
{
    m_record.Record(std::string("expander.") + method + "()");
    return E_NOTIMPL;
}

HRESULT MemoryExpander::ExpandTree(BSTR tree, BSTR project)
{
    const MemoryRecord::CallScope call;
    if (m_record.recording)
        m_record.Record("expander.ExpandTree(" + Utf8OrNull(tree) + ", " + Utf8OrNull(project) + ")");
    if (onExpand)
        onExpand();
    return status;
}

HRESULT MemoryExpander::IsProjectShown(BSTR)
{
    return Unexpected("IsProjectShown");
}
