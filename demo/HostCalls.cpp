#include "HostCalls.h"

#include <map>
#include <sstream>

namespace
{
/// A recorded call: "Interface<object>::Method(arguments)". Most have no object.
struct Call
{
    std::string object;
    std::string method;
    std::string arguments;
};

Call Parse(const std::string& line)
{
    const std::size_t nameEnd = line.find_first_of("<:");
    std::size_t method = line.find("::");
    Call call;
    if (nameEnd != std::string::npos && line[nameEnd] == '<')
    {
        method = line.find(">::", nameEnd) + 1;
        call.object = line.substr(nameEnd, method - nameEnd);
    }
    const std::size_t open = line.find('(', method);
    call.method = line.substr(method + 2, open - method - 2);
    call.arguments = line.substr(open + 1, line.rfind(')') - open - 1);
    return call;
}

std::string WithoutQuotes(const std::string& text)
{
    return text.size() > 1 && text.front() == '"' && text.back() == '"' ? text.substr(1, text.size() - 2)
                                                                        : text;
}

/// `"type", 1, "tool", 0` as `type = "tool"`; empty for any other comparison or catenation.
std::string Criterion(const std::string& arguments)
{
    const std::string equals = ", 1, ";
    const std::string joinedToNothing = ", 0";
    const std::size_t column = arguments.find(equals);
    if (column == std::string::npos || !arguments.ends_with(joinedToNothing))
        return {};
    const std::size_t value = column + equals.size();
    return WithoutQuotes(arguments.substr(0, column)) + " = " +
           arguments.substr(value, arguments.size() - joinedToNothing.size() - value);
}

std::string WordFor(const Call& call)
{
    static const std::map<std::string, std::string> words = {
        {"SetSearchCatenation(1)", "AND"},   {"SetSearchCatenation(2)", "OR"},
        {"SetSearchCatenation(4)", "("},     {"SetSearchCatenation(8)", ")"},
        {"SetSearchCatenation(9)", ") AND"}, {"RemNext(1)", "next"},
        {"HasRight(4)", "may-run"}};
    const std::string whole = call.method + "(" + call.arguments + ")";
    if (const auto word = words.find(whole); word != words.end())
        return word->second;
    if (call.method == "GetAttribute")
        return WithoutQuotes(call.arguments);
    const std::string criterion =
        call.method == "SetSearchAttribute" ? Criterion(call.arguments) : std::string();
    return criterion.empty() ? whole : criterion;
}
} // namespace

std::string InWords(const std::vector<std::string>& calls)
{
    std::string text;
    std::string lastObject;
    for (const std::string& line : calls)
    {
        const Call call = Parse(line);
        text += text.empty() ? "" : " ";
        if (!call.object.empty() && call.object != lastObject)
            text += call.object + " ";
        lastObject = call.object;
        text += WordFor(call);
    }
    return text;
}

std::string OnOneLine(const std::string& text)
{
    std::istringstream words(text);
    std::string line;
    for (std::string word; words >> word;)
        line += (line.empty() ? "" : " ") + word;
    return line;
}
