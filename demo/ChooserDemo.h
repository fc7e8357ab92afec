// The choosers as a host opens them and a user answers them.
#pragma once

#include "Pictures.h"

#include "Plant.h"

#include "ComPtr.h"

#include "qptools.h"

#include <functional>
#include <string>

/// Opens each chooser on the sample plant, does in it what a user would do, and prints what came back.
class CChooserDemo
{
public:
    /// `expect` is told what held and what did not.
    CChooserDemo(refhost::Plant& plant, const CPictures& pictures,
                 std::function<void(bool held, const std::wstring& what)> expect);

    void Run();

private:
    void ChooseProject();
    void AskForSomethingNew();
    void ChooseScript();
    void ChooseAmongObjects();
    void LookUpContexts();

    void Picture(const char* name) const;
    ComPtr<IQP_BaseDataObject> Find(const wchar_t* table, const wchar_t* name);
    ComPtr<IQPSelectOrvoItem> NewItemChoice();

    refhost::Plant& m_plant;
    const CPictures& m_pictures;
    std::function<void(bool, const std::wstring&)> m_expect;
};
