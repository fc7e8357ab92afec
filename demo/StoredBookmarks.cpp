#include "StoredBookmarks.h"

#include "Table.h"

#include "Utf8.h"

#include <algorithm>

namespace
{
constexpr std::wstring_view kBrowserKey = L"2 QPR-Navigator/BrowserConfiguration1/";
constexpr std::wstring_view kNamePrefix = L"gotoitemname";

bool IsOfNames(std::wstring_view list)
{
    return list == kNamePrefix;
}

/// The object that a place leads to, and its number if that is not `number`.
std::wstring ObjectAt(const std::wstring& place, const std::wstring& number)
{
    const std::size_t begin = place.find(L'<');
    const std::size_t end = place.find(L'>');
    const std::wstring object =
        begin < end && end != std::wstring::npos ? place.substr(begin + 1, end - begin - 1) : place;
    const std::wstring ownNumber = place.substr(0, place.find(L'='));
    return ownNumber == number ? object : ownNumber + L"=" + object;
}
} // namespace

std::wstring WithNames(std::wstring text, const ObjectNames& names)
{
    for (const auto& [id, name] : names)
        for (std::size_t at = text.find(id); at != std::wstring::npos; at = text.find(id, at))
            text.replace(at, id.size(), L"<" + name + L">");
    return text;
}

std::map<std::wstring, StoredBookmarks> ReadBookmarks(refhost::Plant& plant, const ObjectNames& names)
{
    std::map<std::wstring, StoredBookmarks> projects;
    for (const std::string& content : plant.StoreContent())
    {
        std::wstring line;
        WideFromUtf8(content, line);
        if (!line.starts_with(kBrowserKey))
            continue;
        line.erase(0, kBrowserKey.size());
        const std::size_t slash = line.find(L'/');
        const std::size_t colon = line.find(L':', slash);
        const std::wstring id = line.substr(slash + 1, colon - slash - 1);
        const auto name = names.find(id);
        StoredBookmarks& bookmarks = projects[name == names.end() ? id : name->second];
        std::vector<std::wstring>& list =
            IsOfNames(line.substr(0, slash)) ? bookmarks.names : bookmarks.places;
        if (line.size() > colon + 2)
            list.push_back(WithNames(line.substr(colon + 2), names));
    }
    return projects;
}

std::wstring InOneLine(const StoredBookmarks& bookmarks)
{
    std::wstring line;
    const std::size_t count = std::max(bookmarks.names.size(), bookmarks.places.size());
    for (std::size_t entry = 0; entry < count; ++entry)
    {
        std::wstring name = entry < bookmarks.names.size() ? bookmarks.names[entry] : L"none";
        if (name.starts_with(kNamePrefix))
            name.erase(0, kNamePrefix.size());
        line += (entry == 0 ? L"" : L", ") + name + L" at ";
        line += entry < bookmarks.places.size()
                    ? ObjectAt(bookmarks.places[entry], name.substr(0, name.find(L'=')))
                    : L"none";
    }
    return line;
}

void PrintBookmarks(const std::map<std::wstring, StoredBookmarks>& projects)
{
    CTable table({L"Project in the key store", L"Names", L"Places in the tree"});
    const auto cell = [](const std::vector<std::wstring>& list, std::size_t row) {
        return row < list.size() ? list[row] : L"none";
    };
    for (const auto& [project, bookmarks] : projects)
    {
        const std::size_t rows = std::max({std::size_t{1}, bookmarks.names.size(), bookmarks.places.size()});
        for (std::size_t row = 0; row < rows; ++row)
            table.AddRow({project, cell(bookmarks.names, row), cell(bookmarks.places, row)});
    }
    table.Print();
}
