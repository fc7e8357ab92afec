// The key store and the bookmark dialog as their rules say, without a host and without a window.
#pragma once

#include "Utf8.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

/// The lists of the store, whose calls fail where they are told to.
class StoreModel
{
public:
    enum class Way
    {
        None,
        Fails,        ///< and does nothing
        FailsAfterAll ///< but did it
    };
    using List = std::vector<std::pair<std::wstring, std::wstring>>; ///< names and values
    struct Read
    {
        bool isOk = false;
        bool isThere = false;
        List list;
    };

    std::map<std::pair<std::string, std::size_t>, Way> scripted; ///< by method and number
    std::map<std::string, std::size_t> counts;                   ///< calls so far

    Way Take(const std::string& method)
    {
        const auto found = scripted.find({method, counts[method]++});
        return found == scripted.end() ? Way::None : found->second;
    }

    Read GetList(const std::wstring& key)
    {
        const Way way = Take("GetStringList");
        const List* list = Find(key);
        if (!list || way == Way::Fails)
            return {};
        return {way == Way::None, true, *list};
    }

    /// Returns false for a failure.
    bool DeleteKey(const std::wstring& key)
    {
        const Way way = Take("DeleteKey");
        if (way != Way::Fails)
            std::erase_if(lists, [&](const auto& each) { return each.first.starts_with(key); });
        return way == Way::None;
    }

    void WriteList(const std::wstring& key, const List& list, std::size_t count)
    {
        if (Take("WriteStringList") == Way::Fails)
            return;
        At(key).clear();
        for (std::size_t entry = 0; entry < count; ++entry)
            Write(key, list[entry].first, list[entry].second);
    }

    void SetValue(const std::wstring& key, const std::wstring& name, const std::wstring& value)
    {
        if (Take("SetValue") != Way::Fails)
            Write(key, name, value);
    }

    /// Null without such a value.
    const std::wstring* GetValue(const std::wstring& key, const std::wstring& name)
    {
        ++counts["GetValue"];
        if (const List* list = Find(key))
            for (const auto& [each, value] : *list)
                if (each == name)
                    return &value;
        return nullptr;
    }

    void Write(const std::wstring& key, const std::wstring& name, const std::wstring& value)
    {
        List& list = At(key);
        const auto found =
            std::find_if(list.begin(), list.end(), [&](const auto& each) { return each.first == name; });
        if (found == list.end())
            list.emplace_back(name, value);
        else
            found->second = value;
    }

    /// As MemoryStore::Content, with "~" for the browser's key.
    std::vector<std::string> Content() const
    {
        std::vector<std::string> lines;
        for (const auto& [key, list] : std::map<std::wstring, List>(lists.begin(), lists.end()))
        {
            const std::string start = "~/" + Utf8FromWide(key) + ":";
            if (list.empty())
                lines.push_back(start);
            for (const auto& [name, value] : list)
                lines.push_back(start + " " + Utf8FromWide(name) + "=" + Utf8FromWide(value));
        }
        return lines;
    }

    std::vector<std::pair<std::wstring, List>> lists; ///< in the order of creation

    const List* Find(const std::wstring& key) const
    {
        for (const auto& [each, list] : lists)
            if (each == key)
                return &list;
        return nullptr;
    }

private:
    List& At(const std::wstring& key)
    {
        for (auto& [each, list] : lists)
            if (each == key)
                return list;
        return lists.emplace_back(key, List{}).second;
    }
};

/// The dialog.
class BookmarkModel
{
public:
    using Texts = std::vector<std::wstring>;
    struct Row
    {
        std::wstring name;
        std::wstring tree;
    };

    StoreModel store;
    std::set<std::wstring> gone;              ///< identifiers of objects and projects
    std::map<std::wstring, std::wstring> ids; ///< of projects, by their names, which are unique
    Texts projects;                           ///< the names in the box
    std::size_t current = 0;
    std::vector<Row> rows;

    static std::wstring Names(const std::wstring& id) { return L"gotoitemname/" + id; }
    static std::wstring Trees(const std::wstring& id) { return L"gotoitemtree/" + id; }
    std::wstring Id() const { return ids.at(projects[current]); }

    /// Returns false if the dialog ends before it is shown.
    bool Open()
    {
        rows.clear();
        projects.clear();
        const bool wereRead = store.Take("GetSubKeys") == StoreModel::Way::None;
        Texts found;
        for (const auto& [key, list] : store.lists)
            if (wereRead && key.starts_with(Names(L"")))
                found.push_back(key.substr(Names(L"").size()));
        for (const std::wstring& id : found)
            if (gone.contains(id))
                DeleteAllOf(id);
            else
                projects.push_back(NameOf(id));
        std::sort(projects.begin(), projects.end());
        if (!projects.empty())
            Choose(0);
        else if (wereRead)
            store.DeleteKey(L"");
        return !projects.empty();
    }

