// Initialising the out arguments of a method.
#pragma once

/// Sets the results to null or 0; an address may be null.
template <class... T>
void ClearOut(T*... results) noexcept
{
    ((results ? static_cast<void>(*results = T{}) : static_cast<void>(0)), ...);
}
