// Result arrays of the script service in a form that tests can compare and print.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

using TextRows = std::vector<std::vector<std::string>>;

/// "<name>".
std::string InBrackets(std::string_view name);

/// A text reads as it is, an object as its name in angle brackets, an empty cell as "-".
std::string CellText(const VARIANT& cell, const std::function<std::string(IUnknown*)>& nameOf);

/// The rows of a two-dimensional array of variants with both lower bounds 0. Any other value gives one row
/// that says so.
TextRows RowsOf(const VARIANT& result, const std::function<std::string(IUnknown*)>& nameOf);

/// The number of columns of such an array; -1 for any other value.
int ColumnsOf(const VARIANT& result);

class MemoryRecord;

/// Any array with its element type and bounds: "VARIANT 0..1, 0..1: BSTR 'Name' = BSTR 'a'; EMPTY = EMPTY" if
/// it has rows of two variants, else the part before the colon. "null" for no array.
std::string ArrayLine(SAFEARRAY* array, const MemoryRecord& record);
