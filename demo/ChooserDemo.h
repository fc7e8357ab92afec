// The choosers as a host opens them and a user answers them.
#pragma once

#include "DialogDemo.h"
#include "HostTexts.h"

#include "qptools.h"

/// Opens each chooser on the sample plant, uses it as a user would, and prints the result.
class CChooserDemo : public CDialogDemo
{
public:
    /// `language` is the user's. `expect` is called with each check and its outcome.
    CChooserDemo(refhost::Plant& plant, CPictures& pictures, const std::wstring& language,
                 Expectation expect);

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

    ComPtr<IQPProjectChoice> NewProjectChoice(const wchar_t* buttonText);
    ComPtr<IQPSelectOrvoItem> NewItemChoice(refhost::Plant& plant);

    const HostTexts& m_texts;
};
