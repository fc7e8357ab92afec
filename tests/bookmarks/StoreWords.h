// The key store in the words of its tests: short keys, calls and reports.
#pragma once

#include "Calls.h"

#include <windows.h>

#include <string>

/// The lines with "~" in place of the browser's key, as the module writes it or as the store keeps it.
inline Calls ShortKeys(Calls lines)
{
    for (std::string& line : lines)
        for (const std::string key :
             {"QPR-Navigator/BrowserConfiguration1", "2 qpr-navigator/browserconfiguration1"})
            for (std::size_t place = line.find(key); place != std::string::npos; place = line.find(key))
                line.replace(place, key.size(), "~");
    return lines;
}

/// The report of a failed host call.
inline std::string StoreReport(const std::string& source, int line, const std::string& status,
                               const std::string& text)
{
    return "host call\t" + source + "\t-\t" + std::to_string(line) + "\t" + status + "\ttrue,false\t" + text;
}

inline constexpr const char* kFailed = "0x80004005";
inline constexpr const char* kNoPointer = "0x80004003";
inline constexpr const char* kNoInterface = "0x80004002";
inline constexpr const char* kOk = "0x00000000";

inline constexpr const char* kGetGateway = "manager.GetObject({D7C07373-29C3-43A4-87CF-F6D5E947D6E6}, 1)";
inline constexpr const char* kGetStore = "manager.GetObject({EDB6CC40-0DC9-11D3-89FF-004005A1D91C}, 1)";

inline constexpr CLSID kGatewayClass = {
    0xD7C07373, 0x29C3, 0x43A4, {0x87, 0xCF, 0xF6, 0xD5, 0xE9, 0x47, 0xD6, 0xE6}};
inline constexpr CLSID kStoreClass = {
    0xEDB6CC40, 0x0DC9, 0x11D3, {0x89, 0xFF, 0x00, 0x40, 0x05, 0xA1, 0xD9, 0x1C}};

inline std::string GetClient(const std::string& name)
{
    return "gateway.GetClientIdByName(" + name + ")";
}

inline std::string GetQuery(int client)
{
    return "gateway.GetServerCOMObject(" + std::to_string(client) +
           ", {ABF23E6F-1714-4A08-85A3-8E8A8DB5166F}, IQP_Query)";
}

/// The calls that delete one bookmark of a project, up to the two that write; their lists as the record shows
/// them.
inline Calls DeleteCalls(const std::string& project, int count, const std::string& names,
                         const std::string& trees)
{
    const std::string nameKey = "~/gotoitemname/" + project;
    const std::string treeKey = "~/GotoItemTree/" + project;
    const std::string number = ", " + std::to_string(count) + ", ";
    return {"store.GetStringList(" + nameKey + ", 2)",
            "store.GetStringList(" + treeKey + ", 2)",
            "store.DeleteKey(" + nameKey + ", 2)",
            "store.DeleteKey(" + treeKey + ", 2)",
            "store.WriteStringList(" + nameKey + number + names + ", 2)",
            "store.WriteStringList(" + treeKey + number + trees + ", 2)"};
}
