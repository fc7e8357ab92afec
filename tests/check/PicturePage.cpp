#include "PicturePage.h"

namespace
{
std::string Cell(const std::string& name, const char* where, bool exists)
{
    if (!exists)
        return "<td>none</td>";
    return "<td><img alt=\"" + name + "\" src=\"pictures/" + name + "-" + where + ".png\"></td>";
}
} // namespace

std::string PicturePage(const std::string& version, const std::set<std::string>& here,
                        const std::set<std::string>& wine)
{
    std::string page =
        "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\"><title>qptools " + version +
        ": dialogs</title>\n<style>body{font-family:sans-serif} td{vertical-align:top;padding:8px}"
        "</style></head><body>\n<h1>qptools " +
        version +
        ": the dialogs on this machine and under Wine</h1>\n<table>\n"
        "<tr><th>dialog</th><th>here</th><th>under Wine</th></tr>\n";
    std::set<std::string> all = here;
    all.insert(wine.begin(), wine.end());
    for (const std::string& name : all)
        page += "<tr><td>" + name + "</td>" + Cell(name, "here", here.count(name) > 0) +
                Cell(name, "wine", wine.count(name) > 0) + "</tr>\n";
    return page + "</table>\n</body></html>\n";
}
