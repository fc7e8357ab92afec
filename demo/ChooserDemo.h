// The choosers as a host opens them and a user answers them.
#pragma once

#include "HostTexts.h"
#include "Pictures.h"

#include "Plant.h"

#include "ComPtr.h"

#include "qptools.h"

#include <functional>
#include <string>

class BoxAnswers;

/// Opens each chooser on the sample plant, uses it as a user would, and prints the result.
class CChooserDemo
{
public:
    /// `language` is the user's. `expect` is called with each check and its outcome.
    CChooserDemo(refhost::Plant& plant, CPictures& pictures, const std::wstring& language,
                 std::function<void(bool held, const std::wstring& what)> expect);

    void Run();

private:
    void ChooseProject();
    void PassOverAProject();
    void AskForSomethingNew();
    void ChooseScript();
    void FindNoScripts();
    void AskForOtherItems();
    void ChooseAmongObjects();
    void LookUpContexts();

    void Picture(const char* name) const;

    /// Prints the next message box and presses its OK button.
    void ReadMessage(BoxAnswers& boxes, const char* picture) const;

    ComPtr<IQP_BaseDataObject> Find(const wchar_t* table, const wchar_t* name);
    ComPtr<IQPProjectChoice> NewProjectChoice(const wchar_t* buttonText);
    ComPtr<IQPSelectOrvoItem> NewItemChoice(refhost::Plant& plant);

    refhost::Plant& m_plant;
    CPictures& m_pictures;
    const HostTexts& m_texts;
    std::function<void(bool, const std::wstring&)> m_expect;
};