    void Choose(std::size_t project)
    {
        current = project;
        rows.clear();
        const std::size_t count = store.GetList(Names(Id())).list.size();
        std::map<std::wstring, std::wstring> found;
        std::size_t reads = 0;
        for (int number = 0; reads < count; ++number)
            if (const std::wstring* tree = store.GetValue(Trees(Id()), std::to_wstring(number)))
            {
                const std::wstring* name =
                    store.GetValue(Names(Id()), L"gotoitemname" + std::to_wstring(number));
                found[*tree] = name ? *name : L"";
                ++reads;
            }
        for (const auto& [tree, name] : found)
            if (IsGone(tree))
                DeleteOne(tree);
            else
                rows.push_back({name, tree});
    }

    bool IsGone(const std::wstring& tree) const
    {
        return tree.empty() || gone.contains(tree.substr(12, tree.size() - 13));
    }

    void Rename(const std::wstring& tree, const std::wstring& name)
    {
        RowOf(tree)->name = name;
        const StoreModel::Read trees = store.GetList(Trees(Id()));
        if (!trees.isOk)
            return;
        const auto match = std::find_if(trees.list.begin(), trees.list.end(),
                                        [&](const auto& each) { return each.second == tree; });
        std::wstring valueName;
        if (match != trees.list.end())
        {
            const StoreModel::List names = store.GetList(Names(Id())).list;
            const auto entry = static_cast<std::size_t>(match - trees.list.begin());
            valueName = entry < names.size() ? names[entry].first : L"";
        }
        store.SetValue(Names(Id()), valueName, name);
    }

    void Delete(const Texts& trees)
    {
        for (const std::wstring& tree : trees)
        {
            rows.erase(RowOf(tree));
            DeleteOne(tree);
        }
        if (rows.empty())
            LeaveProject();
    }

    void DeleteAll()
    {
        DeleteAllOf(Id());
        LeaveProject();
    }

    /// Whether each number that a listing looks for can be found.
    bool IsConsistent() const
    {
        for (const auto& [name, id] : ids)
        {
            const StoreModel::List* names = store.Find(Names(id));
            const StoreModel::List* trees = store.Find(Trees(id));
            const auto numbered = [](const auto& each) {
                return !each.first.empty();
            };
            if (names && !names->empty() &&
                (!trees || static_cast<std::size_t>(std::count_if(trees->begin(), trees->end(), numbered)) <
                               names->size()))
                return false;
        }
        return true;
    }

private:
    std::vector<Row>::iterator RowOf(const std::wstring& tree)
    {
        return std::find_if(rows.begin(), rows.end(), [&](const Row& row) { return row.tree == tree; });
    }

    std::wstring NameOf(const std::wstring& id) const
    {
        for (const auto& [name, each] : ids)
            if (each == id)
                return name;
        return {};
    }

    void LeaveProject()
    {
        rows.clear();
        projects.erase(projects.begin() + static_cast<std::ptrdiff_t>(current));
        if (!projects.empty())
            Choose(0);
    }

    void DeleteAllOf(const std::wstring& id)
    {
        store.Take("PrepareScope");
        store.DeleteKey(Names(id));
        store.DeleteKey(Trees(id));
    }

    void DeleteOne(const std::wstring& tree)
    {
        const std::wstring id = Id();
        StoreModel::Read names = store.GetList(Names(id));
        StoreModel::Read trees = names.isOk ? store.GetList(Trees(id)) : StoreModel::Read{};
        if (names.isOk && trees.isOk)
        {
            // Pairs close up; the names of the values and what is behind the last survivor stay.
            std::size_t to = 0;
            const std::size_t known = trees.list.size();
            trees.list.resize(std::max(known, names.list.size()));
            for (std::size_t from = 0; from < names.list.size(); ++from)
                if (from >= known || trees.list[from].second != tree)
                {
                    names.list[to].second = names.list[from].second;
                    trees.list[to++].second = trees.list[from].second;
                }
        }
        const std::size_t left = names.list.empty() ? 0 : names.list.size() - 1;
        trees.list.resize(std::max(trees.list.size(), left));
        store.DeleteKey(Names(id));
        if (!store.DeleteKey(Trees(id)))
            return;
        store.WriteList(Names(id), names.list, left);
        store.WriteList(Trees(id), trees.list, trees.isThere ? left : 0);
    }
};
