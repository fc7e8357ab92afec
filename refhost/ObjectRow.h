// One row of one of the plant's tables: its name in recorded calls, its values, and which of them are
// limited.
#pragma once

#include "Limit.h"
#include "PlantCore.h"

#include <oleauto.h>
#include <windows.h>

#include <string>

namespace refhost
{
/// By which of its names an attribute is read.
enum class NameUsed
{
    Key,
    Column
};

/// Holds no data: every read and write goes to the database.
struct ObjectRow
{
    Core core;
    const Kind& kind;
    long long id;

    /// "<table key>", as recorded calls name the object.
    std::string Label() const;

    /// Writes the attribute's value into `value`, which is empty, and returns S_OK. Writes nothing and
    /// returns S_FALSE if there is no value under that name, E_ACCESSDENIED if the attribute is hidden.
    /// Throws PlantError if the row no longer exists.
    HRESULT Read(const Attribute& attribute, VARIANT& value, NameUsed name = NameUsed::Key) const;

    /// Throws StatusError for a value that does not fit (see ToColumn) and, with E_ACCESSDENIED, for an
    /// attribute that is locked or hidden; PlantError if the row no longer exists.
    void Write(const Attribute& attribute, const VARIANT& value) const;

private:
    Limit LimitOf(const Attribute& attribute) const;
};
} // namespace refhost
