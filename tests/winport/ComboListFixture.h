// What the tests of a combo box's list share.
#pragma once

#include "ComboHost.h"

#include <gtest/gtest.h>

#include <vector>

using Codes = std::vector<int>;

inline const Codes kPicked{CBN_SELENDOK, CBN_SELCHANGE};
inline const Codes kAccepted{CBN_SELENDOK, CBN_CLOSEUP};
inline const Codes kGivenUp{CBN_SELENDCANCEL, CBN_CLOSEUP};

/// Each rule holds for both kinds of box. list_test.cpp instantiates the tests of all files.
class ComboBoxList : public testing::TestWithParam<DWORD>
{
protected:
    bool Editable() const { return GetParam() == (CBS_DROPDOWN | CBS_AUTOHSCROLL); }
    void TakeFocus()
    {
        SetFocus(m_box.Control());
        m_box.Codes();
    }

    ComboHost m_box{GetParam(), {L"one", L"two", L"three"}};
};
