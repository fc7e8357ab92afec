// The action types that a script action may have, as the host configures them.
#pragma once

#include "qpconfig.h"

#include <windows.h>

#include <map>
#include <optional>
#include <string>

namespace qptools
{
/// The configured values of the attribute "actiontype". Of equal numbers or names the last one counts.
class ActionTypes
{
public:
    /// Reads the values from the type `scriptAction`, which may be null. The numbers 24, 25 and 26 are left
    /// out unless the host's setting "enablemcmscriptactions" is on; that is asked in any case. A value that
    /// cannot be read ends its batch of 25. Failures leave the list shorter or empty.
    void Load(IQPType* scriptAction);

    /// The names by number.
    const std::map<LONG, std::wstring>& Names() const noexcept { return m_names; }

    std::optional<LONG> NumberOf(const std::wstring& name) const;

private:
    void LoadFrom(IQPAttributeTypeEnum* values, bool showsMcm);

    std::map<LONG, std::wstring> m_names;
    std::map<std::wstring, LONG> m_numbers;
};
} // namespace qptools
