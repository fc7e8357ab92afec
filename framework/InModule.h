// How a method of a component runs.
//
//     HRESULT XQPSelectOrvoItem::GetProject(IQP_BaseDataObject* pDO, IQP_BaseDataObject** ppProject)
//     {
//         return InModule(*this, [&] { ... return S_OK; });
//     }
//
// A method that enters the UI state for a part of its work only, or not at all, holds its component by the
// first of the three lines below:
//
//     const ComPtr self(this);
//     return ComBoundary([&] { ... });
#pragma once

#include "ComBoundary.h"
#include "ComPtr.h"
#include "UiState.h"

#include <utility>

/// Runs `body`, which returns an HRESULT, as a method of `component`, and returns what ComBoundary makes of
/// it. The order is the same for all methods, from the outside in:
///
/// 1. The component holds itself, because a host may release its last reference from inside a callback. In an
///    aggregate AddRef goes to the outer object, which keeps the component in turn. If that was the last
///    reference, the component is destroyed on return, outside the UI state, as in any Release of a host.
/// 2. The module's UI state is entered.
/// 3. Exceptions become a status, inside the UI state.
template <class Component, class Body>
HRESULT InModule(Component& component, Body&& body) noexcept
{
    const ComPtr<Component> self(&component);
    const CUiState uiState;
    return ComBoundary(std::forward<Body>(body));
}
