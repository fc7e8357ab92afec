#include "ObjectId.h"

#include <algorithm>
#include <charconv>

namespace refhost
{
std::wstring IdOf(long long number)
{
    return L"$" + std::to_wstring(number) + L")";
}

std::optional<long long> NumberOfId(std::string id)
{
    id.resize(std::min(id.find_first_of(");"), id.size()));
    const std::size_t start = !id.empty() && id[0] == '$' ? 1 : 0;
    long long number = 0;
    const char* end = id.data() + id.size();
    const auto [stop, error] = std::from_chars(id.data() + start, end, number);
    if (error != std::errc() || stop != end || number <= 0)
        return std::nullopt;
    return number;
}
} // namespace refhost
