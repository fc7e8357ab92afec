// What a user does in the enhanced copy dialog as far as it can be done: for hosts that fail or interfere, so
// that a plan type may be missing, a list empty, or an editor not open.
#pragma once

#include "GridSteps.h"

/// Opens the list and chooses the plan type, if it is offered and not chosen yet.
DialogStep ChoosesIfOffered(const std::wstring& planType);

/// Selects the row of the attribute, if there is one, opens its editor and types the text.
Steps EditsIfShown(const std::wstring& attribute, const std::wstring& text);

/// Leaves the editor, if one is open, by the focus.
DialogStep CommitsIfOpen();
