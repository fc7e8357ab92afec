// What the demonstrations of the dialogs have in common.
#pragma once

#include "Pictures.h"

#include "Plant.h"

#include "ComPtr.h"

#include <functional>
#include <string>

class BoxAnswers;

class CDialogDemo
{
public:
    /// Called with each check and its outcome.
    using Expectation = std::function<void(bool held, const std::wstring& what)>;

protected:
    CDialogDemo(refhost::Plant& plant, CPictures& pictures, Expectation expect);
    ~CDialogDemo() = default;

    void Picture(const char* name) const;

    /// Prints the next message box and presses its OK button.
    void ReadMessage(BoxAnswers& boxes, const char* picture) const;

    ComPtr<IQP_BaseDataObject> Find(const wchar_t* table, const wchar_t* name) const;

    refhost::Plant& m_plant;
    CPictures& m_pictures;
    Expectation m_expect;
};
