// The first act of a method with results.
#pragma once

/// Sets every result whose address is not null to its empty value (null or 0).
template <class... T>
void ClearOut(T*... results) noexcept
{
    ((results ? static_cast<void>(*results = T{}) : static_cast<void>(0)), ...);
}
