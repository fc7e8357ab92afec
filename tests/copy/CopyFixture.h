// The enhanced copy component with its dialog, over a small plant: two cells with stations, and a fixture
// that is reached by a relationship.
#pragma once

#include "CopyPlant.h"
#include "CopyWords.h"
#include "DialogFixture.h"
#include "GridSteps.h"

class CopyFixture : public DialogFixture
{
protected:
    CopyFixture()
    {
        EXPECT_EQ(module.Create(CLSID_QPCopyOptDlg, copy), S_OK);
        AddCopyAttributes(host);
    }
    ~CopyFixture() override
    {
        if (copy)
            copy->DeleteObjects();
    }

    void Initialize(const MemoryObjects& objects)
    {
        selection = host.List(objects, "selection");
        EXPECT_EQ(copy->Initialize(selection.get(), &host.Config()), S_OK);
    }

    /// Shows the dialog and runs the steps in it. Returns the status; the record of calls is that of the
    /// dialog.
    HRESULT Show(Steps steps)
    {
        dialogs.OnDialog(std::move(steps));
        host.calls.clear();
        const HRESULT status = copy->ShowDialog();
        EXPECT_TRUE(dialogs.AllShown()) << "no dialog came up";
        std::ostringstream result;
        result << std::hex << status;
        Ended(result.str());
        return status;
    }

    /// Shows the dialog for `chosen` and runs the steps, which end it.
    HRESULT Open(Steps steps)
    {
        Initialize(chosen);
        return Show(std::move(steps));
    }

    LONG Clicked() const
    {
        LONG option = 77;
        EXPECT_EQ(copy->GetButtonIDClicked(&option), S_OK);
        return option;
    }

    /// Applies the values to these copies; the record of calls is that of the call.
    void Apply(const MemoryObjects& copies)
    {
        host.calls.clear();
        EXPECT_EQ(copy->ApplyEnhanceCopy(host.List(copies, "copies").get()), S_OK);
    }

    const ComPtr<MemoryObject> press = host.Node(L"press", L"Station");
    const ComPtr<MemoryObject> lathe = host.Node(L"lathe", L"Station");
    const ComPtr<MemoryObject> gauge = host.Node(L"gauge", L"Fixture");
    const ComPtr<MemoryObject> uses = host.Relationship(L"uses", L"Uses", gauge);
    const ComPtr<MemoryObject> cell = host.Node(L"cell", L"Cell", {press, lathe, uses});
    MemoryObjects chosen = {cell}; ///< what is to be copied
    ComPtr<MemoryEnum> selection;
    ComPtr<IQPCopyOptDlg> copy;
};
