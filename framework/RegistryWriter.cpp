#include "RegistryWriter.h"

#include "RegistryKey.h"

using Kind = RegistryNode::Kind;

HRESULT RegistryWriter::Apply(const RegistryScript& script)
{
    for (const RegistryRoot& root : script.roots)
    {
        for (const RegistryNode& node : root.children)
        {
            const HRESULT status = ApplyNode({&root, {}}, node);
            if (status < 0)
                return status;
        }
    }
    return S_OK;
}

HRESULT RegistryWriter::ApplyNode(const Place& around, const RegistryNode& node)
{
    const std::wstring name = Expand(node.name);
    if (node.kind == Kind::Value)
        return SetValue(around, name, *node.value);
    const Place key = around.Below(name);
    HRESULT status = S_OK;
    if (node.kind == Kind::ForceRemove || node.kind == Kind::Delete)
        status = DeleteTree(key);
    if (status < 0 || node.kind == Kind::Delete)
        return status;
    return ApplyKey(key, node);
}

HRESULT RegistryWriter::ApplyKey(const Place& key, const RegistryNode& node)
{
    RegistryKey made;
    HRESULT status = Report(key, made.Create(key.root->key, key.path, KEY_WRITE));
    if (status >= 0 && node.value)
        status = SetValue(key, {}, *node.value);
    for (std::size_t i = 0; status >= 0 && i < node.children.size(); ++i)
        status = ApplyNode(key, node.children[i]);
    return status;
}

HRESULT RegistryWriter::SetValue(const Place& key, const std::wstring& name, const RegistryNode::Data& data)
{
    RegistryKey around;
    LSTATUS code = around.Open(key.root->key, key.path, KEY_SET_VALUE);
    if (code == ERROR_SUCCESS)
    {
        if (const auto* text = std::get_if<std::wstring>(&data))
            code = around.SetText(name, Expand(*text));
        else
            code = around.SetNumber(name, std::get<DWORD>(data));
    }
    return Report(key, code);
}

HRESULT RegistryWriter::Remove(const RegistryScript& script)
{
    HRESULT first = S_OK;
    for (const RegistryRoot& root : script.roots)
    {
        for (const RegistryNode& node : root.children)
        {
            const HRESULT status = RemoveNode({&root, {}}, node);
            first = first < 0 ? first : status;
        }
    }
    return first;
}

HRESULT RegistryWriter::RemoveNode(const Place& around, const RegistryNode& node)
{
    const std::wstring name = Expand(node.name);
    if (node.kind == Kind::Value)
        return RemoveValue(around, name);
    if (node.kind == Kind::Delete)
        return S_OK;
    const Place key = around.Below(name);
    if (node.kind == Kind::ForceRemove)
        return DeleteTree(key);
    HRESULT first = S_OK;
    for (const RegistryNode& child : node.children)
    {
        const HRESULT status = RemoveNode(key, child);
        first = first < 0 ? first : status;
    }
    return first < 0 || node.kind == Kind::NoRemove ? first : RemoveIfEmpty(key);
}

HRESULT RegistryWriter::RemoveIfEmpty(const Place& key)
{
    std::vector<std::wstring> left;
    RegistryKey opened;
    LSTATUS code = opened.Open(key.root->key, key.path, KEY_READ);
    if (code == ERROR_FILE_NOT_FOUND)
        return S_OK;
    if (code == ERROR_SUCCESS)
        code = opened.SubkeyNames(left);
    opened.Close();
    if (code == ERROR_SUCCESS && left.empty())
        code = RegDeleteKeyW(key.root->key, key.path.c_str());
    return Report(key, code);
}

HRESULT RegistryWriter::RemoveValue(const Place& key, const std::wstring& name)
{
    RegistryKey around;
    LSTATUS code = around.Open(key.root->key, key.path, KEY_SET_VALUE);
    if (code == ERROR_SUCCESS)
        code = RegDeleteValueW(around.get(), name.c_str());
    return code == ERROR_FILE_NOT_FOUND ? S_OK : Report(key, code);
}

HRESULT RegistryWriter::DeleteTree(const Place& key)
{
    std::wstring failedKey;
    const LSTATUS code = DeleteRegistryTree(key.root->key, key.path, failedKey);
    return Report({key.root, failedKey}, code);
}

HRESULT RegistryWriter::Report(const Place& place, LSTATUS code)
{
    if (code == ERROR_SUCCESS)
        return S_OK;
    return m_report.AddSystemError(place.Shown(), code);
}

std::vector<RegistryBackup> RegistryWriter::BackUp(const RegistryScript& script) const
{
    std::vector<RegistryBackup> backups;
    for (const RegistryRoot& root : script.roots)
        BackUpNodes({&root, {}}, root.children, backups);
    return backups;
}

void RegistryWriter::BackUpNodes(const Place& around, const std::vector<RegistryNode>& nodes,
                                 std::vector<RegistryBackup>& backups) const
{
    for (const RegistryNode& node : nodes)
    {
        const Place key = around.Below(Expand(node.name));
        if (node.kind == Kind::NoRemove)
            BackUpNodes(key, node.children, backups);
        else if (node.kind != Kind::Value)
            backups.emplace_back(key.root->key, key.root->name, key.path);
    }
}

std::wstring RegistryWriter::Expand(std::wstring text) const
{
    static constexpr std::wstring_view word = L"%MODULE%";
    for (std::size_t at = text.find(word); at != std::wstring::npos; at = text.find(word, at))
    {
        text.replace(at, word.size(), m_modulePath);
        at += m_modulePath.size(); // %MODULE% inside the path is not replaced again
    }
    return text;
}
